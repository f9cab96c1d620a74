#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ledgerwick/shell/payroll_functions.h"
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
    EXPECT_EQ(payroll.C_Convert_PayFreq_to_PayPeriod(PFREQ_4Weekly), 4);
    EXPECT_EQ(payroll.C_Convert_PayPeriod_to_PayFreq(-7), PFREQ_Monthly);
    EXPECT_EQ(payroll.C_Calc_Next_NExpDate(on(5, 4, 2016), PFREQ_1Weekly, PR_NExp_Pay),
              on(12, 4, 2016));
    Variant dates;
    payroll.AECalcR_PRP(on(5, 4, 2015), 2, dates);
    EXPECT_EQ(dates.array().at(2).toDate(), on(18, 4, 2015));
}

TEST_F(PayrollCalendar, GivesBothEndsOfAPeriodInAnArrayFromOneToTwo) {
    Variant dates = "what was there before";
    EXPECT_EQ(payroll.C_CalcTaxPeriodEndDate(on(5, 4, 2016), 1, &dates), on(5, 4, 2016));
    EXPECT_EQ(dates.array().lowerBound(), 1);
    EXPECT_EQ(dates.array().upperBound(), 2);
    EXPECT_EQ(dates.array().at(1), Variant(on(4, 4, 2016)));
    EXPECT_EQ(dates.array().at(2), Variant(on(5, 4, 2016)));
    EXPECT_EQ(payroll.C_CalcTaxPeriodEndDate(on(5, 4, 2016), 52), on(5, 4, 2016));
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
        EXPECT_EQ(payroll.C_CalcTaxWeek_OF_Month(month), weekOfMonth[month - 1]) << month;
    }
    EXPECT_EQ(payroll.C_CalcTaxWeek_OF_Month("9"), 40) << "a text that holds a number";
    EXPECT_EQ(payroll.C_CalcTaxMonth_OF_Week(1), 1);
    EXPECT_EQ(payroll.C_CalcTaxMonth_OF_Week(std::int16_t{5}), 1) << "by the week's first day";
    EXPECT_EQ(payroll.C_CalcTaxMonth_OF_Week(6), 2);
    EXPECT_EQ(payroll.C_CalcTaxMonth_OF_Week(27), 6) << "from 5 October on";
    EXPECT_EQ(payroll.C_CalcTaxMonth_OF_Week(53), 12);
    EXPECT_EQ(payroll.C_CalcTaxMonth_OF_Week(54), 1) << "no cut at the year's end";
    EXPECT_EQ(raisedBy([&] { payroll.C_CalcTaxWeek_OF_Month(Null); }),
              error_number::invalidUseOfNull);
}

TEST_F(PayrollCalendar, ReadsTheCurrentYearAfresh) {
    EXPECT_EQ(payroll.C_CalcTaxMonthEndDate(12), on(5, 4, 2016));
    EXPECT_EQ(payroll.C_CalcTaxWeekEndDate(53), on(5, 4, 2016));
    host.state->currentYear = 17;
    EXPECT_EQ(payroll.C_CalcTaxMonthEndDate(12), on(5, 4, 2017));
    EXPECT_EQ(payroll.C_CalcTaxWeekEndDate(52), on(4, 4, 2017));
    host.state->currentYear = 2147483647;
    EXPECT_EQ(raisedBy([&] { payroll.C_CalcTaxMonthEndDate(1); }), error_number::overflow);
}

TEST_F(PayrollCalendar, CountsWeeksFromTheLastYearEnd) {
    EXPECT_EQ(payroll.C_DateOfWeekNo(1), on(12, 4, 2015));
    EXPECT_EQ(payroll.C_DateOfWeekNo(0), on(5, 4, 2015));
    EXPECT_EQ(payroll.C_DateOfWeekNo(-1), on(29, 3, 2015));
    EXPECT_EQ(payroll.C_DateOfWeekNo(60), on(29, 5, 2016));
    EXPECT_EQ(payroll.C_WeekNoOfDate(on(8, 4, 2015)), 0);
    EXPECT_EQ(payroll.C_WeekNoOfDate(on(9, 4, 2015)), 1);
    EXPECT_EQ(payroll.C_WeekNoOfDate(on(1, 1, 2015)), 0) << "before the year-end";
    EXPECT_EQ(payroll.WeekNoOfDate(16, on(15, 4, 2015)), 1);
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
    host.state->yearEnds.Item(15, on(31, 1, 2015));
    EXPECT_EQ(payroll.C_DateOfWeekNo(1), on(7, 2, 2015)) << "any day of the right year will do";
}

TEST_F(PayrollCalendar, TheMonthOfAWeekIsTheOneRowStoredForIt) {
    const std::string statement = "SELECT * FROM TEMP_PR_LAST_WEEK_NOS_PC7 WHERE TLWWeekNo = ";
    const Row month2{{field::TLWCMonthNo, 2}};
    host.state->database.answer(statement + "7", {});
    host.state->database.answer(statement + "8", {month2, month2});
    host.state->database.answer(statement + "9", {month2});
    EXPECT_EQ(payroll.C_MonthNoOfWeekNo(9), Date(2.0)) << "as a date";
    EXPECT_EQ(errorOf([&] { payroll.C_MonthNoOfWeekNo(7); }),
              (Told{54234, "Payroll_Function|C_MonthNoOfWeekNo",
                    "Unable to calculate Month No of Week No 7"}));
    EXPECT_EQ(raisedBy([&] { payroll.C_MonthNoOfWeekNo(8); }), 54234) << "two rows";
    EXPECT_EQ(host.state->database.opened(),
              (std::vector{statement + "9", statement + "7", statement + "8"}));
}

TEST_F(PayrollCalendar, TheMonthlyRuleIsTheParameterOfTheMode) {
    auto& parameters = host.functions->parameters;
    parameters["PRNExpD_M1"] = "31";
    parameters["PREPED_M1"] = -6;
    const Date date = on(31, 7, 2015);
    EXPECT_EQ(payroll.C_Calc_Next_NExpDate(date, PFREQ_Monthly, PR_NExp_Pay), on(31, 8, 2015));
    EXPECT_EQ(payroll.C_Calc_Next_NExpDate(date, PFREQ_Monthly, PR_NExp_EPE), on(28, 8, 2015));
    parameters.clear();
    EXPECT_EQ(payroll.C_Calc_Next_NExpDate(date, PFREQ_Monthly, PR_NExpMode{}), on(31, 8, 2015))
        << "any other mode asks for none";
    EXPECT_EQ(payroll.C_Calc_Next_NExpDate(date, PFREQ_Quarterly, PR_NExp_Pay), on(30, 10, 2015))
        << "nor does any other frequency";
}

TEST_F(PayrollCalendar, TheHostTellsTheLengthOfTheMonth) {
    host.functions->parameters["PRNExpD_M1"] = 3;
    EXPECT_EQ(payroll.C_Calc_Next_NExpDate(on(3, 1, 2015), PFREQ_Monthly, PR_NExp_Pay),
              on(3, 2, 2015));
    ASSERT_EQ(host.functions->monthsAskedFor.size(), 1U);
    EXPECT_EQ(host.functions->monthsAskedFor[0].month(), 2);
    EXPECT_EQ(payroll.C_Calc_Next_NExpDate(on(20, 6, 2015), PFREQ_Monthly, PR_NExp_Pay, true),
              on(3, 7, 2015));
    EXPECT_EQ(payroll.C_Calc_Next_NExpDate(on(3, 7, 2015), PFREQ_Monthly, PR_NExp_Pay, false, true),
              on(3, 6, 2015));
}

TEST_F(PayrollCalendar, AnInvalidMonthlyRuleIsToldByItsName) {
    host.functions->parameters["PREPED_M1"] = -8;
    EXPECT_EQ(
        errorOf([&] { payroll.C_Calc_Next_NExpDate(on(5, 4, 2016), PFREQ_Monthly, PR_NExp_EPE); }),
        (Told{9012, "C_Calc_Next_NExpDate",
              "C_Calc_Next_NExpDate - Invalid Monthly controller (PREPED_M1)"}));
    host.functions->parameters["PREPED_M1"] = "last Friday";
    EXPECT_EQ(
        errorOf([&] { payroll.C_Calc_Next_NExpDate(on(5, 4, 2016), PFREQ_Monthly, PR_NExp_EPE); }),
        (Told{error_number::typeMismatch, "PREPED_M1"}));
}

TEST_F(PayrollCalendar, WeeklyReferencePeriodsStartOnTheHostsWeekday) {
    Variant dates;
    payroll.AECalcR_PRP(on(6, 4, 2016), 1, dates);
    EXPECT_EQ(dates.array().at(1), Variant(on(6, 4, 2016)));
    host.state->aePRPStartDay = 2;
    payroll.AECalcR_PRP(on(6, 4, 2016), 1, dates);
    EXPECT_EQ(dates.array().at(1), Variant(on(4, 4, 2016)));
    EXPECT_EQ(dates.array().at(2), Variant(on(10, 4, 2016)));
    payroll.AECalcR_PRP(on(6, 4, 2016), 4, dates);
    EXPECT_EQ(dates.array().at(1), Variant(on(6, 4, 2016))) << "other periods keep to 6 April";
}

TEST_F(PayrollCalendar, CalculationsGoByTheWeekOrByTheDateInItsPlace) {
    EXPECT_EQ(payroll.C_CalculationsToUseOnNewRecord(6), 32) << "17 May 2015";
    EXPECT_EQ(payroll.C_CalculationsToUseOnNewRecord(7), 33) << "24 May 2015";
    EXPECT_EQ(payroll.C_CalculationsToUseOnNewRecord(7, on(6, 9, 2008)), 33)
        << "a date beside a week is not looked at";
    EXPECT_EQ(payroll.C_CalculationsToUseOnNewRecord(-10, on(6, 9, 2008)), 17)
        << "the year of the date, not the current one";
    EXPECT_EQ(
        errorOf([&] { payroll.C_CalculationsToUseOnNewRecord(-10); }),
        (Told{9916, "Payroll_Functions|C_CalculationsToUseOnNewRecord", "Can't do year - -100"}));
}

}  // namespace
}  // namespace ledgerwick
