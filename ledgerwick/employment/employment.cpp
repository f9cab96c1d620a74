#include "ledgerwick/employment/employment.h"

#include "ledgerwick/employment/stored_expected_dates.h"
#include "ledgerwick/host/dll_global.h"
#include "ledgerwick/records/schema.h"

namespace ledgerwick {
namespace {

constexpr std::array employmentRowFields{
    field::PRTNAID,          field::PRTID,           field::PRTPayrollYear,
    field::PRTPYEmployCount, field::PRTStartDate,    field::PRTEndDateLong,
    field::PRTAEStatus,      field::PRTContinuation, field::PRTType,
};

// A control record without a current year is in no payroll year.
bool isCurrentPayrollYear(std::int32_t payrollYear) {
    Recordset& control = DLLGlobal::g().g_rsPRControl();
    return !control.IsNull(field::PRCFCurrentYear) &&
           control.GetDouble(field::PRCFCurrentYear) == payrollYear;
}

// A whole number of days as a date.
Date wholeDate(Recordset& row, const FieldName& name) {
    const auto days = static_cast<double>(row.GetInt32(name));
    if (!Date::inRange(days)) raise(error_number::overflow, name.text());
    return Date(days);
}

}  // namespace

FieldList cEmployment::employmentFields() noexcept {
    return employmentRowFields;
}

void cEmployment::CreateEmployment(Recordset& rsEmployment) {
    prtNAID_ = rsEmployment.GetInt32(field::PRTNAID);
    PRTID(rsEmployment.GetInt32(field::PRTID));
    PayrollYear(rsEmployment.GetInt32(field::PRTPayrollYear));
    EmployCount(rsEmployment.GetInt32(field::PRTPYEmployCount));
    prtStartDate_ = rsEmployment.GetDate(field::PRTStartDate);
    EndDate(wholeDate(rsEmployment, field::PRTEndDateLong));
    AEStatusStart(std::string(rsEmployment.GetText(field::PRTAEStatus)));
    aeStatusCur_ = AEStatusStart();
    AEContinuation(rsEmployment.GetBoolean(field::PRTContinuation));
    EmpType(static_cast<PR_EmpType>(rsEmployment.GetInt16(field::PRTType)));
    if (!EndDate().isSet() && isCurrentPayrollYear(PayrollYear())) Active(true);
}

void cEmployment::NExpPayDate(Date dtNExpPayDate) {
    if (dtNExpPayDate == nExpPayDate_) return;
    if (!PR_SetNExpPayDate(LastUD_PRPID(), dtNExpPayDate)) return;
    nExpPayDate_ = dtNExpPayDate;
    CalcExpPRP();
}

void cEmployment::NExpEPEDate(Date dtNExpEPEDate) {
    if (dtNExpEPEDate == nExpEPEDate_) return;
    if (!PR_SetNExpEPEDate(LastUD_PRPID(), dtNExpEPEDate)) return;
    nExpEPEDate_ = dtNExpEPEDate;
}

Variant cEmployment::LastRTI() const {
    return lastRTI_ ? lastRTI_->value() : Variant();
}

void cEmployment::LastRTI(const Variant& value) {
    auto details = std::make_shared<ReportedPayment>();
    details->value(value);
    lastRTI_ = std::move(details);
}

void cEmployment::carryLastRTI(const cEmployment& from) noexcept {
    if (from.lastRTI_) lastRTI_ = from.lastRTI_;
}

}  // namespace ledgerwick
