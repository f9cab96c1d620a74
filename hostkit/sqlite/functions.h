// The functions of the dialect that SQLite does not have, or has with another meaning.
#pragma once

#include <sqlite3.h>

#include "hostkit/sqlite/statement.h"

namespace ledgerwick::sqlite {

// Format(value, picture): the library's `Format`; Null gives Null.
// ledgerwick_row(values...): fills the row that `arriving` leads to, and gives Null.
// ledgerwick_number(text): the number that a text such as "1,234.5" holds; anything else as it is.
void addFunctions(sqlite3* database, ArrivingRow*& arriving);

}  // namespace ledgerwick::sqlite
