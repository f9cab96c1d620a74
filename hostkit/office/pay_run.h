// The road of a pay run around the library's own operations: who is in it, which rows are open, and
// what goes with the closing of a row.
//
//   const office::Selection run{due};
//   for (const auto& [naid, rows] : office::openRowsByEmployee(session, run))
//       office::closeRows(session, naid, rows, due);
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "hostkit/export.h"
#include "hostkit/services/host_session.h"
#include "ledgerwick/ledgerwick.h"

namespace ledgerwick::office {

// Which employees a run is for.
struct Selection {
    Date payDate;                          // rows up to this pay date
    PR_Pay_Freq frequency = PFREQ_SelAll;  // one frequency, or all
    std::int32_t group = 0;                // 0: all
    std::int32_t naid = 0;                 // 0: all
};

// Whether an employee is employed now and not casual.
LEDGERWICK_HOSTKIT_API bool isRegular(const cEmployee& employee);
// Whether the run is for this employee, by frequency, group and number.
LEDGERWICK_HOSTKIT_API bool isSelected(const cEmployee& employee, const Selection& selection);

// How many pay periods of the employee fall due up to the date.
LEDGERWICK_HOSTKIT_API std::int32_t periodsDue(HostSession& session, cEmployee& employee,
                                               Date upTo);

// An employee of the run who has no closed row. Without one an employment has no date to count from,
// and every period since 1899 would fall due.
// Shape:  an empty reference when there is none.
LEDGERWICK_HOSTKIT_API std::shared_ptr<cEmployee> withoutHistory(HostSession& session,
                                                                 const Selection& selection);

// An open row as a pay office looks at it.
struct OpenRow {
    std::int32_t prpid;   // key of the row
    std::int32_t naid;    // the employee
    std::int16_t week;    // tax week
    std::int32_t period;  // pay period code, or minus the tax month
    Date payDate;         // when it is paid
    Date periodEnd;       // last day of the pay period
    Currency pay;         // pay of the period
    bool visited;         // the user has looked at the row
    double status;        // what the calculation left as its state
};

// The open rows of the run with a pay date up to its own, in the order of the library.
// Errors: 91 for a row whose employee is not in the list.
LEDGERWICK_HOSTKIT_API std::vector<OpenRow> openRows(HostSession& session,
                                                     const Selection& selection);
// The open rows of a run, by the number of their employee.
using RowsByEmployee = std::map<std::int32_t, std::vector<OpenRow>>;
// As `openRows`, by employee.
LEDGERWICK_HOSTKIT_API RowsByEmployee openRowsByEmployee(HostSession& session,
                                                         const Selection& selection);

// Marks the employee's open rows up to a date as worked out and reported: status 3, visited. A host
// that calculates does so once it has; only such a row counts as paid.
LEDGERWICK_HOSTKIT_API void markCalculated(HostSession& session, std::int32_t naid, Date payDate);

// Closes the rows of one employee and clears what they paid, so that it is not paid twice: the
// checked piecework of the periods is closed with the reference "Pay DATE", and the imported pay
// is taken out of `PRPayImport`. To be done in one transaction, after `LoadImportedPay`; the
// objects in memory follow at the next load of the employee.
// Errors: 91 for an employee who is not in the list; those of `C_UpdatePayPeriod`.
LEDGERWICK_HOSTKIT_API void closeRows(HostSession& session, std::int32_t naid,
                                      const std::vector<OpenRow>& rows, Date payDate);

// The highest key of a pay row; 0 without rows.
LEDGERWICK_HOSTKIT_API std::int32_t highestPayRow(HostSession& session);

// "#4/29/2016#", a date in a statement.
LEDGERWICK_HOSTKIT_API std::string dateLiteral(Date date);

}  // namespace ledgerwick::office
