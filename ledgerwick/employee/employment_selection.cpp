// Which employment of an employee is the latest, the one before it, and the one in force.
#include "ledgerwick/employee/decimal_key.h"
#include "ledgerwick/employee/employee.h"
#include "ledgerwick/records/schema.h"

namespace ledgerwick {

std::shared_ptr<cEmployment> cEmployee::AddEmployment(Recordset& rsEmployment) {
    const DecimalKey key(rsEmployment.GetInt32(field::PRTID));
    auto employment = std::make_shared<cEmployment>();
    employments_.Add(employment, key);
    employment->CreateEmployment(rsEmployment);
    return employment;
}

void cEmployee::AddPayment(Recordset& rsPay) {
    const DecimalKey key(rsPay.GetInt32(field::PRTID));
    used(employments_.Item(std::string_view(key)), "cEmployee.AddPayment").AddPayment(rsPay);
}

bool cEmployee::ItemExists(const std::string& Index) {
    return employments_.Find(Index) != nullptr;
}

std::shared_ptr<cEmployment> cEmployee::GetEmploymentByIndex(const std::string& Index) {
    return ItemExists(Index) ? employments_.Item(Index) : nullptr;
}

std::shared_ptr<cEmployment> cEmployee::employmentOf(std::int32_t prtid) const noexcept {
    const auto* employment = employments_.Find(DecimalKey(prtid));
    return employment == nullptr ? nullptr : *employment;
}

std::shared_ptr<cEmployment> cEmployee::MostRecentEmployment(bool* bNotKnown) {
    if (mostRecentPRTID_ != 0) return employmentOf(mostRecentPRTID_);
    if (bNotKnown != nullptr) *bNotKnown = true;
    return nullptr;
}

std::shared_ptr<cEmployment> cEmployee::PreviousEmployment(bool* bNotKnown) {
    if (previousPRTID_ != 0) return employmentOf(previousPRTID_);
    if (bNotKnown != nullptr) *bNotKnown = true;
    return nullptr;
}

std::shared_ptr<cEmployment> cEmployee::CurEmployment() {
    if (!curEmployment_) curEmployment_ = std::make_shared<cEmployment>();
    return curEmployment_;
}

Date cEmployee::AEOptOutDate() {
    const auto latest = MostRecentEmployment();
    return used(latest, "cEmployee.AEOptOutDate").StartDate() <= aeOptOutDate_ ? aeOptOutDate_
                                                                               : Date();
}

// ---- flags --------------------------------------------------------------------------------------

void cEmployee::UpdateFlags() {
    std::int32_t lastYear = 0;
    std::int32_t lastCount = 0;
    std::int32_t previous = 0;
    std::int32_t latest = 0;
    for (const auto& held : employments_) {
        cEmployment& employment = used(held, "cEmployee.UpdateFlags");
        if (!employment.Casual() && (employment.Active() || employment.EndDate().isSet()))
            carryLastRTI(employment);
        if (employment.IsVoid()) continue;
        const std::int32_t year = employment.PayrollYear();
        const std::int32_t count = employment.EmployCount();
        if (year > lastYear || (year == lastYear && count > lastCount)) {
            previous = latest;
            latest = employment.PRTID();
        }
        lastYear = year;
        lastCount = count;
    }
    mostRecentPRTID_ = latest;
    previousPRTID_ = previous;
    if (latest == 0) return;

    const auto mostRecent = MostRecentEmployment();
    cEmployment& employment = used(mostRecent, "cEmployee.UpdateFlags");
    if (employment.Active()) {
        Active(true);
        curEmployment_ = mostRecent;
        Casual(employment.Casual());
    }
    employment.CalcExpPRP();
}

// Copies the last reported payment along the chain of continuations that ends in `employment`. A row
// of a new payroll year has no pay of its own at first, and shows the last payment of the row that
// it continues.
void cEmployee::carryLastRTI(cEmployment& employment) {
    const auto lacksPayment = [](const cEmployment& e) {
        return e.Continuation() && !e.LastRTISet();
    };
    const auto before = [this](const cEmployment& e) -> cEmployment& {
        return used(employmentOf(e.ContinuationOfPRTID()), "cEmployee.UpdateFlags");
    };

    if (!lacksPayment(employment)) return;
    cEmployment* source = &before(employment);
    while (lacksPayment(*source)) source = &before(*source);
    if (!source->LastRTISet()) return;

    for (cEmployment* e = &employment; e != source; e = &before(*e)) e->carryLastRTI(*source);
}

}  // namespace ledgerwick
