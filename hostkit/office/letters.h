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
// The kind of letter that is made from a template of that file name, "Re-Enrolment.txt".
LEDGERWICK_HOSTKIT_API std::optional<PR_AE_LETTER_TYPES> letterTypeOfTemplate(
    std::string_view fileName);

// Why a letter of the kind may show the placeholder of a value unfilled; empty when it never does.
// Shape:  without a kind, of any kind; without parameters, for a company that has all of them.
LEDGERWICK_HOSTKIT_API std::string whyUnfilled(LetterValue value,
                                               std::optional<PR_AE_LETTER_TYPES> type,
                                               const KitParameters* parameters);

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
