// The date that follows a pay date, or the end of a pay period, with no host state.
//
//   nextExpectedDate(Date::fromYmd(2015, 7, 31), PFREQ_Monthly, {.controller = -6});
//   // 28 August 2015, the last Friday
//
// The pay month runs like a tax month: a date in the first five days of a calendar month belongs to
// the month before.
#pragma once

#include <cstdint>
#include <string_view>

#include "ledgerwick/export.h"
#include "ledgerwick/host/enums.h"
#include "ledgerwick/values/date.h"

namespace ledgerwick::calendar {

// The day of the month on which monthly pay falls.
struct MonthlyRule {
    // Shape:  0 is the last day of the month, 1 to 5 that day of the following calendar month, 6 and
    //         above that day, or the last one of a shorter month; -1 to -7 the last Sunday to
    //         Saturday of the month.
    std::int32_t controller = 0;
    // The name of the parameter that holds the controller, for the message of error 9012.
    std::string_view parameter{};
    // Returns the number of days in the calendar month of a date, for a controller above 0. Null:
    // the calendar's own number.
    std::int16_t (*lengthOfMonth)(Date) = nullptr;
};

// The expected date after `date`, or with `reverse` the one before it. With `freqChange` it is the
// first date after a change to `freq`, which may lie in the pay month of `date`.
// Shape:  a casual date moves by one day, weekly ones by their weeks, quarterly, half-yearly and
//         annual ones by 13, 26 and 52 weeks; only a monthly one looks at the rule and at
//         `freqChange`. A moved date keeps its time of day, a monthly one has none.
// Errors: 9910 for an invalid frequency; source "C_Calc_Next_NExpDate": 9011 for a monthly date with
//         both `reverse` and `freqChange`, 9012 for a controller below -7; 6 when the date lies
//         outside the range of the type.
LEDGERWICK_API Date nextExpectedDate(Date date, PR_Pay_Freq freq, const MonthlyRule& rule = {},
                                     bool freqChange = false, bool reverse = false);

}  // namespace ledgerwick::calendar
