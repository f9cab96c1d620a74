#include "hostkit/postgres/incoming.h"

namespace ledgerwick::postgres {

bool IncomingRows::start(Failure& failure) {
    return next(failure);
}

bool IncomingRows::next(Failure& failure) {
    row_ = link_->next();
    const auto status = PQresultStatus(row_.get());
    if (status == PGRES_SINGLE_TUPLE) return true;
    ended_ = true;
    const bool sound = status == PGRES_TUPLES_OK || status == PGRES_COMMAND_OK;
    if (!sound) failure = link_->failureOf(row_.get());
    finish();
    return sound;
}

void IncomingRows::drain() noexcept {
    Failure ignored;
    while (!ended_) next(ignored);
}

// Reads up to the end of the trip.
void IncomingRows::finish() noexcept {
    while (!link_->isLost()) {
        const Result rest = link_->next();
        if (PQresultStatus(rest.get()) == PGRES_PIPELINE_SYNC) return;
    }
}

}  // namespace ledgerwick::postgres
