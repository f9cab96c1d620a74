// Writing the next expected dates to the pay row that holds them.
#pragma once

#include <cstdint>

#include "ledgerwick/export.h"
#include "ledgerwick/values/date.h"

namespace ledgerwick {

// Writes the next expected pay date of the pay row `lPRPID`. True when it was written.
// Errors: none; a failure is shown through the host's critical message, and the result is False.
LEDGERWICK_API bool PR_SetNExpPayDate(std::int32_t lPRPID, Date dtNExpPayDate);
// The same for the next expected end of a pay period.
LEDGERWICK_API bool PR_SetNExpEPEDate(std::int32_t lPRPID, Date dtNExpEPEDate);

}  // namespace ledgerwick
