#include "app/commands/autoenrol.h"

namespace ledgerwick::app {

Report autoEnrolStatus(HostSession& session, Date upTo, std::int32_t payrollYear,
                       std::int32_t naid) {
    ResultTable result = session.payroll().GetAEStatus(upTo, payrollYear, true, naid);
    result.Sort("NameSort");
    Report report;
    addResult(report, "status", result)
        .showColumns({"NAID", "Name", "StaffNo", "Scheme", "JoinedDate", "OptOutDate",
                      "FirstAssessDate", "PrevAssessDate", "NextAssessDate", "PeriodRate"});
    return report;
}

}  // namespace ledgerwick::app
