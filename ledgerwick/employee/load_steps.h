// The steps of a load one by one, for somebody who takes them without stopping at the first fault.
// `CEmployeeList::LoadEmployees` is made of them.
#pragma once

#include <memory>

#include "ledgerwick/employee/employee.h"
#include "ledgerwick/employee/employee_list.h"
#include "ledgerwick/export.h"
#include "ledgerwick/records/record_access.h"

namespace ledgerwick::load {

// Every field that a load reads of a joined row of `OpenEmployeesRS`.
LEDGERWICK_API FieldList employeeFields();

// The earliest start of an employment in the store.
// Errors: 94 for a store without employments.
LEDGERWICK_API Date earliestStart();

// Adds the employment of the current row, and works out how it follows `prev`, the employee's
// employment before it or an empty reference.
// Errors: those of `cEmployee::AddEmployment` and of reading a field; the employment is then added.
LEDGERWICK_API std::shared_ptr<cEmployment> addEmploymentRow(
    cEmployee& employee, const std::shared_ptr<cEmployment>& prev, Date minStart, Recordset& rs);

// Fills the employee from the last of its rows.
// Errors: those of reading a field, with the field's name as the source; what came before it stays
//         changed.
LEDGERWICK_API void fillEmployee(cEmployee& employee, Recordset& rs);

// The rows of `PRPayImport`, and the open order lines.
LEDGERWICK_API RecordsetRef openPayImport();
// Opens the order lines.
LEDGERWICK_API RecordsetRef openOrderLines();
// Hangs the row on the current employment of its employee.
// Errors: 91 for imported pay of nobody in the list, 13 when its value does not read back from the
//         money format; those of reading a field.
LEDGERWICK_API void takePayImport(CEmployeeList& list, Recordset& row);
// Takes one order line in.
LEDGERWICK_API void takeOrderLine(CEmployeeList& list, Recordset& row);

}  // namespace ledgerwick::load
