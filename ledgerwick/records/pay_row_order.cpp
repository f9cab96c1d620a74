#include "ledgerwick/records/pay_row_order.h"

namespace ledgerwick {

std::string PaymentsOrderBy() {
    return "PRPNAID, PRPPayrollYear, PRPPYEmployCount, PRPWeekNo, PRPRTIPayDate, PRPID";
}

}  // namespace ledgerwick
