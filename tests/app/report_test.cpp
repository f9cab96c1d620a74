// One report in the three forms in which the command shows it.
#include "app/report.h"

#include <gtest/gtest.h>

#include <sstream>

namespace ledgerwick::app {
namespace {

std::string printed(const Report& report, Format format) {
    std::ostringstream out;
    report.print(out, format);
    return out.str();
}

Report twoPeople() {
    Report report;
    report.say("Two people");
    report.fact("people", 2);
    Table& table = report.table("staff", {"naid", "name", "next_pay", "pay", "left"});
    table.add({7, "Zoë", Date::fromYmd(2016, 4, 29), Currency::fromWhole(1234), false});
    table.add({12, "=cmd()\x1b[2J", Date(), Currency(), true});
    return report;
}

TEST(Report, ShowsPeopleAnAlignedTableWithoutControls) {
    EXPECT_EQ(printed(twoPeople(), Format::Text),
              "Two people\n"
              "naid  name        next pay         pay  left\n"
              "   7  Zoë         2016-04-29  1,234.00  no\n"
              "  12  =cmd() [2J                  0.00  yes\n");
}

TEST(Report, GuardsTextsInCsvAndLeavesNumbersPlain) {
    EXPECT_EQ(printed(twoPeople(), Format::Csv),
              "naid,name,next_pay,pay,left\n"
              "7,Zoë,2016-04-29,1234,False\n"
              "12,'=cmd()\x1b[2J,,0,True\n");
}

TEST(Report, GivesFactsAndTablesInJson) {
    EXPECT_EQ(printed(twoPeople(), Format::Json),
              R"({
  "people": 2,
  "staff": [
    {
      "naid": 7,
      "name": "Zoë",
      "next_pay": "2016-04-29",
      "pay": 1234.0,
      "left": false
    },
    {
      "naid": 12,
      "name": "=cmd()\u001b[2J",
      "next_pay": null,
      "pay": 0.0,
      "left": true
    }
  ]
}
)");
}

TEST(Report, IsAPlainListInJsonWhenItIsOneTable) {
    Report report;
    report.table("empty", {"naid"});
    EXPECT_EQ(printed(report, Format::Json), "[]\n");
    EXPECT_EQ(printed(report, Format::Csv), "naid\n");
    EXPECT_EQ(printed(report, Format::Text), "");
}

TEST(Report, ShortensALongTableForPeopleOnly) {
    Report report;
    Table& table = report.table("numbers", {"n", "square"});
    for (std::int32_t i = 1; i <= 5; ++i) table.add({i, i * i});
    table.showColumns({"square"});
    report.showRows(2);
    EXPECT_EQ(printed(report, Format::Text), "square\n     1\n     4\n... and 3 more\n");
    EXPECT_EQ(printed(report, Format::Csv), "n,square\n1,1\n2,4\n3,9\n4,16\n5,25\n");
}

}  // namespace
}  // namespace ledgerwick::app
