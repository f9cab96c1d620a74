// Taking a row away that stops a load and that nothing rests on.
//
//   audit::removeRow(database, "PRPay", 3);
#pragma once

#include <cstdint>
#include <string_view>

#include "hostkit/export.h"
#include "ledgerwick/records/record_access.h"

namespace ledgerwick::audit {

// Removes the row of a table that an audit names: PRPay, PREmployments, PREmployeeDetails, Customers,
// Orders or PRPayImport, where the key is the employee's number.
// Errors: 3265 for another table, 3021 when there is no such row, 5 when something rests on it: closed
//         pay of an employment, an employment with pay or with details, a person with payroll details.
LEDGERWICK_HOSTKIT_API void removeRow(Database& database, std::string_view table, std::int32_t key);

}  // namespace ledgerwick::audit
