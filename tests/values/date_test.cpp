#include "ledgerwick/values/date.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "tests/support/errors.h"

namespace ledgerwick {
namespace {

using test::raisedBy;

TEST(DateSerial, CountsDaysFromTheZeroDate) {
    EXPECT_EQ(Date(), Date::fromYmd(1899, 12, 30));
    EXPECT_FALSE(Date().isSet());
    EXPECT_EQ(Date(42489), Date::fromYmd(2016, 4, 29));
    EXPECT_EQ(noDate1961, Date::fromYmd(1961, 1, 1));
    EXPECT_EQ(Date::first(), Date::fromYmd(100, 1, 1));
    EXPECT_EQ(Date::last(), Date::fromYmd(9999, 12, 31));
}

TEST(DateSerial, RollsMonthsAndDaysOver) {
    EXPECT_EQ(Date::fromYmd(2017, 1, 31), Date::fromYmd(2016, 13, 31));
    EXPECT_EQ(Date::fromYmd(2016, 2, 29), Date::fromYmd(2016, 3, 0));
    EXPECT_EQ(Date::fromYmd(2015, 11, 30), Date::fromYmd(2016, 0, 0));
    EXPECT_EQ(Date::fromYmd(1999, 12, 31), Date::fromYmd(0, 24000, 31));
    EXPECT_EQ(Date::fromYmd(2016, 1, 1), Date::fromYmd(99, 1, 1 + 700169));
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
        before = now;
        weekday = date.weekday();
    }
}

TEST(DateParts, KnowLeapYearsAndWeekdays) {
    EXPECT_EQ(6, Date::fromYmd(2016, 4, 29).weekday());  // a Friday
    EXPECT_EQ(7, Date().weekday());
    EXPECT_EQ(29, Date::fromYmd(2000, 2, 1).daysInMonth());
    EXPECT_EQ(28, Date::fromYmd(1900, 2, 1).daysInMonth());
    EXPECT_EQ(30, Date::fromYmd(2016, 4, 29).daysInMonth());
}

TEST(DateParts, LetTheTimeRunForwardBeforeTheZeroDate) {
    const Date early(-1.25);
    EXPECT_EQ("1899-12-29T06:00:00", early.toIso());
    EXPECT_EQ(Date(-1), early.dateOnly());
    EXPECT_EQ(Date(-1.75), early.addDays(0.5));
    EXPECT_EQ(Date(0.25), early.addDays(1));
    EXPECT_EQ(early, Date(0.25).addDays(-1));
    EXPECT_EQ(early, Date::fromYmdHms(1899, 12, 29, 6, 0, 0));
    EXPECT_EQ("30/12/1899 06:00:00", Date(-0.25).toText());
}

TEST(DateParts, KeepTheTimeOfDayOnItsDay) {
    EXPECT_EQ(86399, Date(42000.9999999).secondOfDay());
    EXPECT_EQ(46800, Date::fromYmdHms(2016, 4, 5, 13, 0, 0).secondOfDay());
    EXPECT_EQ(42489, Date(42489.75).dayNumber());
    EXPECT_EQ(42490, Date(42489.75).roundedDayNumber());
    EXPECT_EQ(42488, Date(42488.5).roundedDayNumber());
}

TEST(DateParts, ReadASerialOutsideTheRangeAsItsNearestEnd) {
    EXPECT_EQ(9999, Date(1e300).year());
    EXPECT_EQ(100, Date(-1e300).year());
    EXPECT_EQ(100, Date(std::numeric_limits<double>::quiet_NaN()).year());
    EXPECT_EQ(100, Date(-657434.75).year());
}

TEST(DateArithmetic, KeepsTheDayOfTheMonthOrTakesTheLastOne) {
    const struct {
        Date from;
        std::int64_t months;
        Date to;
    } rows[] = {
        {Date::fromYmd(2016, 1, 31), 1, Date::fromYmd(2016, 2, 29)},
        {Date::fromYmd(2016, 1, 31), 13, Date::fromYmd(2017, 2, 28)},
        {Date::fromYmd(2016, 3, 31), -1, Date::fromYmd(2016, 2, 29)},
        {Date::fromYmd(2016, 2, 29), 12, Date::fromYmd(2017, 2, 28)},
        {Date::fromYmd(2016, 1, 15), -13, Date::fromYmd(2014, 12, 15)},
        {Date::fromYmdHms(2016, 4, 5, 13, 0, 0), 1, Date::fromYmdHms(2016, 5, 5, 13, 0, 0)},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.to, row.from.addMonths(row.months)) << row.from.toIso() << row.months;
    }
    EXPECT_EQ(Date::fromYmd(2016, 5, 6), Date::fromYmd(2016, 4, 29).addWeeks(1));
}

TEST(DateArithmetic, RefusesToLeaveTheRange) {
    EXPECT_EQ(6, raisedBy([] { return Date::last().addDays(1); }));
    EXPECT_EQ(6, raisedBy([] { return Date::first().addDays(-1); }));
    EXPECT_EQ(6, raisedBy([] { return Date::last().addMonths(1); }));
    EXPECT_EQ(6,
              raisedBy([] { return Date().addWeeks(std::numeric_limits<std::int64_t>::max()); }));
    EXPECT_EQ(6,
              raisedBy([] { return Date().addMonths(std::numeric_limits<std::int64_t>::min()); }));
    EXPECT_EQ("9999-12-31T12:00:00", Date::last().addDays(0.5).toIso());
}

TEST(DateText, IsWrittenDayFirstAndInIsoForm) {
    EXPECT_EQ("05/04/2016", Date::fromYmd(2016, 4, 5).toText());
    EXPECT_EQ("05/04/2016 13:00:00", Date::fromYmdHms(2016, 4, 5, 13, 0, 0).toText());
    EXPECT_EQ("0100-01-01", Date::first().toIso());
    EXPECT_EQ("2016-04-05T13:00:09", Date::fromYmdHms(2016, 4, 5, 13, 0, 9).toIso());
}

TEST(DateText, IsReadInTheFormsOfAUkUser) {
    const char* sameDay[] = {"2016-04-05", "2016-4-5",     "5/4/2016",        "05/04/16",
                             "05-04-16",   "5.4.2016",     "5 April 2016",    "5 apr 16",
                             "5-Apr-2016", "  5/4/2016  ", "05/04/2016 00:00"};
    for (const char* text : sameDay) {
        Date date;
        EXPECT_TRUE(parseDate(text, date)) << text;
        EXPECT_EQ("2016-04-05", date.toIso()) << text;
    }
    Date date;
    EXPECT_TRUE(parseDate("5/4/2016 13:00", date));
    EXPECT_EQ("2016-04-05T13:00:00", date.toIso());
    EXPECT_TRUE(parseDate("2016-04-05T13:00:09", date));
    EXPECT_EQ("2016-04-05T13:00:09", date.toIso());
}

TEST(DateText, PutsTwoDigitYearsBetween1930And2029) {
    Date date;
    EXPECT_TRUE(parseDate("1/1/29", date));
    EXPECT_EQ(2029, date.year());
    EXPECT_TRUE(parseDate("1/1/30", date));
    EXPECT_EQ(1930, date.year());
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
