#include "ledgerwick/host/payroll_functions.h"

#include "ledgerwick/values/error.h"

namespace ledgerwick {

CEmployeeList& CPayrollFunctions::employeeList() const {
    if (!employeeList_) raise(error_number::objectNotSet, "CPayrollFunctions");
    return *employeeList_;
}

}  // namespace ledgerwick
