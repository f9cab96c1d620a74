#include "ledgerwick/calendar/next_expected.h"

#include <algorithm>
#include <chrono>
#include <string>

#include "ledgerwick/calendar/frequency.h"
#include "ledgerwick/calendar/tax_calendar.h"
#include "ledgerwick/values/error.h"

namespace ledgerwick::calendar {
namespace {

constexpr const char* operation = "C_Calc_Next_NExpDate";
constexpr int lastDayOfPreviousPayMonth = 5;
constexpr std::int32_t lastDayOfLatePayMonth = 5;  // controllers up to here fall a month later
constexpr std::int32_t lastSaturday = -7;

// How many calendar months after the month of `date` the result lies. [-2, 2]
int monthsToMove(Date::Ymd date, std::int32_t controller, bool freqChange, bool reverse) {
    if (reverse && freqChange) {
        throw Error(9011, operation, std::string(operation) + " - Can't reverse and change Freq!");
    }
    const int payMonth = date.day <= lastDayOfPreviousPayMonth ? -1 : 0;
    const int late = controller > 0 && controller <= lastDayOfLatePayMonth ? 1 : 0;
    if (reverse) return payMonth - 1 + late;
    return payMonth + late + (freqChange ? 0 : 1);
}

void checkController(const MonthlyRule& rule) {
    if (rule.controller >= lastSaturday) return;
    throw Error(9012, operation,
                std::string(operation) + " - Invalid Monthly controller (" +
                    std::string(rule.parameter) + ")");
}

// Errors: 6 outside the range of the type.
Date firstDayOf(std::chrono::year_month month) {
    constexpr int firstYear = Date::first().year();
    constexpr int lastYear = Date::last().year();
    constexpr std::chrono::sys_days zero = std::chrono::year(1899) / 12 / 30;
    const auto year = static_cast<int>(month.year());
    if (year < firstYear || year > lastYear)
        return Date::fromYmd(year, static_cast<int>(static_cast<unsigned>(month.month())), 1);
    return Date(static_cast<double>((std::chrono::sys_days(month / 1) - zero).count()));
}

// The monthly date of a calendar month, which may be numbered up to a year outside 1 to 12.
Date monthlyDate(int year, int month, const MonthlyRule& rule) {
    const int rolled = month < 1 ? -1 : month > 12 ? 1 : 0;
    year += rolled;
    month -= 12 * rolled;
    const auto civilMonth =
        std::chrono::year(year) / std::chrono::month(static_cast<unsigned>(month));
    const Date firstDay = firstDayOf(civilMonth);
    const auto daysInMonth =
        static_cast<int>(static_cast<unsigned>((civilMonth / std::chrono::last).day()));
    const Date lastDay = firstDay.addDays(daysInMonth - 1);
    if (rule.controller > 0) {
        const int length = rule.lengthOfMonth ? rule.lengthOfMonth(lastDay) : daysInMonth;
        return firstDay.addDays(std::min(rule.controller, length) - 1);
    }
    if (rule.controller < 0) {
        return lastDay.addDays(-daysBackToWeekday(lastDay.dayNumber(), -rule.controller));
    }
    return lastDay;
}

Date nextMonthlyDate(Date date, const MonthlyRule& rule, bool freqChange, bool reverse) {
    const auto from = date.ymd();
    const int months = monthsToMove(from, rule.controller, freqChange, reverse);
    checkController(rule);
    if (!freqChange || months > 0) return monthlyDate(from.year, from.month + months, rule);
    if (months == 0) {
        const Date inThisMonth = monthlyDate(from.year, from.month, rule);
        if (inThisMonth.dayNumber() > date.dayNumber()) return inThisMonth;
    }
    // That date has passed, like every date of an earlier calendar month.
    return monthlyDate(from.year, from.month + months + 1, rule);
}

}  // namespace

Date nextExpectedDate(Date date, PR_Pay_Freq freq, const MonthlyRule& rule, bool freqChange,
                      bool reverse) {
    const Frequency& frequency = frequencyOf(freq);
    if (frequency.code == PFREQ_Monthly) return nextMonthlyDate(date, rule, freqChange, reverse);
    const std::int32_t days = frequency.weeks == 0 ? 1 : frequency.weeks * 7;
    return date.addDays(reverse ? -days : days);
}

}  // namespace ledgerwick::calendar
