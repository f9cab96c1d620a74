#include "hostkit/audit/explain.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "hostkit/audit/audit.h"
#include "ledgerwick/host/dll_global.h"
#include "ledgerwick/host/identify.h"

namespace ledgerwick::audit {

namespace {

constexpr std::string_view adviceMark = " What to do: ";
constexpr std::size_t mostTold = 3;

// The audit of the company on a list of its own.
std::vector<Finding> auditBeside() {
    // The making of an Identify replaces the data-access object.
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): it is put back as it was
    const auto host = DLLGlobal::references();
    Identify identify;
    identify.SetDAO_ADO(host.DAO_ADO);
    struct Restore {
        Identify& identify;
        const ObjectRef& list;
        ~Restore() { identify.SetEmployeeList(list); }
    } const restore{identify, host.EmployeeList};

    const auto list = std::make_shared<CEmployeeList>();
    identify.SetEmployeeList(list);
    CPayrollFunctions payroll;
    payroll.Init(list);
    return auditCompany(*list, payroll);
}

// How well a finding fits the failure; 0 for not at all.
int fit(const Finding& finding, const Error& error) {
    if (finding.kind->severity != Severity::Stops) return 0;
    const ErrorRow& row = error.Row();
    const bool sameNumber = finding.error == error.Number();
    const bool sameRow = finding.table == row.table && finding.key == std::to_string(row.key);
    const bool sameEmployee = row.naid != 0 && finding.naid == row.naid;
    if (sameNumber && sameRow) return 4;
    if (sameNumber && sameEmployee) return 3;
    return sameNumber || sameRow || sameEmployee ? 2 : 1;
}

// A finding that only repeats the failure adds its place and the advice.
std::string sentence(const Finding& finding, const Error& error) {
    std::string text = " ";
    if (finding.naid != 0) text += "Employee " + std::to_string(finding.naid) + ", ";
    text += finding.naid != 0 ? "table " : "Table ";
    text += finding.table;
    if (!finding.key.empty()) text += ", row " + finding.key;
    if (finding.what != error.what()) text += ": " + finding.what;
    if (text.back() != '.') text += '.';
    return text.append(adviceMark).append(finding.kind->advice) + ".";
}

}  // namespace

Error explained(const Error& error) {
    const bool isTold = error.Description().find(adviceMark) != std::string::npos;
    if (error.Row().table.empty() || isTold) return error;
    std::vector<Finding> findings;
    try {
        findings = auditBeside();
    } catch (const Error&) {  // the failure itself is the one to tell
        return error;
    }
    int best = 0;
    for (const Finding& finding : findings) best = std::max(best, fit(finding, error));
    if (best == 0) return error;
    std::erase_if(findings, [&](const Finding& each) { return fit(each, error) != best; });

    std::string text = error.Description();
    if (text.empty() || text.back() != '.') text += '.';
    for (std::size_t i = 0; i < std::min(findings.size(), mostTold); ++i) {
        text += sentence(findings[i], error);
    }
    if (findings.size() > mostTold) {
        text += " An audit tells of " + std::to_string(findings.size() - mostTold) + " more.";
    }
    Error told(error.Number(), error.Source(), std::move(text));
    told.Row(error.Row());
    return told;
}

}  // namespace ledgerwick::audit
