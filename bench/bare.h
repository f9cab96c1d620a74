// The same work by hand on the database's C interface: what the library is measured against.
#pragma once

#include <sqlite3.h>

#include <cstdint>

namespace bench {

// Steps the two statements of a load as they stand, reads the fields that the library reads and
// folds them into plain structs. Returns a check sum over the result.
double bareLoad(sqlite3* db);

// Opens the run of week 52 for every employee by prepared statements over the same fields: selects
// the open rows, selects the employee, inserts the row, updates it. One transaction around all.
std::int64_t bareOpen(sqlite3* db);

// Closes that run: selects each employee's open rows and updates them.
std::int64_t bareClose(sqlite3* db);

}  // namespace bench
