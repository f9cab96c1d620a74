#include "ledgerwick/values/format.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/support/errors.h"

namespace ledgerwick {
namespace {

struct NumberRow {
    double value;
    const char* picture;
    const char* text;
};

TEST(NumberPictures, ShowDigitsSeparatorsAndLiteralsAsDrawn) {
    const NumberRow rows[] = {
        {7, "00", "07"},
        {107, "00", "107"},
        {7, "000", "007"},
        {10000, "###0", "10000"},
        {0, "###0", "0"},
        {22, " ###0", " 22"},
        {10000, "#,##0", "10,000"},
        {999, "#,##0", "999"},
        {1234567, "#,##0", "1,234,567"},
        {5, "0,000", "0,005"},
        {1234.5, "#,##0.0##", "1,234.5"},
        {2, "#,##0.0##", "2.0"},
        {0.0625, "#,##0.0##", "0.063"},
        {1234.5, "£#,##0.00", "£1,234.50"},
        {0.5, "#.00", ".50"},
        {12.5, ".00", "12.50"},
        {2, "0.##", "2."},
        {1.25, "0.0#0", "1.250"},
        {0.256, "0.0%", "25.6%"},
        {123456, "00-00", "1234-56"},
        {3, "0\" weeks\"", "3 weeks"},
        {3, "\\#0", "#3"},
        {3, "\"a;b\"0", "a;b3"},
        {1e20, "#,##0", "100,000,000,000,000,000,000"},
        {12.5, "", "12.5"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.text, formatNumber(row.value, row.picture)) << row.picture;
    }
}

TEST(NumberPictures, RoundExactHalvesAwayFromZero) {
    const NumberRow rows[] = {
        {2.5, "###0", "3"},          {-2.5, "0", "-3"},       {0.125, "0.00", "0.13"},
        {1.005, "0.00", "1.01"},     {2.675, "0.00", "2.68"}, {0.5, "0", "1"},
        {9.995, "0.00", "10.00"},    {0.4999, "0", "0"},      {0.045 + 0.5, "0.00", "0.55"},
        {-12.345, "0.00", "-12.35"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.text, formatNumber(row.value, row.picture)) << row.value;
    }
}

TEST(NumberPictures, TakeTheSectionOfTheSignOfWhatIsShown) {
    const NumberRow rows[] = {
        {-5, "£#,##0.00", "-£5.00"},
        {-5, " ###0", "- 5"},
        {-5, "£#,##0.00;-£#,##0.00", "-£5.00"},
        {-1234.5, "#,##0.00;(#,##0.00)", "(1,234.50)"},
        {0, "0.00;-0.00;\"nil\"", "nil"},
        {-0.001, "0.00;(0.00)", "0.00"},
        {0.001, "0.00;(0.00);\"nil\"", "nil"},
        {-0.001, "0.00", "0.00"},
        {-5, "0.00;;\"nil\"", "-5.00"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.text, formatNumber(row.value, row.picture)) << row.value << row.picture;
    }
}

TEST(NumberPictures, ShowEveryDigitOfMoney) {
    const auto largest = Currency::fromTicks(std::numeric_limits<std::int64_t>::max());
    const auto smallest = Currency::fromTicks(std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ("922,337,203,685,477.5807", formatNumber(largest, "#,##0.0000"));
    EXPECT_EQ("-922337203685477.581", formatNumber(smallest, "0.000"));
    EXPECT_EQ("0.13", formatNumber(Currency::fromTicks(1250), "0.00"));
}

TEST(DatePictures, WriteDaysMonthsYearsAndTimes) {
    const Date date = Date::fromYmdHms(2016, 4, 5, 9, 7, 3);
    const struct {
        const char* picture;
        const char* text;
    } rows[] = {
        {"dd/mm/yyyy", "05/04/2016"}, {" dd mmmm yyyy", " 05 April 2016"},
        {"d/m/yy", "5/4/16"},         {"ddd d mmm", "Tue 5 Apr"},
        {"dddd", "Tuesday"},          {"hh:nn:ss", "09:07:03"},
        {"h.n.s", "9.7.3"},           {"DD MMM YYYY", "05 Apr 2016"},
        {"\"day\" d \\d", "day 5 d"}, {"", "05/04/2016 09:07:03"},
    };
    for (const auto& row : rows) EXPECT_EQ(row.text, formatDate(date, row.picture));
}

TEST(FormatOfAnyValue, GoesByTheKindOfTheValue) {
    EXPECT_EQ("", Format(Variant(), "0.00"));
    EXPECT_EQ("", Format(Null, "0.00"));
    EXPECT_EQ("05/04/2016", Format(Date::fromYmd(2016, 4, 5), "dd/mm/yyyy"));
    EXPECT_EQ("1,234.50", Format("1234.5", "#,##0.00"));
    EXPECT_EQ("none", Format("none", "#,##0.00"));
    EXPECT_EQ("2.4", Format(2.35f, "0.0"));
    EXPECT_EQ("-1", Format(true, "0"));
    EXPECT_EQ("9,007,199,254,740,993", Format(std::int64_t{9007199254740993}, "#,##0"));
    EXPECT_EQ(13, test::raisedBy([] { return Format(VariantArray(1, 2), "0"); }));
}

}  // namespace
}  // namespace ledgerwick
