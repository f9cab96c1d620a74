#include "ledgerwick/calendar/tax_calendar.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "tests/support/expect.h"

namespace ledgerwick::calendar {
namespace {

using test::errorOf;
using test::on;
using test::raisedBy;
using test::Told;

constexpr const char* source = "the caller";

struct NumbersOfDay {
    const char* reason;
    Date date;
    std::int32_t payrollYear, week, month;
};

const NumbersOfDay numbersOfDays[] = {
    {"the last day of a year, the only one in its week 53", on(5, 4, 2015), 15, 53, 12},
    {"week 53 has two days in a year with 29 February", on(4, 4, 2016), 16, 53, 12},
    {"else the day before the last is in week 52", on(4, 4, 2017), 17, 52, 12},
    {"the day before year 0", on(5, 4, 1999), -1, 53, 12},
    {"the zero date, 30 December 1899", Date(), -100, 39, 9},
    {"the evening of a last day", Date::fromYmdHms(2015, 4, 5, 23, 59, 59), 15, 53, 12},
    {"the evening of a week's last day", Date::fromYmdHms(2015, 4, 12, 18, 0, 0), 16, 1, 1},
    {"a time of day before the zero date", Date(-0.25), -100, 39, 9},
    {"the first date of all", on(1, 1, 100), -1900, 39, 9},
    {"the last date of all", on(31, 12, 9999), 8000, 39, 9},
};

TEST(TaxCalendar, DaysHaveTheirYearWeekAndMonth) {
    for (const auto& row : numbersOfDays) {
        SCOPED_TRACE(row.reason);
        EXPECT_EQ(payrollYearOf(row.date), row.payrollYear);
        EXPECT_EQ(taxYearOf(row.date), row.payrollYear + 1999);
        EXPECT_EQ(taxWeek(row.date), row.week);
        EXPECT_EQ(taxMonth(row.date), row.month);
    }
}

struct PeriodOfDay {
    const char* reason;
    Date date;
    std::int32_t payPeriod;
    std::int32_t number;
    Date first, last;
};

const PeriodOfDay periodsOfDays[] = {
    {"week 53 of two days", on(5, 4, 2016), 1, 53, on(4, 4, 2016), on(5, 4, 2016)},
    {"fortnight 27, cut", on(5, 4, 2015), 2, 27, on(5, 4, 2015), on(5, 4, 2015)},
    {"four-week period 14, cut", on(5, 4, 2015), 4, 14, on(5, 4, 2015), on(5, 4, 2015)},
    {"minus a month is monthly", on(20, 6, 2015), -7, 3, on(6, 6, 2015), on(5, 7, 2015)},
    {"a quarter that ends in the next year", on(6, 1, 2016), 13, 4, on(6, 1, 2016), on(5, 4, 2016)},
    {"the second half year", on(6, 10, 2015), 26, 2, on(6, 10, 2015), on(5, 4, 2016)},
    {"the year", on(5, 4, 2015), 52, 1, on(6, 4, 2014), on(5, 4, 2015)},
};

TEST(TaxCalendar, DaysHaveTheirPeriods) {
    for (const auto& row : periodsOfDays) {
        SCOPED_TRACE(row.reason);
        EXPECT_EQ(taxPeriodNumber(row.date, row.payPeriod, source), row.number);
        const auto period = taxPeriod(row.date, row.payPeriod, source);
        EXPECT_EQ(period.first, row.first);
        EXPECT_EQ(period.last, row.last);
    }
}

struct ReferencePeriod {
    const char* reason;
    Date date;
    std::int32_t payPeriod;
    std::int16_t startDay;
    Date first, last;
};

const ReferencePeriod referencePeriods[] = {
    {"a week is not cut at 5 April", on(5, 4, 2015), 1, 0, on(5, 4, 2015), on(11, 4, 2015)},
    {"a start day can reach week 54", on(5, 4, 2016), 1, 3, on(5, 4, 2016), on(11, 4, 2016)},
    {"fortnights: no start day, no cut", on(5, 4, 2015), 2, 3, on(5, 4, 2015), on(18, 4, 2015)},
    {"a negative start day is none", on(5, 4, 2015), 1, -3, on(5, 4, 2015), on(11, 4, 2015)},
    {"months are tax months", on(5, 4, 2015), -12, 3, on(6, 3, 2015), on(5, 4, 2015)},
    {"a week at the beginning of all dates", on(1, 1, 100), 1, 6, on(1, 1, 100), on(7, 1, 100)},
    {"and one at their end", Date::last(), 1, 7, on(25, 12, 9999), Date::last()},
};

TEST(PayReferencePeriod, HoldsItsDate) {
    for (const auto& row : referencePeriods) {
        SCOPED_TRACE(row.reason);
        const auto period = payReferencePeriod(row.date, row.payPeriod, row.startDay);
        EXPECT_EQ(period.first, row.first);
        EXPECT_EQ(period.last, row.last);
    }
}

TEST(TaxCalendar, OtherPayPeriodsAreRefused) {
    for (const std::int32_t payPeriod : {0, 3, 65537}) {
        const std::string text = "Invalid Pay Period (" + std::to_string(payPeriod) + ").";
        const Date date = on(6, 4, 2015);
        EXPECT_EQ(errorOf([&] { taxPeriodNumber(date, payPeriod, source); }),
                  (Told{9909, source, text}));
        EXPECT_EQ(errorOf([&] { taxPeriod(date, payPeriod, source); }), (Told{9909, source, text}));
        EXPECT_EQ(errorOf([&] { payReferencePeriod(date, payPeriod, 0); }),
                  (Told{9909, "AECalcR_PRP", text}));
    }
}

TEST(TaxCalendar, PeriodsBeyondTheRangeOfDatesOverflowButHaveTheirNumber) {
    const Date first = on(1, 1, 100);
    EXPECT_EQ(taxPeriodNumber(first, 52, source), 1);
    EXPECT_EQ(raisedBy([&] { taxPeriod(first, 52, source); }), error_number::overflow);
    EXPECT_EQ(taxPeriodNumber(Date::last(), 2, source), 20);
    EXPECT_EQ(raisedBy([] { taxPeriod(Date::last(), 2, source); }), error_number::overflow);
    EXPECT_EQ(raisedBy([] { taxMonthEnd(9999, 9); }), error_number::overflow);
    EXPECT_EQ(raisedBy([] { payReferencePeriod(on(6, 4, 2015), 1, 8); }), error_number::overflow)
        << "no weekday";
    EXPECT_EQ(raisedBy([] { payReferencePeriod(on(6, 4, 2015), 2, 8); }), 0);
}

TEST(TaxCalendar, MonthsAndWeeksHaveTheirEnds) {
    EXPECT_EQ(taxMonthEnd(2015, 9), on(5, 1, 2016));
    EXPECT_EQ(taxMonthEnd(2015, 13), on(5, 5, 2016));
    EXPECT_EQ(taxMonthEnd(2015, -1), on(5, 3, 2015));
    EXPECT_EQ(taxWeekEnd(2015, 1), on(12, 4, 2015));
    EXPECT_EQ(taxWeekEnd(2016, 52), on(4, 4, 2017));
    EXPECT_EQ(taxWeekEnd(2015, 53), on(5, 4, 2016));
    EXPECT_EQ(taxWeekEnd(2015, 54), on(5, 4, 2016));
    EXPECT_EQ(taxWeekEnd(2015, -1), on(29, 3, 2015));
}

TEST(TaxCalendar, WeeksAreCountedToTheNearest) {
    const Date yearEnd = on(5, 4, 2015);
    const std::pair<int, int> rows[] = {{-400, 0}, {-4, 0}, {0, 0},  {3, 0},  {4, 1},
                                        {10, 1},   {11, 2}, {17, 2}, {18, 3}, {366, 52}};
    for (const auto& [days, weeks] : rows) {
        EXPECT_EQ(nearestWeeks(yearEnd, yearEnd.addDays(days)), weeks) << days;
    }
    EXPECT_EQ(nearestWeeks(yearEnd, yearEnd.addDays(3.9)), 0) << "whole days only";
    EXPECT_EQ(nearestWeeks(on(1, 1, 100), Date::last()), 516557);
}

}  // namespace
}  // namespace ledgerwick::calendar
