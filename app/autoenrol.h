// Auto-enrolment as this host goes about it: the table of the workers' status, who gets a letter of
// a kind, and what it says.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/report.h"
#include "hostkit/services/host_session.h"
#include "ledgerwick/ledgerwick.h"

namespace ledgerwick::app {

// The status of all regular workers, or of one, by name, as of a pay date.
Report autoEnrolStatus(HostSession& session, Date upTo, std::int32_t payrollYear,
                       std::int32_t naid = 0);

// The kind of a name: enrolment, postponement, not-eligible, re-enrolment, attachment.
std::optional<PR_AE_LETTER_TYPES> letterTypeOf(std::string_view name);
std::string letterTypeNames();

// The workers to whom a letter of the kind goes: of the regular active employees those in a
// workplace scheme for an enrolment or a re-enrolment, those with a postponement that has not run
// out for a postponement, and those with neither for the rest.
std::vector<std::shared_ptr<cEmployee>> recipients(HostSession& session, PR_AE_LETTER_TYPES type);

// The letter to one worker: address, date, heading and body, with line feeds.
// Shape:  empty when there is no template of the kind.
std::string letterTo(HostSession& session, cEmployee& employee, PR_AE_LETTER_TYPES type);

}  // namespace ledgerwick::app
