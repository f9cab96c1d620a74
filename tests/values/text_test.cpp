#include "ledgerwick/values/text.h"

#include <gtest/gtest.h>

#include <limits>

namespace ledgerwick {
namespace {

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
    EXPECT_EQ(0, compareIgnoringCase("ann", "ANN"));
    EXPECT_EQ(1, compareIgnoringCase("é", "z"));
}

TEST(ParseNumber, ReadsNumbersAsPeopleAndPicturesWriteThem) {
    const struct {
        const char* text;
        double value;
    } rows[] = {
        {"0", 0},
        {" 12.5 ", 12.5},
        {"-3", -3},
        {"+3", 3},
        {"1,234.5", 1234.5},
        {"12,345,678", 12345678},
        {"£1,000.00", 1000},
        {"-£5", -5},
        {"£-5", -5},
        {".5", 0.5},
        {"-.5", -0.5},
        {"5.", 5},
        {"1e3", 1000},
        {"1.5E-2", 0.015},
        {"007", 7},
        {"1E+15", 1e15},
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
    const struct {
        double value;
        const char* text;
    } rows[] = {
        {0, "0"},
        {-0.0, "0"},
        {12.5, "12.5"},
        {0.1 + 0.2, "0.3"},
        {-0.00001, "-0.00001"},
        {123456789012345, "123456789012345"},
        {1e15, "1E+15"},
        {1.5e-20, "1.5E-20"},
        {-1.7976931348623157e308, "-1.79769313486232E+308"},
    };
    for (const auto& row : rows) EXPECT_EQ(row.text, numberText(row.value));
}

TEST(CodePage1252, BecomesUtf8) {
    EXPECT_EQ("plain", windows1252ToUtf8("plain"));
    EXPECT_EQ("£5 \u2018\u2019 \u20AC \u0178 \u00FF",
              windows1252ToUtf8("\xA3"
                                "5 \x91\x92 \x80 \x9F \xFF"));
    EXPECT_EQ("\u0081", windows1252ToUtf8("\x81"));
}

}  // namespace
}  // namespace ledgerwick
