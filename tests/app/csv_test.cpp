// Reading and writing files of comma-separated values.
#include "app/csv.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

namespace ledgerwick::app {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Fields = std::vector<std::string>;

struct Row {
    std::size_t line;
    Fields fields;
    bool operator==(const Row&) const = default;
};

std::vector<Row> rowsOf(const std::string& text) {
    std::istringstream in(text);
    std::vector<Row> rows;
    const auto fault = CsvReader::read(in, [&rows](std::size_t line, const Fields& fields) {
        rows.push_back({line, fields});
    });
    EXPECT_FALSE(fault) << fault->reason;
    return rows;
}

std::string faultOf(const std::string& text) {
    std::istringstream in(text);
    const auto fault = CsvReader::read(in, [](std::size_t, const Fields&) {});
    return fault ? std::to_string(fault->line) + ": " + fault->reason : "";
}

TEST(CsvReader, GivesEachRowWithTheLineOnWhichItBegins) {
    const auto rows = rowsOf("a,b\n\n\"two\nlines\",x\r\nlast,row");
    EXPECT_THAT(rows, ElementsAre(Row{1, {"a", "b"}}, Row{3, {"two\nlines", "x"}},
                                  Row{5, {"last", "row"}}));
}

TEST(CsvReader, KeepsBlanksEmptyFieldsAndDoubledQuotes) {
    EXPECT_THAT(rowsOf(" a ,,\"say \"\"hi\"\"\"\n"),
                ElementsAre(Row{1, {" a ", "", "say \"hi\""}}));
}

TEST(CsvReader, PassesOverAByteOrderMark) {
    EXPECT_THAT(rowsOf("\xEF\xBB\xBFNAID\n1\n"), ElementsAre(Row{1, {"NAID"}}, Row{2, {"1"}}));
}

TEST(CsvReader, AnEmptyFileHasNoRows) {
    EXPECT_THAT(rowsOf(""), IsEmpty());
    EXPECT_THAT(rowsOf("\r\n\n"), IsEmpty());
}

TEST(CsvReader, TellsTheLineOfAQuoteThatIsOutOfPlace) {
    EXPECT_EQ(faultOf("a\nb\"c\n"), "2: a quote stands where none can stand");
    EXPECT_EQ(faultOf("a\n\"b\"c\n"), "2: a quote stands where none can stand");
    EXPECT_EQ(faultOf("a\nb\n\"never\nclosed\n"), "3: a quote is never closed");
}

TEST(CsvWriter, WritesWhatTheReaderReads) {
    const Fields hostile{"a,b", "say \"hi\"", "two\nlines", "two\r\nlines", " blanks ", "plain",
                         "",    "\"",         ",",          "\xEF\xBB\xBF"};
    std::ostringstream out;
    CsvWriter(out).row({"heading"});
    CsvWriter(out).row(hostile);
    const auto rows = rowsOf(out.str());
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[1].fields, hostile);
}

TEST(FormulaGuard, MakesFormulasTextsAndGivesEveryTextBack) {
    EXPECT_EQ(guarded("=1+1"), "'=1+1");
    EXPECT_EQ(guarded("-5"), "'-5");
    EXPECT_EQ(guarded("'t Hooft"), "'t Hooft");
    for (const char* text : {"", "=", "+44", "-", "@x", "\tx", "\rx", "\\N", "'", "''", "'=x",
                             "'''+", "'t Hooft", "plain", "O'Brien", "a=b"}) {
        EXPECT_EQ(unguarded(guarded(text)), text);
    }
    EXPECT_EQ(unguarded("'t Hooft"), "'t Hooft");  // as a person would write it
}

}  // namespace
}  // namespace ledgerwick::app
