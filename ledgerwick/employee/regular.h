// Which employees pay runs, pay dates and auto-enrolment concern.
#pragma once

#include "ledgerwick/employee/employee.h"

namespace ledgerwick {

// Whether an employee is employed now and not casual.
inline bool isRegularActive(const cEmployee& employee) noexcept {
    return employee.Active() && !employee.Casual();
}

}  // namespace ledgerwick
