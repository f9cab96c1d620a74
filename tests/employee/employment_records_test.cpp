#include <gtest/gtest.h>

#include <stdexcept>

#include "ledgerwick/host/identify.h"
#include "ledgerwick/records/schema.h"
#include "tests/support/company.h"
#include "tests/support/errors.h"
#include "tests/support/rows.h"

namespace ledgerwick::test {
namespace {

// An add-info array (1 To 18) of form type and status, with its index as every other element.
Variant addInfo(std::int32_t type, std::int32_t status) {
    VariantArray array(1, 18);
    for (std::int32_t i = 1; i <= 18; ++i) array.at(i) = i;
    array.at(3) = type;
    array.at(4) = status;
    return array;
}

class EmploymentRecords : public testing::Test {
  protected:
    EmploymentRecords() { company.employee(7).details("PREPYEmployCount = 2"); }
    CPayrollFunctions& payroll() { return company.payroll(); }

    Company company;
};

// ---- new rows -----------------------------------------------------------------------------------

TEST_F(EmploymentRecords, AreWrittenWithTheEmployeesPresentCount) {
    payroll().C_CreateNewEmploymentRecord(7, 5, PR_ET_Casual, "10/5/2016", {}, true, "Eligible");
    EXPECT_EQ(1, company.count(R"(PREmployments WHERE PRTNAID = 7 AND PRTPayrollYear = 17
        AND PRTPYEmployCount = 2 AND PRTStartWeekNo = 5 AND PRTStartDate = 42500
        AND PRTEndDateLong = 0 AND PRTType = 2 AND PRTContinuation = -1
        AND PRTAEStatus = 'Eligible')"));
    EXPECT_EQ(0, company.count("PREmploymentsAddInfo"));
}

TEST_F(EmploymentRecords, NeedAStartDateAndAnEmployee) {
    for (const char* date : {"", "soon", "31/2/2016"})
        EXPECT_EQ(10678, raisedBy([&] {
                      payroll().C_CreateNewEmploymentRecord(7, 5, PR_ET_Regular, date);
                  }));
    EXPECT_EQ(10678, raisedBy([&] { payroll().C_CreateNewEmploymentRecord(7, 5); }));
    EXPECT_EQ(3021, raisedBy([&] {
                  payroll().C_CreateNewEmploymentRecord(8, 5, PR_ET_Regular, "10/5/2016");
              }));
    EXPECT_EQ(1, company.count("PREmployments"));
}

TEST_F(EmploymentRecords, TakeTheirAddInfoWithThemAndStayWhenItFails) {
    const Variant tooShort = VariantArray(1, 5);
    EXPECT_EQ(9, raisedBy([&] {
                  payroll().C_CreateNewEmploymentRecord(7, 5, PR_ET_Casual, "2016-05-10", tooShort);
              }));
    EXPECT_EQ(2, company.count("PREmployments"));
    EXPECT_EQ(0, company.count("PREmploymentsAddInfo"));

    const Variant given = addInfo(PRTAT_P46, 1);
    payroll().C_CreateNewEmploymentRecord(7, 5, PR_ET_Regular, "2016-05-10", given);
    EXPECT_EQ(1, company.count("PREmployments, PREmploymentsAddInfo WHERE PRTAPRTID = PRTID"
                               " AND PRTType = 1"));
    EXPECT_TRUE(given == addInfo(PRTAT_P46, 1));  // the host's array is its own
}

// ---- add-info -----------------------------------------------------------------------------------

TEST_F(EmploymentRecords, AddInfoStoresEachElementInItsField) {
    payroll().PR_EmploymentsAddInfo_Add(addInfo(PRTAT_LEFT, 1));
    EXPECT_EQ(1, company.count(R"(PREmploymentsAddInfo
        WHERE PRTAPRTID = 2 AND PRTAType = -2 AND PRTAStatus = 1 AND PRTAHCID = 5
          AND PRTADecDate = 6 AND PRTADied = -1 AND PRTAPEmpPAYERef = 8 AND PRTAPEmpLeave = 9
          AND PRTAPEmpSLoans = 10 AND PRTAPEmpTaxCode = 11 AND PRTAPEmpWeek1 = -1
          AND PRTAPEmpWeekNo = 13 AND PRTAPEmpGross = 14 AND PRTAPEmpTax = 15 AND PRTAText = 16
          AND PRTADec = 17 AND PRTAPEmpPGLoans = 18)"));
}

TEST_F(EmploymentRecords, AddInfoOfStatusZeroRaisesTheHostsFlagUnlessItIsOfAJoiner) {
    EXPECT_EQ(0, payroll().PR_EmploymentsAddInfo_Add(addInfo(PRTAT_JOIN, 0)));
    EXPECT_EQ(0, company.count("PREmploymentsAddInfo"));
    payroll().PR_EmploymentsAddInfo_Add(addInfo(PRTAT_P46, 1));
    EXPECT_FALSE(company.state().g_blnPRSchUp());
    payroll().PR_EmploymentsAddInfo_Add(addInfo(PRTAT_P46, 0));
    payroll().PR_EmploymentsAddInfo_Add(addInfo(PRTAT_P46, 1));
    EXPECT_TRUE(company.state().g_blnPRSchUp());
}

// A recordset that the data-access object puts in the place of the one it was shown.
struct Substitute : Rows {
    std::vector<std::string> calls;
    bool fails = false;

    Substitute() : Rows{Row{{field::PRTAID, 4711}}} {}
    void Update() override {
        if (fails) throw std::runtime_error("the disk is full");
        calls.emplace_back("Update");
    }
    ledgerwick::Bookmark LastModified() override { return 12; }
    ledgerwick::Bookmark Bookmark() override { return 1; }
    void Bookmark(const ledgerwick::Bookmark& place) override {
        calls.push_back("to " + place.toText());
    }
    void Close() override { calls.emplace_back("Close"); }
};

TEST_F(EmploymentRecords, AddInfoGoesOnWithTheRecordsetHandedBack) {
    const auto substitute = std::make_shared<Substitute>();
    company.dataAccess->replacement = substitute;
    EXPECT_EQ(4711, payroll().PR_EmploymentsAddInfo_Add(addInfo(PRTAT_P46, 1)));
    EXPECT_EQ((std::vector<std::string>{"Update", "to 12", "Close"}), substitute->calls);
}

TEST_F(EmploymentRecords, AddInfoPutsItsNameBeforeTheSourceOfAFailure) {
    const auto told = [this](const Variant& array) {
        const Told error = errorOf([&] { payroll().PR_EmploymentsAddInfo_Add(array); });
        return std::to_string(error.number) + " " + error.source + " " + error.description;
    };
    EXPECT_EQ(0U, told(VariantArray(1, 2)).find("9 PR_EmploymentsAddInfo_Add|"));
    EXPECT_EQ(0U, told("no array").find("13 PR_EmploymentsAddInfo_Add|"));

    const auto substitute = std::make_shared<Substitute>();
    substitute->fails = true;
    company.dataAccess->replacement = substitute;
    EXPECT_EQ("5 PR_EmploymentsAddInfo_Add| the disk is full", told(addInfo(PRTAT_P46, 1)));

    Identify().SetDAO_ADO(nullptr);
    EXPECT_EQ(0U, told(addInfo(PRTAT_P46, 1)).find("91 PR_EmploymentsAddInfo_Add|DAO_ADO"));
    EXPECT_EQ(0, company.count("PREmploymentsAddInfo"));
}

// ---- questions ----------------------------------------------------------------------------------

TEST(EarningsPeriod, StartsTheDayAfterTheLastClosedRow) {
    Company company;
    company.employee(7).closed(weeks(1, 9)).open(week(10));
    CPayrollFunctions& payroll = company.payroll();
    const auto dayAfter = [](std::int32_t w) {
        return datesOf(PFREQ_1Weekly, 17, w).epeDate.addDays(1);
    };
    EXPECT_EQ(dayAfter(9), payroll.PR_GetEPSDate(7, 17, 1));
    EXPECT_EQ(dayAfter(9), payroll.PR_GetEPSDate(7, 17, 1, 10));
    EXPECT_EQ(dayAfter(8), payroll.PR_GetEPSDate(7, 17, 1, 9));
    EXPECT_EQ(Date(), payroll.PR_GetEPSDate(7, 17, 1, 1));
    EXPECT_EQ(Date(), payroll.PR_GetEPSDate(7, 17, 2));
    EXPECT_EQ(Date(), payroll.PR_GetEPSDate(7, 16, 1));
    EXPECT_EQ(Date(), payroll.PR_GetEPSDate(8, 17, 1));

    // Of two rows in a week the one reported later decides.
    company.employee(7).closed(week(9)).pay("PRPRTIPayDate = #5/2/2016#, PRPEPEDate = #5/4/2016#");
    EXPECT_EQ(dayAfter(9), payroll.PR_GetEPSDate(7, 17, 1));
    company.employee(7).pay("PRPRTIPayDate = #7/2/2016#");
    EXPECT_EQ(day("2016-05-05"), payroll.PR_GetEPSDate(7, 17, 1));
}

TEST(HighestPayRow, IsTheLastOneReportedUpToTheDate) {
    Company company;
    company.employee(8).closed(week(1));
    company.employee(7).closed(weeks(1, 2)).open(week(3));
    CPayrollFunctions& payroll = company.payroll();
    const Date week2 = datesOf(PFREQ_1Weekly, 17, 2).payDate;
    EXPECT_EQ(3, payroll.Max_PRPID_From_PayDate(17, 7, 1, week2));
    EXPECT_EQ(2, payroll.Max_PRPID_From_PayDate(17, 7, 1, week2.addDays(-1)));
    EXPECT_EQ(94, raisedBy([&] { payroll.Max_PRPID_From_PayDate(17, 7, 1, week2.addWeeks(-9)); }));
}

TEST(DuplicateIdentifiers, AreListedByName) {
    Company company;
    for (const std::int32_t naid : {7, 8, 9}) company.employee(naid);
    company.employee(8).left("2016-04-30").closed(week(1));
    company.load();
    for (const std::int32_t naid : {7, 8, 9}) company.at(naid).OtherID(31);

    CPayrollFunctions& payroll = company.payroll();
    std::string duplicates = "kept";
    EXPECT_FALSE(payroll.PR_OtherID_Duplicate_Check(32, 7, false, &duplicates));
    EXPECT_EQ("kept", duplicates);
    EXPECT_TRUE(payroll.PR_OtherID_Duplicate_Check(31, 7, false, &duplicates));
    EXPECT_EQ("Employee 8\r\nEmployee 9", duplicates);
    EXPECT_TRUE(payroll.PR_OtherID_Duplicate_Check(31, 7, true, &duplicates));
    EXPECT_EQ("Employee 9", duplicates);
    company.at(9).OtherID(0);
    EXPECT_FALSE(payroll.PR_OtherID_Duplicate_Check(31, 7, true));
    EXPECT_EQ(91, raisedBy([] { CPayrollFunctions().PR_OtherID_Duplicate_Check(31, 7); }));
}

}  // namespace
}  // namespace ledgerwick::test
