// The stores that a program of the project holds as static libraries: the one place that names them.
// A shared kit loads a store when a company of its kind is first opened (store/store_library.cpp).
#pragma once

#ifdef LEDGERWICK_LINKED_SQLITE
#include "hostkit/sqlite/store_kind.h"
#endif
#ifdef LEDGERWICK_LINKED_POSTGRES
#include "hostkit/postgres/store_kind.h"
#endif

namespace ledgerwick {

// Makes `store::open` know every store that the program holds.
inline void registerStores() {
#ifdef LEDGERWICK_LINKED_SQLITE
    sqlite::registerStore();
#endif
#ifdef LEDGERWICK_LINKED_POSTGRES
    postgres::registerStore();
#endif
}

}  // namespace ledgerwick
