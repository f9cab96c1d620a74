// Employees as a pay run looks at them.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "ledgerwick/employee/employee_list.h"
#include "ledgerwick/employee/regular.h"
#include "ledgerwick/values/error.h"

namespace ledgerwick::payrun {

inline PR_Pay_Freq frequencyOf(const cEmployee& employee) noexcept {
    return static_cast<PR_Pay_Freq>(employee.PayFrequency());
}

// The employee of a number that the caller takes for known.
// Errors: 91, with `source`, when the list has none.
inline std::shared_ptr<cEmployee> employeeOf(CEmployeeList& list, std::int32_t naid,
                                             std::string_view source) {
    auto employee = list.GetEmployeeByNAID(naid);
    if (!employee) raise(error_number::objectNotSet, source);
    return employee;
}

}  // namespace ledgerwick::payrun
