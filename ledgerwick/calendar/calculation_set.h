// Which set of calculations is in force on a date of a payroll year.
//
//   calculationSet(16, Date::fromYmd(2015, 5, 18));    // 33
#pragma once

#include <cstdint>

#include "ledgerwick/export.h"
#include "ledgerwick/values/date.h"

namespace ledgerwick::calendar {

// The number of the set that applies on `date`, by the changes of `payrollYear`.
// Shape:  1 to 28 and 31 upwards, without 2; before the first change of the year also a date of an
//         earlier year counts, after the last one also a date of a later year.
// Errors: 9916, source "Payroll_Functions|C_CalculationsToUseOnNewRecord", for a year below 2; 6 for
//         one beyond the range of dates.
LEDGERWICK_API std::int32_t calculationSet(std::int32_t payrollYear, Date date);

}  // namespace ledgerwick::calendar
