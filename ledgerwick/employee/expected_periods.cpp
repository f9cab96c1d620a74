// The pay reference periods that hold the last and the next expected pay date.
#include <utility>

#include "ledgerwick/calendar/frequency.h"
#include "ledgerwick/employee/employee_list.h"
#include "ledgerwick/employment/employment.h"
#include "ledgerwick/host/dll_global.h"
#include "ledgerwick/values/error.h"

namespace ledgerwick {
namespace {

// The pay reference period that holds a date, by the employee's pay frequency.
calendar::DateRange periodHolding(Date date, const cEmployee& employee) {
    const auto frequency = static_cast<PR_Pay_Freq>(employee.PayFrequency());
    return calendar::payReferencePeriod(date, PR_Convert_PayFreq_to_PayPeriod(frequency),
                                        DLLGlobal::g().g_iAEPRPStartDay());
}

Variant arrayOf(const std::optional<calendar::DateRange>& period) {
    if (!period) return {};
    VariantArray days(1, 2);
    days.at(1) = period->first;
    days.at(2) = period->last;
    return Variant(std::move(days));
}

}  // namespace

void cEmployment::CalcExpPRP() {
    if (Casual()) return;

    const auto employee = DLLGlobal::EmployeeList().GetEmployeeByNAID(prtNAID_);
    if (!employee) raise(error_number::objectNotSet, "CalcExpPRP");
    const auto mostRecent = employee->MostRecentEmployment();
    if (!mostRecent) raise(error_number::objectNotSet, "CalcExpPRP");
    if (mostRecent->PRTID() != PRTID()) {
        throw Error(10770, "CalcExpPRP", "Cannot Calc for any employment other than most recent!");
    }

    if (!expectedPeriods_) expectedPeriods_ = std::make_unique<ExpectedPeriods>();
    expectedPeriods_->last = periodHolding(LExpPayDate(), *employee);
    expectedPeriods_->next = periodHolding(nExpPayDate_, *employee);
}

Variant cEmployment::NExpPRP() const {
    return expectedPeriods_ ? arrayOf(expectedPeriods_->next) : Variant();
}

Variant cEmployment::LExpPRP() const {
    return expectedPeriods_ ? arrayOf(expectedPeriods_->last) : Variant();
}

const calendar::DateRange& cEmployment::expectedPeriod(
    std::optional<calendar::DateRange> ExpectedPeriods::*which, std::string_view source) const {
    if (!expectedPeriods_ || !((*expectedPeriods_).*which)) {
        raise(error_number::typeMismatch, source);
    }
    return *((*expectedPeriods_).*which);
}

Variant cEmployment::NExpPRPStart() const {
    return expectedPeriod(&ExpectedPeriods::next, "NExpPRPStart").first;
}

Variant cEmployment::LExpPRPStart() const {
    return expectedPeriod(&ExpectedPeriods::last, "LExpPRPStart").first;
}

Variant cEmployment::LExpPRPEnd() const {
    return expectedPeriod(&ExpectedPeriods::last, "LExpPRPEnd").last;
}

}  // namespace ledgerwick
