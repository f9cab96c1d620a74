#include "ledgerwick/values/date.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <utility>

#include "tests/support/errors.h"

namespace ledgerwick {
namespace {

using test::raisedBy;

TEST(DateSerial, CountsDaysFromTheZeroDateAndRollsMonthsAndDaysOver) {
    constexpr auto day = Date::fromYmd;
    const std::pair<Date, Date> rows[] = {
        {day(1899, 12, 30), Date()},
        {day(2016, 4, 29), Date(42489)},
        {day(1961, 1, 1), noDate1961},
        {day(100, 1, 1), Date::first()},
        {day(9999, 12, 31), Date::last()},
        {day(2016, 13, 31), day(2017, 1, 31)},
        {day(2016, 3, 0), day(2016, 2, 29)},
        {day(2016, 0, 0), day(2015, 11, 30)},
        {day(0, 24000, 31), day(1999, 12, 31)},
        {day(99, 1, 1 + 700169), day(2016, 1, 1)},
    };
    for (const auto& [built, date] : rows) EXPECT_EQ(date, built) << date.toIso();
    EXPECT_EQ(Date::fromYmdHms(2016, 4, 6, 1, 0, 0), Date::fromYmdHms(2016, 4, 5, 24, 59, 60));
    EXPECT_EQ(Date::fromYmdHms(2016, 4, 5, 23, 59, 59), Date::fromYmdHms(2016, 4, 6, 0, 0, -1));
}

TEST(DateSerial, RefusesDaysOutsideTheRange) {
    constexpr int most = std::numeric_limits<int>::max();
    EXPECT_EQ(6, raisedBy([] { return Date::fromYmd(99, 12, 31); }));
    EXPECT_EQ(6, raisedBy([] { return Date::fromYmd(9999, 12, 32); }));
    EXPECT_EQ(6, raisedBy([=] { return Date::fromYmd(most, most, most); }));
    EXPECT_EQ(6, raisedBy([=] { return Date::fromYmd(-most, -most, -most); }));
}

// Every day of the range follows its neighbour: the day grows by one, or a new month begins.
TEST(DateParts, FollowEachOtherThroughTheWholeRange) {
    auto before = Date::first().ymd();
    int weekday = Date::first().weekday();
    EXPECT_EQ(6, Date::fromYmd(2016, 4, 29).weekday());  // a Friday
    for (double serial = Date::first().serial() + 1; serial <= Date::last().serial(); ++serial) {
        const Date date(serial);
        const auto now = date.ymd();
        const bool sameMonth =
            now.day == before.day + 1 && now.month == before.month && now.year == before.year;
        const bool nextMonth = now.day == 1 && before.day >= 28 && before.day <= 31 &&
                               now.year * 12 + now.month == before.year * 12 + before.month + 1;
        ASSERT_TRUE(sameMonth || nextMonth) << date.toIso();
        ASSERT_EQ(date, Date::fromYmd(now.year, now.month, now.day));
        ASSERT_EQ(weekday % 7 + 1, date.weekday()) << date.toIso();
        if (nextMonth) {
            ASSERT_EQ(before.day, date.addDays(-1).daysInMonth()) << date.toIso();
        }
        before = now;
        weekday = date.weekday();
    }
}

TEST(DateParts, LetTheTimeRunForwardBeforeTheZeroDateAndStandInTexts) {
    const Date early(-1.25);
    EXPECT_EQ("1899-12-29T06:00:00", early.toIso());
    EXPECT_EQ(Date(-1), early.dateOnly());
    EXPECT_EQ(Date(-1.75), early.addDays(0.5));
    EXPECT_EQ(Date(0.25), early.addDays(1));
    EXPECT_EQ(early, Date(0.25).addDays(-1));
    EXPECT_EQ(early, Date::fromYmdHms(1899, 12, 29, 6, 0, 0));
    EXPECT_EQ("30/12/1899 06:00:00", Date(-0.25).toText());
    EXPECT_EQ("05/04/2016", Date::fromYmd(2016, 4, 5).toText());
    EXPECT_EQ("0100-01-01", Date::first().toIso());
}

TEST(DateParts, KeepTheTimeOfDayOnItsDay) {
    EXPECT_EQ(86399, Date(42000.9999999).secondOfDay());
    EXPECT_EQ(42489, Date(42489.75).dayNumber());
    EXPECT_EQ(42490, Date(42489.75).roundedDayNumber());
    EXPECT_EQ(42488, Date(42488.5).roundedDayNumber());
}

TEST(DateParts, ReadASerialOutsideTheRangeAsItsNearestEnd) {
    EXPECT_EQ(9999, Date(1e300).year());
    EXPECT_EQ(100, Date(-657434.75).year());
    EXPECT_EQ(100, Date(std::numeric_limits<double>::quiet_NaN()).year());
}

TEST(DateArithmetic, KeepsTheDayOfTheMonthOrTakesTheLastOne) {
    const struct {
        const char* from;
        std::int64_t months;
        const char* to;
    } rows[] = {
        {"2016-01-31", 1, "2016-02-29"},   {"2016-01-31", 13, "2017-02-28"},
        {"2016-03-31", -1, "2016-02-29"},  {"2016-02-29", 12, "2017-02-28"},
        {"2016-01-15", -13, "2014-12-15"}, {"2016-04-05T13:00", 1, "2016-05-05T13:00:00"},
    };
    for (const auto& row : rows) {
        Date date;
        ASSERT_TRUE(parseDate(row.from, date));
        EXPECT_EQ(row.to, date.addMonths(row.months).toIso()) << row.from << " " << row.months;
    }
}

TEST(DateArithmetic, RefusesToLeaveTheRange) {
    using Limits = std::numeric_limits<std::int64_t>;
    EXPECT_EQ(6, raisedBy([] { return Date::last().addDays(1); }));
    EXPECT_EQ(6, raisedBy([] { return Date::first().addDays(-1); }));
    EXPECT_EQ(6, raisedBy([] { return Date::last().addMonths(1); }));
    EXPECT_EQ(6, raisedBy([] { return Date().addWeeks(Limits::max()); }));
    EXPECT_EQ(6, raisedBy([] { return Date().addMonths(Limits::min()); }));
    EXPECT_EQ("9999-12-31T12:00:00", Date::last().addDays(0.5).toIso());
}

TEST(DateText, IsReadInTheFormsOfAUkUser) {
    const auto read = [](const char* text) {
        Date date;
        EXPECT_TRUE(parseDate(text, date)) << text;
        return date.toIso();
    };
    for (const char* text :
         {"2016-04-05", "2016-4-5", "5/4/2016", "05/04/16", "05-04-16", "5.4.2016", "5 April 2016",
          "5 apr 16", "5-Apr-2016", "  5/4/2016  ", "05/04/2016 00:00"}) {
        EXPECT_EQ("2016-04-05", read(text)) << text;
    }
    EXPECT_EQ("2016-04-05T13:00:00", read("5/4/2016 13:00"));
    EXPECT_EQ("2016-04-05T13:00:09", read("2016-04-05T13:00:09"));
    EXPECT_EQ("2029-01-01", read("1/1/29"));
    EXPECT_EQ("1930-01-01", read("1/1/30"));
}

TEST(DateText, IsRefusedRatherThanGuessed) {
    const char* refused[] = {
        "",           "4/13/2016",     "29/2/2015",        "31/4/2016",   "0/1/2016",
        "5/4",        "5/4/216",       "5/4/20166",        "5/4-2016",    "2016-13-01",
        "2016/04/05", "April 5 2016",  "5 Ap 2016",        "5 Aprils 16", "42489",
        "5/4/0099",   "5/4/2016x",     "5/4/2016 25:00",   "5/4/2016 13", "5/4/2016 13:00:00:00",
        "5 4 2016",   "5/4/2016T1:00", "5/4/2016 13:00pm", "-5/4/2016",   "2016-04-05T",
    };
    for (const char* text : refused) {
        Date date(7);
        EXPECT_FALSE(parseDate(text, date)) << text;
        EXPECT_EQ(Date(7), date) << text;
    }
}

}  // namespace
}  // namespace ledgerwick
