// Who stops an operation, and what to do about it.
//
//   audit::explaining([&] { session.list().LoadEmployees(); });
//   // Error 94 in PRPWeekNo: Invalid use of Null. Employee 7, table PRPay, row 3: PRPWeekNo:
//   // Invalid use of Null. What to do: give the field a value; a new row has its default.
#pragma once

#include "hostkit/export.h"
#include "ledgerwick/values/error.h"

namespace ledgerwick::audit {

// The error with what an audit of the company finds at its row: the employee's number, the table, the
// key, the field and the advice.
// Shape:  the error as it is when no row was in hand, when the audit finds nothing that stops, or when
//         it was explained already. The audit works on a list of its own; that of the host stays.
LEDGERWICK_HOSTKIT_API Error explained(const Error& error);

// Does `work` on the company that the library is linked to, and explains its failure.
template <class Work>
decltype(auto) explaining(Work&& work) {
    try {
        return work();
    } catch (const Error& error) {
        const Error told = explained(error);
        if (told.Description() == error.Description()) throw;  // of whatever class it is
        throw told;
    }
}

}  // namespace ledgerwick::audit
