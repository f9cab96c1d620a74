// A pay date on one page: what its run brings in and why, what is missing, and the year around it.
#pragma once

#include <string>

#include "hostkit/export.h"
#include "hostkit/services/host_session.h"
#include "ledgerwick/values/date.h"

namespace ledgerwick::report {

// The page for a pay date of the loaded company, which is named `company` in its heading. The run is
// opened and gaps are filled to look at them, and taken back.
// Shape:  a whole document of HTML that needs nothing from elsewhere.
LEDGERWICK_HOSTKIT_API std::string payDatePage(HostSession& session, const std::string& company,
                                               Date payDate);

}  // namespace ledgerwick::report
