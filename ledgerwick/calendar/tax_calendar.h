// The UK tax calendar as plain arithmetic on dates, with no host state.
//
//   taxWeek(Date::fromYmd(2015, 4, 12));    // 1
//   taxWeek(Date::fromYmd(2015, 4, 13));    // 2
//
// Source: a tax year runs from 6 April to the following 5 April. Tax week n is the seven days from
//         6 April + 7(n - 1) days; week 53 is the one day, or the two in a tax year that contains
//         29 February, left over after 52 whole weeks. Tax month n runs from the 6th of one calendar
//         month to the 5th of the next.
#pragma once

#include <cstdint>
#include <string_view>

#include "ledgerwick/export.h"
#include "ledgerwick/values/date.h"

namespace ledgerwick::calendar {

// The first and the last day of a period.
struct DateRange {
    Date first;
    Date last;
};

// The calendar year in which the tax year of the date began.
LEDGERWICK_API int taxYearOf(Date date) noexcept;
// The payroll year number of the date: that calendar year minus 1999.
LEDGERWICK_API std::int16_t payrollYearOf(Date date);

LEDGERWICK_API std::int32_t taxWeek(Date date) noexcept;   // [1, 53]
LEDGERWICK_API std::int32_t taxMonth(Date date) noexcept;  // [1, 12]

// The number of the pay period within the tax year, by pay period code: weeks for 1, 2 and 4, tax
// months for 13, 26, 52 and every negative code.
// Errors: 9909, with `source`, for any other code.
LEDGERWICK_API std::int32_t taxPeriodNumber(Date date, std::int32_t payPeriod,
                                            std::string_view source);
// The first and last day of that period; the last one of a year is cut back to 5 April.
// Errors: 9909, with `source`, for any other code.
LEDGERWICK_API DateRange taxPeriod(Date date, std::int32_t payPeriod, std::string_view source);

// The pay reference period of auto-enrolment that holds the date. It runs its full length across 5
// April, and a weekly one begins on `startDay`.
// Shape:  `startDay` 0 follows the tax week, 1 to 7 is a weekday, 1 = Sunday.
// Errors: 9909, source "AECalcR_PRP", for a code outside 1, 2, 4, 13, 26, 52 and the negatives.
LEDGERWICK_API DateRange payReferencePeriod(Date date, std::int32_t payPeriod,
                                            std::int16_t startDay);

}  // namespace ledgerwick::calendar
