#include "ledgerwick/values/format.h"

#include <gtest/gtest.h>

#include <limits>
#include <utility>

#include "ledgerwick/values/text.h"
#include "ledgerwick/values/utf8.h"
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
        {7, "00", "07"},         {107, "00", "107"},       {7, "000", "007"},
        {0, "###0", "0"},        {2, "0.##", "2."},        {0.5, "#.00", ".50"},
        {22, " ###0", " 22"},    {3, "\\#0", "#3"},        {12.5, "", "12.5"},
        {5, "0,000", "0,005"},   {999, "#,##0", "999"},    {1.25, "0.0#0", "1.250"},
        {2, "#,##0.0##", "2.0"}, {3, "\"a;b\"0", "a;b3"},  {0.256, "0.0%", "25.6%"},
        {12.5, ".00", "12.50"},  {10000, "###0", "10000"}, {123456, "00-00", "1234-56"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.text, formatNumber(row.value, row.picture)) << row.picture;
    }
    EXPECT_EQ("3 weeks", formatNumber(3, "0\" weeks\""));
    EXPECT_EQ("1,234.5", formatNumber(1234.5, "#,##0.0##"));
    EXPECT_EQ("0.063", formatNumber(0.0625, "#,##0.0##"));
    EXPECT_EQ("£1,234.50", formatNumber(1234.5, "£#,##0.00"));
    EXPECT_EQ("100,000,000,000,000,000,000", formatNumber(1e20, "#,##0"));
}

TEST(NumberPictures, RoundExactHalvesAwayFromZero) {
    const NumberRow rows[] = {
        {2.5, "###0", "3"},      {-2.5, "0", "-3"},       {0.125, "0.00", "0.13"},
        {1.005, "0.00", "1.01"}, {2.675, "0.00", "2.68"}, {9.995, "0.00", "10.00"},
        {0.4999, "0", "0"},      {0.5, "0", "1"},         {-12.345, "0.00", "-12.35"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.text, formatNumber(row.value, row.picture)) << row.value;
    }
}

TEST(NumberPictures, TakeTheSectionOfTheSignOfWhatIsShown) {
    const NumberRow rows[] = {
        {-5, " ###0", "- 5"},
        {-5, "£#,##0.00", "-£5.00"},
        {-0.001, "0.00", "0.00"},
        {-0.001, "0.00;(0.00)", "0.00"},
        {0, "0.00;-0.00;\"nil\"", "nil"},
        {-5, "0.00;;\"nil\"", "-5.00"},
        {0.001, "0.00;(0.00);\"nil\"", "nil"},
        {-1234.5, "#,##0.00;(#,##0.00)", "(1,234.50)"},
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

TEST(Trimming, TakesBlanksAndNothingElse) {
    EXPECT_EQ("a b\t", trim("  a b\t "));
    EXPECT_EQ("a ", trimLeft(" a "));
    EXPECT_EQ(" a", trimRight(" a "));
    EXPECT_EQ("", trim("   "));
}

TEST(TextWidths, CountCharactersAndNotBytes) {
    EXPECT_EQ(4u, characterCount("£€\U0001F600a"));
    EXPECT_EQ("£€", firstCharacters("£€a", 2));
    EXPECT_EQ("£a  ", padOrCut("£a", 4));
    EXPECT_EQ("£", padOrCut("£a", 1));
    EXPECT_EQ("   ", padOrCut("", 3));
}

TEST(TextWidths, CountABrokenByteAsOneCharacter) {
    EXPECT_EQ(2u, characterCount("\xE2\x82"));      // cut off
    EXPECT_EQ(2u, characterCount("\xC0\x80"));      // a longer form of a shorter one
    EXPECT_EQ(3u, characterCount("\xED\xA0\x80"));  // half of a pair
    EXPECT_EQ(3u, characterCount("\xA3"
                                 "5\xFF"));
    EXPECT_EQ("\xE2", firstCharacters("\xE2\x82", 1));
}

TEST(Utf8, TakesEachCodePointInItsShortestFormOnly) {
    for (const char* const whole : {"a", "\x7F", "\u0080", "\u07FF", "\u0800", "\uD7FF", "\uE000",
                                    "\uFFFF", "\U00010000", "\U0010FFFF"}) {
        const std::string_view text = whole;
        EXPECT_EQ(characterLength(text), text.size()) << whole;
        EXPECT_EQ(characterLength(text.substr(0, text.size() - 1)), 0u) << "cut off";
        EXPECT_EQ(cutToBytes(text, text.size() - 1), "") << "never cut in two";
        EXPECT_EQ(soundUtf8(text), text);
    }
    for (const char* const broken :
         {"\x80", "\xC1\xBF", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xF0\x8F\xBF\xBF",
          "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xE2\x82("}) {
        EXPECT_EQ(characterLength(broken), 0u);
        EXPECT_FALSE(isUtf8("a" + std::string(broken)));
        EXPECT_TRUE(isUtf8(soundUtf8(broken)));
    }
}

TEST(ReplaceAll, DoesNotLookAtWhatItPutIn) {
    EXPECT_EQ("Applesbox", replaceAll("Apples kg box", " kg ", ""));
    EXPECT_EQ("aaaa", replaceAll("aa", "a", "aa"));
    EXPECT_EQ("ba", replaceAll("aaa", "aa", "b"));
    EXPECT_EQ("abc", replaceAll("abc", "", "x"));
}

TEST(ComparingIgnoringCase, FoldsTheLettersAToZOnly) {
    EXPECT_TRUE(equalsIgnoringCase("PRTnaid", "prtNAID"));
    EXPECT_FALSE(equalsIgnoringCase("[", "{"));
    EXPECT_FALSE(equalsIgnoringCase("É", "é"));
    EXPECT_EQ(-1, compareIgnoringCase("ann", "Bob"));
    EXPECT_EQ(1, compareIgnoringCase("Anna", "ANN"));
}

TEST(ParseNumber, ReadsNumbersAsPeopleAndPicturesWriteThem) {
    const struct {
        const char* text;
        double value;
    } rows[] = {
        {"0", 0},          {"-3", -3},          {"+3", 3},           {".5", 0.5},
        {"-.5", -0.5},     {"5.", 5},           {"1e3", 1000},       {"007", 7},
        {"1E+15", 1e15},   {" 12.5 ", 12.5},    {"-£5", -5},         {"£-5", -5},
        {"1.5E-2", 0.015}, {"1,234.5", 1234.5}, {"£1,000.00", 1000}, {"12,345,678", 12345678},
    };
    for (const auto& row : rows) EXPECT_EQ(row.value, parseNumber(row.text)) << row.text;
}

TEST(ParseNumber, RefusesWhatIsNoNumber) {
    const char* refused[] = {
        "",    " ",    "abc", "-",   ".",   "1,5",  "1,2345", ",123", "1.2.3",   "1 2",      "1e",
        "--1", "-£-1", "£",   "inf", "nan", "0x10", "1e999",  "12%",  "1.234,5", "1234,567", "1\n"};
    for (const char* text : refused) EXPECT_FALSE(parseNumber(text)) << text;
}

TEST(NumberText, IsPlainDecimalOfFifteenDigits) {
    const std::pair<double, const char*> rows[] = {
        {0, "0"},
        {-0.0, "0"},
        {12.5, "12.5"},
        {0.1 + 0.2, "0.3"},
        {-0.00001, "-0.00001"},
        {1e15, "1E+15"},
        {1.5e-20, "1.5E-20"},
        {123456789012345, "123456789012345"},
    };
    for (const auto& [value, text] : rows) EXPECT_EQ(text, numberText(value));
    EXPECT_EQ("-1.79769313486232E+308", numberText(-std::numeric_limits<double>::max()));
}

TEST(CodePage1252, BecomesUtf8) {
    EXPECT_EQ("plain", windows1252ToUtf8("plain"));
    EXPECT_EQ("£5 \u2018\u2019 \u20AC \u0178 \u00FF",
              windows1252ToUtf8("\xA3"
                                "5 \x91\x92 \x80 \x9F \xFF"));
    EXPECT_EQ("\u0081", windows1252ToUtf8("\x81"));
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
