// Employees as a pay run looks at them.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

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

// Refuses to write for employees whom another connection has changed since their load.
// Errors: 3197, with `source` and the first of them, when there is one.
inline void refuseChanged(const std::vector<std::int32_t>& changed, std::string_view source) {
    if (changed.empty()) return;
    std::string who = "employee " + std::to_string(changed.front());
    if (changed.size() > 1) who += " and " + std::to_string(changed.size() - 1) + " more";
    raise(error_number::listOutdated, source, who + "; load them again (ReLoadEmployee)");
}

}  // namespace ledgerwick::payrun
