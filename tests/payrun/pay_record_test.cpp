// What a pay row holds when it is made, and what each further preparation brings up to date.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hostkit/store/company_recordset.h"
#include "tests/payrun/pay_office.h"
#include "tests/support/errors.h"

namespace ledgerwick::test {
namespace {

// A weekly employee whose run on 8 April is one row.
class PayRecord : public testing::Test {
  protected:
    void SetUp() override { office.company.load(); }
    TableRow prepared(const char* payDate = "2016-04-08") {
        return office.payRow(office.open(day(payDate)).at(0).payRecord);
    }
    // Whether the visited mark is still there after the next preparation.
    bool staysVisited(const char* payDate = "2016-04-08") {
        office.company.exec("UPDATE PRPay SET PRPHasBeenVisited = -1");
        return prepared(payDate).at("PRPHasBeenVisited").toBoolean();
    }
    void setOpenRow(const std::string& columns) {
        office.company.exec("UPDATE PRPay SET " + columns + " WHERE PRPPeriodUpdated = 0");
    }

    PayOffice office;
    Person& person = office.hire(7).details(
        "PREStdPeriodRate = 500, PREStdHourlyRate = 12,"
        " PRENormHours1 = 6, PRENormHours7 = 2");
};

// The pay field of the same name as a detail of the employee, if there is one.
std::string twinOf(const std::string& detail, const TableRow& row) {
    for (const std::string& name : {"PRP" + detail.substr(3), "PRP" + detail.substr(6)}) {
        if (row.contains(name) && name != "PRPDoB" && name != "PRPStdHourlyRate") return name;
    }
    return detail == "PREInputNetPay"                 ? "PRPNetPaid"
           : detail == "PREAverageEarningsForSickPay" ? "PRPAvPayForSickMaternity"
           : detail == "PREStdPeriodRate"             ? "PRPPeriodPay"
                                                      : "";
}

TEST_F(PayRecord, TakesOverTheStandingItemsOnceAndTheDetailsEachTime) {
    const TableRow unset = prepared();
    // Each detail gets a value of its own.
    std::map<std::string, std::string> copied;
    const auto columns = office.company.database().OpenRecordset("SELECT * FROM PREmployeeDetails",
                                                                 RecordsetType::Snapshot);
    const auto& fields = dynamic_cast<const store::CompanyRecordset&>(*columns);
    for (std::size_t i = 2; i < fields.fieldCount(); ++i) {
        const std::string detail(fields.fieldName(i));
        const std::string twin = twinOf(detail, unset);
        if (twin.empty()) continue;
        const bool flag = fields.fieldKind(i) == VariantKind::Boolean;
        copied[twin] = flag ? "True" : std::to_string(i);
        person.details(detail + " = " + copied[twin]);
    }
    ASSERT_EQ(copied.size(), 63U);  // 40 standing items, 23 details
    const TableRow refreshed = prepared();
    setOpenRow("PRPPayrollYear = 1");  // out of sight, so that a row is made
    const TableRow made = prepared();
    for (const auto& [name, value] : copied) {
        const bool standing = name.find("Tax") != name.npos && name != "PRPTaxCode";
        EXPECT_EQ(made.at(name).toText(), value) << name;
        EXPECT_EQ(refreshed.at(name).toText(), standing ? unset.at(name).toText() : value) << name;
    }
}

TEST_F(PayRecord, IsPaidByThePeriodOrByTheHour) {
    const auto pay = [](const TableRow& row) {
        return std::vector{row.at("PRPPeriodPaid").toDouble(), row.at("PRPPeriodPay").toDouble(),
                           row.at("PRPStdHourlyRate").toDouble(), row.at("PRPStdHours").toDouble()};
    };
    EXPECT_EQ(pay(prepared()), (std::vector<double>{-1, 500, 0, 0}));
    setOpenRow("PRPPayrollYear = 1");
    person.details("PREHourlyPaid = True");
    EXPECT_EQ(pay(prepared()), (std::vector<double>{0, 0, 12, 8}));
    setOpenRow("PRPStdHours = 7.5");  // by the user
    EXPECT_EQ(pay(prepared()), (std::vector<double>{0, 0, 12, 7.5}));
    person.details("PREHourlyPaid = False");
    EXPECT_EQ(pay(prepared()), (std::vector<double>{-1, 500, 0, 0}));
}

TEST_F(PayRecord, TakesImportedPayInPlaceOfTheSalaryAndLosesItsMarkWhenThatChanges) {
    office.company.importedPay(7, 100);
    EXPECT_EQ(prepared().at("PRPPeriodPay").toDouble(), 100);
    EXPECT_TRUE(staysVisited());
    office.company.exec("UPDATE PRPayImport SET PRPIPay = 120");
    EXPECT_FALSE(staysVisited());
    EXPECT_EQ(prepared().at("PRPPeriodPay").toDouble(), 120);
    office.company.exec("DELETE FROM PRPayImport");
    EXPECT_TRUE(staysVisited());  // the salary comes back without a word
    EXPECT_EQ(prepared().at("PRPPeriodPay").toDouble(), 500);
    person.details("PREHourlyPaid = True");
    office.company.importedPay(7, 100);
    EXPECT_EQ(prepared().at("PRPPeriodPay").toDouble(), 0);  // left to the host
}

TEST_F(PayRecord, LosesItsMarkWhenItsWeekPayDateOrPeriodEndChanges) {
    prepared();
    EXPECT_TRUE(staysVisited());
    EXPECT_FALSE(staysVisited("2016-04-09"));
    for (const char* change : {"PRPWeekNo = 9", "PRPEPEDate = PRPEPEDate - 1"}) {
        setOpenRow(change);
        EXPECT_FALSE(staysVisited("2016-04-09")) << change;
    }
    setOpenRow("PRPWeekNo = NULL, PRPEPEDate = NULL, PRPPayDate = NULL");
    EXPECT_TRUE(staysVisited());  // no value is no difference
}

TEST_F(PayRecord, WorksOutItsSetOfCalculationsAfreshUnlessItHasNone) {
    const auto setAfter = [&](const std::string& before) {
        setOpenRow("PRPCalculationUsed = " + before);
        return prepared().at("PRPCalculationUsed").toInt32();
    };
    EXPECT_EQ(prepared().at("PRPCalculationUsed").toInt32(), 34);
    EXPECT_EQ(setAfter("12"), 34);
    EXPECT_EQ(setAfter("0"), 0);
    EXPECT_EQ(setAfter("-1"), -1);
    office.company.exec("DELETE FROM PRPay WHERE PRPPeriodUpdated = 0");
    for (int time = 1; time <= 2;
         ++time) {  // week 6 ends on 17 May, a day before the rules changed
        office.open(day("2016-05-20"));
        EXPECT_THAT(numbersOf(office.payRows(openRows), "PRPCalculationUsed"),
                    testing::ElementsAre(34, 34, 34, 34, 34, 34, 35));
    }
}

TEST_F(PayRecord, FollowsTheWorkplaceSchemeAndWhoseRatesCount) {
    office.company.scheme(4, "Pension", 5, 3, 2, true);
    person.details(
        "PREPenWorkplaceEEDeductFlat = 10, PREPenWorkplaceERDeductFlat = 20,"
        " PREPenWorkplaceEEDeductPerC = 1, PREPenWorkplaceERDeductPerC = 2");
    const auto pension = [&] {
        const TableRow row = prepared();
        std::vector<double> values;
        for (const char* field : {"SchemeID", "DeductionsType", "SchemeAppTxRelief", "EEDeductFlat",
                                  "EEDeductPerC", "ERDeductFlat", "ERDeductPerC"}) {
            values.push_back(row.at(std::string("PRPPenWorkplace") + field).toDouble());
        }
        return values;
    };
    person.inScheme(4, true);
    EXPECT_EQ(pension(), (std::vector<double>{4, 2, -1, 0, 5, 0, 3}));
    person.inScheme(4, false);
    EXPECT_EQ(pension(), (std::vector<double>{4, 2, -1, 10, 1, 20, 2}));
    person.inScheme(0, true);
    EXPECT_EQ(pension(), (std::vector<double>(7, 0)));
}

TEST_F(PayRecord, NamesTheEmploymentAndWhichRulesAreInForce) {
    office.company.exec("UPDATE PRControl SET PRCFPensionAfterTax = -1");
    person.customer("NAUserRef = 'SMI01'");
    person.details("PREQualSickDay2 = True, PREQualSickDay3 = True, PREQualSickDay7 = True");
    for (const auto& [count, number] :
         {std::pair("1", "SMI01"), std::pair("2", "SMI01/E002"), std::pair("12", "SMI01/E012")}) {
        person.details(std::string("PREPYEmployCount = ") + count);
        setOpenRow("PRPPayrollYear = 1");
        const TableRow row = prepared();
        EXPECT_EQ(row.at("PRPWorksNo").toText(), number);
        EXPECT_TRUE(row.at("PRPPenPrivateAfterTax").toBoolean());
        EXPECT_EQ(row.at("PRPNoQualifyingDays").toInt32(), 3);
    }
}

}  // namespace
}  // namespace ledgerwick::test
