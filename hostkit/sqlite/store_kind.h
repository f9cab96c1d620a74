// Companies in SQLite files, by their paths.
#pragma once

#include "hostkit/sqlite/export.h"

namespace ledgerwick::sqlite {

// Makes `store::open` and its kin open paths and ":memory:" with this store. A program that holds the
// kit as a static library calls it once; a shared kit loads this library by itself when it is asked
// for a path.
LEDGERWICK_SQLITE_API void registerStore();

}  // namespace ledgerwick::sqlite
