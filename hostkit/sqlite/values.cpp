#include "hostkit/sqlite/values.h"

namespace ledgerwick::sqlite {

void bind(sqlite3_stmt* statement, int parameter, const Cell& cell, bool copyText) {
    switch (cell.storage) {
        case Cell::Storage::Null:
            sqlite3_bind_null(statement, parameter);
            break;
        case Cell::Storage::Whole:
            sqlite3_bind_int64(statement, parameter, cell.whole);
            break;
        case Cell::Storage::Real:
            sqlite3_bind_double(statement, parameter, cell.real);
            break;
        case Cell::Storage::Text:
            sqlite3_bind_text64(statement, parameter, cell.text.data() ? cell.text.data() : "",
                                cell.text.size(), copyText ? SQLITE_TRANSIENT : SQLITE_STATIC,
                                SQLITE_UTF8);
            break;
    }
}

}  // namespace ledgerwick::sqlite
