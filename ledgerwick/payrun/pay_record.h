// What a pay record reads of its own row.
#pragma once

#include "ledgerwick/export.h"
#include "ledgerwick/records/record_access.h"

namespace ledgerwick::payrun {

// The fields of an open row that a preparation of the run reads. A set of open rows is opened with
// this list.
FieldList openRowFields() noexcept;

}  // namespace ledgerwick::payrun
