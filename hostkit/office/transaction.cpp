#include "hostkit/office/transaction.h"

#include "hostkit/office/refusal.h"
#include "hostkit/recording/recording_database.h"

namespace ledgerwick::office {

Refusal::~Refusal() = default;

sqlite::SqliteDatabase& storeOf(HostSession& session) {
    Database* database = &session.database();
    if (auto* const recording = dynamic_cast<RecordingDatabase*>(database)) {
        database = &recording->recorded();
    }
    if (auto* const store = dynamic_cast<sqlite::SqliteDatabase*>(database)) return *store;
    raise(error_number::invalidCall, "storeOf",
          "the office works on a company of the kit, not on a database of the host's own");
}

void inTransaction(HostSession& session, const std::function<void()>& work) {
    storeOf(session).inTransaction(work);
}

}  // namespace ledgerwick::office
