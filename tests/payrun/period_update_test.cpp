// Closing pay rows, withdrawing visited marks, and starting rows.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/payrun/pay_office.h"
#include "tests/support/errors.h"

namespace ledgerwick::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

TEST(Closing, TakesTheEmployeesRowsUpToTheDateAndChangesNothingElse) {
    PayOffice office;
    auto& person = office.hire(7);
    office.hire(8);
    office.company.load();
    office.open(day("2016-04-15"));
    // A row paid a day later, one of the year before, and one without a period.
    person.open(week(9)).pay("PRPPayDate = #4/16/2016#");
    person.open(week(10)).pay("PRPPayDate = #4/1/2016#, PRPPayrollYear = 16");
    person.open(week(11)).pay("PRPPayDate = #4/1/2016#, PRPPaymentPeriod = 0");
    auto expected = office.payRows();
    for (TableRow& row : expected) {
        const std::int32_t week = row.at("PRPWeekNo").toInt32();
        const bool due = week == 1 || week == 2 || week == 10;
        if (row.at("PRPNAID") == Variant(7) && due) row.at("PRPPeriodUpdated") = true;
    }
    for (int time = 1; time <= 2; ++time) {
        office.payroll().C_UpdatePayPeriod(7, day("2016-04-15"));
        EXPECT_EQ(office.payRows(), expected);
    }
    EXPECT_EQ(raisedBy([&] { office.payroll().C_UpdatePayPeriod(99, day("2016-04-15")); }),
              error_number::objectNotSet);
}

TEST(Closing, GivesTheLastMonthItsDatesByThePayDayRuleOfTheMoment) {
    PayOffice office;
    office.hire(7, PFREQ_Monthly);
    office.company.load();
    office.open(day("2016-06-30"));
    office.company.parameter("PRNExpD_M1", 15);
    auto expected = office.payRows();
    for (TableRow& row : expected) row.at("PRPPeriodUpdated") = true;
    // From 30 April the rule of the 15th gives 15 May, 15 June and 15 July.
    expected.back().at("PRPNExpPayDate") = day("2016-07-15");
    expected.back().at("PRPNExpEPEDate") = day("2016-07-31");
    office.payroll().C_UpdatePayPeriod(7, day("2016-06-30"));
    EXPECT_EQ(office.payRows(), expected);
}

// The months' longer kin look ahead by the employment as it is at the closing.
TEST(Closing, StepsLongerPeriodsFromTheDateTheHostHasMoved) {
    for (const PR_Pay_Freq frequency : {PFREQ_Quarterly, PFREQ_BiAnnual, PFREQ_Annual}) {
        PayOffice office;
        office.hire(7, frequency);
        office.company.load();
        const Date due = office.company.current(7).NExpPayDate();
        office.open(due);
        office.company.current(7).NExpPayDate(due.addDays(7));
        office.payroll().C_UpdatePayPeriod(7, due);
        const Date stepped =
            office.payroll().C_Calc_Next_NExpDate(due.addDays(7), frequency, PR_NExp_Pay);
        EXPECT_GT(stepped, due.addDays(60));
        EXPECT_EQ(office.payRows().back().at("PRPNExpPayDate"), Variant(stepped)) << frequency;
    }
}

TEST(Closing, AndEveryOtherWriterOfRowsWritesInsideABatch) {
    PayOffice office;
    office.hire(7).closed(week(1)).closed(week(3));
    office.company.load();
    const auto batched = [&](auto&& work) {
        int writes = 0;
        office.library().onStored([&] {
            EXPECT_GT(office.library().depth, 0);
            ++writes;
        });
        work();
        office.library().onStored({});
        EXPECT_EQ(office.library().depth, 0);
        return writes;
    };
    const Date due = office.company.current(7).NExpPayDate().addDays(7);
    EXPECT_GE(batched([&] { office.open(due); }), 4) << "two rows made and refreshed";
    EXPECT_EQ(batched([&] { office.payroll().C_UpdatePayPeriod(7, due); }), 2);
    EXPECT_EQ(batched([&] { office.payroll().AutoFillMissingPeriods(); }), 1);
    EXPECT_EQ(batched([&] { office.payroll().C_CreateStartingPayRecord(7, 0, due, due, due); }), 1);
}

TEST(VisitedMark, IsWithdrawnFromTheEmployeesOpenRowsOnly) {
    PayOffice office;
    office.hire(7).closed(week(1)).open(week(2));
    office.hire(8).open(week(2));
    office.company.exec("UPDATE PRPay SET PRPHasBeenVisited = -1");
    auto expected = office.payRows();
    for (TableRow& row : expected) {
        if (row.at("PRPNAID") == Variant(7) && row.at("PRPPeriodUpdated") == Variant(false)) {
            row.at("PRPHasBeenVisited") = false;
        }
    }
    EXPECT_TRUE(office.payroll().C_Reset_HasBeenVisited(99));  // no row is no failure
    EXPECT_TRUE(office.payroll().C_Reset_HasBeenVisited(7));
    EXPECT_EQ(office.payRows(), expected);

    office.library().failAt(Operation::Execute, 1);
    EXPECT_FALSE(office.payroll().C_Reset_HasBeenVisited(8));
    EXPECT_EQ(office.payRows(), expected);
    EXPECT_THAT(office.company.messages,
                ElementsAre(Message("Ledgerwick - Error", "Unable to Reset 'HasBeenVisited'!")));
}

TEST(StartingRow, IsClosedHoldsNoPayAndGivesTheFirstDates) {
    PayOffice office;
    office.hire(7, PFREQ_1Weekly, {12, "2016-06-28", "2016-07-08", "2016-07-05"});
    office.company.load();
    const TableRow row = office.payRows("PRPPeriodUpdated = True").at(0);
    EXPECT_EQ(row.at("PRPCalculationUsed").toInt32(), 0);
    EXPECT_EQ(row.at("PRPPaymentPeriod").toInt32(), 0);
    EXPECT_EQ(row.at("PRPPayDate").toDate(), day("2016-06-28"));  // twelve weeks after year end
    const cEmployment& employment = office.company.current(7);
    EXPECT_EQ(employment.LastWeekNo(), 12);
    EXPECT_EQ(employment.LastEPEDate(), day("2016-06-28"));
    EXPECT_EQ(employment.NExpPayDate(), day("2016-07-08"));
    EXPECT_EQ(employment.NExpEPEDate(), day("2016-07-05"));
    EXPECT_FALSE(employment.PaymentsExist());
    EXPECT_EQ(raisedBy([&] { office.payroll().C_CreateStartingPayRecord(99, 0, {}, {}, {}); }),
              error_number::noCurrentRecord);
}

}  // namespace
}  // namespace ledgerwick::test
