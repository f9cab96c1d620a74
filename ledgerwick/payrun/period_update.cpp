// Closes a pay run, withdraws visited marks, and creates the row from which an employee's history
// starts.
#include <string>

#include "ledgerwick/calendar/frequency.h"
#include "ledgerwick/host/dll_global.h"
#include "ledgerwick/host/payroll_functions.h"
#include "ledgerwick/payrun/due_employees.h"
#include "ledgerwick/records/pay_row_order.h"
#include "ledgerwick/records/row_at_hand.h"
#include "ledgerwick/records/schema.h"
#include "ledgerwick/records/statement.h"

namespace ledgerwick {

namespace {

// The two look-ahead dates of a row.
struct LookAhead {
    Date epe;
    Date pay;
};

LookAhead stepped(CPayrollFunctions& payroll, const LookAhead& from, PR_Pay_Freq frequency) {
    return {payroll.C_Calc_Next_NExpDate(from.epe, frequency, PR_NExp_EPE),
            payroll.C_Calc_Next_NExpDate(from.pay, frequency, PR_NExp_Pay)};
}

// An unknown frequency looks ahead too, so that its step raises 9910. A selection value does not.
bool looksAheadAtClosing(PR_Pay_Freq frequency) {
    const auto* const found = calendar::findFrequency(frequency);
    return found ? found->looksAhead : frequency > 0;
}

RecordsetRef openRowsUpTo(Date payDate, std::int32_t naid) {
    const std::string sql = statement(
        R"(SELECT PRPPeriodUpdated, PRPNExpEPEDate, PRPNExpPayDate
           FROM PRPay
           WHERE PRPPaymentPeriod <> 0
             AND PRPPeriodUpdated = FALSE
             AND PRPPayDate <= #@#
             AND PRPNAID = @
           ORDER BY @)",
        {DLLGlobal::pf().DateToUSstr(payDate), std::to_string(naid), PaymentsOrderBy()});
    return DLLGlobal::g().DBDll().OpenRecordset(sql, RecordsetType::Dynaset);
}

}  // namespace

void CPayrollFunctions::C_UpdatePayPeriod(std::int32_t lngNAIDIn, Date dPayDateIn) {
    requireInForce();
    const auto close = [&] {
        payrun::refuseChanged(employeeList().ChangedSinceLoad({&lngNAIDIn, 1}),
                              "C_UpdatePayPeriod");
        const auto rows = openRowsUpTo(dPayDateIn, lngNAIDIn);
        const auto employee = payrun::employeeOf(employeeList(), lngNAIDIn, "C_UpdatePayPeriod");
        const PR_Pay_Freq frequency = payrun::frequencyOf(*employee);
        // Longer periods get their dates by the pay-day rules of today. Weekly types keep the
        // dates of their preparation.
        const bool looksAhead = looksAheadAtClosing(frequency);
        LookAhead dates;
        if (looksAhead) {
            const auto employment = employee->CurEmployment();
            dates =
                stepped(*this, {employment->NExpEPEDate(), employment->NExpPayDate()}, frequency);
        }
        for (; !rows->Eof(); rows->MoveNext()) {
            rows->Edit();
            rows->Value(field::PRPPeriodUpdated, true);
            if (looksAhead) {
                if (rows->AbsolutePosition() == rows->RecordCount() - 1) {
                    rows->Value(field::PRPNExpEPEDate, dates.epe);
                    rows->Value(field::PRPNExpPayDate, dates.pay);
                }
                dates = stepped(*this, dates, frequency);
            }
            rows->Update();
        }
        rows->Close();
    };
    forEmployee(lngNAIDIn, [&] { inOneBatch(DLLGlobal::g().DBDll(), close); });
}

bool CPayrollFunctions::C_Reset_HasBeenVisited(std::int32_t lNAID) {
    try {
        const std::string sql = statement(
            R"(UPDATE PRPAY
               SET PRPHasBeenVisited = FALSE
               WHERE PRPPeriodUpdated = FALSE
                 AND PRPNAID = @)",
            {std::to_string(lNAID)});
        DLLGlobal::g().DBDll().Execute(sql, failOnError);
        return true;
    } catch (...) {
        HostState& host = DLLGlobal::g();
        host.ShowCriticalMessage(host.g_strProgName() + " - Error",
                                 "Unable to Reset 'HasBeenVisited'!");
        return false;
    }
}

void CPayrollFunctions::C_CreateStartingPayRecord(std::int32_t lngNAIDIn, std::int32_t lngWeekNoIn,
                                                  Date dEPEDate, Date dNExpPayDate,
                                                  Date dNExpEPEDate) {
    requireInForce();
    Database& database = DLLGlobal::g().DBDll();
    inOneBatch(database, [&] {
        const auto rows =
            database.OpenRecordset("SELECT * FROM PRPAY WHERE PRPID = -1", RecordsetType::Dynaset);
        const Date payDate = C_DateOfWeekNo(lngWeekNoIn);
        CreatePayRecord(*rows, lngWeekNoIn, payDate, lngNAIDIn, true, true, dEPEDate, dNExpPayDate,
                        dNExpEPEDate);
        rows->Close();
    });
}

}  // namespace ledgerwick
