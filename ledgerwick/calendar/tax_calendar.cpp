#include "ledgerwick/calendar/tax_calendar.h"

#include <algorithm>
#include <limits>
#include <string>

#include "ledgerwick/calendar/frequency.h"
#include "ledgerwick/values/checked.h"
#include "ledgerwick/values/error.h"

namespace ledgerwick::calendar {
namespace {

// A day by its tax year. Tax years are long or short in the same order as years counted from 1
// March, which begin 36 days earlier and hold the same 29 February; a leap day is the last day of
// such a year, so that plain divisions find it.
struct TaxDay {
    int taxYear;
    std::int32_t dayNumber;
    std::int32_t dayOfYear;  // [0, 365]

    std::int32_t yearStart() const noexcept { return dayNumber - dayOfYear; }
};

TaxDay taxDayOf(Date date) noexcept {
    constexpr std::uint32_t daysFromYear0 = 693863;  // from 6 April of year 0 to the zero date
    constexpr std::uint32_t daysIn4Centuries = 146097;
    constexpr std::uint32_t daysIn4Years = 1461;
    const std::int32_t dayNumber = date.dayNumber();
    const std::uint32_t day = static_cast<std::uint32_t>(dayNumber) + daysFromYear0;
    const std::uint32_t century = (4 * day + 3) / daysIn4Centuries;
    const std::uint32_t dayOfCentury = day - daysIn4Centuries * century / 4;
    const std::uint32_t year = (4 * dayOfCentury + 3) / daysIn4Years;
    return {static_cast<int>(100 * century + year), dayNumber,
            static_cast<std::int32_t>(dayOfCentury - daysIn4Years * year / 4)};
}

// Whether a tax year contains 29 February.
bool isLong(int taxYear) noexcept {
    const int year = taxYear + 1;
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

// The day of the year, from 0, on which the tax month `index` begins; 12 is the next year's first.
std::int32_t monthStart(int taxYear, int index) noexcept {
    constexpr std::int16_t starts[] = {0, 30, 61, 91, 122, 153, 183, 214, 244, 275, 306, 334, 365};
    constexpr int firstBehindLeapDay = 11;
    return starts[index] + (index >= firstBehindLeapDay && isLong(taxYear) ? 1 : 0);
}

int monthIndex(const TaxDay& day) noexcept {  // [0, 11]
    const int before = day.dayOfYear / 31;    // this month or the one before
    return day.dayOfYear < monthStart(day.taxYear, before + 1) ? before : before + 1;
}

// The length of a pay period, in days or in tax months; the other one is 0.
struct PeriodLength {
    std::int32_t days;
    std::int32_t months;
};

PeriodLength lengthOf(std::int32_t payPeriod, std::string_view source) {
    const Frequency* const frequency = findByPayPeriod(payPeriod);
    if (frequency && frequency->months != 0) return {0, frequency->months};
    if (frequency && frequency->weeks != 0) return {frequency->weeks * 7, 0};
    throw Error(9909, std::string(source),
                "Invalid Pay Period (" + std::to_string(payPeriod) + ").");
}

Date toDate(std::int32_t dayNumber) {
    if (!Date::inRange(dayNumber)) raise(error_number::overflow, "Date");
    return Date(dayNumber);
}

// The run of `length` days, counted from the day `start`, in which the day lies.
DateRange dayRun(std::int32_t start, std::int32_t dayNumber, std::int32_t length,
                 std::int32_t latest = std::numeric_limits<std::int32_t>::max()) {
    const std::int32_t first = dayNumber - (dayNumber - start) % length;
    return {toDate(first), toDate(std::min(first + length - 1, latest))};
}

DateRange monthRun(const TaxDay& day, std::int32_t length) {
    const int index = monthIndex(day);
    const int first = index - index % length;
    return {toDate(day.yearStart() + monthStart(day.taxYear, first)),
            toDate(day.yearStart() + monthStart(day.taxYear, first + length) - 1)};
}

}  // namespace

int taxYearOf(Date date) noexcept {
    return taxDayOf(date).taxYear;
}

std::int16_t payrollYearOf(Date date) {
    return narrowToInt16(taxYearOf(date) - calendarYearOfPayrollYear0);
}

std::int32_t taxWeek(Date date) noexcept {
    return taxDayOf(date).dayOfYear / 7 + 1;
}

std::int32_t taxMonth(Date date) noexcept {
    return monthIndex(taxDayOf(date)) + 1;
}

std::int32_t taxPeriodNumber(Date date, std::int32_t payPeriod, std::string_view source) {
    const auto length = lengthOf(payPeriod, source);
    const auto day = taxDayOf(date);
    if (length.months != 0) return monthIndex(day) / length.months + 1;
    return day.dayOfYear / length.days + 1;
}

DateRange taxPeriod(Date date, std::int32_t payPeriod, std::string_view source) {
    const auto length = lengthOf(payPeriod, source);
    const auto day = taxDayOf(date);
    if (length.months != 0) return monthRun(day, length.months);
    const std::int32_t yearEnd = day.yearStart() + monthStart(day.taxYear, 12) - 1;
    return dayRun(day.yearStart(), day.dayNumber, length.days, yearEnd);
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
    const auto day = taxDayOf(date);
    if (length.months != 0) return monthRun(day, length.months);
    std::int32_t start = day.yearStart();
    if (payPeriod == weeklyPayPeriod && startDay > 0) {
        if (startDay > saturday) raise(error_number::overflow, source);
        start -= daysBackToWeekday(start, startDay);
    }
    return dayRun(start, day.dayNumber, length.days);
}

std::int32_t nearestWeeks(Date from, Date to) noexcept {
    const std::int32_t days = to.dayNumber() - from.dayNumber();
    return days > 0 ? (days + 3) / 7 : 0;
}

}  // namespace ledgerwick::calendar
