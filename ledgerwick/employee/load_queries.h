// The two queries of the load, which other rooms run too.
#pragma once

#include <cstdint>

#include "ledgerwick/export.h"
#include "ledgerwick/records/record_access.h"

namespace ledgerwick {

// The joined rows of employees, names, employments and schemes, in the order employee, payroll
// year, employment count. Read-only.
// Shape:  `lNAID` 0 for all employees.
LEDGERWICK_API RecordsetRef OpenEmployeesRS(std::int32_t lNAID, FieldList reads = {});

// Pay rows joined with their employments, in the order of `PaymentsOrderBy`. Read-only.
// Shape:  `lNAID` and `lPYEmployCount` 0 for all, `lPayrollYear` -1 for all.
LEDGERWICK_API RecordsetRef OpenPaymentsRS(std::int32_t lNAID, std::int32_t lPYEmployCount,
                                           std::int32_t lPayrollYear, FieldList reads = {});

}  // namespace ledgerwick
