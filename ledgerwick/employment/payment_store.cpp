// The payments that callers have stored with an employment, and the three ways to find one.
#include "ledgerwick/employment/employment.h"
#include "ledgerwick/values/format.h"

namespace ledgerwick {
namespace {

// "17|04|42489": payroll year, tax week, day number. Two payments of one employment in the same
// week and on the same day share a key.
std::string paymentKey(std::int32_t payrollYear, std::int32_t weekNo, Date payDate) {
    std::string key = formatNumber(static_cast<double>(payrollYear), "00");
    key += '|';
    key += formatNumber(static_cast<double>(weekNo), "00");
    key += '|';
    key += std::to_string(payDate.roundedDayNumber());
    return key;
}

}  // namespace

cEmployment::PaymentStore& cEmployment::paymentStore() {
    if (!payments_) payments_ = std::make_unique<PaymentStore>();
    return *payments_;
}

std::shared_ptr<PaymentsByKey> cEmployment::GetPayments() {
    auto& byKey = paymentStore().byKey;
    if (!byKey) byKey = std::make_shared<PaymentsByKey>();
    return byKey;
}

std::shared_ptr<CPayment> cEmployment::storedPayment(const std::string& key) {
    const auto payments = GetPayments();
    return payments->Exists(key) ? payments->Item(key) : std::make_shared<CPayment>();
}

std::shared_ptr<CPayment> cEmployment::GetPayment(std::int32_t lPayrollYear, std::int32_t lWeekNo,
                                                  Date dtPayDate) {
    return storedPayment(paymentKey(lPayrollYear, lWeekNo, dtPayDate));
}

// Nothing marks a payment as the last one, so its key is empty.
std::shared_ptr<CPayment> cEmployment::GetLastPayment() {
    return storedPayment({});
}

bool cEmployment::GetPayrollYearPayments(std::int32_t lPayrollYear,
                                         std::shared_ptr<PaymentsOfYear>& dicPayments) {
    dicPayments = std::make_shared<PaymentsOfYear>();
    if (!payments_ || !payments_->byYear.Exists(lPayrollYear)) return false;
    dicPayments = payments_->byYear.Item(lPayrollYear);
    return true;
}

bool cEmployment::holdsPayments(std::int32_t lPayrollYear, bool closed) const {
    if (!payments_ || !payments_->byYear.Exists(lPayrollYear)) return false;
    const auto& oneKind = payments_->oneKindOnly;
    return !oneKind.Exists(lPayrollYear) || oneKind.Item(lPayrollYear) == closed;
}

std::shared_ptr<PaymentsOfYear> cEmployment::payrollYearStore(std::int32_t lPayrollYear,
                                                              bool closed) {
    auto& store = paymentStore();
    if (!store.byYear.Exists(lPayrollYear)) {
        store.oneKindOnly.Add(lPayrollYear, closed);
    } else if (!holdsPayments(lPayrollYear, closed)) {
        store.oneKindOnly.Remove(lPayrollYear);
    }
    return payrollYearStore(lPayrollYear);
}

std::shared_ptr<PaymentsOfYear> cEmployment::payrollYearStore(std::int32_t lPayrollYear) {
    auto& byYear = paymentStore().byYear;
    if (!byYear.Exists(lPayrollYear)) byYear.Add(lPayrollYear, std::make_shared<PaymentsOfYear>());
    return byYear.Item(lPayrollYear);
}

}  // namespace ledgerwick
