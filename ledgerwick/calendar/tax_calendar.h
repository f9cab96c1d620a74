// The UK tax calendar as plain arithmetic on dates, with no host state.
//
//   taxWeek(Date::fromYmd(2015, 4, 12));    // 1
//   taxWeek(Date::fromYmd(2015, 4, 13));    // 2
//
// Every date has its numbers, the ends of the type's range included. A date that a function gives
// back must lie in that range, else it is error 6. The time of day never matters: a period holds
// its last day to the end. Pay period codes are the number of weeks in the period; every negative
// code stands for a month.
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
    Date first;  // first day
    Date last;   // last day
};

// Payroll year 16 is the tax year that begins on 6 April 2015.
inline constexpr int calendarYearOfPayrollYear0 = 1999;

// The pay period code of one week, whose reference period can begin on any weekday.
inline constexpr std::int32_t weeklyPayPeriod = 1;

// The calendar year in which the tax year of the date began.
// Shape:  99 to 9999.
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

// The last day of a tax month or tax week of the tax year that begins in `taxYear`.
// Shape:  months outside 1 to 12 fall in the years around; no week ends later than the year's 5
//         April, and weeks below 1 fall in the years before.
LEDGERWICK_API Date taxMonthEnd(int taxYear, std::int32_t month);
// The same for a tax week.
LEDGERWICK_API Date taxWeekEnd(int taxYear, std::int32_t week);

// The pay reference period of auto-enrolment that holds the date. It runs its full length across 5
// April, and a weekly one begins on `startDay`.
// Shape:  `startDay` 0 follows the tax week, 1 to 7 is a weekday, 1 = Sunday.
// Errors: 9909, source "AECalcR_PRP", for a code outside 1, 2, 4, 13, 26, 52 and the negatives; 6,
//         with that source, for a weekly period that begins on a weekday above 7.
LEDGERWICK_API DateRange payReferencePeriod(Date date, std::int32_t payPeriod,
                                            std::int16_t startDay);

// The number of weeks from one day to another, to the nearest whole number.
// Shape:  0 when `to` is the earlier day. A seventh of a week is never a half.
LEDGERWICK_API std::int32_t nearestWeeks(Date from, Date to) noexcept;

// How many days lie between a day and the last given weekday on or before it. Both count from
// Sunday = 1, as day 1, 31 December 1899, was a Sunday.
constexpr std::int32_t daysBackToWeekday(std::int32_t dayNumber, std::int32_t weekday) noexcept {
    const std::int32_t remainder = (dayNumber - weekday) % 7;
    return remainder < 0 ? remainder + 7 : remainder;  // [0, 6]
}

}  // namespace ledgerwick::calendar
