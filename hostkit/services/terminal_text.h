// Text that cannot steer a terminal: the one place that decides what a terminal may be shown.
#pragma once

#include <string>
#include <string_view>

#include "hostkit/export.h"

namespace ledgerwick {

// The text with blanks in place of every control character and of every mark that turns the
// direction of writing, so that a name in a database cannot steer the terminal. The length in bytes
// stays.
LEDGERWICK_HOSTKIT_API std::string withoutControls(std::string_view text);

}  // namespace ledgerwick
