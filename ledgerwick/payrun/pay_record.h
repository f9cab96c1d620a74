// What a pay record reads of its own row, and the opening of one employee's periods.
#pragma once

#include <cstdint>

#include "ledgerwick/export.h"
#include "ledgerwick/host/payroll_functions.h"
#include "ledgerwick/records/record_access.h"

namespace ledgerwick::payrun {

// The fields of an open row that a preparation of the run reads. A set of open rows is opened with
// this list.
FieldList openRowFields() noexcept;

// Opens the periods of an employee that are due up to a pay date, for somebody who takes an opening
// employee by employee. `CPayrollFunctions::C_InputHoursInit` does it for each that it selects.
LEDGERWICK_API void openPeriods(CPayrollFunctions& payroll, std::int32_t naid, Date payDate);

}  // namespace ledgerwick::payrun
