// Cells out of SQLite and into it.
#pragma once

#include <sqlite3.h>

#include "hostkit/rowsets/cell.h"

namespace ledgerwick::sqlite {

using rowsets::Cell;

// A value of the current row of a statement, or an argument of an SQL function.
inline Cell readCell(sqlite3_value* value) noexcept {
    switch (sqlite3_value_type(value)) {
        case SQLITE_INTEGER:
            return Cell::ofWhole(sqlite3_value_int64(value));
        case SQLITE_FLOAT:
            return Cell::ofReal(sqlite3_value_double(value));
        case SQLITE_NULL:
            return {};
        default:
            return Cell::ofText({reinterpret_cast<const char*>(sqlite3_value_text(value)),
                                 static_cast<std::size_t>(sqlite3_value_bytes(value))});
    }
}

// Binds a cell to a parameter of a statement. A text that is not copied must outlive the statement's
// run.
void bind(sqlite3_stmt* statement, int parameter, const Cell& cell, bool copyText);

}  // namespace ledgerwick::sqlite
