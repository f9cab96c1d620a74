// Cells out of SQLite and into it.
#pragma once

#include <sqlite3.h>

#include "hostkit/rowsets/cell.h"

namespace ledgerwick::sqlite {

using rowsets::Cell;

// An argument of an SQL function.
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

// All arguments of an SQL function, each as a value of its kind.
void takeArguments(int count, sqlite3_value** arguments, const VariantKind* kinds, Variant* into);

// A value of the row that a statement stands on.
inline Cell readColumn(sqlite3_stmt* statement, int column) noexcept {
    switch (sqlite3_column_type(statement, column)) {
        case SQLITE_INTEGER:
            return Cell::ofWhole(sqlite3_column_int64(statement, column));
        case SQLITE_FLOAT:
            return Cell::ofReal(sqlite3_column_double(statement, column));
        case SQLITE_NULL:
            return {};
        default:
            return Cell::ofText(
                {reinterpret_cast<const char*>(sqlite3_column_text(statement, column)),
                 static_cast<std::size_t>(sqlite3_column_bytes(statement, column))});
    }
}

// Binds a cell to a parameter of a statement. A text that is not copied must outlive the statement's
// run.
void bind(sqlite3_stmt* statement, int parameter, const Cell& cell, bool copyText);

}  // namespace ledgerwick::sqlite
