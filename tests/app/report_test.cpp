// One report in the three forms in which the command shows it.
#include "app/report.h"

#include <gtest/gtest.h>

#include <sstream>

#include "hostkit/report/html.h"

namespace ledgerwick::app {
namespace {

std::string printed(const Report& report, Format format) {
    std::ostringstream out;
    report.print(out, format);
    return out.str();
}

TEST(Report, IsShownToPeopleWithoutControlsInCsvWithoutFormulasAndInJson) {
    Report report;
    report.say("Two people");
    report.fact("people", 2);
    Table& table = report.table("staff", {"naid", "name", "next_pay", "left"});
    table.add({7, "Zoë", Date::fromYmd(2016, 4, 29), false});
    table.add({12, "=cmd()\x1b[2J", Date(), true});
    EXPECT_EQ(printed(report, Format::Text),
              "Two people\n"
              "naid  name        next pay    left\n"
              "   7  Zoë         2016-04-29  no\n"
              "  12  =cmd() [2J              yes\n");
    EXPECT_EQ(printed(report, Format::Csv),
              "naid,name,next_pay,left\n"
              "7,Zoë,2016-04-29,False\n"
              "12,'=cmd()\x1b[2J,,True\n");
    const std::string json = printed(report, Format::Json);
    EXPECT_NE(json.find("\"people\": 2"), json.npos);
    EXPECT_NE(json.find(R"("=cmd()\u001b[2J")"), json.npos);
    EXPECT_NE(json.find("\"next_pay\": null"), json.npos);
}

TEST(Report, OfOneTableIsAListInJsonAndShortenedForPeopleOnly) {
    Report report;
    Table& table = report.table("numbers", {"n", "square"});
    EXPECT_EQ(printed(report, Format::Json), "[]\n");
    EXPECT_EQ(printed(report, Format::Text), "");
    for (std::int32_t i = 1; i <= 4; ++i) table.add({i, i * i});
    table.showColumns({"square"});
    report.showRows(2);
    EXPECT_EQ(printed(report, Format::Text), "square\n     1\n     4\n... and 2 more\n");
    EXPECT_EQ(printed(report, Format::Csv), "n,square\n1,1\n2,4\n3,9\n4,16\n");
}

TEST(Html, TextCannotLeaveItsPlace) {
    const std::pair<std::string, const char*> cases[] = {
        {"<b title=\"x\">&amp;'", "&lt;b title=&quot;x&quot;&gt;&amp;amp;&#39;"},
        {"Zo\u00eb \U0001f600", "Zo\u00eb \U0001f600"},
        {std::string("a\0b\x1b\x7f", 5), "a b  "},
        {"\xff<\xc3", "\ufffd&lt;\ufffd"},                 // no UTF-8, and cut off
        {"\xc0\xbc", "\ufffd\ufffd"},                      // "<" in two bytes
        {"\xed\xa0\x80", "\ufffd\ufffd\ufffd"},            // half of a pair
        {"\xef\xbf\xbf", "\ufffd\ufffd\ufffd"},            // no character of XML
        {"\xf4\x90\x80\x80", "\ufffd\ufffd\ufffd\ufffd"},  // beyond the last
    };
    for (const auto& [text, expected] : cases) EXPECT_EQ(report::htmlText(text), expected);
}

}  // namespace
}  // namespace ledgerwick::app
