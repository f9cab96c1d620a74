#include "hostkit/services/host_state.h"

#include <algorithm>
#include <utility>

#include "ledgerwick/values/error.h"

namespace ledgerwick {

namespace {

constexpr std::string_view defaultMoneyFormat = "#,##0.00";
constexpr FieldName year{"PRYEYear"};
constexpr FieldName yearEnd{"PRYEDate"};

bool canStandInTableName(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_';
}

}  // namespace

KitHostState::KitHostState(std::shared_ptr<Database> database,
                           std::shared_ptr<const KitParameters> parameters, Date today,
                           HostSettings settings)
    : database_(std::move(database)),
      parameters_(std::move(parameters)),
      today_(today),
      settings_(std::move(settings)) {
    g_strPCID(std::string(settings_.pcId));
    if (!settings_.customerFunctions) {
        settings_.customerFunctions = std::make_shared<KitCustomerFunctions>();
    }
    control_ = database_->OpenRecordset("SELECT * FROM PRControl", RecordsetType::Dynaset);
    ReloadYearEnds();
}

void KitHostState::g_strPCID(const std::string& pcId) {
    if (!std::all_of(pcId.begin(), pcId.end(), canStandInTableName)) {
        raise(error_number::invalidCall, "KitHostState", "workstation \"" + pcId + "\"");
    }
    settings_.pcId = pcId;
}

Recordset& KitHostState::g_rsPRControl() {
    if (control_->RecordCount() != 0) control_->MoveFirst();
    return *control_;
}

std::int16_t KitHostState::g_iAEPRPStartDay() {
    return parameters_->Get("AEPRPStartDay", Variant(std::int16_t{0})).toInt16("AEPRPStartDay");
}

std::string KitHostState::strCurFormat() {
    return parameters_->Get("CurFormat", Variant(defaultMoneyFormat)).toText("CurFormat");
}

void KitHostState::ShowCriticalMessage(const std::string& caption, const std::string& text) {
    if (settings_.messages) {
        settings_.messages(caption, text);
    } else {
        HostState::ShowCriticalMessage(caption, text);
    }
}

void KitHostState::ReloadYearEnds() {
    yearEnds_.RemoveAll();
    const auto rows = database_->OpenRecordset(
        "SELECT PRYEYear, PRYEDate FROM PRYearEnds ORDER BY PRYEYear", RecordsetType::Snapshot);
    for (; !rows->Eof(); rows->MoveNext()) {
        try {
            yearEnds_.Item(rows->GetInt32(year), rows->GetDate(yearEnd));
        } catch (const Error&) {  // one that cannot be read is missed where it is needed
        }
    }
    rows->Close();
}

}  // namespace ledgerwick
