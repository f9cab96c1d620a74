// The steps of a pay run as the command prints them.
#pragma once

#include "app/report.h"
#include "hostkit/office/pay_run.h"
#include "hostkit/services/host_session.h"
#include "ledgerwick/ledgerwick.h"

namespace ledgerwick::app {

using office::Selection;

// The regular employees whose pay falls due up to the date, and how many periods each owes.
Report whatIsDue(HostSession& session, Date upTo);

// Opens the run and lists its periods; says when pay falls due next if there are none.
Report openStep(HostSession& session, const Selection& selection);

// The open rows with a pay date up to that of the selection. Writes nothing.
Report showStep(HostSession& session, const Selection& selection);

// Closes the open rows of every employee selected, and lists how the dates moved on. This host has
// no tax calculation, so that it marks the rows as calculated here.
Report closeStep(HostSession& session, const Selection& selection);

// Fills the periods that were skipped between closed rows of this year, and lists the rows added.
Report fillGaps(HostSession& session);

}  // namespace ledgerwick::app
