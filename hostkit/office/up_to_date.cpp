#include "hostkit/office/up_to_date.h"

namespace ledgerwick::office {

std::vector<std::int32_t> bringUpToDate(HostSession& session, std::int32_t naid) {
    CEmployeeList& list = session.list();
    auto changed = naid == 0 ? list.ChangedSinceLoad() : list.ChangedSinceLoad({&naid, 1});
    for (const std::int32_t each : changed) list.ReLoadEmployee(each);
    return changed;
}

}  // namespace ledgerwick::office
