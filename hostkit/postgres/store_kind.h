// Companies on servers, by names such as "postgresql://server/offices?company=shop".
#pragma once

#include "hostkit/postgres/export.h"

namespace ledgerwick::postgres {

// Makes `store::open` and its kin open names that begin with "postgresql://" with this store. A
// program that holds the kit as a static library calls it once; a shared kit loads this library by
// itself when it is asked for such a name.
LEDGERWICK_POSTGRES_API void registerStore();

}  // namespace ledgerwick::postgres
