// What stands in a company's database before its first employee, and the load of a company in which
// somebody has not started yet.
#pragma once

#include <memory>

#include "hostkit/export.h"
#include "hostkit/services/host_session.h"
#include "ledgerwick/host/host.h"

namespace ledgerwick::office {

// The settings of a company that begins in the tax year from 6 April `taxYear`: control record, the
// year ends before and of that year, and monthly pay on the last day of the month until its
// parameters say otherwise. For tables that are there and empty.
LEDGERWICK_HOSTKIT_API void layDownSettings(Database& database, int taxYear);

// Loads the list afresh. One who has payroll details but no employment yet, at whom a load of all
// would stop, is left out until `addEmployment`.
// Errors: those of the load.
LEDGERWICK_HOSTKIT_API void loadEmployed(HostSession& session,
                                         const std::shared_ptr<Label>& label = nullptr);

}  // namespace ledgerwick::office
