// Bringing a list up to date with what other offices have written.
#pragma once

#include <cstdint>
#include <vector>

#include "hostkit/export.h"
#include "hostkit/services/host_session.h"

namespace ledgerwick::office {

// Loads again whom another connection has changed since the load, and with `naid` 0 those who are
// new as well. What is found stays true until the batch or transaction that it is called in ends.
// Shape:  their numbers; nobody while nobody else has written. Imported pay in memory is lost for
//         whoever is loaded again, until the next `LoadImportedPay`.
// Errors: those of `ReLoadEmployee`.
LEDGERWICK_HOSTKIT_API std::vector<std::int32_t> bringUpToDate(HostSession& session,
                                                               std::int32_t naid = 0);

}  // namespace ledgerwick::office
