#include "ledgerwick/calendar/next_expected.h"

#include <algorithm>
#include <string>

#include "ledgerwick/calendar/pr_functions.h"
#include "ledgerwick/calendar/tax_calendar.h"
#include "ledgerwick/values/error.h"

namespace ledgerwick::calendar {
namespace {

constexpr const char* operation = "C_Calc_Next_NExpDate";
constexpr int lastDayOfPreviousPayMonth = 5;
constexpr std::int32_t lastDayOfLatePayMonth = 5;  // controllers up to here fall a month later
constexpr std::int32_t lastSaturday = -7;

// How many calendar months lie between the month of `date` and the one whose last day is the anchor
// of the next date. [-2, 1]
int monthsToAnchor(Date::Ymd date, bool freqChange, bool reverse) {
    if (reverse && freqChange) {
        throw Error(9011, operation, std::string(operation) + " - Can't reverse and change Freq!");
    }
    const int payMonth = date.day <= lastDayOfPreviousPayMonth ? -1 : 0;
    if (reverse) return payMonth - 1;
    return freqChange ? payMonth : payMonth + 1;
}

// The monthly date of a calendar month, which may be numbered outside 1 to 12.
Date monthlyDate(int year, int month, const MonthlyRule& rule) {
    const std::int32_t controller = rule.controller;
    if (controller < lastSaturday) {
        throw Error(9012, operation,
                    std::string(operation) + " - Invalid Monthly controller (" +
                        std::string(rule.parameter) + ")");
    }
    if (controller > 0 && controller <= lastDayOfLatePayMonth) ++month;
    const Date lastDay = Date::fromYmd(year, month + 1, 0);
    if (controller > 0) {
        const int length = rule.lengthOfMonth(lastDay);
        return Date::fromYmd(year, month, std::min(controller, length));
    }
    if (controller < 0)
        return lastDay.addDays(-daysBackToWeekday(lastDay.dayNumber(), -controller));
    return lastDay;
}

Date nextMonthlyDate(Date date, const MonthlyRule& rule, bool freqChange, bool reverse) {
    const auto from = date.ymd();
    const Date next =
        monthlyDate(from.year, from.month + monthsToAnchor(from, freqChange, reverse), rule);
    const bool isAhead = next.dayNumber() > date.dayNumber();
    return freqChange && !isAhead ? nextMonthlyDate(date, rule, false, false) : next;
}

}  // namespace

std::int16_t daysInMonth(Date date) {
    return static_cast<std::int16_t>(date.daysInMonth());
}

Date nextExpectedDate(Date date, PR_Pay_Freq freq, const MonthlyRule& rule, bool freqChange,
                      bool reverse) {
    const std::int16_t payPeriod = PR_Convert_PayFreq_to_PayPeriod(freq);
    if (payPeriod < 0) return nextMonthlyDate(date, rule, freqChange, reverse);
    const std::int32_t days = payPeriod == 0 ? 1 : payPeriod * 7;
    return date.addDays(reverse ? -days : days);
}

}  // namespace ledgerwick::calendar
