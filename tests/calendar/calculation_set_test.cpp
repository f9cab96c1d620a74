#include "ledgerwick/calendar/calculation_set.h"

#include <gtest/gtest.h>

#include "tests/support/expect.h"

namespace ledgerwick::calendar {
namespace {

using test::errorOf;
using test::on;
using test::raisedBy;
using test::Told;

struct SetOnDay {
    std::int32_t payrollYear;
    Date date;
    std::int32_t set;
};

const SetOnDay setsOnDays[] = {
    {2, on(17, 5, 2001), 1},        {2, on(18, 5, 2001), 3},    // 2 is never given
    {3, on(17, 5, 2002), 4},        {3, on(18, 5, 2002), 5},    //
    {4, on(14, 6, 2003), 6},        {4, on(15, 6, 2003), 7},    // a change in June
    {5, on(17, 5, 2004), 8},        {5, on(18, 5, 2004), 9},    //
    {6, on(17, 5, 2005), 10},       {6, on(18, 5, 2005), 11},   //
    {7, on(17, 5, 2006), 12},       {7, on(18, 5, 2006), 13},   //
    {8, on(17, 5, 2007), 14},       {8, on(18, 5, 2007), 15},   //
    {9, on(17, 5, 2008), 16},       {9, on(18, 5, 2008), 17},   //
    {9, on(6, 9, 2008), 17},        {9, on(7, 9, 2008), 18},    // a second change in September
    {10, on(17, 5, 2009), 19},      {10, on(18, 5, 2009), 20},  //
    {11, on(17, 5, 2010), 21},      {11, on(18, 5, 2010), 22},  //
    {12, on(17, 5, 2011), 23},      {12, on(18, 5, 2011), 24},  //
    {13, on(17, 5, 2012), 25},      {13, on(18, 5, 2012), 26},  //
    {14, on(17, 5, 2013), 27},      {14, on(18, 5, 2013), 28},  //
    {15, on(6, 4, 2014), 31},       {15, on(5, 4, 2015), 31},   // no change, and no 29 or 30
    {16, on(17, 5, 2015), 32},      {16, on(18, 5, 2015), 33},  // from here on by rule
    {27, on(17, 5, 2026), 54},      {27, on(18, 5, 2026), 55},  //
    {8000, on(17, 5, 9999), 16000}, {8000, Date::last(), 16001},
    {16, on(1, 1, 2010), 32},       {16, on(1, 1, 2030), 33},  // a date outside the year
};

TEST(CalculationSet, ChangesOnTheDayOfItsYear) {
    for (const auto& row : setsOnDays) {
        EXPECT_EQ(calculationSet(row.payrollYear, row.date), row.set)
            << row.payrollYear << " on " << row.date.toText();
    }
    EXPECT_EQ(calculationSet(16, Date::fromYmdHms(2015, 5, 17, 23, 59, 0)), 32);
}

TEST(CalculationSet, YearsWithoutOneAreRefused) {
    const char* source = "Payroll_Functions|C_CalculationsToUseOnNewRecord";
    EXPECT_EQ(errorOf([] { calculationSet(1, on(18, 5, 2000)); }),
              (Told{9916, source, "Can't do year - 1"}));
    EXPECT_EQ(errorOf([] { calculationSet(-100, Date()); }),
              (Told{9916, source, "Can't do year - -100"}));
    EXPECT_EQ(raisedBy([] { calculationSet(2147483647, Date::last()); }), error_number::overflow);
}

}  // namespace
}  // namespace ledgerwick::calendar
