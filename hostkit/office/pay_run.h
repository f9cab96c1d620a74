// The road of a pay run around the library's own operations: what falls due, opening a run, its open
// rows, marking them as calculated, closing them, and filling periods that were skipped. Every door
// to the office goes this road.
//
//   const office::Selection run{.payDate = due};
//   for (const auto& period : office::openRun(session, run).periods) ...   // work out the pay
//   office::markCalculated(session, run);
//   office::closeRun(session, run);
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "hostkit/export.h"
#include "hostkit/services/host_session.h"
#include "ledgerwick/ledgerwick.h"

namespace ledgerwick::office {

// Which employees a run is for.
struct Selection {
    Date payDate{};                        // rows up to this pay date
    PR_Pay_Freq frequency = PFREQ_SelAll;  // one frequency, or all
    std::int32_t group = 0;                // 0: all
    std::int32_t naid = 0;                 // 0: all
};

// Whether the run is for this employee, by frequency, group and number.
LEDGERWICK_HOSTKIT_API bool isSelected(const cEmployee& employee, const Selection& selection);

// A regular employee whose pay falls due.
struct DueEmployee {
    // The employee.
    std::shared_ptr<cEmployee> employee;
    Date nextPay;              // expected pay date of the first period due
    Date periodEnd;            // its last day
    std::int32_t periods = 0;  // how many periods fall due
};

// The regular employees whose pay falls due up to the date, in the order of the list. One without
// pay history has no date to count from and is not among them.
LEDGERWICK_HOSTKIT_API std::vector<DueEmployee> dueEmployees(HostSession& session, Date upTo);

// A pay period of an opened run.
struct OpenedPeriod {
    std::int32_t naid = 0;             // the employee
    std::int32_t prpid = 0;            // key of the pay row
    Date firstDay{};                   // first day of the period
    Date lastDay{};                    // last day of the period
    std::optional<Currency> imported;  // imported pay and piecework of the period
    std::int32_t week = 0;             // tax week
    std::int32_t period = 0;           // pay period code, or minus the tax month
};

// A run that was opened.
struct OpenedRun {
    std::vector<OpenedPeriod> periods;  // in the order of the library
    bool uncheckedPiecework = false;    // some piecework of these periods has not been checked
    std::optional<Date> nextPay;        // when pay falls due next; set when `periods` is empty
};

// Prepares a pay row for each period of the run that falls due.
// Errors: Refusal when an employee has no pay history, from which the periods are counted; those of
//         `C_InputHoursInit`.
LEDGERWICK_HOSTKIT_API OpenedRun openRun(HostSession& session, const Selection& selection);

// An open row as a pay office looks at it.
struct OpenRow {
    std::int32_t prpid = 0;   // key of the row
    std::int32_t naid = 0;    // the employee
    std::int16_t week = 0;    // tax week
    std::int32_t period = 0;  // pay period code, or minus the tax month
    Date payDate{};           // when it is paid
    Date periodEnd{};         // last day of the pay period
    Currency pay{};           // pay of the period
    bool visited = false;     // the user has looked at the row
    double status = 0;        // what the calculation left as its state
};

// The open rows of the run with a pay date up to its own, in the order of the library. The list is
// brought up to date first.
// Errors: 91 for a row whose employee is not in the list.
LEDGERWICK_HOSTKIT_API std::vector<OpenRow> openRows(HostSession& session,
                                                     const Selection& selection);

// Marks the open rows of the run as worked out and reported: status 3, visited. A host that
// calculates does so once it has; only such a row counts as paid. Returns how many rows the run has.
LEDGERWICK_HOSTKIT_API std::size_t markCalculated(HostSession& session, const Selection& selection);

// An employee whose rows were closed, and how the dates moved on.
struct ClosedEmployee {
    std::int32_t naid = 0;  // the employee
    std::int32_t rows = 0;  // how many rows were closed
    Date paidTo{};          // last day paid
    Date nextPayBefore{};   // the pay date that was expected before
    Date nextPay{};         // the one expected now
    Date nextPeriodEnd{};   // with the last day of its period
};

// Closes the open rows of the run, each employee whole or not at all, and clears what they paid, so
// that it is not paid twice: the checked piecework of the periods is closed with the reference "Pay
// DATE", and the imported pay is taken out of `PRPayImport`. The employees are then loaded again.
// Whose rows another office closes meanwhile is passed over.
// Errors: those of `C_UpdatePayPeriod` and of the load; employees before the one at fault stay
//         closed.
LEDGERWICK_HOSTKIT_API std::vector<ClosedEmployee> closeRun(HostSession& session,
                                                            const Selection& selection);

// A row that was added for a period that had been skipped.
struct FilledPeriod {
    std::int32_t prpid = 0;   // key of the row
    std::int32_t naid = 0;    // the employee
    std::int16_t week = 0;    // tax week
    std::int32_t period = 0;  // pay period code, or minus the tax month
    Date payDate{};           // pay date of the period
    std::string lateReason;   // late-reporting reason
};

// Fills the periods that were skipped between closed rows of this year.
LEDGERWICK_HOSTKIT_API std::vector<FilledPeriod> fillMissing(HostSession& session);

// The highest key of a pay row; 0 without rows.
LEDGERWICK_HOSTKIT_API std::int32_t highestPayRow(HostSession& session);

// "#4/29/2016#", a date in a statement.
LEDGERWICK_HOSTKIT_API std::string dateLiteral(Date date);

}  // namespace ledgerwick::office
