#include "hostkit/office/transaction.h"

#include "hostkit/office/refusal.h"

namespace ledgerwick::office {

Refusal::~Refusal() = default;

store::CompanyStore& storeOf(HostSession& session) {
    if (auto* const company = store::storeUnder(session.database())) return *company;
    raise(error_number::invalidCall, "storeOf",
          "the office works on a company of the kit, not on a database of the host's own");
}

void inTransaction(HostSession& session, const std::function<void()>& work) {
    storeOf(session).inTransaction(work);
}

}  // namespace ledgerwick::office
