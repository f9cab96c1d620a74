// Every kind of damage told, and no load that stops without having been told of.
#include "hostkit/audit/audit.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "ledgerwick/employee/load_steps.h"
#include "tests/support/company.h"
#include "tests/support/errors.h"

namespace ledgerwick::audit {
namespace {

using namespace ledgerwick::test;

// A weekly employee who was there the year before, a monthly one in a scheme, and a fortnightly one
// with a run open.
struct SoundCompany : Company {
    SoundCompany() {
        scheme(1, "Workplace", 5, 3);
        employee(7).named("Mr Adam Lee").nino("QQ000007A").weekly().closed(weeks(1, 3));
        employee(7).employment(16).closed(week(52));
        employee(8).named("Ms Eve Moss").nino("QQ000008A").monthly().inScheme(1);
        employee(8).closed(month(1)).closed(month(2)).closed(month(3)).closed(month(4));
        employee(9)
            .named("Ms Ida Noon")
            .nino("QQ000009A")
            .weekly()
            .closed(weeks(1, 3))
            .open(week(4));
        importedPay(9, 100);
    }

    std::vector<Finding> audit() { return auditCompany(list(), payroll()); }
    // "null PRPay 3 94, gap PRPay 5"
    std::string told() {
        std::string text;
        for (const Finding& finding : audit()) {
            text += (text.empty() ? "" : ", ") + std::string(finding.kind->name) + " " +
                    finding.table + " " + finding.key;
            if (finding.error != 0) text += " " + std::to_string(finding.error);
        }
        return text;
    }
};

// The keys of the pay rows: of employee 7 weeks 1 to 3 are 1 to 3 and the row of the year before is
// 4; the months of 8 are 5 to 8; weeks 1 to 3 of 9 are 9 to 11, and the open one is 12. Employments
// are 70, 71 for the year before, 80 and 90.
struct Damage {
    const char* statement;
    const char* told;
};

const Damage damages[] = {
    {"", ""},
    // ---- what stops a load
    {"DROP TABLE PensionSchemes", "unreadable   3075"},
    {"DELETE FROM Customers WHERE NAID = 9", "no-customer PREmployeeDetails 9 94"},
    {"DELETE FROM PREmployments WHERE PRTNAID = 9; DELETE FROM PRPay WHERE PRPNAID = 9",
     "no-employment PREmployeeDetails 9 94"},
    {"DELETE FROM PREmployments; DELETE FROM PRPay",
     "null PREmployments  94, no-employment PREmployeeDetails 7 94, no-employment "
     "PREmployeeDetails 8 "
     "94, no-employment PREmployeeDetails 9 94"},
    {"UPDATE PREmployeeDetails SET PREOriginallyJoined = Null WHERE PRENAID = 7",
     "null PREmployeeDetails 7 94"},  // the first employment begins with the records
    {"UPDATE PREmployeeDetails SET PREOriginallyJoined = Null WHERE PRENAID = 8", ""},
    {"UPDATE PRPay SET PRPPYEmployCount = 2 WHERE PRPID = 8", "pay-without-employment PRPay 8 94"},
    {"UPDATE PRPay SET PRPNAID = 6 WHERE PRPID = 8", "stray-pay PRPay 8 91"},
    {"UPDATE PRPay SET PRPEPEDate = Null, PRPWeekNo = Null, PRPAEStatus = Null WHERE PRPID = 3",
     "null PRPay 3 94, null PRPay 3 94, null PRPay 3 94, week PRPay 3"},
    {"UPDATE PRPay SET PRPPaymentPeriod = 7 WHERE PRPID = 3",
     "unknown-period PRPay 3 9911, period-overlap PRPay 3"},
    {"UPDATE PRPay SET PRPWeekNo = 40000 WHERE PRPID = 3", "bad-value PRPay 3 6, week PRPay 3"},
    {"UPDATE PRPay SET PRPASPPDays = 3e9 WHERE PRPID IN (2, 3)",
     "bad-value PRPay 2 6, bad-value PRPay 3 6"},
    {"UPDATE PREmployeeDetails SET PREPenWorkplaceSchemeID = 9 WHERE PRENAID = 8",
     "no-scheme PREmployeeDetails 8 94"},
    {"UPDATE PREmployeeDetails SET PREPayFrequency = 0 WHERE PRENAID = 8",
     "frequency PREmployeeDetails 8 9909"},
    {"UPDATE PREmployeeDetails SET PREPayFrequency = 7 WHERE PRENAID = 8",
     "frequency PREmployeeDetails 8 9910"},
    // ---- what stops a run
    {"INSERT INTO PRPayImport (PRPINAID, PRPIPay) VALUES (6, 10)",
     "import-of-nobody PRPayImport 6 91"},
    {"UPDATE PRYearEnds SET PRYEDate = 42000 WHERE PRYEYear = 16", "settings PRControl  9901"},
    // ---- employments
    {"INSERT INTO PREmployments SELECT 81, PRTNAID, PRTPayrollYear, PRTPYEmployCount, "
     "PRTStartWeekNo, "
     "PRTStartDate, PRTEndDateLong, PRTType, PRTContinuation, PRTAEStatus FROM PREmployments WHERE "
     "PRTID = 80",
     "double-employment PREmployments 81, employment-overlap PREmployments 81"},
    {"INSERT INTO PREmployments (PRTID, PRTNAID, PRTType, PRTStartDate) VALUES (60, 6, 1, 42500)",
     "stray-employment PREmployments 60"},
    {"UPDATE PREmployments SET PRTEndDateLong = PRTStartDate + 400 WHERE PRTID = 71",
     "employment-overlap PREmployments 70"},
    {"UPDATE PREmployments SET PRTEndDateLong = PRTStartDate - 1 WHERE PRTID = 80",
     "ends-before-start PREmployments 80"},
    {"UPDATE PREmployeeDetails SET PREPYEmployCount = 2 WHERE PRENAID = 8",
     "count-mismatch PREmployeeDetails 8"},
    // ---- pay rows
    {"UPDATE PRPay SET PRPWeekNo = 2 WHERE PRPID = 3", "double-period PRPay 3"},
    {"UPDATE PRPay SET PRPPaymentPeriod = -4, PRPWeekNo = 18 WHERE PRPID = 3",
     "period-overlap PRPay 3"},
    {"DELETE FROM PRPay WHERE PRPID IN (2, 6)", "gap PRPay 3, gap PRPay 7"},
    {"UPDATE PRPay SET PRPWeekNo = 54 WHERE PRPID = 8", "week PRPay 8"},
    {"UPDATE PREmployments SET PRTPayrollYear = 18 WHERE PRTID = 90; "
     "UPDATE PRPay SET PRPPayrollYear = 18 WHERE PRPID = 12; DELETE FROM PRPay WHERE PRPID IN (9, "
     "10, 11)",
     "year PRPay 12"},
    {"UPDATE PRPay SET PRPPeriodUpdated = Null WHERE PRPID = 8", "neither-open-nor-closed PRPay 8"},
    {"UPDATE PRPay SET PRPPaymentPeriod = 0 WHERE PRPID = 12", "never-closed PRPay 12"},
    {"UPDATE PRPay SET PRPPayDate = Null WHERE PRPID = 12", "never-closed PRPay 12"},
    {"UPDATE PRPay SET PRPPeriodUpdated = 0, PRPPayDate = 42000 WHERE PRPID = 7",
     "gap PRPay 8, left-open PRPay 7, open-runs PRPay 2014-12-27, 2016-05-03"},
    {"UPDATE PRPay SET PRPPayDate = (SELECT PRPPayDate FROM PRPay WHERE PRPID = 2) WHERE PRPID = "
     "12",
     "half-closed PRPay 2016-04-19"},
    // ---- numbers
    {"UPDATE PREmployeeDetails SET PRENINO = 'QQ000007A ' WHERE PRENAID = 9",
     "duplicate-number PREmployeeDetails 9"},
};

TEST(Audit, TellsEveryKindOfDamageByTheRowsKey) {
    std::set<std::string_view> untold;
    for (const Kind& kind : kinds()) untold.insert(kind.name);
    for (const auto& [statement, told] : damages) {
        SoundCompany company;
        company.exec(statement);
        EXPECT_EQ(company.told(), told) << statement;
        for (const Finding& finding : company.audit()) untold.erase(finding.kind->name);
    }
    untold.erase("fault");  // what no case above has thought of
    EXPECT_TRUE(untold.empty()) << *untold.begin();
}

// The table and row to which a field of the load's statements belongs.
std::string rowOf(std::string_view field) {
    if (field.starts_with("PRT")) return "PREmployments SET @ WHERE PRTID = 80";
    if (field.starts_with("PRP")) return "PRPay SET @ WHERE PRPID = 7";
    if (field.starts_with("PRE")) return "PREmployeeDetails SET @ WHERE PRENAID = 8";
    if (field.starts_with("PS")) return "PensionSchemes SET @ WHERE PSID = 1";
    return "Customers SET @ WHERE NAID = 8";
}

TEST(Audit, TellsOfEveryFieldAtWhichALoadStopsAndOfNoOther) {
    std::vector<std::string> fields;
    for (const FieldName& field : load::employeeFields()) fields.emplace_back(field.text());
    for (const FieldName& field : cEmployment::paymentFields()) fields.emplace_back(field.text());
    int stopped = 0;
    for (const std::string& field : fields) {
        if (field == "NAID" || field == "PRTID" || field == "PSID" || field == "PRPID") continue;
        for (const char* value : {"Null", "'abc'", "1e12", "-40000"}) {
            SoundCompany company;
            std::string update = "UPDATE " + rowOf(field);
            update.replace(update.find('@'), 1, field + " = " + value);
            company.exec(update);
            const std::int32_t error = raisedBy([&] { company.load(); });
            stopped += error != 0;
            const auto findings = company.audit();
            const auto stops = [](const Finding& each) {
                return each.kind->severity == Severity::Stops;
            };
            const bool told = std::any_of(findings.begin(), findings.end(), [&](const auto& each) {
                return stops(each) && each.error == error;
            });
            EXPECT_EQ(told, error != 0) << update << ": error " << error;
            EXPECT_EQ(std::any_of(findings.begin(), findings.end(), stops), error != 0) << update;
        }
    }
    EXPECT_GT(stopped, 100);
}

}  // namespace
}  // namespace ledgerwick::audit
