// Fills gaps between the closed pay rows of an employment.
#include <array>
#include <string>

#include "ledgerwick/calendar/frequency.h"
#include "ledgerwick/host/dll_global.h"
#include "ledgerwick/host/payroll_functions.h"
#include "ledgerwick/records/codes.h"
#include "ledgerwick/records/pay_row_order.h"
#include "ledgerwick/records/row_at_hand.h"
#include "ledgerwick/records/schema.h"
#include "ledgerwick/records/statement.h"
#include "ledgerwick/values/checked.h"

namespace ledgerwick {

using namespace field;

namespace {

constexpr std::array identity{PRPNAID, PRPPYEmployCount, PRPPayrollYear};
constexpr std::array taxDetails{PRPNITable, PRPTaxCode, PRPWeek1, PRPDirector};
constexpr std::array worksDetails{PRPWorksNo, PRPMinNormHours};

constexpr std::array walkFields{PRPID,          PRTID,      PRPNAID,         PRPPYEmployCount,
                                PRPPayrollYear, PRPWeekNo,  PRPPayDate,      PRPPaymentPeriod,
                                PRPRTIPayDate,  PRPNITable, PRPTaxCode,      PRPWeek1,
                                PRPDirector,    PRPWorksNo, PRPMinNormHours, PRPDoB,
                                PRPEPEDate};

template <std::size_t N>
void copy(Recordset& from, Recordset& to, const std::array<FieldName, N>& fields) {
    for (const FieldName& field : fields) to.Value(field, from.Value(field));
}

RecordsetRef openWalk() {
    const std::string sql = statement(
        R"(SELECT PRPay.*, PRTID
           FROM ( PRPay
             LEFT JOIN PREmployments
               ON PREmployments.PRTNAID = PRPay.PRPNAID
               AND PREmployments.PRTPYEmployCount = PRPay.PRPPYEmployCount
               AND PREmployments.PRTPayrollYear = PRPay.PRPPayrollYear)
             LEFT JOIN PREmployeeDetails
               ON PREmployeeDetails.PRENAID = PRPay.PRPNAID
           WHERE PRPay.PRPPayrollYear = @
             AND PREmployeeDetails.PREPYEmployCount = PRPay.PRPPYEmployCount
             AND PRPPeriodUpdated = TRUE
             AND PRTType = 1
           ORDER BY @)",
        {std::to_string(DLLGlobal::currentPayrollYear()), PaymentsOrderBy()});
    return DLLGlobal::g().DBDll().OpenRecordset(sql, RecordsetType::Snapshot, walkFields);
}

// What the walk remembers of the row before.
struct RowBefore {
    std::int32_t employment = 0;
    std::int32_t period = 0;
    std::int32_t week = 0;
    Date epe;

    void take(Recordset& row) {
        employment = row.GetInt32(PRTID);
        period = row.GetInt32(PRPPaymentPeriod);
        week = row.GetInt32(PRPWeekNo);
        epe = row.GetDate(PRPEPEDate);
    }
};

// The period that a filler row stands for.
struct MissingPeriod {
    std::int32_t code;
    std::int32_t week;
    Date payDate;
};

// The tax month of a monthly row, which stores minus the month as its period.
std::int32_t monthOf(std::int32_t period) {
    return subtractInt32(0, period);
}

MissingPeriod monthAfter(CPayrollFunctions& payroll, const RowBefore& before) {
    const std::int32_t code = subtractInt32(before.period, 1);
    const Date end = payroll.C_CalcTaxMonthEndDate(narrowToInt16(monthOf(code)));
    return {code, payroll.C_CalcTaxWeek(end), end};
}

// How many weeks a pay row of that period stands for. A period that belongs to no frequency counts
// as that many weeks.
std::int32_t weeksOf(std::int32_t period) {
    const auto* const frequency = calendar::findByPayPeriod(period);
    return frequency ? frequency->weeks : period;
}

MissingPeriod weeksAfter(CPayrollFunctions& payroll, const RowBefore& before, std::int32_t period) {
    const std::int32_t week = addInt32(before.week, weeksOf(period));
    return {period, week, payroll.C_CalcTaxWeekEndDate(narrowToInt16(week))};
}

// Adds an empty closed row for `missing`, in the gap between `before` and the row `after`.
void addFiller(Recordset& rows, const MissingPeriod& missing, const RowBefore& before,
               Recordset& after) {
    rows.AddNew();
    copy(after, rows, identity);
    rows.Value(PRPPaymentPeriod, missing.code);
    rows.Value(PRPPayDate, missing.payDate);
    rows.Value(PRPWeekNo, missing.week);
    const Date latest = after.GetDate(PRPPayDate);
    const Date payDate = missing.payDate > latest ? latest : missing.payDate;
    rows.Value(PRPPayDate, payDate);
    rows.Value(PRPRTIPayDate, payDate);
    rows.Value(PRPPeriodUpdated, true);
    rows.Value(PRPHasBeenVisited, true);
    copy(after, rows, taxDetails);
    rows.Value(PRPCalculationUsed, code::fillerRow);
    copy(after, rows, worksDetails);
    rows.Value(PRPRTILateReason, "H");
    rows.Value(PRPDoB, after.Value(PRPDoB));
    rows.Value(PRPEPEDate, before.epe);
    rows.Value(PRPNExpEPEDate, after.Value(PRPEPEDate));
    rows.Value(PRPNExpPayDate, after.Value(PRPRTIPayDate));
    rows.Update();
}

// Fills the gap between the row before and the current row of the walk. Between rows of different
// periods, as after a change of frequency, there is no gap. Rows of period 0 have no period to
// fill.
void fillGap(CPayrollFunctions& payroll, Recordset& rows, RowBefore before, Recordset& walk) {
    const std::int32_t period = walk.GetInt32(PRPPaymentPeriod);
    if (period < 0) {
        if (before.period >= 0) return;
        const std::int32_t month = monthOf(period);
        while (addInt32(monthOf(before.period), 1) < month) {
            addFiller(rows, monthAfter(payroll, before), before, walk);
            before.period = subtractInt32(before.period, 1);
        }
    } else if (period != 0 && period == before.period) {
        const std::int32_t week = walk.GetInt32(PRPWeekNo);
        const std::int32_t weeks = weeksOf(period);
        while (addInt32(before.week, weeks) < week) {
            addFiller(rows, weeksAfter(payroll, before, period), before, walk);
            before.week = addInt32(before.week, weeks);
        }
    }
}

}  // namespace

Variant CPayrollFunctions::AutoFillMissingPeriods() {
    requireInForce();
    Database& database = DLLGlobal::g().DBDll();
    inOneBatch(database, [&] {
        const auto rows =
            database.OpenRecordset("SELECT * FROM PRPAY WHERE PRPID = -1", RecordsetType::Dynaset);
        const auto walk = openWalk();
        if (walk->RecordCount() != 0) {
            RowBefore before;
            const auto look = [&] {
                if (walk->GetInt32(PRTID) == before.employment) {
                    fillGap(*this, *rows, before, *walk);
                }
                before.take(*walk);
            };
            for (walk->MoveFirst(); !walk->Eof(); walk->MoveNext()) onRow(*walk, "PRPay", look);
        }
        rows->Close();
        walk->Close();
    });
    return {};
}

}  // namespace ledgerwick
