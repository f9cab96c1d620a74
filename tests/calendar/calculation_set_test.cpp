#include "ledgerwick/calendar/calculation_set.h"

#include <gtest/gtest.h>

#include "tests/support/expect.h"

namespace ledgerwick::calendar {
namespace {

using test::errorOf;
using test::on;
using test::raisedBy;
using test::Told;

struct Change {
    std::int32_t payrollYear;
    Date day;  // the first of the later set
    std::int32_t before, from;
};

// Year 2 never gives set 2, year 4 changes in June, year 9 a second time in September; year 15 has
// one set, and from year 16 on the sets go by rule. A date outside its year counts all the same.
const Change changes[] = {
    {2, on(18, 5, 2001), 1, 3},    {3, on(18, 5, 2002), 4, 5},
    {4, on(15, 6, 2003), 6, 7},    {5, on(18, 5, 2004), 8, 9},
    {6, on(18, 5, 2005), 10, 11},  {7, on(18, 5, 2006), 12, 13},
    {8, on(18, 5, 2007), 14, 15},  {9, on(18, 5, 2008), 16, 17},
    {9, on(7, 9, 2008), 17, 18},   {10, on(18, 5, 2009), 19, 20},
    {11, on(18, 5, 2010), 21, 22}, {12, on(18, 5, 2011), 23, 24},
    {13, on(18, 5, 2012), 25, 26}, {14, on(18, 5, 2013), 27, 28},
    {15, on(18, 5, 2014), 31, 31}, {16, on(18, 5, 2015), 32, 33},
    {27, on(18, 5, 2026), 54, 55}, {16, on(1, 1, 2010), 32, 32},
    {16, on(1, 1, 2030), 33, 33},  {8000, on(18, 5, 9999), 16000, 16001},
};

TEST(CalculationSet, ChangesOnTheDayOfItsYear) {
    for (const auto& row : changes) {
        SCOPED_TRACE(row.day.toText());
        EXPECT_EQ(calculationSet(row.payrollYear, row.day.addDays(-0.01)), row.before);
        EXPECT_EQ(calculationSet(row.payrollYear, row.day), row.from);
    }
}

TEST(CalculationSet, YearsWithoutOneAreRefused) {
    const char* source = "Payroll_Functions|C_CalculationsToUseOnNewRecord";
    EXPECT_EQ(errorOf([] { calculationSet(1, on(18, 5, 2000)); }),
              (Told{9916, source, "Can't do year - 1"}));
    EXPECT_EQ(raisedBy([] { calculationSet(2147483647, Date::last()); }), error_number::overflow);
}

}  // namespace
}  // namespace ledgerwick::calendar
