// Steps of the office that are stored whole or not at all.
#pragma once

#include <functional>

#include "hostkit/export.h"
#include "hostkit/services/host_session.h"
#include "hostkit/store/company_store.h"

namespace ledgerwick::office {

// The company of a session, under any layers over it.
// Errors: 5 for a database of the host's own.
LEDGERWICK_HOSTKIT_API store::CompanyStore& storeOf(HostSession& session);

// Runs `work` in a transaction of that company.
// Errors: as of `storeOf`.
LEDGERWICK_HOSTKIT_API void inTransaction(HostSession& session, const std::function<void()>& work);

}  // namespace ledgerwick::office
