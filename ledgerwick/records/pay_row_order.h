// The order in which pay rows are worked.
#pragma once

#include <string>

#include "ledgerwick/export.h"

namespace ledgerwick {

// The field list of the ORDER BY of every statement that walks over pay rows.
LEDGERWICK_API std::string PaymentsOrderBy();

}  // namespace ledgerwick
