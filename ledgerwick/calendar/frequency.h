// The payroll functions that stand outside a class.
#pragma once

#include <cstdint>

#include "ledgerwick/export.h"
#include "ledgerwick/host/enums.h"
#include "ledgerwick/values/date.h"

namespace ledgerwick {

// The pay period code of a pay frequency: the number of weeks, -1 for monthly, 0 for casual.
// Errors: 9910, source "PR_Convert_PayFreq_to_PayPeriod", for a frequency outside 0, 1, 2, 3, 4, 13,
//         26, 52.
LEDGERWICK_API std::int16_t PR_Convert_PayFreq_to_PayPeriod(PR_Pay_Freq iFreq);

// The pay frequency of a pay period code; every negative code is monthly.
// Errors: 9911, source "PR_Convert_PayPeriod_to_PayFreq", for any other code than 0, 1, 2, 4, 13, 26,
//         52 and the negatives.
LEDGERWICK_API PR_Pay_Freq PR_Convert_PayPeriod_to_PayFreq(std::int16_t iPeriod);

// Writes the next expected pay date of the pay row `lPRPID`, and tells whether that was done.
// Errors: none; a failure is shown through the host's critical message, and the result is False.
LEDGERWICK_API bool PR_SetNExpPayDate(std::int32_t lPRPID, Date dtNExpPayDate);
// The same for the next expected end of a pay period.
LEDGERWICK_API bool PR_SetNExpEPEDate(std::int32_t lPRPID, Date dtNExpEPEDate);

}  // namespace ledgerwick
