#include "ledgerwick/host/payroll_functions.h"

#include "ledgerwick/host/dll_global.h"
#include "ledgerwick/values/error.h"

namespace ledgerwick {

CEmployeeList& CPayrollFunctions::employeeList() const {
    if (!employeeList_) raise(error_number::objectNotSet, "CPayrollFunctions");
    return *employeeList_;
}

void CPayrollFunctions::requireInForce() const {
    const ObjectRef& inForce = DLLGlobal::references().EmployeeList;
    const bool isOwn = !inForce.owner_before(employeeList_) && !employeeList_.owner_before(inForce);
    if (!employeeList_ || !inForce || isOwn) return;
    raise(error_number::invalidCall, "CPayrollFunctions",
          "another session is in force on this thread; put the one of this object in force");
}

}  // namespace ledgerwick
