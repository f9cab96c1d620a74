// Auto-enrolment letters: who gets one of a kind, and what it says.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hostkit/export.h"
#include "hostkit/services/host_session.h"
#include "ledgerwick/ledgerwick.h"

namespace ledgerwick::office {

// The kind of a name: enrolment, postponement, not-eligible, re-enrolment, attachment.
LEDGERWICK_HOSTKIT_API std::optional<PR_AE_LETTER_TYPES> letterTypeOf(std::string_view name);
// The names, parted by commas.
LEDGERWICK_HOSTKIT_API std::string letterTypeNames();

// The workers to whom a letter of the kind goes: of the regular active employees those in a
// workplace scheme for an enrolment or a re-enrolment, those with a postponement that has not run
// out for a postponement, and those with neither for the rest.
LEDGERWICK_HOSTKIT_API std::vector<std::shared_ptr<cEmployee>> recipients(HostSession& session,
                                                                          PR_AE_LETTER_TYPES type);

// The letter to one worker: address, date, heading and body, with line feeds. Figures that every
// letter of a company shares come from its parameters.
// Shape:  empty when there is no template of the kind.
LEDGERWICK_HOSTKIT_API std::string letterTo(HostSession& session, cEmployee& employee,
                                            PR_AE_LETTER_TYPES type);

}  // namespace ledgerwick::office
