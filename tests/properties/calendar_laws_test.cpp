// Laws of the calendar, over every day of two centuries.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "ledgerwick/calendar/calculation_set.h"
#include "ledgerwick/calendar/frequency.h"
#include "ledgerwick/calendar/next_expected.h"
#include "ledgerwick/calendar/tax_calendar.h"
#include "tests/support/expect.h"

namespace ledgerwick::calendar {
namespace {

using test::on;

constexpr const char* source = "the caller";
constexpr std::array<std::int32_t, 7> payPeriods = {1, 2, 4, 13, 26, 52, -1};

std::int32_t length(const DateRange& range) {
    return range.last.dayNumber() - range.first.dayNumber() + 1;
}

bool isOn(Date date, int day, int month) {
    return date.day() == day && date.month() == month;
}

// Every day from 6 April 1900 to 5 April 2100, with the day before it.
template <class Check>
void overTwoCenturies(Check check) {
    const Date end = on(5, 4, 2100);
    for (Date date = on(7, 4, 1900); date <= end; date = date.addDays(1)) {
        check(date.addDays(-1), date);
        if (testing::Test::HasFailure()) FAIL() << "first wrong on " << date.toText();
    }
}

TEST(CalendarLaws, TheYearChangesOnSixthOfAprilAndMonthsOnTheSixth) {
    overTwoCenturies([](Date before, Date date) {
        const bool newYear = isOn(date, 6, 4);
        EXPECT_EQ(taxYearOf(date), taxYearOf(before) + (newYear ? 1 : 0));
        EXPECT_EQ(taxMonth(date), newYear ? 1 : taxMonth(before) + (date.day() == 6 ? 1 : 0));
        EXPECT_EQ(payrollYearOf(date), taxYearOf(date) - 1999);
    });
}

TEST(CalendarLaws, WeeksAndMonthsEndOnTheirLastDay) {
    overTwoCenturies([](Date before, Date date) {
        const std::int32_t week = taxWeek(before);
        EXPECT_EQ(taxWeekEnd(taxYearOf(before), week) == before, taxWeek(date) != week);
        const std::int32_t month = taxMonth(before);
        EXPECT_EQ(taxMonthEnd(taxYearOf(before), month) == before, taxMonth(date) != month);
        const Date yearEnd = on(5, 4, taxYearOf(date));
        const std::int32_t nearest = nearestWeeks(yearEnd, date);
        EXPECT_TRUE(nearest == taxWeek(date) || nearest == taxWeek(date) - 1);
    });
}

// The numbers of weeks and months are those of their periods; a reference period is one uncut.
TEST(CalendarLaws, PeriodsTileEachYearAndAreNumberedInOrder) {
    for (const auto payPeriod : payPeriods) {
        const bool byWeeks = payPeriod == 1 || payPeriod == 2 || payPeriod == 4;
        overTwoCenturies([&](Date before, Date date) {
            const auto period = taxPeriod(date, payPeriod, source);
            const auto previous = taxPeriod(before, payPeriod, source);
            const auto number = taxPeriodNumber(date, payPeriod, source);
            const auto previousNumber = taxPeriodNumber(before, payPeriod, source);
            if (period.first < date) {
                EXPECT_EQ(previous.first, period.first);
                EXPECT_EQ(previous.last, period.last);
                EXPECT_EQ(number, previousNumber);
            } else {
                EXPECT_EQ(period.first, date);
                EXPECT_EQ(previous.last, before);
                EXPECT_EQ(number, isOn(date, 6, 4) ? 1 : previousNumber + 1);
            }
            EXPECT_LE(date, period.last);
            const auto reference = payReferencePeriod(date, payPeriod, 0);
            EXPECT_EQ(reference.first, period.first);
            if (byWeeks) {
                EXPECT_EQ(length(reference), payPeriod * 7);
                EXPECT_TRUE(isOn(period.last, 5, 4) || period.last == reference.last);
            } else {
                EXPECT_EQ(period.first.day(), 6);
                EXPECT_EQ(period.last.day(), 5);
                EXPECT_EQ(reference.last, period.last);
            }
            EXPECT_TRUE(payPeriod != 1 || taxWeek(date) == number);
            EXPECT_TRUE(payPeriod != -1 || taxMonth(date) == number);
        });
    }
}

TEST(CalendarLaws, WeeksWithAStartDayNeverBreakOff) {
    for (std::int16_t startDay = 1; startDay <= 7; ++startDay) {
        overTwoCenturies([&](Date, Date date) {
            const auto week = payReferencePeriod(date, 1, startDay);
            EXPECT_TRUE(week.first <= date && date <= week.last);
            EXPECT_EQ(length(week), 7);
            EXPECT_EQ(week.first.weekday(), startDay);
        });
    }
}

// ---- next expected dates ------------------------------------------------------------------------

Date next(Date date, std::int32_t controller) {
    return nextExpectedDate(date, PFREQ_Monthly, {.controller = controller});
}
Date previous(Date date, std::int32_t controller) {
    return nextExpectedDate(date, PFREQ_Monthly, {.controller = controller}, false, true);
}

constexpr std::int32_t controllers[] = {0,  1,  2,  3,  4,  5,  6,  15, 28, 29,
                                        30, 31, -1, -2, -3, -4, -5, -6, -7};

TEST(CalendarLaws, MonthlyDatesStepThroughEveryMonthAndBack) {
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

TEST(CalendarLaws, AfterAChangeNoDateIsPassedOver) {
    for (const auto controller : controllers) {
        for (Date date = on(1, 1, 2000); date < on(1, 1, 2009); date = date.addDays(1)) {
            const Date first =
                nextExpectedDate(date, PFREQ_Monthly, {.controller = controller}, true);
            ASSERT_GT(first, date) << controller;
            ASSERT_LE(previous(first, controller), date) << controller << " " << first.toText();
        }
    }
}

}  // namespace
}  // namespace ledgerwick::calendar
