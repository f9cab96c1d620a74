// What another connection has changed since the list was loaded. A run counts on from the last
// closed pay row of the current employment; which employment that is, the employments say.
#include <algorithm>
#include <array>
#include <iterator>

#include "ledgerwick/employee/employee_list.h"
#include "ledgerwick/employee/load_queries.h"
#include "ledgerwick/host/dll_global.h"
#include "ledgerwick/records/schema.h"

namespace ledgerwick {

namespace {

using namespace field;

constexpr std::array employmentFields{
    PRTNAID,        PRTID,   PRTPayrollYear,  PRTPYEmployCount, PRTStartDate,
    PRTEndDateLong, PRTType, PREPayFrequency, PREGroup,
};
constexpr std::array payFields{
    PRPID, PRPPeriodUpdated, PRPWeekNo, PRPEPEDate, PRPNExpPayDate, PRPNExpEPEDate,
};

// A field that became Null is no longer what was loaded.
bool holds(Recordset& row, const FieldName& name, std::int32_t value) {
    return !row.IsNull(name) && row.GetInt32(name) == value;
}
bool holds(Recordset& row, const FieldName& name, Date value) {
    return !row.IsNull(name) && row.GetDate(name) == value;
}

bool isEmployment(Recordset& row, const cEmployment& employment) {
    return holds(row, PRTID, employment.PRTID()) &&
           holds(row, PRTPayrollYear, employment.PayrollYear()) &&
           holds(row, PRTPYEmployCount, employment.EmployCount()) &&
           holds(row, PRTStartDate, employment.PRTStartDate()) &&
           holds(row, PRTEndDateLong, employment.EndDate().dayNumber()) &&
           holds(row, PRTType, employment.EmpType());
}

bool employmentsStand(std::int32_t naid, cEmployee& employee) {
    const RecordsetRef row = OpenEmployeesRS(naid, employmentFields);
    for (const auto& employment : employee.Employments()) {
        if (row->Eof() || !isEmployment(*row, *employment) ||
            !holds(*row, PREPayFrequency, employee.PayFrequency()) ||
            !holds(*row, PREGroup, employee.Group())) {
            return false;
        }
        row->MoveNext();
    }
    return row->Eof();
}

// Whether the state that a run counts on from is that of the row that was closed last.
bool lastClosedRowStands(std::int32_t naid, const cEmployment& employment) {
    const RecordsetRef row =
        OpenPaymentsRS(naid, employment.EmployCount(), employment.PayrollYear(), payFields);
    bool stands = employment.LastUD_PRPID() == 0;
    for (; !row->Eof(); row->MoveNext()) {
        if (row->IsNull(PRPPeriodUpdated) || !row->GetBoolean(PRPPeriodUpdated)) continue;
        stands = holds(*row, PRPID, employment.LastUD_PRPID()) &&
                 holds(*row, PRPWeekNo, employment.LastWeekNo()) &&
                 holds(*row, PRPEPEDate, employment.LastEPEDate()) &&
                 holds(*row, PRPNExpPayDate, employment.NExpPayDate()) &&
                 holds(*row, PRPNExpEPEDate, employment.NExpEPEDate());
    }
    return stands;
}

}  // namespace

std::int64_t CEmployeeList::versionOf(std::int32_t naid) const {
    const auto later = laterVersions_.find(naid);
    return later == laterVersions_.end() ? version_ : later->second;
}

bool CEmployeeList::isAsLoaded(std::int32_t naid) {
    const auto employee = GetEmployeeByNAID(naid);
    if (!employee) return OpenEmployeesRS(naid, employmentFields)->Eof();
    return employmentsStand(naid, *employee) &&
           (!employee->Active() || lastClosedRowStands(naid, *employee->CurEmployment()));
}

std::vector<std::int32_t> CEmployeeList::ChangedSinceLoad(std::span<const std::int32_t> naids) {
    const std::int64_t now = DLLGlobal::g().DBDll().DataVersion();
    std::vector<std::int32_t> uncertain;
    std::copy_if(naids.begin(), naids.end(), std::back_inserter(uncertain), [&](std::int32_t naid) {
        const std::int64_t loaded = versionOf(naid);
        return loaded != now && loaded != 0;
    });
    if (uncertain.empty()) return {};
    // One alone leaves what its caller announced.
    if (uncertain.size() > 1) DLLGlobal::g().DBDll().Announce(uncertain);
    std::vector<std::int32_t> changed;
    for (const std::int32_t naid : uncertain) {
        if (isAsLoaded(naid)) {
            laterVersions_[naid] = now;
        } else {
            changed.push_back(naid);
        }
    }
    return changed;
}

std::vector<std::int32_t> CEmployeeList::ChangedSinceLoad() {
    const std::int64_t now = DLLGlobal::g().DBDll().DataVersion();
    if (version_ == now && laterVersions_.empty()) return {};
    std::vector<std::int32_t> all;
    for (const auto& employee : employees_) {
        if (employee) all.push_back(employee->NAID());
    }
    std::vector<std::int32_t> changed = ChangedSinceLoad(all);
    if (version_ != 0 && version_ != now) addNewcomers(changed);
    if (changed.empty() && version_ != 0) {
        version_ = now;
        laterVersions_.clear();
    }
    return changed;
}

void CEmployeeList::addNewcomers(std::vector<std::int32_t>& naids) {
    const RecordsetRef employed = OpenEmployeesRS(0, employmentFields);
    std::int32_t last = 0;
    for (; !employed->Eof(); employed->MoveNext()) {
        if (employed->IsNull(PRTNAID)) continue;
        const std::int32_t naid = employed->GetInt32(PRTNAID);
        if (naid != last && !naidIndex_.contains(naid)) naids.push_back(naid);
        last = naid;
    }
}

}  // namespace ledgerwick
