#include "ledgerwick/calendar/tax_calendar.h"

#include <algorithm>
#include <chrono>
#include <string>

#include "ledgerwick/values/checked.h"
#include "ledgerwick/values/error.h"

namespace ledgerwick::calendar {
namespace {

// Tax months are counted on one line: 12 times the tax year, plus 0 for the month from 6 April to
// 11 for the one from 6 March.
struct TaxMonth {
    int taxYear;
    int index;  // [0, 11]
};

TaxMonth taxMonthOf(Date date) noexcept {
    const auto [year, month, day] = date.ymd();
    const int onTheLine = year * 12 + (month - 4) - (day < 6 ? 1 : 0);
    return {onTheLine / 12, onTheLine % 12};
}

// The day number of the 6th with which a month of that line begins. The first tax year begins
// before the range of dates and the last one ends behind it, so that this is no Date.
std::int32_t monthStart(int onTheLine) noexcept {
    constexpr int daysTo1970 = 25569;
    const int fromJanuary = onTheLine + 3;
    const std::chrono::year_month_day sixth(
        std::chrono::year(fromJanuary / 12),
        std::chrono::month(static_cast<unsigned>(fromJanuary % 12) + 1), std::chrono::day(6));
    return static_cast<std::int32_t>(std::chrono::sys_days(sixth).time_since_epoch().count()) +
           daysTo1970;
}

std::int32_t yearStart(int taxYear) noexcept {
    return monthStart(taxYear * 12);
}

// The length of a pay period, in days or in tax months; the other one is 0.
struct PeriodLength {
    std::int32_t days;
    std::int32_t months;
};

PeriodLength lengthOf(std::int32_t payPeriod, std::string_view source) {
    switch (payPeriod) {
        case 1:
        case 2:
        case 4:
            return {payPeriod * 7, 0};
        case 13:
            return {0, 3};
        case 26:
            return {0, 6};
        case 52:
            return {0, 12};
        default:
            if (payPeriod < 0) return {0, 1};
            throw Error(9909, std::string(source),
                        "Invalid Pay Period (" + std::to_string(payPeriod) + ").");
    }
}

// Both ends of a period as day numbers.
struct DayRange {
    std::int32_t first;
    std::int32_t last;

    DateRange toDates() const { return {Date().addDays(first), Date().addDays(last)}; }
};

// The run of `length` days, counted from the day `start`, in which the day `day` lies.
DayRange dayRun(std::int32_t start, std::int32_t day, std::int32_t length) noexcept {
    const std::int32_t first = day - (day - start) % length;
    return {first, first + length - 1};
}

DayRange monthRun(TaxMonth month, std::int32_t length) noexcept {
    const int first = month.taxYear * 12 + month.index - month.index % length;
    return {monthStart(first), monthStart(first + length) - 1};
}

}  // namespace

int taxYearOf(Date date) noexcept {
    return taxMonthOf(date).taxYear;
}

std::int16_t payrollYearOf(Date date) {
    return narrowToInt16(taxYearOf(date) - calendarYearOfPayrollYear0);
}

std::int32_t taxWeek(Date date) noexcept {
    return (date.dayNumber() - yearStart(taxYearOf(date))) / 7 + 1;
}

std::int32_t taxMonth(Date date) noexcept {
    return taxMonthOf(date).index + 1;
}

std::int32_t taxPeriodNumber(Date date, std::int32_t payPeriod, std::string_view source) {
    const auto length = lengthOf(payPeriod, source);
    const auto month = taxMonthOf(date);
    if (length.months != 0) return month.index / length.months + 1;
    return (date.dayNumber() - yearStart(month.taxYear)) / length.days + 1;
}

DateRange taxPeriod(Date date, std::int32_t payPeriod, std::string_view source) {
    const auto length = lengthOf(payPeriod, source);
    const auto month = taxMonthOf(date);
    if (length.months != 0) return monthRun(month, length.months).toDates();
    auto period = dayRun(yearStart(month.taxYear), date.dayNumber(), length.days);
    period.last = std::min(period.last, yearStart(month.taxYear + 1) - 1);
    return period.toDates();
}

Date taxMonthEnd(int taxYear, std::int32_t month) {
    return Date::fromYmd(taxYear, 4, 5).addMonths(month);
}

Date taxWeekEnd(int taxYear, std::int32_t week) {
    constexpr std::int32_t wholeWeeks = 52;
    if (week > wholeWeeks) return Date::fromYmd(taxYear + 1, 4, 5);
    return Date::fromYmd(taxYear, 4, 5).addWeeks(week);
}

DateRange payReferencePeriod(Date date, std::int32_t payPeriod, std::int16_t startDay) {
    constexpr std::string_view source = "AECalcR_PRP";
    constexpr std::int16_t saturday = 7;
    const auto length = lengthOf(payPeriod, source);
    const auto month = taxMonthOf(date);
    if (length.months != 0) return monthRun(month, length.months).toDates();
    std::int32_t start = yearStart(month.taxYear);
    if (payPeriod == 1 && startDay > 0) {
        if (startDay > saturday) raise(error_number::overflow, source);
        start -= daysBackToWeekday(start, startDay);
    }
    return dayRun(start, date.dayNumber(), length.days).toDates();
}

std::int32_t nearestWeeks(Date from, Date to) noexcept {
    const std::int32_t days = to.dayNumber() - from.dayNumber();
    return days > 0 ? (days + 3) / 7 : 0;
}

}  // namespace ledgerwick::calendar
