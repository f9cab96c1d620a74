// Reading files of comma-separated values.
#include "hostkit/exchange/csv.h"

#include <gtest/gtest.h>

#include <sstream>

namespace ledgerwick::app {
namespace {

using Fields = std::vector<std::string>;

struct Row {
    std::size_t line;
    Fields fields;
    bool operator==(const Row&) const = default;
};

// The rows of a text, or its fault in one row.
std::vector<Row> rowsOf(const std::string& text) {
    std::istringstream in(text);
    std::vector<Row> rows;
    const auto fault =
        exchange::CsvReader::read(in, [&rows](std::size_t line, const Fields& fields) {
            rows.push_back({line, fields});
        });
    return fault ? std::vector<Row>{{fault->line, {fault->reason}}} : rows;
}

TEST(CsvReader, GivesEachRowWithItsFirstLineOrTheFault) {
    const std::string misplaced = "a quote stands where none can stand";
    const std::pair<const char*, std::vector<Row>> texts[] = {
        {"a,b\n\n\"two\nlines\",x\r\nlast,row",
         {{1, {"a", "b"}}, {3, {"two\nlines", "x"}}, {5, {"last", "row"}}}},
        {" a ,,\"say \"\"hi\"\"\"\n", {{1, {" a ", "", "say \"hi\""}}}},
        {"\xEF\xBB\xBFNAID\n1\n", {{1, {"NAID"}}, {2, {"1"}}}},
        {"\r\n\n", {}},
        {"a\nb\"c\n", {{2, {misplaced}}}},
        {"a\n\"b\"c\n", {{2, {misplaced}}}},
        {"a\nb\n\"never\nclosed\n", {{3, {"a quote is never closed"}}}},
    };
    for (const auto& [text, rows] : texts) EXPECT_EQ(rowsOf(text), rows) << text;
}

}  // namespace
}  // namespace ledgerwick::app
