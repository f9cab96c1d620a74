// Which row a failure speaks of, for `Error::Row`.
#pragma once

#include <string_view>

#include "ledgerwick/records/record_access.h"
#include "ledgerwick/values/error.h"

namespace ledgerwick {

// The row that `rs` stands on, of the table to which the field `source` belongs, or of `table` when
// the source names no field. What cannot be read of its keys is 0.
LEDGERWICK_API ErrorRow rowAtHand(Recordset& rs, std::string_view source, std::string_view table);

// The field of a table that holds the number of a person on the payroll; null when it has none. A 0
// there is nobody's, and stops every load.
LEDGERWICK_API const FieldName* personFieldOf(std::string_view table);

// Does `work` on the row of `rs`, and notes that row in a failure.
template <class Work>
decltype(auto) onRow(Recordset& rs, std::string_view table, Work&& work) {
    try {
        return work();
    } catch (Error& error) {
        error.Row(rowAtHand(rs, error.Source(), table));
        throw;
    }
}

// Does `work` for an employee, and notes the employee in a failure that has no row.
template <class Work>
decltype(auto) forEmployee(std::int32_t naid, Work&& work) {
    try {
        return work();
    } catch (Error& error) {
        error.Row({"PREmployeeDetails", naid, naid});
        throw;
    }
}

}  // namespace ledgerwick
