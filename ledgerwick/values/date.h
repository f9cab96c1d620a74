// A date as hosts and stores know it: a count of days, with the time of day as its fraction.
//
//   Date payday = Date::fromYmd(2016, 4, 29);   // 42489 days after 30 December 1899
//   payday.addWeeks(1);                         // 6 May 2016
#pragma once

#include <chrono>
#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

#include "ledgerwick/export.h"
#include "ledgerwick/values/checked.h"
#include "ledgerwick/values/error.h"

namespace ledgerwick {

// Days since 30 December 1899. The zero date means "not set"; tests against it are exact.
// Shape:  1 January 100 to 31 December 9999; a serial outside reads as the nearest end. Before the
//         zero date the fraction still runs forward in the day: -1.25 is 29 December 1899, 06:00.
// Errors: arithmetic that leaves the range is error 6.
class LEDGERWICK_API Date {
  public:
    constexpr Date() noexcept = default;  // the zero date
    // The date of a serial, days since the zero date.
    constexpr explicit Date(double serial) noexcept : serial_(serial) {}

    // The day `day` of month `month` of `year`, at midnight. Months and days outside their range
    // roll over: month 13 is January of the next year, day 0 the last day of the month before.
    // Errors: 6 outside the range of the type.
    static constexpr Date fromYmd(int year, int month, int day) {
        return Date(static_cast<double>(dayNumberOf(year, month, day)));
    }
    // The same with a time of day; hours, minutes and seconds roll over likewise.
    static Date fromYmdHms(int year, int month, int day, int hour, int minute, int second);

    // The earliest day that the type holds, 1 January 100.
    static constexpr Date first() noexcept { return Date(firstDay); }
    // The latest day that the type holds, 31 December 9999.
    static constexpr Date last() noexcept { return Date(lastDay); }

    constexpr double serial() const noexcept { return serial_; }  // days since the zero date
    // Whether the date is anything but the zero date.
    constexpr bool isSet() const noexcept { return serial_ != 0.0; }
    // Whether a serial is one of the range.
    static constexpr bool inRange(double serial) noexcept {
        return serial > firstDay - 1 && serial < lastDay + 1;
    }

    // The day at midnight.
    constexpr Date dateOnly() const noexcept { return Date(static_cast<double>(dayNumber())); }
    // The whole day number of the day that the date lies in; any time of day is left out.
    constexpr std::int32_t dayNumber() const noexcept {
        const double fromFirst = serial_ > firstDay ? serial_ : firstDay;
        return static_cast<std::int32_t>(fromFirst < lastDay ? fromFirst : lastDay);
    }
    // The count of days as a whole number, a half to the even one; after noon that is the next day.
    std::int32_t roundedDayNumber() const { return roundToInt32(serial_, "Date"); }
    // The time of day in whole seconds, the nearest one that is still on the day. [0, 86399]
    std::int32_t secondOfDay() const noexcept;

    // The calendar year.
    constexpr int year() const noexcept { return static_cast<int>(civil().year()); }
    // The month of the year. [1, 12]
    constexpr int month() const noexcept {
        return static_cast<int>(static_cast<unsigned>(civil().month()));
    }
    // The day of the month. [1, 31]
    constexpr int day() const noexcept {
        return static_cast<int>(static_cast<unsigned>(civil().day()));
    }
    // The day of the week. [1, 7], 1 = Sunday
    constexpr int weekday() const noexcept {
        constexpr std::uint32_t wholeWeeks = 7 * 93920;  // lifts the first day above zero
        return static_cast<int>((static_cast<std::uint32_t>(dayNumber()) + wholeWeeks + 6) % 7) + 1;
    }

    // A day by its three numbers.
    struct Ymd {
        int year;   // [100, 9999]
        int month;  // [1, 12]
        int day;    // [1, 31]
    };
    // Year, month and day in one calculation.
    constexpr Ymd ymd() const noexcept {
        const auto date = civil();
        return {static_cast<int>(date.year()),
                static_cast<int>(static_cast<unsigned>(date.month())),
                static_cast<int>(static_cast<unsigned>(date.day()))};
    }

    // So many days later, or earlier.
    // Errors: 6 outside the range of the type, as for weeks and months.
    constexpr Date addDays(double days) const {
        const double moved = serial_ + days;
        // Up from the zero date the serial is the time line itself.
        if (serial_ >= 0 && moved >= 0 && moved < lastDay + 1) return Date(moved);
        return fromTimeLine(timeLine() + days);
    }
    // So many weeks later, or earlier.
    constexpr Date addWeeks(std::int64_t weeks) const {
        return addDays(static_cast<double>(weeks) * 7);
    }
    // Keeps the day of the month, or takes the last day of a shorter month.
    constexpr Date addMonths(std::int64_t months) const {
        constexpr std::int64_t wholeRange = 120000;  // ten thousand years
        if (months > wholeRange || months < -wholeRange) raise(error_number::overflow, "Date");
        const Ymd from = ymd();
        const std::int64_t moved = std::int64_t{from.year} * 12 + (from.month - 1) + months;
        const auto year = static_cast<int>(floorDivide(moved, 12));
        const auto month = static_cast<int>(moved - std::int64_t{year} * 12) + 1;
        const int length = lengthOfMonth(year, month);
        const auto day = dayNumberOf(year, month, from.day < length ? from.day : length);
        return fromTimeLine(static_cast<double>(day) + timeOfDay());
    }

    // The number of days in the calendar month of the date. [28, 31]
    constexpr int daysInMonth() const noexcept {
        const Ymd date = ymd();
        return lengthOfMonth(date.year, date.month);
    }

    // "05/04/2016", followed by " 13:00:00" when there is a time of day.
    std::string toText() const;
    // "2016-04-05", followed by "T13:00:00" when there is a time of day.
    std::string toIso() const;

    // Exact.
    friend constexpr bool operator==(Date a, Date b) noexcept { return a.serial_ == b.serial_; }
    // By the serial.
    friend constexpr std::partial_ordering operator<=>(Date a, Date b) noexcept {
        return a.serial_ <=> b.serial_;
    }

  private:
    static constexpr double firstDay = -657434.0;
    static constexpr double lastDay = 2958465.0;
    static constexpr int daysTo1970 = 25569;

    constexpr std::chrono::year_month_day civil() const noexcept {
        return std::chrono::sys_days(std::chrono::days(dayNumber() - daysTo1970));
    }

    static constexpr int lengthOfMonth(int year, int month) noexcept {
        const std::chrono::month_day_last end{std::chrono::month(static_cast<unsigned>(month))};
        return static_cast<int>(static_cast<unsigned>((std::chrono::year(year) / end).day()));
    }
    static constexpr std::int64_t floorDivide(std::int64_t a, std::int64_t b) noexcept {
        return (a >= 0 ? a : a - b + 1) / b;
    }
    // Years are counted from March here, so that a leap day is the last day of its year.
    static constexpr std::int32_t dayNumberOf(std::int64_t year, std::int64_t month, int day) {
        constexpr std::int64_t daysToMarch0 = 693899;  // from 1 March of year 0 to the zero date
        const std::int64_t monthsFromMarch = year * 12 + month - 3;
        const std::int64_t marchYear = floorDivide(monthsFromMarch, 12);
        const std::int64_t marchMonth = monthsFromMarch - marchYear * 12;  // [0, 11]
        const std::int64_t leapDays =
            floorDivide(marchYear, 4) - floorDivide(marchYear, 100) + floorDivide(marchYear, 400);
        const std::int64_t number =
            marchYear * 365 + leapDays + (153 * marchMonth + 2) / 5 + day - 1 - daysToMarch0;
        if (!inRange(static_cast<double>(number))) raise(error_number::overflow, "Date");
        return static_cast<std::int32_t>(number);
    }

    // The time of day as a fraction. [0, 1)
    constexpr double timeOfDay() const noexcept {
        const double fraction = serial_ - static_cast<double>(dayNumber());
        return fraction < 0 ? -fraction : fraction;
    }
    // Days since the zero date on one even line, on which the fraction always runs forward.
    constexpr double timeLine() const noexcept {
        return serial_ >= 0 ? serial_ : static_cast<double>(dayNumber()) + timeOfDay();
    }
    static constexpr Date fromTimeLine(double days) {
        if (!(days >= firstDay && days < lastDay + 1)) raise(error_number::overflow, "Date");
        if (days >= 0) return Date(days);
        const auto truncated = static_cast<double>(static_cast<std::int32_t>(days));
        const double day = truncated > days ? truncated - 1 : truncated;
        return Date(day - (days - day));
    }

    double serial_ = 0.0;
};

// The date that 1 January 1961 stands for in pay records: no date given.
inline constexpr Date noDate1961{22282.0};

// Reads a date from text: ISO ("2016-04-05") and the day-first forms that a UK user types
// ("5/4/2016", "05-04-16", "5.4.2016", "5 April 2016", "5 Apr 16"), each with an optional time
// ("13:00" or "13:00:00"). Day and month are never swapped; "4/13/2016" is no date. Two-digit
// years 00 to 29 are 2000 to 2029, 30 to 99 are 1930 to 1999.
// Returns whether `text` reads as a date; `out` is written only then.
LEDGERWICK_API bool parseDate(std::string_view text, Date& out);

}  // namespace ledgerwick
