#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "ledgerwick/host/payroll_functions.h"
#include "tests/support/expect.h"
#include "tests/support/fake_host.h"

namespace ledgerwick {
namespace {

using test::errorOf;
using test::FakeHost;
using test::on;
using test::raisedBy;
using test::Row;
using test::Told;

// Payroll year 16, from 6 April 2015; nobody calls `Init`.
class PayrollCalendar : public testing::Test {
  protected:
    FakeHost host{16};
    CPayrollFunctions payroll;
};

TEST_F(PayrollCalendar, AnswersForADateWithoutAskingTheHost) {
    Identify().Setg(nullptr);
    Identify().Setpf(nullptr);
    EXPECT_EQ(payroll.C_CalcTaxWeek(on(5, 4, 2015)), 53);
    EXPECT_EQ(payroll.C_CalcTaxMonth(on(6, 5, 2015)), 2);
    EXPECT_EQ(payroll.C_CalcTaxWeek_Month(on(6, 5, 2015), -1), 2);
    EXPECT_EQ(payroll.PR_TaxYearNo(on(5, 4, 2016)), 16);
    EXPECT_EQ(payroll.PR_TaxYearNo(on(6, 4, 2016)), 17);
    EXPECT_EQ(payroll.C_Calc_Next_NExpDate(on(5, 4, 2016), PFREQ_1Weekly, PR_NExp_Pay),
              on(12, 4, 2016));
}

TEST_F(PayrollCalendar, GivesBothEndsOfAPeriodInAnArrayFromOneToTwo) {
    Variant dates = "what was there before";
    EXPECT_EQ(payroll.C_CalcTaxPeriodEndDate(on(5, 4, 2016), 1, &dates), on(5, 4, 2016));
    EXPECT_EQ(dates.array().at(1), Variant(on(4, 4, 2016)));
    EXPECT_EQ(dates.array().at(2), Variant(on(5, 4, 2016)));
    EXPECT_EQ(payroll.C_CalcTaxPeriodEndDate(on(5, 4, 2016), 52), on(5, 4, 2016));
    host.state->aePRPStartDay = 2;
    payroll.AECalcR_PRP(on(6, 4, 2016), 1, dates);
    EXPECT_EQ(dates.array().at(1), Variant(on(4, 4, 2016))) << "on the host's weekday";
    EXPECT_EQ(dates.array().at(2), Variant(on(10, 4, 2016)));
}

TEST_F(PayrollCalendar, NamesTheOperationThatRefusesAPayPeriod) {
    Variant dates = 7;
    const Date date = on(5, 4, 2016);
    EXPECT_EQ(errorOf([&] { payroll.C_CalcTaxPeriodEndDate(date, 0, &dates); }),
              (Told{9909, "C_CalcTaxPeriodEndDate", "Invalid Pay Period (0)."}));
    EXPECT_EQ(errorOf([&] { payroll.C_CalcTaxWeek_Month(date, 3); }),
              (Told{9909, "C_CalcTaxWeek", "Invalid Pay Period (3)."}));
    EXPECT_EQ(errorOf([&] { payroll.AECalcR_PRP(date, 0, dates); }),
              (Told{9909, "AECalcR_PRP", "Invalid Pay Period (0)."}));
    EXPECT_EQ(dates, Variant(7)) << "the output stays as it was";
}

TEST_F(PayrollCalendar, TurnsMonthsAndWeeksOfTheCurrentYearIntoEachOther) {
    const std::int32_t weekOfMonth[] = {5, 9, 13, 18, 22, 27, 31, 35, 40, 44, 48, 53};
    for (int month = 1; month <= 12; ++month) {
        EXPECT_EQ(payroll.C_CalcTaxWeek_OF_Month(std::to_string(month)), weekOfMonth[month - 1]);
    }
    const std::pair<int, int> monthOfWeek[] = {{1, 1}, {5, 1}, {6, 2}, {27, 6}, {53, 12}, {54, 1}};
    for (const auto& [week, month] : monthOfWeek) {
        EXPECT_EQ(payroll.C_CalcTaxMonth_OF_Week(week), month) << "by the first day of " << week;
    }
    EXPECT_EQ(raisedBy([&] { payroll.C_CalcTaxWeek_OF_Month(Null); }),
              error_number::invalidUseOfNull);
}

TEST_F(PayrollCalendar, ReadsTheCurrentYearAfresh) {
    EXPECT_EQ(payroll.C_CalcTaxMonthEndDate(12), on(5, 4, 2016));
    host.state->currentYear = 17;
    EXPECT_EQ(payroll.C_CalcTaxMonthEndDate(12), on(5, 4, 2017));
    EXPECT_EQ(payroll.C_CalcTaxWeekEndDate(52), on(4, 4, 2017));
    host.state->currentYear = 2147483647;
    EXPECT_EQ(raisedBy([&] { payroll.C_CalcTaxMonthEndDate(1); }), error_number::overflow);
}

TEST_F(PayrollCalendar, CountsWeeksFromTheLastYearEnd) {
    EXPECT_EQ(payroll.C_DateOfWeekNo(1), on(12, 4, 2015));
    EXPECT_EQ(payroll.C_DateOfWeekNo(-1), on(29, 3, 2015));
    EXPECT_EQ(payroll.C_DateOfWeekNo(60), on(29, 5, 2016));
    EXPECT_EQ(payroll.C_WeekNoOfDate(on(9, 4, 2015)), 1);
    EXPECT_EQ(payroll.WeekNoOfDate(17, on(16, 4, 2016)), 2) << "by the year that is asked for";
    EXPECT_EQ(raisedBy([&] { payroll.WeekNoOfDate(19, on(15, 4, 2015)); }),
              error_number::noSuchItem);
    EXPECT_EQ(raisedBy([&] { payroll.C_DateOfWeekNo(400000000); }), error_number::overflow);
}

TEST_F(PayrollCalendar, AYearEndOfAnotherYearIsToldOnlyWhereItIsChecked) {
    host.state->yearEnds.Item(15, on(5, 4, 2014));
    const Told mismatch{9901, "Payroll_Functions|CheckYEValid|(CDateOfWeekNo)",
                        "Payroll last year-end doesn't match Payroll current year: 05/04/2014/16"};
    EXPECT_EQ(errorOf([&] { payroll.C_DateOfWeekNo(1); }), mismatch);
    EXPECT_EQ(errorOf([&] { payroll.C_CalculationsToUseOnNewRecord(1); }), mismatch);
    EXPECT_EQ(payroll.C_WeekNoOfDate(on(12, 4, 2014)), 1);
}

TEST_F(PayrollCalendar, TheMonthOfAWeekIsTheOneRowStoredForIt) {
    const std::string statement = "SELECT * FROM TEMP_PR_LAST_WEEK_NOS_PC7 WHERE TLWWeekNo = ";
    const Row month2{{field::TLWCMonthNo, 2}};
    host.state->database.answer(statement + "7", {});
    host.state->database.answer(statement + "8", {month2, month2});
    host.state->database.answer(statement + "9", {month2});
    EXPECT_EQ(payroll.C_MonthNoOfWeekNo(9), Date(2.0)) << "as a date";
    for (const int week : {7, 8}) {
        EXPECT_EQ(errorOf([&] { payroll.C_MonthNoOfWeekNo(week); }),
                  (Told{54234, "Payroll_Function|C_MonthNoOfWeekNo",
                        "Unable to calculate Month No of Week No " + std::to_string(week)}));
    }
}

TEST_F(PayrollCalendar, TheMonthlyRuleIsTheParameterOfTheMode) {
    auto& parameters = host.functions->parameters;
    const auto next = [&](PR_NExpMode mode, PR_Pay_Freq freq = PFREQ_Monthly) {
        return payroll.C_Calc_Next_NExpDate(on(31, 7, 2015), freq, mode);
    };
    parameters["PRNExpD_M1"] = "31";
    parameters["PREPED_M1"] = -6;
    EXPECT_EQ(next(PR_NExp_Pay), on(31, 8, 2015));
    EXPECT_FALSE(host.functions->monthsAskedFor.empty()) << "the host tells the month's length";
    EXPECT_EQ(next(PR_NExp_EPE), on(28, 8, 2015));
    parameters["PREPED_M1"] = -8;
    EXPECT_EQ(errorOf([&] { next(PR_NExp_EPE); }),
              (Told{9012, "C_Calc_Next_NExpDate",
                    "C_Calc_Next_NExpDate - Invalid Monthly controller (PREPED_M1)"}));
    parameters["PREPED_M1"] = "last Friday";
    EXPECT_EQ(errorOf([&] { next(PR_NExp_EPE); }), (Told{error_number::typeMismatch, "PREPED_M1"}));
    parameters.clear();
    EXPECT_EQ(next(PR_NExpMode{}), on(31, 8, 2015)) << "any other mode asks for none";
    EXPECT_EQ(next(PR_NExp_Pay, PFREQ_Quarterly), on(30, 10, 2015)) << "nor another frequency";
}

TEST_F(PayrollCalendar, CalculationsGoByTheWeekOrByTheDateInItsPlace) {
    EXPECT_EQ(payroll.C_CalculationsToUseOnNewRecord(6), 32) << "17 May 2015";
    EXPECT_EQ(payroll.C_CalculationsToUseOnNewRecord(7, on(6, 9, 2008)), 33) << "by the week";
    EXPECT_EQ(payroll.C_CalculationsToUseOnNewRecord(-10, on(6, 9, 2008)), 17) << "by the date";
    EXPECT_EQ(
        errorOf([&] { payroll.C_CalculationsToUseOnNewRecord(-10); }),
        (Told{9916, "Payroll_Functions|C_CalculationsToUseOnNewRecord", "Can't do year - -100"}));
}

}  // namespace
}  // namespace ledgerwick
