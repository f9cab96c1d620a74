#include "ledgerwick/employment/stored_expected_dates.h"

#include <string>
#include <string_view>

#include "ledgerwick/host/dll_global.h"
#include "ledgerwick/records/statement.h"

namespace ledgerwick {
namespace {

// Runs `update`, a statement with places for the date and the row's key. Shows the user a failure.
bool storeDate(std::string_view update, Date date, std::int32_t lPRPID, const char* failureText) {
    try {
        const std::string sql =
            statement(update, {DLLGlobal::pf().DateToUSstr(date), std::to_string(lPRPID)});
        DLLGlobal::g().DBDll().Execute(sql, failOnError);
        return true;
    } catch (...) {  // whatever went wrong, the user sees a message and the old date stays
    }
    auto& host = DLLGlobal::g();
    host.ShowCriticalMessage(host.g_strProgName() + " - Error", failureText);
    return false;
}

}  // namespace

bool PR_SetNExpPayDate(std::int32_t lPRPID, Date dtNExpPayDate) {
    return storeDate("UPDATE PRPAY SET PRPNExpPayDate = #@# WHERE PRPID = @", dtNExpPayDate, lPRPID,
                     "Unable to set Next Pay Date!");
}

bool PR_SetNExpEPEDate(std::int32_t lPRPID, Date dtNExpEPEDate) {
    return storeDate("UPDATE PRPAY SET PRPNExpEPEDate = #@#WHERE PRPID = @", dtNExpEPEDate, lPRPID,
                     "Unable to set Next EPE Date!");
}

}  // namespace ledgerwick
