#include "ledgerwick/calendar/next_expected.h"

#include <gtest/gtest.h>

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
    Date (*step)(Date, std::int32_t controller);
    std::int32_t controller;
    Date from, to;
};

const MonthlyStep monthlySteps[] = {
    {"the last day of the month", next, 0, on(31, 1, 2016), on(29, 2, 2016)},
    {"day 5 belongs to the month before", next, 0, on(5, 5, 2015), on(31, 5, 2015)},
    {"day 6 belongs to its own month", next, 0, on(6, 5, 2015), on(30, 6, 2015)},
    {"day 3 falls a calendar month later", next, 3, on(3, 5, 2015), on(3, 6, 2015)},
    {"day 31 after February", next, 31, on(28, 2, 2015), on(31, 3, 2015)},
    {"a day that no month has", next, 100, on(30, 4, 2015), on(31, 5, 2015)},
    {"the last Friday", next, -6, on(31, 7, 2015), on(28, 8, 2015)},
    {"the time of day goes", next, 15, on(15, 4, 2015).addDays(0.4), on(15, 5, 2015)},
    {"from the zero date, 30 December 1899", next, 0, Date(), on(31, 1, 1900)},
    {"up to the last date of all", next, 0, on(30, 11, 9999), Date::last()},
    {"back into the year before", previous, 15, on(15, 1, 2016), on(15, 12, 2015)},
    {"back, day 5 belongs to the month before", previous, 15, on(5, 5, 2015), on(15, 3, 2015)},
    {"the month before is out of range", previous, 3, on(10, 1, 100), on(3, 1, 100)},
    {"ahead in the same pay month", afterChange, 15, on(10, 6, 2015), on(15, 6, 2015)},
    {"already past", afterChange, 15, on(20, 6, 2015), on(15, 7, 2015)},
    {"on the very day", afterChange, 15, on(15, 6, 2015), on(15, 7, 2015)},
    {"later that day", afterChange, 15, on(15, 6, 2015).addDays(0.4), on(15, 7, 2015)},
    {"the same before the zero date", afterChange, 15, Date::fromYmdHms(1899, 12, 15, 8, 0, 0),
     on(15, 1, 1900)},
    {"day 3 ahead, in the pay month before", afterChange, 3, on(2, 6, 2015), on(3, 6, 2015)},
    {"day 3 past, in the pay month before", afterChange, 3, on(4, 6, 2015), on(3, 7, 2015)},
    {"a last day that is past", afterChange, 0, on(2, 6, 2015), on(30, 6, 2015)},
    {"a pay month before that is out of range", afterChange, 15, on(3, 1, 100), on(15, 1, 100)},
};

TEST(NextExpected, MonthlyDatesFollowTheRule) {
    for (const auto& row : monthlySteps) {
        EXPECT_EQ(row.step(row.from, row.controller), row.to) << row.reason;
    }
    const MonthlyRule shortMonths{
        .controller = 31, .parameter = {}, .lengthOfMonth = [](Date) { return std::int16_t{20}; }};
    EXPECT_EQ(nextExpectedDate(on(31, 1, 2015), PFREQ_Monthly, shortMonths), on(20, 2, 2015))
        << "the length of a month is the rule's own";
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
            EXPECT_EQ(nextExpectedDate(date, row.freq, invalidRule, true, true), before)
                << "neither the rule nor the change is looked at";
        }
    }
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
