// What damaged rows and a host's own changes of the live lists come to: the right error, and never
// a figure that is wrong in silence.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "hostkit/forwarding/forwarding_database.h"
#include "ledgerwick/autoenrol/ae_letter_detail.h"
#include "ledgerwick/autoenrol/auto_enrol_status.h"
#include "ledgerwick/records/schema.h"
#include "tests/support/company.h"
#include "tests/support/errors.h"
#include "tests/support/expect.h"
#include "tests/support/rows.h"

namespace ledgerwick::test {
namespace {

// Weekly employee 7 with employments 71 (the year before) and 70, monthly employee 8 in scheme 1.
struct Office : Company {
    Office() {
        scheme(1, "Workplace", 3.1, 3);
        employee(7).named("Mr Adam Lee").weekly().closed(weeks(1, 2)).open(week(3));
        employee(7).employment(16).closed(week(52)).left("2016-04-01");
        employee(8).named("Ms Eve Moss").monthly().inScheme(1).closed(month(1)).open(month(2));
        parameter("PRNExpD_M1", 0).parameter("PREPED_M1", 0);
    }
    Variant open(const char* date = "2016-06-30") {
        Variant columns;
        payroll().C_InputHoursInit(day(date), PFREQ_SelAll, 0, 0, &columns);
        return columns;
    }
};

TEST(OddData, StopsALoadWithTheErrorOfTheFieldAtFault) {
    struct {
        const char* damage;
        Told told;
    } const cases[]{
        {"UPDATE PRPay SET PRPNAID = 0 WHERE PRPID = 1", {91, "CEmployeeList.LoadPayments"}},
        {"UPDATE PRPay SET PRPNAID = 6 WHERE PRPID = 1", {91, "CEmployeeList.LoadPayments"}},
        {"UPDATE PREmployments SET PRTEndDateLong = 20151231 WHERE PRTID = 71",
         {6, "PRTEndDateLong"}},
        {"UPDATE PREmployments SET PRTStartDate = 20151231 WHERE PRTID = 71", {6, "PRTStartDate"}},
    };
    for (const auto& [damage, told] : cases) {
        Office office;
        office.exec(damage);
        EXPECT_EQ(errorOf([&] { office.load(); }), told) << damage;
    }
}

TEST(OddData, AnEmptyOrRemovedElementOfALiveListIsError91) {
    using Walk = std::function<void(Office&)>;
    const std::pair<const char*, Walk> walks[]{
        {"next pay date", [](auto& o) { o.payroll().C_Next_Expected_Pay_Date(); }},
        {"next period end", [](auto& o) { o.payroll().C_Next_Expected_EPE_Date(); }},
        {"last pay date", [](auto& o) { o.payroll().C_Last_Expected_Pay_Date(); }},
        {"count for a date", [](auto& o) { o.payroll().C_Count_for_Pay_Date(day("2016-06-30")); }},
        {"count", [](auto& o) { o.payroll().C_Count_Employees(); }},
        {"end of period", [](auto& o) { o.payroll().PR_PRP_Get_Last_End_Date(); }},
        {"duplicates", [](auto& o) { o.payroll().PR_OtherID_Duplicate_Check(1, 7, false); }},
        {"opening", [](auto& o) { o.open(); }},
        {"imported pay", [](auto& o) { o.list().LoadImportedPay(); }},
        {"active employees", [](auto& o) { o.payroll().C_ActiveEmployees(true); }},
        {"status", [](auto& o) { o.payroll().GetAEStatus(day("2016-06-30"), 17, true, 0); }},
        {"load", [](auto& o) { o.list().LoadEmployees(); }},
    };
    for (const auto& [name, walk] : walks) {
        Office office;
        office.load();
        office.list().Employees().Add(nullptr);
        EXPECT_EQ(raisedBy([&, &walk = walk] { walk(office); }),
                  name == std::string("load") ? 457 : 91)
            << name;
    }
    Office office;
    office.load().Employees().Item("7") = nullptr;
    EXPECT_EQ(raisedBy([&] { office.list().ReLoadEmployee(7); }), 91);

    const std::pair<const char*, std::function<void(cEmployee&)>> changes[]{
        {"a removed employment", [](auto& e) { e.Employments().Remove("80"); }},
        {"another key",
         [](auto& e) { e.CurEmployment()->PRTID(99), e.Employments().Remove("80"); }},
        {"no employments", [](auto& e) { e.Employments().Clear(); }},
    };
    for (const auto& [name, change] : changes) {
        Office other;
        other.load();
        change(other.at(8));
        EXPECT_EQ(raisedBy([&] { other.payroll().C_Last_Expected_Pay_Date(); }), 91) << name;
    }
    Office status;
    status.load();
    status.at(7).Employments().Add(nullptr);
    EXPECT_EQ(raisedBy([&] { status.at(7).UpdateFlags(); }), 91);
    EXPECT_EQ(raisedBy([&] { status.at(7).GetAutoEnrolStatus(day("2016-06-30"), 17, true); }), 91);
}

// A Null amount differs from an imported one; a Null week, pay date or end of period from nothing.
TEST(OddData, AnOpenRowsNullAmountTakesTheImportedPay) {
    Office office;
    office.exec(
        "UPDATE PRPay SET PRPHasBeenVisited = -1, PRPPeriodPay = Null WHERE PRPID IN (3, 6)");
    office.importedPay(8, 100);
    office.load();
    office.open("2016-05-28");
    EXPECT_EQ(office.value("PRPPeriodPay", "PRPay WHERE PRPID = 6").toText(), "100");
    EXPECT_FALSE(office.value("PRPHasBeenVisited", "PRPay WHERE PRPID = 6").toBoolean());

    office.exec(
        "UPDATE PRPay SET PRPHasBeenVisited = -1, PRPWeekNo = Null, PRPPayDate = Null, "
        "PRPEPEDate = Null WHERE PRPID = 6");
    office.open("2016-05-28");
    EXPECT_TRUE(office.value("PRPHasBeenVisited", "PRPay WHERE PRPID = 6").toBoolean());
}

TEST(OddData, ASingleBecomesAWiderNumberByItsShortestDecimal) {
    EXPECT_EQ(Variant(3.1F).toDouble(), 3.1);
    EXPECT_EQ(Variant(16777216.0F).toDouble(), 16777216.0);
    EXPECT_EQ(Variant(3.1F), Variant(3.1F));
    Office office;
    office.load();
    office.open();
    EXPECT_EQ(office.value("PRPPenWorkplaceEEDeductPerC", "PRPay WHERE PRPID = 6"), Variant(3.1));
}

TEST(OddData, ANullSchemeIsNoSchemeInTheRunAsInTheLoad) {
    Office office;
    office.exec("UPDATE PREmployeeDetails SET PREPenWorkplaceSchemeID = Null");
    office.load();
    EXPECT_EQ(office.at(8).PenWorkplaceEEDeductPC(), 0);
    office.open();
    EXPECT_EQ(office.count("PRPay WHERE PRPPeriodUpdated = False AND PRPPenWorkplaceSchemeID <> 0"),
              0);
}

TEST(OddData, FlatAmountsGoWhenSchemeRatesTakeOver) {
    Office office;
    office.employee(8).details(
        "PREPenWorkplaceUseSchemeRates = False, "
        "PREPenWorkplaceEEDeductFlat = 12, PREPenWorkplaceERDeductFlat = 9");
    office.load();
    EXPECT_EQ(office.at(8).PenWorkplaceERDeductFlat(), Currency::fromWhole(9));
    office.employee(8).details("PREPenWorkplaceUseSchemeRates = True");
    office.payroll().C_PenWorkplaceSchemeUpdate(1);
    EXPECT_EQ(office.at(8).PenWorkplaceEEDeductFlat(), Currency());
    EXPECT_EQ(office.at(8).PenWorkplaceERDeductFlat(), Currency());
    EXPECT_EQ(office.at(8).PenWorkplaceEEDeductPC(), 3.1F);
}

// ---- the status of a year -----------------------------------------------------------------------

TEST(OddData, AStatusReadsTheRowsAndFieldsThatItShowsAndNoOthers) {
    Office office;
    office.exec(
        "UPDATE PRPay SET PRPNITable = Null, PRPTaxCode = Null, PRPPayDate = Null WHERE PRPID < 3");
    office.exec("UPDATE PRPay SET PRPWorksNo = Null, PRPRTIPayDate = Null WHERE PRPID = 3");
    office.load();
    const auto status = [&](bool closed) {
        return office.at(7).GetAutoEnrolStatus(day("2017-04-05"), 17, closed);
    };
    const auto closed = status(true);
    EXPECT_EQ(closed->CurrentAssessDate(), day("2016-04-19"));
    EXPECT_EQ(errorOf([&] { status(false); }), (Told{94, "PRPRTIPayDate"})) << "the open one";
    office.exec("UPDATE PRPay SET PRPWorksNo = 'W3', PRPRTIPayDate = PRPPayDate WHERE PRPID = 3");
    EXPECT_EQ(status(false)->StaffNo(), "W3");
    EXPECT_EQ(status(true)->CurrentAssessDate(), closed->CurrentAssessDate());
}

TEST(OddData, AStatusFoldsAnEmploymentThatTheLoadHasNotSeen) {
    Office office;
    office.load();
    const std::int32_t folded = office.at(7).GetEmploymentByIndex("70")->LastUD_PRPID();
    office.employee(7).employment(17, 2).started("2016-04-25").closed(weeks(4, 5));
    const auto status = office.at(7).GetAutoEnrolStatus(day("2017-04-05"), 17, true);
    EXPECT_EQ(status->CurrentAssessDate(), day("2016-05-10"));
    const auto added = office.at(7).GetEmploymentByIndex("72");
    ASSERT_TRUE(added);
    EXPECT_EQ(added->LastWeekNo(), 5);
    EXPECT_EQ(office.at(7).MostRecentEmploymentPRTID(), 72);
    EXPECT_EQ(office.at(7).CurEmployment(), added);
    EXPECT_EQ(office.at(7).GetEmploymentByIndex("70")->LastUD_PRPID(), folded);
    EXPECT_EQ(office.at(7).GetEmploymentByIndex("70")->LExpPayDate(), day("2016-04-19"));
}

// ---- what a load leaves alone and what it reaches -----------------------------------------------

TEST(OddData, AReloadReachesEveryEmployeeOfTheListWithThatNumber) {
    Office office;
    office.load();
    const auto copy = std::make_shared<cEmployee>();
    copy->NAID(7);
    Rows rows{employmentRow().with(field::PRTType, 2)};
    copy->AddEmployment(rows);
    ASSERT_FALSE(copy->Active());
    office.list().Add(copy);
    office.list().ReLoadEmployee(7);
    EXPECT_TRUE(copy->Active());
    EXPECT_TRUE(office.at(7).Active());
}

TEST(OddData, AnOpenRowChangesNothingWhateverElseItLacks) {
    cEmployment employment;
    Row open = closedPayRow(1).with(field::PRPPeriodUpdated, false);
    for (const Row& row : {open.without(field::PRPWeekNo), open.with(field::PRPPayDate, Null),
                           open.with(field::PRPPeriodUpdated, Null).without(field::PRPStatus)}) {
        Rows rows{row};
        employment.AddPayment(rows);
    }
    EXPECT_EQ(employment.LastUD_PRPID(), 0);
    Rows lacking{closedPayRow(1).without(field::PRPWeekNo)};
    EXPECT_EQ(raisedBy([&] { employment.AddPayment(lacking); }), error_number::noSuchItem);
    Rows gateless{closedPayRow(1).without(field::PRPPeriodUpdated)};
    EXPECT_EQ(raisedBy([&] { employment.AddPayment(gateless); }), error_number::noSuchItem);
}

// ---- traps, held values, formats ----------------------------------------------------------------

TEST(OddData, TheTrapsCatchAFailureOfAnyFamily) {
    struct Foreign : ForwardingDatabase {
        using ForwardingDatabase::ForwardingDatabase;
        void Execute(std::string_view, std::int32_t) override { throw 42; }
        std::shared_ptr<QueryDef> CreateQueryDef(std::string_view, std::string_view) override {
            throw 42;
        }
    };
    Office office;
    office.useDatabase(std::make_shared<Foreign>(office.database()));
    EXPECT_FALSE(office.payroll().C_Reset_HasBeenVisited(7));
    EXPECT_EQ(office.messages.size(), 1U);
    VariantArray details(1, 18);
    details.at(3) = std::int32_t{2};
    EXPECT_EQ(errorOf([&] { office.payroll().PR_EmploymentsAddInfo_Add(Variant(details)); }),
              (Told{5, "PR_EmploymentsAddInfo_Add|"}));
}

TEST(OddData, ASignatureIsFixedWhenItIsFirstRead) {
    Office office;
    office.load();
    const CAELetterDetail letter;
    const std::string first = letter.SignatureFile();
    Identify().SetCallerGlobal(nullptr);
    EXPECT_EQ(letter.SignatureFile(), first);
}

// Whatever the money format can write is read back, and one that cannot be is named.
TEST(OddData, ImportedPayReadsBackThroughEveryMoneyFormat) {
    struct {
        const char* format;
        double pay;
        const char* read;  // null: does not read back
    } const cases[]{
        {"#,##0.00;(#,##0.00)", -1234.5, "-1234.5"},
        {"#,##0.00\" pounds\"", 1234.5, "1234.5"},
        {"0.00;0.00-", -12.345, "-12.35"},
        {"0.00;0.00-", 12.345, "12.35"},
        {"0.00;-0.00;\"nil\"", 0, "0"},
        {"0.00 CR;0.00 DR", -3, "-3"},
        {"\"+/-\"0;\"+/-\"0", -3, nullptr},
        {"0%", 12, nullptr},
        {"\"x2 \"0.00", 12, nullptr},
    };
    for (const auto& [format, pay, read] : cases) {
        Office office;
        office.exec("INSERT INTO Parameters (ParName, ParValue) VALUES ('CurFormat', '" +
                    std::string(format) + "')");
        office.importedPay(8, pay);
        office.load();
        const Told told = errorOf([&] { office.list().LoadImportedPay(); });
        EXPECT_EQ(told.number, read ? 0 : 13) << format;
        if (read) {
            EXPECT_EQ(office.current(8).ImportedPayValue().toText(), read) << format;
        } else {
            EXPECT_THAT(told.description, testing::HasSubstr(format));
        }
    }
}

}  // namespace
}  // namespace ledgerwick::test
