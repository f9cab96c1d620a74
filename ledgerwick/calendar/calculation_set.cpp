#include "ledgerwick/calendar/calculation_set.h"

#include <iterator>
#include <string>

#include "ledgerwick/calendar/tax_calendar.h"
#include "ledgerwick/values/error.h"

namespace ledgerwick::calendar {
namespace {

// A set that comes into force on a day of the calendar year in which the payroll year begins. A
// change without a month never happens.
struct Change {
    int month = 0;
    int day = 0;
    std::int32_t set = 0;

    bool isInForce(std::int32_t payrollYear, Date date) const {
        return month != 0 &&
               date >= Date::fromYmd(payrollYear + calendarYearOfPayrollYear0, month, day);
    }
};

struct SetsOfYear {
    std::int32_t payrollYear;
    std::int32_t before;
    Change first{};
    Change second{};
};

constexpr std::int32_t firstYear = 2;

// clang-format off
constexpr SetsOfYear setsOfYear[] = {
    {2,   1, {5, 18,  3}},
    {3,   4, {5, 18,  5}},
    {4,   6, {6, 15,  7}},
    {5,   8, {5, 18,  9}},
    {6,  10, {5, 18, 11}},
    {7,  12, {5, 18, 13}},
    {8,  14, {5, 18, 15}},
    {9,  16, {5, 18, 17}, {9, 7, 18}},
    {10, 19, {5, 18, 20}},
    {11, 21, {5, 18, 22}},
    {12, 23, {5, 18, 24}},
    {13, 25, {5, 18, 26}},
    {14, 27, {5, 18, 28}},
    {15, 31},
};
// clang-format on
constexpr std::int32_t firstRegularYear = firstYear + std::int32_t{std::size(setsOfYear)};
static_assert(setsOfYear[0].payrollYear == firstYear);
static_assert(setsOfYear[std::size(setsOfYear) - 1].payrollYear == firstRegularYear - 1);

SetsOfYear setsOf(std::int32_t payrollYear) noexcept {
    if (payrollYear < firstRegularYear) return setsOfYear[payrollYear - firstYear];
    return {payrollYear, 2 * payrollYear, {5, 18, 2 * payrollYear + 1}};
}

}  // namespace

std::int32_t calculationSet(std::int32_t payrollYear, Date date) {
    if (payrollYear < firstYear) {
        throw Error(9916, "Payroll_Functions|C_CalculationsToUseOnNewRecord",
                    "Can't do year - " + std::to_string(payrollYear));
    }
    if (payrollYear > payrollYearOf(Date::last())) raise(error_number::overflow, "calculationSet");
    const auto sets = setsOf(payrollYear);
    if (sets.second.isInForce(payrollYear, date)) return sets.second.set;
    if (sets.first.isInForce(payrollYear, date)) return sets.first.set;
    return sets.before;
}

}  // namespace ledgerwick::calendar
