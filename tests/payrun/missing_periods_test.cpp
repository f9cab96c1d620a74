// Rows for skipped periods.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/payrun/pay_office.h"
#include "tests/support/errors.h"

namespace ledgerwick::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

using PeriodsAndWeeks = std::vector<std::pair<std::int32_t, std::int32_t>>;

const std::string fillers = "PRPCalculationUsed = -1";

// A closed row of a week and a period, paid late enough to limit no filler.
Person& addRow(Person& person, std::int32_t period, std::int32_t weekNo) {
    return person.closed(week(weekNo))
        .pay("PRPPayDate = #4/5/2017#, PRPPaymentPeriod = " + std::to_string(period));
}

TEST(Gap, IsFilledOnceWithThePeriodsThatAreMissing) {
    struct Walk {
        const char* reason;
        PeriodsAndWeeks rows, fillers;
    };
    for (const Walk& walk : std::vector<Walk>{
             {"no row", {}, {}},
             {"one row", {{1, 5}}, {}},
             {"no hole", {{1, 1}, {1, 2}, {1, 2}, {1, 3}}, {}},
             {"two holes", {{1, 1}, {1, 3}, {1, 4}, {1, 7}}, {{1, 2}, {1, 5}, {1, 6}}},
             {"fortnightly", {{2, 6}, {2, 12}}, {{2, 8}, {2, 10}}},
             {"fortnightly, off the step", {{2, 6}, {2, 9}}, {{2, 8}}},
             {"four-weekly", {{4, 4}, {4, 12}}, {{4, 8}}},
             {"a quarter of 14 weeks", {{13, 13}, {13, 27}}, {{13, 26}}},
             {"monthly", {{-1, 5}, {-4, 18}, {-5, 22}}, {{-2, 9}, {-3, 13}}},
             {"weekly after monthly", {{-1, 5}, {1, 9}}, {}},
             {"monthly after weekly", {{1, 3}, {-4, 18}}, {}},
             {"fortnightly after weekly", {{1, 3}, {2, 18}}, {}},
             {"no period to fill", {{0, 3}, {0, 18}}, {}}}) {
        PayOffice office;
        auto& person = office.company.employee(7);
        for (const auto& [period, weekNo] : walk.rows) {
            addRow(person.paid(PFREQ_1Weekly), period, weekNo);
        }
        const auto rows = office.payRows();
        EXPECT_TRUE(office.payroll().AutoFillMissingPeriods().isEmpty());
        EXPECT_EQ(office.payRows("NOT " + fillers), rows) << walk.reason;
        office.payroll().AutoFillMissingPeriods();  // adds nothing
        PeriodsAndWeeks added;
        for (const TableRow& row : office.payRows(fillers)) {
            added.emplace_back(row.at("PRPPaymentPeriod").toInt32(), row.at("PRPWeekNo").toInt32());
        }
        EXPECT_EQ(added, walk.fillers) << walk.reason;
    }
}

TEST(Filler, IsNotSeenByTheWalkThatAddsIt) {
    PayOffice office;
    auto& person = office.company.employee(7);
    // The week of month 4 is too early, so that the filler of month 3, week 13, sorts behind it.
    addRow(addRow(addRow(person, -2, 9), -4, 12), -5, 22);
    office.payroll().AutoFillMissingPeriods();
    EXPECT_THAT(numbersOf(office.payRows(fillers), "PRPPaymentPeriod"), ElementsAre(-3));
}

TEST(Gap, IsSoughtInThePresentRegularEmploymentOfTheYearOnly) {
    PayOffice office;
    office.company.employee(6).closed(week(1));  // the next employee's row is no successor
    auto& returned = office.company.employee(7).closed(week(1)).closed(week(9));
    office.company.employee(8).row("PRTType = 2").closed(week(1)).closed(week(9));
    office.company.employee(9).open(week(1)).open(week(9));
    office.company.employee(10).employment(16).closed(week(1)).closed(week(9));
    returned.left("2016-06-10").employment(17, 2).closed(week(20));
    office.payroll().AutoFillMissingPeriods();
    EXPECT_THAT(office.payRows(fillers), IsEmpty());
    returned.closed(week(22));
    office.payroll().AutoFillMissingPeriods();
    EXPECT_THAT(numbersOf(office.payRows(fillers), "PRPPYEmployCount"), ElementsAre(2));
}

TEST(Filler, HoldsIdentityAndMarksAndNothingElse) {
    PayOffice office;
    auto& person = office.company.employee(7);
    addRow(person, 1, 6).pay("PRPTaxCode = '1000L', PRPEPEDate = #5/15/2016#");
    addRow(person, 1, 8)
        .pay(
            "PRPNITable = 'A', PRPTaxCode = '1100L', PRPWeek1 = True, PRPDirector = True,"
            " PRPWorksNo = 'SMI01', PRPMinNormHours = 30, PRPDoB = #2/3/1970#, PRPPeriodPay = 500,"
            " PRPStatus = 3, PRPEPEDate = #5/29/2016#, PRPRTIPayDate = #4/6/2017#");
    office.payroll().AutoFillMissingPeriods();
    const TableRow filler = office.payRows(fillers).at(0);

    office.company.exec("INSERT INTO PRPay DEFAULT VALUES");
    TableRow expected = office.payRows("PRPNAID = 0").at(0);
    expected.at("PRPID") = filler.at("PRPID");
    for (const auto& [name, value] : TableRow{{"PRPNAID", 7},
                                              {"PRPPayrollYear", 17},
                                              {"PRPPYEmployCount", 1},
                                              {"PRPPaymentPeriod", 1.0},
                                              {"PRPWeekNo", std::int16_t{7}},
                                              {"PRPPayDate", day("2016-05-24")},
                                              {"PRPRTIPayDate", day("2016-05-24")},
                                              {"PRPPeriodUpdated", true},
                                              {"PRPHasBeenVisited", true},
                                              {"PRPNITable", "A"},
                                              {"PRPTaxCode", "1100L"},
                                              {"PRPWeek1", true},
                                              {"PRPDirector", true},
                                              {"PRPCalculationUsed", -1},
                                              {"PRPWorksNo", "SMI01"},
                                              {"PRPMinNormHours", 30.0},
                                              {"PRPRTILateReason", "H"},
                                              {"PRPDoB", day("1970-02-03")},
                                              {"PRPEPEDate", day("2016-05-15")},
                                              {"PRPNExpEPEDate", day("2016-05-29")},
                                              {"PRPNExpPayDate", day("2017-04-06")}}) {
        expected.at(name) = value;
    }
    for (const auto& [name, value] : expected) EXPECT_EQ(filler.at(name), value) << name;
}

TEST(Filler, IsPaidAtTheEndOfItsPeriodButNotAfterTheNextRow) {
    PayOffice office;
    auto& weekly = office.company.employee(7).closed(week(1));
    addRow(weekly, 1, 4).pay("PRPPayDate = #4/22/2016#");
    auto& monthly = office.company.employee(8).closed(week(5)).pay("PRPPaymentPeriod = -1");
    addRow(monthly, -4, 18).pay("PRPPayDate = #6/30/2016#");
    office.payroll().AutoFillMissingPeriods();
    const auto added = office.payRows(fillers);
    // Week 2 ends on 19 April, week 3 on 26 April; month 2 ends on 5 June, month 3 on 5 July.
    EXPECT_THAT(datesOf(added, "PRPPayDate"),
                ElementsAre("2016-04-19", "2016-04-22", "2016-06-05", "2016-06-30"));
    // All fillers of one gap look back on the same row.
    EXPECT_THAT(datesOf(added, "PRPEPEDate"),
                ElementsAre("2016-04-10", "2016-04-10", "2016-05-08", "2016-05-08"));
}

}  // namespace
}  // namespace ledgerwick::test
