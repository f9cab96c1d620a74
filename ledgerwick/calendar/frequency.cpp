#include "ledgerwick/calendar/frequency.h"

#include <string>
#include <string_view>

#include "ledgerwick/host/dll_global.h"
#include "ledgerwick/records/statement.h"
#include "ledgerwick/values/error.h"

namespace ledgerwick {
namespace {

struct Coding {
    PR_Pay_Freq freq;
    std::int16_t payPeriod;
};

constexpr std::int16_t monthlyPeriod = -1;

constexpr Coding codings[] = {
    {PFREQ_Casual, 0},
    {PFREQ_1Weekly, 1},
    {PFREQ_2Weekly, 2},
    {PFREQ_4Weekly, 4},
    {PFREQ_Monthly, monthlyPeriod},
    {PFREQ_Quarterly, 13},
    {PFREQ_BiAnnual, 26},
    {PFREQ_Annual, 52},
};

Error invalid(std::int32_t number, const char* source, std::string_view what, std::int16_t code) {
    return {number, source,
            "Invalid Pay " + std::string(what) + " (" + std::to_string(code) + ")."};
}

// Stores a date by `update`, a statement with places for the date and the row's key; tells the user
// of a failure.
bool storeDate(std::string_view update, Date date, std::int32_t lPRPID, const char* failureText) {
    try {
        const std::string sql =
            statement(update, {DLLGlobal::pf().DateToUSstr(date), std::to_string(lPRPID)});
        DLLGlobal::g().DBDll().Execute(sql, failOnError);
        return true;
    } catch (...) {  // whatever went wrong, the user is told and the old date stays
    }
    auto& host = DLLGlobal::g();
    host.ShowCriticalMessage(host.g_strProgName() + " - Error", failureText);
    return false;
}

}  // namespace

std::int16_t PR_Convert_PayFreq_to_PayPeriod(PR_Pay_Freq iFreq) {
    for (const auto& coding : codings) {
        if (coding.freq == iFreq) return coding.payPeriod;
    }
    throw invalid(9910, "PR_Convert_PayFreq_to_PayPeriod", "Freq", iFreq);
}

PR_Pay_Freq PR_Convert_PayPeriod_to_PayFreq(std::int16_t iPeriod) {
    const std::int16_t payPeriod = iPeriod < 0 ? monthlyPeriod : iPeriod;
    for (const auto& coding : codings) {
        if (coding.payPeriod == payPeriod) return coding.freq;
    }
    throw invalid(9911, "PR_Convert_PayPeriod_to_PayFreq", "Period", iPeriod);
}

bool PR_SetNExpPayDate(std::int32_t lPRPID, Date dtNExpPayDate) {
    return storeDate("UPDATE PRPAY SET PRPNExpPayDate = #@# WHERE PRPID = @", dtNExpPayDate, lPRPID,
                     "Unable to set Next Pay Date!");
}

bool PR_SetNExpEPEDate(std::int32_t lPRPID, Date dtNExpEPEDate) {
    return storeDate("UPDATE PRPAY SET PRPNExpEPEDate = #@#WHERE PRPID = @", dtNExpEPEDate, lPRPID,
                     "Unable to set Next EPE Date!");
}

}  // namespace ledgerwick
