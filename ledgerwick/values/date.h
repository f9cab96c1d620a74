// A date as hosts and stores know it: a count of days, with the time of day as its fraction.
//
//   Date payday = Date::fromYmd(2016, 4, 29);   // 42489 days after 30 December 1899
//   payday.addWeeks(1);                         // 6 May 2016
#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

#include "ledgerwick/export.h"

namespace ledgerwick {

// Days since 30 December 1899. The zero date means "not set"; tests against it are exact.
// Shape:  1 January 100 to 31 December 9999. Before the zero date the fraction still runs
//         forward in the day: -1.25 is 29 December 1899, 06:00.
// Errors: arithmetic that leaves the range is error 6.
class LEDGERWICK_API Date {
  public:
    constexpr Date() noexcept = default;
    constexpr explicit Date(double serial) noexcept : serial_(serial) {}

    // The day `day` of month `month` of `year`, at midnight. Months and days outside their range
    // roll over: month 13 is January of the next year, day 0 the last day of the month before.
    // Errors: 6 outside the range of the type.
    static Date fromYmd(int year, int month, int day);
    // The same with a time of day.
    static Date fromYmdHms(int year, int month, int day, int hour, int minute, int second);

    // The latest day that the type holds, 31 December 9999.
    static constexpr Date last() noexcept { return Date(2958465.0); }

    constexpr double serial() const noexcept { return serial_; }
    // Whether the date is anything but the zero date.
    constexpr bool isSet() const noexcept { return serial_ != 0.0; }

    // The day at midnight.
    Date dateOnly() const noexcept;
    // The whole day number of the day that the date lies in; any time of day is left out.
    std::int32_t dayNumber() const noexcept;
    // The count of days as a whole number, a half to the even one; after noon that is the next day.
    std::int32_t roundedDayNumber() const;

    int year() const noexcept;
    int month() const noexcept;    // [1, 12]
    int day() const noexcept;      // [1, 31]
    int weekday() const noexcept;  // [1, 7], 1 = Sunday

    struct Ymd {
        int year;
        int month;  // [1, 12]
        int day;    // [1, 31]
    };
    Ymd ymd() const noexcept;

    // Errors of the three: 6 outside the range of the type.
    Date addDays(double days) const;
    Date addWeeks(std::int64_t weeks) const;
    // Keeps the day of the month, or takes the last day of a shorter month.
    Date addMonths(std::int64_t months) const;

    // The number of days in the calendar month of the date. [28, 31]
    int daysInMonth() const noexcept;

    // "05/04/2016", with " 13:00:00" behind it when there is a time of day.
    std::string toText() const;
    // "2016-04-05", with "T13:00:00" behind it when there is a time of day.
    std::string toIso() const;

    friend constexpr bool operator==(Date a, Date b) noexcept { return a.serial_ == b.serial_; }
    friend constexpr std::partial_ordering operator<=>(Date a, Date b) noexcept {
        return a.serial_ <=> b.serial_;
    }

  private:
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
