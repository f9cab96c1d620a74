#include <gtest/gtest.h>

#include <stdexcept>

#include "ledgerwick/shell/identify.h"
#include "tests/support/company.h"
#include "tests/support/errors.h"

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
    const std::string row = "PREmployments WHERE PRTPYEmployCount = 2";
    ASSERT_EQ(1, company.count(row));
    EXPECT_EQ(7, company.value("PRTNAID", row).toInt32());
    EXPECT_EQ(17, company.value("PRTPayrollYear", row).toInt32());
    EXPECT_EQ(5, company.value("PRTStartWeekNo", row).toInt32());
    EXPECT_EQ(day("2016-05-10"), company.value("PRTStartDate", row).toDate());
    EXPECT_EQ(0, company.value("PRTEndDateLong", row).toInt32());
    EXPECT_EQ(2, company.value("PRTType", row).toInt32());
    EXPECT_TRUE(company.value("PRTContinuation", row).toBoolean());
    EXPECT_EQ("Eligible", company.value("PRTAEStatus", row).toText());
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

TEST_F(EmploymentRecords, TakeTheirAddInfoWithThem) {
    const Variant given = addInfo(PRTAT_P46, 1);
    payroll().C_CreateNewEmploymentRecord(7, 5, PR_ET_Regular, "2016-05-10", given);
    const auto prtid = company.value("PRTID", "PREmployments WHERE PRTPYEmployCount = 2").toInt32();
    EXPECT_EQ(prtid, company.value("PRTAPRTID", "PREmploymentsAddInfo").toInt32());
    EXPECT_TRUE(given == addInfo(PRTAT_P46, 1));  // the host's array is its own
}

TEST_F(EmploymentRecords, StayWhenTheirAddInfoFails) {
    const Variant tooShort = VariantArray(1, 5);
    EXPECT_EQ(9, raisedBy([&] {
                  payroll().C_CreateNewEmploymentRecord(7, 5, PR_ET_Regular, "2016-05-10",
                                                        tooShort);
              }));
    EXPECT_EQ(2, company.count("PREmployments"));
    EXPECT_EQ(0, company.count("PREmploymentsAddInfo"));
}

// ---- add-info -----------------------------------------------------------------------------------

TEST_F(EmploymentRecords, AddInfoStoresEachElementInItsField) {
    const std::int32_t key = payroll().PR_EmploymentsAddInfo_Add(addInfo(PRTAT_LEFT, 1));
    const std::string row = "PREmploymentsAddInfo WHERE PRTAID = " + std::to_string(key);
    const std::pair<const char*, std::int32_t> fields[] = {
        {"PRTAPRTID", 2},       {"PRTAType", PRTAT_LEFT}, {"PRTAStatus", 1},
        {"PRTAHCID", 5},        {"PRTADecDate", 6},       {"PRTAPEmpPAYERef", 8},
        {"PRTAPEmpLeave", 9},   {"PRTAPEmpSLoans", 10},   {"PRTAPEmpTaxCode", 11},
        {"PRTAPEmpWeekNo", 13}, {"PRTAPEmpGross", 14},    {"PRTAPEmpTax", 15},
        {"PRTAText", 16},       {"PRTADec", 17},          {"PRTAPEmpPGLoans", 18},
    };
    for (const auto& [name, value] : fields)
        EXPECT_EQ(value, company.value(name, row).toInt32()) << name;
    EXPECT_EQ(1, company.dataAccess->rowsShown);
    EXPECT_FALSE(company.state().g_blnPRSchUp());
}

TEST_F(EmploymentRecords, AddInfoOfStatusZeroRaisesTheHostsFlag) {
    payroll().PR_EmploymentsAddInfo_Add(addInfo(PRTAT_P46, 0));
    EXPECT_TRUE(company.state().g_blnPRSchUp());
    payroll().PR_EmploymentsAddInfo_Add(addInfo(PRTAT_P46, 1));
    EXPECT_TRUE(company.state().g_blnPRSchUp());
}

TEST_F(EmploymentRecords, AddInfoOfAJoinerIsNotStored) {
    EXPECT_EQ(0, payroll().PR_EmploymentsAddInfo_Add(addInfo(PRTAT_JOIN, 0)));
    EXPECT_EQ(0, company.count("PREmploymentsAddInfo"));
    EXPECT_FALSE(company.state().g_blnPRSchUp());
}

// A recordset that the data-access object puts in the place of the one it was shown.
struct Substitute : Recordset {
    std::vector<std::string> calls;
    bool fails = false;

    std::int32_t RecordCount() override { return 1; }
    bool Eof() override { return false; }
    std::int32_t AbsolutePosition() override { return 0; }
    void MoveFirst() override {}
    void MoveLast() override {}
    void MoveNext() override {}
    void MovePrevious() override {}
    Variant Value(const FieldName& name) override {
        calls.emplace_back(name.text());
        return 4711;
    }
    void Value(const FieldName&, const Variant&) override {}
    void AddNew() override {}
    void Edit() override {}
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
    EXPECT_EQ((std::vector<std::string>{"Update", "to 12", "PRTAID", "Close"}), substitute->calls);
}

TEST_F(EmploymentRecords, AddInfoPutsItsNameBeforeTheSourceOfAFailure) {
    const auto sourceOf = [this](const Variant& array) {
        try {
            payroll().PR_EmploymentsAddInfo_Add(array);
        } catch (const Error& error) {
            return std::to_string(error.Number()) + " " + error.Source() + " " +
                   error.Description();
        }
        return std::string("nothing");
    };
    EXPECT_EQ(0U, sourceOf(VariantArray(1, 2)).find("9 PR_EmploymentsAddInfo_Add|"));
    EXPECT_EQ(0U, sourceOf("no array").find("13 PR_EmploymentsAddInfo_Add|"));

    const auto substitute = std::make_shared<Substitute>();
    substitute->fails = true;
    company.dataAccess->replacement = substitute;
    EXPECT_EQ("5 PR_EmploymentsAddInfo_Add| the disk is full", sourceOf(addInfo(PRTAT_P46, 1)));

    Identify().SetDAO_ADO(nullptr);
    EXPECT_EQ(0U, sourceOf(addInfo(PRTAT_P46, 1)).find("91 PR_EmploymentsAddInfo_Add|DAO_ADO"));
    EXPECT_EQ(0, company.count("PREmploymentsAddInfo"));
}

// ---- questions ----------------------------------------------------------------------------------

TEST(EarningsPeriod, StartsTheDayAfterTheLastClosedRow) {
    Company company;
    company.employee(7).closed(weeks(1, 9)).open(week(10));
    CPayrollFunctions& payroll = company.payroll();
    const auto endOf = [](std::int32_t w) { return datesOf(PFREQ_1Weekly, 17, w).epeDate; };
    EXPECT_EQ(endOf(9).addDays(1), payroll.PR_GetEPSDate(7, 17, 1));
    EXPECT_EQ(endOf(9).addDays(1), payroll.PR_GetEPSDate(7, 17, 1, 10));
    EXPECT_EQ(endOf(8).addDays(1), payroll.PR_GetEPSDate(7, 17, 1, 9));
    EXPECT_EQ(Date(), payroll.PR_GetEPSDate(7, 17, 1, 1));
    EXPECT_EQ(Date(), payroll.PR_GetEPSDate(7, 17, 2));
    EXPECT_EQ(Date(), payroll.PR_GetEPSDate(7, 16, 1));
    EXPECT_EQ(Date(), payroll.PR_GetEPSDate(8, 17, 1));
}

TEST(EarningsPeriod, OfTwoRowsInAWeekTheLaterReportedDecides) {
    Company company;
    company.employee(7).closed(week(3)).pay("PRPRTIPayDate = #5/9/2016#, PRPEPEDate = #5/4/2016#");
    company.employee(7).closed(week(3)).pay("PRPRTIPayDate = #5/2/2016#, PRPEPEDate = #5/8/2016#");
    EXPECT_EQ(day("2016-05-05"), company.payroll().PR_GetEPSDate(7, 17, 1));
}

TEST(HighestPayRow, IsTheLastOneReportedUpToTheDate) {
    Company company;
    company.employee(8).closed(week(1));
    company.employee(7).closed(weeks(1, 2)).open(week(3));
    CPayrollFunctions& payroll = company.payroll();
    const Date week2 = datesOf(PFREQ_1Weekly, 17, 2).payDate;
    EXPECT_EQ(3, payroll.Max_PRPID_From_PayDate(17, 7, 1, week2));
    EXPECT_EQ(2, payroll.Max_PRPID_From_PayDate(17, 7, 1, week2.addDays(-1)));
    EXPECT_EQ(4, payroll.Max_PRPID_From_PayDate(17, 7, 1, week2.addWeeks(9)));
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
    EXPECT_TRUE(payroll.PR_OtherID_Duplicate_Check(31, 99));
    company.at(9).OtherID(0);
    EXPECT_FALSE(payroll.PR_OtherID_Duplicate_Check(31, 7, true));
    EXPECT_EQ(91, raisedBy([] { CPayrollFunctions().PR_OtherID_Duplicate_Check(31, 7); }));
}

}  // namespace
}  // namespace ledgerwick::test
