// Every kind of damage told, and no load that stops without having been told of.
#include "hostkit/audit/audit.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "hostkit/audit/explain.h"
#include "hostkit/audit/removal.h"
#include "ledgerwick/host/dll_global.h"
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
        item(4, "Apples", 1, "box");
        order(1, 9, 4, "2016-04-28", 1, 2);
        parameter("PRNExpD_M1", 0).parameter("PREPED_M1", 0);
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
    {"DROP TABLE PensionSchemes", "unreadable   3078"},
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
    {"DELETE FROM PRControl", "settings PRControl  3021"},
    {"INSERT INTO PRControl SELECT * FROM PRControl", "second-control PRControl "},
    {"UPDATE Orders SET OrdDSID = 77", "order-without-item Orders 1 94"},
    {"UPDATE PRPay SET PRPNAID = 0 WHERE PRPID = 1", "stray-pay PRPay 1 91"},
    {"UPDATE PREmployeeDetails SET PREHourlyPaid = -1, PRENormHours1 = Null WHERE PRENAID = 8",
     "null PREmployeeDetails 8 94"},
    {"UPDATE PREmployeeDetails SET PREStudentLoan = 70000 WHERE PRENAID = 8",
     "bad-value PREmployeeDetails 8 6"},
    {"UPDATE PRPay SET PRPWeekNo = 'abc' WHERE PRPID = 12", "bad-value PRPay 12 13, week PRPay 12"},
    {"DELETE FROM Parameters WHERE ParName = 'PRNExpD_M1'", "fault PREmployeeDetails 8 3265"},
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

// ---- damage at random ---------------------------------------------------------------------------

// A field of a row that a load or an opening reads or writes, or a row of such a table.
struct Target {
    const char* table;
    const char* key;
    std::vector<std::string> fields{};
};

std::vector<Target> targetsIn(Company& company) {
    std::vector<Target> targets{{"Customers", "NAID"},       {"PREmployeeDetails", "PRENAID"},
                                {"PREmployments", "PRTID"},  {"PRPay", "PRPID"},
                                {"PensionSchemes", "PSID"},  {"Orders", "OrdID"},
                                {"Deadstock", "DSIDNo"},     {"UoM", "UoMNo"},
                                {"PRPayImport", "PRPINAID"}, {"PRControl", "rowid"},
                                {"PRYearEnds", "PRYEYear"}};
    for (Target& target : targets) {
        const auto rows = company.database().OpenRecordset(
            "SELECT name AS Answer FROM pragma_table_info('" + std::string(target.table) + "')",
            RecordsetType::Snapshot);
        for (; !rows->Eof(); rows->MoveNext()) {
            target.fields.emplace_back(rows->GetText("Answer"));
        }
    }
    return targets;
}

// One to three damages in a row.
std::string damageBy(std::mt19937& random, const std::vector<Target>& targets) {
    const auto any = [&random](const auto& of) -> const auto& {
        return of[std::uniform_int_distribution<std::size_t>(0, std::size(of) - 1)(random)];
    };
    static const std::vector<std::string> values{"Null", "0",    "-1", "'abc'",   "1e12",
                                                 "7",    "-4.5", "''", "20151231"};
    std::string damage;
    for (std::size_t left = 1 + random() % 3; left > 0; --left) {
        const Target& target = any(targets);
        const std::string table = target.table;
        const std::string row = std::string(" WHERE ") + target.key + " = (SELECT " + target.key +
                                " FROM " + table + " ORDER BY abs(" + target.key + " * " +
                                std::to_string(random() % 1000) + " % 97) LIMIT 1)";
        const std::string& field = any(target.fields);
        switch (random() % 8) {
            case 0:
                damage += "DELETE FROM " + table + row;
                break;
            case 1:
                damage += "INSERT OR REPLACE INTO " + table + " (" + field + ") VALUES (" +
                          any(values) + ")";
                break;
            default:
                damage +=
                    "UPDATE OR REPLACE " + table + " SET " + field + " = " + any(values) + row;
        }
        damage += "; ";
    }
    return damage;
}

std::string lineOf(const Finding& finding) {
    return std::string(finding.kind->name) + " " + finding.table + " " + finding.key + " " +
           std::to_string(finding.error) + ": " + finding.what + "\n";
}

// Whatever stops a load or an opening is in the audit, by its row and number.
TEST(Audit, NamesTheRowAtWhichALoadOrAnOpeningStops) {
    SoundCompany company;
    company.load();
    const std::vector<Target> targets = targetsIn(company);
    const char* const wanted = std::getenv("LEDGERWICK_DAMAGES");
    const unsigned damagesWanted = wanted ? static_cast<unsigned>(std::stoul(wanted)) : 200;
    int stopped = 0;
    for (unsigned seed = 1; seed <= damagesWanted; ++seed) {
        std::mt19937 random(seed);
        const std::string damage = damageBy(random, targets);
        SCOPED_TRACE(std::to_string(seed) + ": " + damage);
        company.database().rehearse([&] {
            if (raisedBy([&] { company.exec(damage); }) != 0) return;  // not even the file takes it
            Error error(0, "", "");
            try {
                company.state().ReloadYearEnds();
                company.load();
                company.payroll().C_InputHoursInit(day("2016-08-31"), PFREQ_SelAll, 0, 0);
            } catch (const Error& raised) {
                error = raised;
            }
            if (error.Number() == 0) return;
            ++stopped;
            bool named = false;
            std::string told;
            for (const Finding& finding : company.audit()) {
                told += lineOf(finding);
                const ErrorRow& row = error.Row();
                const bool isRow = row.key <= 0 || row.table.empty() ||
                                   finding.table == "PRControl" || finding.naid == row.naid ||
                                   finding.key == std::to_string(row.key);
                named = named || (finding.kind->severity == Severity::Stops &&
                                  finding.error == error.Number() && isRow);
            }
            EXPECT_TRUE(named) << error.what() << " at " << error.Row().table << " "
                               << error.Row().key << "\n"
                               << told;
        });
        company.state().ReloadYearEnds();
    }
    EXPECT_GT(stopped, static_cast<int>(damagesWanted) / 4);
}

// ---- what to do about it ------------------------------------------------------------------------

TEST(Audit, ExplainsAFailureByTheRowAndTheAdvice) {
    struct {
        const char* damage;
        const char* told;
    } const cases[]{
        {"UPDATE PRPay SET PRPWeekNo = Null WHERE PRPID = 3",
         "Invalid use of Null. Employee 7, table PRPay, row 3: PRPWeekNo: Invalid use of Null. "
         "What "
         "to do: give the field a value; a new row has its default."},
        {"UPDATE PREmployeeDetails SET PREPayFrequency = 7 WHERE PRENAID = 8",
         "Employee 8, table PREmployeeDetails, row 8: "},
        {"UPDATE PREmployeeDetails SET PREStudentLoan = 70000 WHERE PRENAID = 8",
         "Employee 8, table PREmployeeDetails, row 8: "},
        {"UPDATE Orders SET OrdDSID = 77", "Employee 9, table Orders, row 1: "},
        {"INSERT INTO PRPayImport (PRPINAID, PRPIPay) VALUES (6, 10)",
         "Employee 6, table PRPayImport, row 6: there is no employee 6"},
    };
    for (const auto& each : cases) {
        SoundCompany company;
        company.exec(each.damage);
        const auto list = DLLGlobal::references().EmployeeList;
        std::string told;
        try {
            explaining([&] {
                company.load();
                company.payroll().C_InputHoursInit(day("2016-08-31"), PFREQ_SelAll, 0, 0);
            });
        } catch (const Error& error) {
            told = error.Description();
        }
        EXPECT_NE(told.find(each.told), std::string::npos) << told;
        EXPECT_EQ(told.find("Lee"), std::string::npos) << "no names in errors";
        EXPECT_EQ(DLLGlobal::references().g != nullptr, true);
        if (list) {
            EXPECT_EQ(DLLGlobal::references().EmployeeList, list);
        }
    }
}

TEST(Audit, TakesARowAwayThatNothingRestsOn) {
    SoundCompany company;
    company.exec(
        "INSERT INTO PRPay (PRPID, PRPNAID, PRPPayrollYear, PRPPYEmployCount) "
        "VALUES (50, 0, 17, 1); INSERT INTO Customers (NAID) VALUES (6)");
    const auto remove = [&](const char* table, std::int32_t key) {
        return raisedBy([&] { removeRow(company.database(), table, key); });
    };
    EXPECT_EQ(raisedBy([&] { company.load(); }), 91);
    EXPECT_EQ(remove("PRPay", 50), 0);
    EXPECT_EQ(remove("prpay", 12), 0) << "an open row";
    EXPECT_EQ(remove("Customers", 6), 0);
    const std::pair<const char*, std::int32_t> kept[]{{"PRPay", 1},
                                                      {"PREmployments", 70},
                                                      {"PREmployeeDetails", 8},
                                                      {"Customers", 8},
                                                      {"Orders", 1}};
    for (const auto& [table, key] : kept) EXPECT_EQ(remove(table, key), 5) << table;
    EXPECT_EQ(remove("PRPay", 99), error_number::noCurrentRecord);
    EXPECT_EQ(remove("Parameters", 1), error_number::noSuchItem);
    EXPECT_EQ(raisedBy([&] { company.load(); }), 0);
}

}  // namespace
}  // namespace ledgerwick::audit
