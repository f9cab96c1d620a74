// Pay that reaches the payroll from outside it.
#pragma once

#include <cstdint>

#include "hostkit/export.h"
#include "hostkit/services/host_session.h"

namespace ledgerwick::office {

// Gives an employee an amount of imported pay for the next opening of a run, in the place of one
// that is there.
// Errors: 91 for an employee who is not in the list, 6 for an amount that the table cannot keep.
LEDGERWICK_HOSTKIT_API void importPay(HostSession& session, std::int32_t naid, Currency amount);

}  // namespace ledgerwick::office
