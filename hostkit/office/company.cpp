#include "hostkit/office/company.h"

#include <string>
#include <utility>
#include <vector>

#include "ledgerwick/calendar/tax_calendar.h"
#include "ledgerwick/records/schema.h"

namespace ledgerwick::office {

namespace {

void addRow(Database& database, const std::string& table,
            const std::vector<std::pair<std::string, Variant>>& fields) {
    const auto rows =
        database.OpenRecordset("SELECT * FROM " + table + " WHERE False", RecordsetType::Dynaset);
    rows->AddNew();
    for (const auto& [name, value] : fields) rows->Value(name, value);
    rows->Update();
    rows->Close();
}

bool hasNewcomers(Database& database) {
    const auto rows = database.OpenRecordset(
        R"(SELECT PRENAID
           FROM PREmployeeDetails LEFT JOIN PREmployments
           ON PREmployments.PRTNAID = PREmployeeDetails.PRENAID
           WHERE PRTID IS NULL)",
        RecordsetType::Snapshot);
    const bool found = !rows->Eof();
    rows->Close();
    return found;
}

}  // namespace

void layDownSettings(Database& database, int taxYear) {
    const std::int32_t payrollYear = taxYear - calendar::calendarYearOfPayrollYear0;
    addRow(database, "PRControl",
           {{"PRCFCurrentYear", payrollYear}, {"PRCFPensionAfterTax", false}});
    for (const std::int32_t each : {payrollYear - 1, payrollYear}) {
        addRow(
            database, "PRYearEnds",
            {{"PRYEYear", each},
             {"PRYEDate", Date::fromYmd(each + calendar::calendarYearOfPayrollYear0 + 1, 4, 5)}});
    }
    for (const char* name : {"PRNExpD_M1", "PREPED_M1", "AEPRPStartDay"}) {
        addRow(database, "Parameters", {{"ParName", name}, {"ParValue", "0"}});
    }
}

void loadEmployed(HostSession& session, const std::shared_ptr<Label>& label) {
    session.list().Clear();
    if (!hasNewcomers(session.database())) {
        session.list().LoadEmployees(label);
        return;
    }
    const auto rows = session.database().OpenRecordset(
        "SELECT DISTINCT PRTNAID FROM PREmployments ORDER BY PRTNAID", RecordsetType::Snapshot);
    for (; !rows->Eof(); rows->MoveNext()) {
        session.list().ReLoadEmployee(rows->GetInt32(field::PRTNAID));
    }
    rows->Close();
}

}  // namespace ledgerwick::office
