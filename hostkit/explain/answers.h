// Why a date is what it is: every question that a pay office asks of a day, with its answer, the
// rule that gave it and the parameter that the rule read.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "hostkit/explain/calendar_rules.h"
#include "hostkit/export.h"
#include "ledgerwick/values/variant.h"

namespace ledgerwick::explain {

// An answer is a number or a text, a date, or both.
struct Answer {
    std::optional<PR_Pay_Freq> frequency{};  // none for what holds for every employee
    std::string question{};                  // "tax week", "next pay date"
    Variant number{};                        // 53, "2015/16"; Empty for an answer that is a date
    Date date{};                             // the answer, or the first day of it
    Date lastDay{};                          // not set for a single day
    const Rule* rule = nullptr;              // why
    std::string controller{};                // "PRNExpD_M1 = -6: ..."; empty for none
};

// The answers for a date: those for everybody, then those of each frequency.
// Shape:  with `frequencies` empty those of every frequency.
LEDGERWICK_HOSTKIT_API std::vector<Answer> explainDate(Date date,
                                                       std::span<const PR_Pay_Freq> frequencies,
                                                       const Controllers& controllers);

}  // namespace ledgerwick::explain
