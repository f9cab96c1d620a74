// Names and counts as people read them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "hostkit/export.h"
#include "ledgerwick/ledgerwick.h"

namespace ledgerwick::explain {

// "weekly", "monthly" ...; the number as text for a frequency without a name.
LEDGERWICK_HOSTKIT_API std::string frequencyName(std::int16_t frequency);
// The frequency of a name, "all" among them, or nothing.
LEDGERWICK_HOSTKIT_API std::optional<PR_Pay_Freq> frequencyOf(std::string_view name);
// "weekly, fortnightly, ...", for a help text.
LEDGERWICK_HOSTKIT_API std::string frequencyNames();

// "1 period", "2 periods"
LEDGERWICK_HOSTKIT_API std::string counted(std::int64_t count, std::string_view what);

}  // namespace ledgerwick::explain
