// Auto-enrolment as the command shows it: the table of the workers' status.
#pragma once

#include "app/report.h"
#include "hostkit/office/letters.h"
#include "hostkit/services/host_session.h"
#include "ledgerwick/ledgerwick.h"

namespace ledgerwick::app {

// The status of all regular workers, or of one, by name, as of a pay date.
Report autoEnrolStatus(HostSession& session, Date upTo, std::int32_t payrollYear,
                       std::int32_t naid = 0);

using office::letterTo;
using office::letterTypeNames;
using office::letterTypeOf;
using office::letterTypeOfTemplate;
using office::recipients;
using office::whyUnfilled;

}  // namespace ledgerwick::app
