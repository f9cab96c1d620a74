// The road of a pay run as this host goes it: what is due, open, show, close.
#pragma once

#include "app/report.h"
#include "hostkit/office/pay_run.h"
#include "hostkit/services/host_session.h"
#include "ledgerwick/ledgerwick.h"

namespace ledgerwick::app {

using office::dateLiteral;
using office::Selection;

// The regular employees whose pay falls due up to the date, and how many periods each owes.
Report whatIsDue(HostSession& session, Date upTo);

// Prepares the run and tells its columns; says when pay falls due next if there are none.
// Errors: Refusal when an employee has no pay history to count the periods from.
Report openRun(HostSession& session, const Selection& selection);

// The open rows with a pay date up to that of the selection. Writes nothing.
Report showRun(HostSession& session, const Selection& selection);

// Closes the open rows of every employee selected, and tells how the dates moved on. A host
// calculates pay between opening and closing and marks what it has done; this one has no tax
// calculation, so that it marks the rows here, as visited and with the status of reported pay.
// Imported pay of the employees closed is taken out of `PRPayImport`, and their checked piecework of
// the periods is closed too, so that neither is paid twice.
Report closeRun(HostSession& session, const Selection& selection);

// Fills the periods that were skipped between closed rows of this year, and tells the rows added.
Report fillGaps(HostSession& session);

}  // namespace ledgerwick::app
