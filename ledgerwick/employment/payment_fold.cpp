// How a pay row moves the running state of its employment. This is the hot path of a load: every
// pay row of the payroll comes through here, so numbers and dates are read as what they are.
#include <cstdlib>
#include <utility>

#include "ledgerwick/calendar/pr_functions.h"
#include "ledgerwick/employment/employment.h"
#include "ledgerwick/shell/schema.h"
#include "ledgerwick/values/checked.h"

namespace ledgerwick {
namespace {

constexpr std::array payRowFields{
    field::PRTID,
    field::PRPNAID,
    field::PRPPeriodUpdated,
    field::PRPRTIPayDate,
    field::PRPEPEDate,
    field::PRPPaymentPeriod,
    field::PRPNExpPayDate,
    field::PRPNExpEPEDate,
    field::PRPWeekNo,
    field::PRPCalculationUsed,
    field::PRPID,
    field::PRPAEStatus,
    field::PRPMaternityHighWeeks,
    field::PRPMaternityLowWeeks,
    field::PRPAdoptionHighWeeks,
    field::PRPAdoptionLowWeeks,
    field::PRPPaternityWeeks,
    field::PRPASPPDays,
    field::PRPStudentLoan,
    field::PRPPostgradLoan,
    field::PRPStatus,
    field::PRPPYEmployCount,
    field::PRPWorksNo,
    field::PRPOfficialIDNo,
    field::PRPPartnerNAID,
    field::PRPPayrollYear,
    field::PRPTaxCode,
    field::PRPWeek1,
    field::PRPMinNormHours,
};

// The tests on a row that a Null fails instead of ending the fold.
bool isClosed(Recordset& row) {
    return !row.IsNull(field::PRPPeriodUpdated) && row.GetBoolean(field::PRPPeriodUpdated);
}
bool isCalculated(Recordset& row) {
    return !row.IsNull(field::PRPCalculationUsed) && row.GetInt32(field::PRPCalculationUsed) != 0;
}
bool isReported(Recordset& row) {
    constexpr double reported = 3.0;
    return !row.IsNull(field::PRPStatus) && row.GetDouble(field::PRPStatus) >= reported;
}

// A monthly row holds minus its tax month.
std::int16_t taxMonthOf(std::int16_t period) {
    return narrowToInt16(std::abs(std::int32_t{period}));
}

bool isLongerThanMonth(std::int16_t period) {
    return period == 13 || period == 26 || period == 52;
}

// The frequency of a reported payment.
// Shape: a PR_Pay_Freq value; 3 and 5 stand for themselves here.
std::int16_t reportedFrequency(std::int16_t period) {
    if (period < 0) return PFREQ_Monthly;
    return period == 4 ? std::int16_t{PFREQ_4Weekly} : period;
}

// The number of a reported payment's period: the tax month of monthly and longer periods, else the
// tax week.
std::int16_t reportedPeriodNumber(std::int16_t period, std::int16_t week) {
    if (isLongerThanMonth(period)) return roundToInt16(week / 52.0 * 12.0);
    return period < 0 ? taxMonthOf(period) : week;
}

}  // namespace

std::int16_t payFrequencyOf(std::int16_t period) {
    switch (period) {
        case 5:
            return -10;
        case 3:
            return -11;
        default:
            return PR_Convert_PayPeriod_to_PayFreq(period);
    }
}

FieldList cEmployment::paymentFields() noexcept {
    return payRowFields;
}

void cEmployment::AddPayment(Recordset& rsPay) {
    if (!isClosed(rsPay)) return;

    LastPayDate(rsPay.GetDate(field::PRPRTIPayDate));
    LastEPEDate(rsPay.GetDate(field::PRPEPEDate));
    const std::int16_t period = rsPay.GetInt16(field::PRPPaymentPeriod);
    LastPayFreq(payFrequencyOf(period));
    LExpPayDate(nExpPayDate_);
    nExpPayDate_ = rsPay.GetDate(field::PRPNExpPayDate);
    LastWeekNo(rsPay.GetInt16(field::PRPWeekNo));
    if (period < 0) LastMonthNo(taxMonthOf(period));
    if (Active()) nExpEPEDate_ = rsPay.GetDate(field::PRPNExpEPEDate);
    if (isCalculated(rsPay)) addCalculatedPayment(rsPay);
    LastUD_PRPID(rsPay.GetInt32(field::PRPID));
    if (!Casual() && isReported(rsPay)) keepReportedPayment(rsPay, period);
}

void cEmployment::addCalculatedPayment(Recordset& rsPay) {
    PaymentsExist(true);
    if (FirstPRPID() == 0) {
        FirstPRPID(rsPay.GetInt32(field::PRPID));
        firstEPEDate_ = LastEPEDate();
    }
    const std::string_view status = rsPay.GetText(field::PRPAEStatus);
    if (aeStatusCur_ != status) aeStatusCur_ = status;

    extendRun(StatutoryPay::Maternity, rsPay.GetDouble(field::PRPMaternityHighWeeks),
              rsPay.GetDouble(field::PRPMaternityLowWeeks));
    extendRun(StatutoryPay::Adoption, rsPay.GetDouble(field::PRPAdoptionHighWeeks),
              rsPay.GetDouble(field::PRPAdoptionLowWeeks));
    extendRun(StatutoryPay::Paternity, rsPay.GetDouble(field::PRPPaternityWeeks));
    extendRun(StatutoryPay::SharedParental, rsPay.GetDouble(field::PRPASPPDays));

    SLCurStatus(rsPay.GetInt16(field::PRPStudentLoan));
    if (SLCurStatus() != 0) SLLastKnownPlan(SLCurStatus());
    pglCurStatus_ = rsPay.GetBoolean(field::PRPPostgradLoan);
    pglWasDeducted_ = pglWasDeducted_ || pglCurStatus_;
}

// A calculated row with nothing of that pay ends the run.
void cEmployment::extendRun(StatutoryPay pay, double first, double second) {
    StatutoryRun& run = statutoryRuns_[static_cast<std::size_t>(pay)];
    run.current = first != 0.0 || second != 0.0;
    run.length = run.current ? roundToInt32(run.length + first + second) : 0;
}

void cEmployment::keepReportedPayment(Recordset& rsPay, std::int16_t period) {
    ReportedPayment::Details details{
        rsPay.Value(field::PRPPYEmployCount),
        rsPay.Value(field::PRPWorksNo),
        rsPay.Value(field::PRPOfficialIDNo),
        rsPay.Value(field::PRPPartnerNAID),
        rsPay.Value(field::PRPASPPDays),
        rsPay.Value(field::PRPPayrollYear),
        rsPay.Value(field::PRPRTIPayDate),
        reportedFrequency(period),
        reportedPeriodNumber(period, LastWeekNo()),
        rsPay.Value(field::PRPTaxCode),
        rsPay.Value(field::PRPWeek1),
        rsPay.Value(field::PRPMinNormHours),
        rsPay.Value(field::PRPID),
    };
    if (!lastRTI_ || lastRTI_.use_count() > 1) lastRTI_ = std::make_shared<ReportedPayment>();
    lastRTI_->replace(std::move(details));
}

}  // namespace ledgerwick
