#include "ledgerwick/calendar/next_expected.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/expect.h"

namespace ledgerwick::calendar {
namespace {

using test::errorOf;
using test::on;
using test::raisedBy;
using test::Told;

Date next(Date date, std::int32_t controller) {
    return nextExpectedDate(date, PFREQ_Monthly, {.controller = controller});
}
Date previous(Date date, std::int32_t controller) {
    return nextExpectedDate(date, PFREQ_Monthly, {.controller = controller}, false, true);
}
Date afterChange(Date date, std::int32_t controller) {
    return nextExpectedDate(date, PFREQ_Monthly, {.controller = controller}, true);
}

struct MonthlyStep {
    const char* reason;
    std::int32_t controller;
    Date from, to;
};

const MonthlyStep nextDates[] = {
    {"the last day of the month", 0, on(30, 4, 2015), on(31, 5, 2015)},
    {"the last day of February", 0, on(31, 1, 2015), on(28, 2, 2015)},
    {"the last day of February in a leap year", 0, on(31, 1, 2016), on(29, 2, 2016)},
    {"into the next calendar year", 0, on(30, 11, 2015), on(31, 12, 2015)},
    {"out of December", 0, on(31, 12, 2015), on(31, 1, 2016)},
    {"day 5 belongs to the month before", 0, on(5, 5, 2015), on(31, 5, 2015)},
    {"day 6 belongs to its own month", 0, on(6, 5, 2015), on(30, 6, 2015)},
    {"a day of the month", 15, on(15, 4, 2015), on(15, 5, 2015)},
    {"day 3 falls a calendar month later", 3, on(3, 5, 2015), on(3, 6, 2015)},
    {"the last of these days", 5, on(5, 4, 2015), on(5, 5, 2015)},
    {"such a day after a long and before a short month", 1, on(1, 1, 2015), on(1, 2, 2015)},
    {"such a day across the calendar year", 3, on(3, 12, 2015), on(3, 1, 2016)},
    {"the first of the other days", 6, on(6, 4, 2015), on(6, 5, 2015)},
    {"day 31 in February", 31, on(31, 1, 2015), on(28, 2, 2015)},
    {"day 31 after February", 31, on(28, 2, 2015), on(31, 3, 2015)},
    {"a day that no month has", 100, on(30, 4, 2015), on(31, 5, 2015)},
    {"the last Friday", -6, on(31, 7, 2015), on(28, 8, 2015)},
    {"the last Sunday", -1, on(26, 4, 2015), on(31, 5, 2015)},
    {"the last Saturday, the last day of its month", -7, on(25, 4, 2015), on(30, 5, 2015)},
    {"the time of day goes", 15, Date::fromYmdHms(2015, 4, 15, 9, 30, 0), on(15, 5, 2015)},
    {"from the zero date, 30 December 1899", 0, Date(), on(31, 1, 1900)},
    {"up to the last date of all", 0, on(30, 11, 9999), Date::last()},
};

const MonthlyStep previousDates[] = {
    {"the last day of the month", 0, on(30, 4, 2015), on(31, 3, 2015)},
    {"a day of the month", 15, on(15, 4, 2015), on(15, 3, 2015)},
    {"day 3", 3, on(3, 5, 2015), on(3, 4, 2015)},
    {"back into the calendar year before", 15, on(15, 1, 2016), on(15, 12, 2015)},
    {"day 5 belongs to the month before", 15, on(5, 5, 2015), on(15, 3, 2015)},
    {"day 31 before a short month", 31, on(31, 3, 2015), on(28, 2, 2015)},
    {"the first month of all, whose own month before is beyond the range", 3, on(10, 1, 100),
     on(3, 1, 100)},
};

TEST(NextExpected, MonthlyDatesFollowTheRule) {
    for (const auto& row : nextDates) {
        EXPECT_EQ(next(row.from, row.controller), row.to) << row.reason;
    }
    for (const auto& row : previousDates) {
        EXPECT_EQ(previous(row.from, row.controller), row.to) << row.reason;
    }
}

const MonthlyStep datesAfterChange[] = {
    {"still ahead in the same pay month", 15, on(10, 6, 2015), on(15, 6, 2015)},
    {"already past", 15, on(20, 6, 2015), on(15, 7, 2015)},
    {"on the very day", 15, on(15, 6, 2015), on(15, 7, 2015)},
    {"on the very day, later that day", 15, Date::fromYmdHms(2015, 6, 15, 8, 0, 0),
     on(15, 7, 2015)},
    {"the same before the zero date", 15, Date::fromYmdHms(1899, 12, 15, 8, 0, 0), on(15, 1, 1900)},
    {"day 3 lies ahead, in the pay month before", 3, on(2, 6, 2015), on(3, 6, 2015)},
    {"day 3 is past, still in the pay month before", 3, on(4, 6, 2015), on(3, 7, 2015)},
    {"the last day of the month", 0, on(10, 6, 2015), on(30, 6, 2015)},
    {"a last day that is past", 0, on(2, 6, 2015), on(30, 6, 2015)},
    {"the pay month before lies beyond the range", 15, on(3, 1, 100), on(15, 1, 100)},
};

TEST(NextExpected, AChangeOfFrequencyTakesTheFirstDateAhead) {
    for (const auto& row : datesAfterChange) {
        EXPECT_EQ(afterChange(row.from, row.controller), row.to) << row.reason;
    }
}

constexpr std::int32_t controllers[] = {0,  1,  2,  3,  4,  5,  6,  15, 28, 29,
                                        30, 31, -1, -2, -3, -4, -5, -6, -7};

TEST(NextExpectedSweep, MonthlyDatesStepThroughEveryMonthAndBack) {
    for (const auto controller : controllers) {
        SCOPED_TRACE(controller);
        Date date = next(on(1, 1, 1900), controller);
        for (int months = 0; months < 200 * 12; ++months) {
            const Date following = next(date, controller);
            ASSERT_EQ(previous(following, controller), date);
            ASSERT_EQ(
                (following.year() * 12 + following.month()) - (date.year() * 12 + date.month()), 1);
            if (controller > 0) {
                ASSERT_EQ(following.day(), std::min(controller, following.daysInMonth()));
            } else {
                ASSERT_GT(following.day() + 7, following.daysInMonth());
                ASSERT_EQ(following.weekday(), controller < 0 ? -controller : following.weekday());
            }
            date = following;
        }
    }
}

TEST(NextExpectedSweep, AfterAChangeNoDateIsPassedOver) {
    for (const auto controller : controllers) {
        for (Date date = on(1, 1, 2000); date < on(1, 1, 2009); date = date.addDays(1)) {
            const Date first = afterChange(date, controller);
            ASSERT_GT(first, date) << controller;
            ASSERT_LE(previous(first, controller), date) << controller << " " << first.toText();
        }
    }
}

TEST(NextExpected, OtherFrequenciesStepByDaysAndKeepTheTimeOfDay) {
    struct {
        PR_Pay_Freq freq;
        int days;
    } const rows[] = {{PFREQ_Casual, 1},   {PFREQ_1Weekly, 7},    {PFREQ_2Weekly, 14},
                      {PFREQ_4Weekly, 28}, {PFREQ_Quarterly, 91}, {PFREQ_BiAnnual, 182},
                      {PFREQ_Annual, 364}};
    const MonthlyRule invalidRule{.controller = -8};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.freq);
        for (const Date date : {on(29, 2, 2016), Date::fromYmdHms(2015, 12, 31, 18, 0, 0)}) {
            const Date after = date.addDays(row.days), before = date.addDays(-row.days);
            EXPECT_EQ(nextExpectedDate(date, row.freq), after);
            EXPECT_EQ(nextExpectedDate(date, row.freq, {}, false, true), before);
            EXPECT_EQ(nextExpectedDate(date, row.freq, invalidRule, true, true), before)
                << "neither the rule nor the change is looked at";
        }
    }
}

TEST(NextExpected, AMonthsLengthIsTheRulesOwn) {
    const MonthlyRule shortMonths{
        .controller = 31, .parameter = {}, .lengthOfMonth = [](Date) { return std::int16_t{20}; }};
    EXPECT_EQ(nextExpectedDate(on(31, 1, 2015), PFREQ_Monthly, shortMonths), on(20, 2, 2015));
}

TEST(NextExpected, WhatCannotBeAnsweredIsRefused) {
    const char* source = "C_Calc_Next_NExpDate";
    const Date date = on(20, 6, 2015);
    EXPECT_EQ(errorOf([&] { nextExpectedDate(date, PFREQ_Monthly, {}, true, true); }),
              (Told{9011, source, "C_Calc_Next_NExpDate - Can't reverse and change Freq!"}));
    const MonthlyRule invalid{.controller = -8, .parameter = "PREPED_M1"};
    EXPECT_EQ(
        errorOf([&] { nextExpectedDate(date, PFREQ_Monthly, invalid); }),
        (Told{9012, source, "C_Calc_Next_NExpDate - Invalid Monthly controller (PREPED_M1)"}));
    EXPECT_EQ(errorOf([&] { nextExpectedDate(date, PFREQ_SelAll); }),
              (Told{9910, "PR_Convert_PayFreq_to_PayPeriod", "Invalid Pay Freq (-1)."}));
    for (const auto freq : {PFREQ_Casual, PFREQ_1Weekly, PFREQ_Monthly, PFREQ_Annual}) {
        EXPECT_EQ(raisedBy([&] { nextExpectedDate(Date::last(), freq); }), error_number::overflow);
        EXPECT_EQ(raisedBy([&] { nextExpectedDate(Date::first(), freq, {}, false, true); }),
                  error_number::overflow);
    }
}

}  // namespace
}  // namespace ledgerwick::calendar
