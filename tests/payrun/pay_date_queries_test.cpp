// The questions that tell a host which date to work on next.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/payrun/pay_office.h"
#include "tests/support/errors.h"

namespace ledgerwick::test {
namespace {

// A week, a fortnight and a month (on scheme 7), a casual and a leaver.
class PayDates : public testing::Test {
  protected:
    void SetUp() override {
        office.company.scheme(7, "Pension", 5, 3);
        office.hire(1);                             // 8 April, period to 12 April
        office.hire(2, PFREQ_2Weekly);              // 15 April, to 19 April
        office.hire(3, PFREQ_Monthly).inScheme(7);  // 30 April, to 30 April
        office.hire(4, PFREQ_1Weekly, early).row("PRTType = 2");
        office.hire(5, PFREQ_1Weekly, early).left("2016-04-30");
        office.company.load();
    }
    const History early{0, "2016-04-05", "2016-04-01", "2016-04-01"};
    PayOffice office;
    CPayrollFunctions& payroll = office.payroll();
    bool none = false;
};

TEST_F(PayDates, NextIsTheEarliestOfTheRegularActiveEmployees) {
    none = true;
    EXPECT_EQ(payroll.C_Next_Expected_Pay_Date(&none), day("2016-04-08"));
    EXPECT_FALSE(none);
    EXPECT_EQ(payroll.C_Next_Expected_Pay_Date(nullptr, PFREQ_2Weekly), day("2016-04-15"));
    EXPECT_EQ(payroll.C_Next_Expected_Pay_Date(nullptr, PFREQ_SelAll, true), day("2016-04-30"));
    EXPECT_EQ(payroll.C_Next_Expected_Pay_Date(nullptr, PFREQ_SelAll, false, 7), day("2016-04-30"));
    none = true;
    EXPECT_EQ(payroll.C_Next_Expected_EPE_Date(&none), day("2016-04-12"));
    EXPECT_FALSE(none);
    EXPECT_EQ(payroll.C_Next_Expected_EPE_Date(nullptr, PFREQ_Monthly), day("2016-04-30"));
}

TEST_F(PayDates, WithNobodyFoundNextIsTodayOrTheNextFriday) {
    for (const auto& [today, friday] :
         {std::pair("2016-06-30", "2016-07-01"), std::pair("2016-07-01", "2016-07-01"),
          std::pair("2016-07-02", "2016-07-08")}) {
        office.company.today(today);
        bool noPay = false;
        bool noEPE = false;
        EXPECT_EQ(payroll.C_Next_Expected_Pay_Date(&noPay, PFREQ_SelAll, false, 8), day(friday));
        EXPECT_EQ(payroll.C_Next_Expected_EPE_Date(&noEPE, PFREQ_Annual), day(friday));
        EXPECT_TRUE(noPay && noEPE);
    }
    EXPECT_EQ(payroll.C_Next_Expected_Pay_Date(&none, PFREQ_SelRegOnly, true), Date());
    EXPECT_TRUE(none);
}

TEST_F(PayDates, LastCountsLeaversAndNoCasuals) {
    EXPECT_EQ(payroll.C_Last_Expected_Pay_Date(&none), Date());  // nobody has been paid yet
    EXPECT_TRUE(none);
    office.company.employee(4).closed(week(3));
    office.company.employee(5).closed(week(3));
    office.company.load();
    EXPECT_EQ(payroll.C_Last_Expected_Pay_Date(&none), day("2016-04-01"));  // the leaver's
    EXPECT_FALSE(none);
    office.company.employee(3).closed(month(1));
    office.company.load();
    EXPECT_EQ(payroll.C_Last_Expected_Pay_Date(), day("2016-04-30"));
    EXPECT_EQ(payroll.C_Last_Expected_Pay_Date(&none, 7), day("2016-04-30"));
    EXPECT_EQ(payroll.C_Last_Expected_Pay_Date(&none, 8), Date());
    EXPECT_TRUE(none);
}

TEST_F(PayDates, CountsEmployeesAndPeriodsDue) {
    const auto expectDue = [&](const char* date, std::int32_t employees, std::int32_t records) {
        std::pair<std::int32_t, std::int32_t> due{-1, -1};
        payroll.C_Count_for_Pay_Date(day(date), &due.first, &due.second);
        EXPECT_EQ(due, std::pair(employees, records)) << date;
    };
    expectDue("2016-04-07", 0, 0);
    expectDue("2016-04-08", 1, 1);
    expectDue("2016-05-31", 3, 14);  // eight weeks, four fortnights, two months
    EXPECT_EQ(payroll.C_Count_Employees(), 3);
    EXPECT_EQ(payroll.C_Count_Employees(PR_ET_Casual), 1);
}

TEST_F(PayDates, TheOldestOpenRunOfTheYearComesFirst) {
    office.company.employee(3).open(month(3)).pay("PRPPayrollYear = 16");
    EXPECT_EQ(payroll.C_Update_Period_Date(&none), day("2016-04-08"));
    EXPECT_TRUE(none);  // no run of this year is open, whoever is due
    office.company.employee(3).open(month(2)).open(month(1));
    EXPECT_EQ(payroll.C_Update_Period_Date(&none), day("2016-04-28"));
    EXPECT_FALSE(none);
}

TEST_F(PayDates, ReferencePeriodEndsByTheLatestExpectedDate) {
    const auto end = [&](std::int32_t naid, const char* payDate) {
        return payroll.PR_End_of_PRP_for_PayDate(naid, day(payDate));
    };
    EXPECT_EQ(end(1, "2016-04-01"), day("2016-04-12"));  // not stepped back
    EXPECT_EQ(end(1, "2016-04-21"), day("2016-04-19"));  // expected on 15 April
    EXPECT_EQ(end(3, "2016-06-15"), day("2016-06-05"));  // expected on 31 May
    EXPECT_EQ(raisedBy([&] { end(99, "2016-04-08"); }), error_number::objectNotSet);

    EXPECT_EQ(payroll.PR_PRP_Get_Last_End_Date(), day("2016-04-05"));
    office.hire(6, PFREQ_1Weekly, {1, "2016-04-12", "2016-04-15", "2016-04-19"});
    office.company.load();
    EXPECT_EQ(payroll.PR_PRP_Get_Last_End_Date(), day("2016-04-12"));
}

}  // namespace
}  // namespace ledgerwick::test
