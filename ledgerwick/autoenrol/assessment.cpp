#include <array>
#include <map>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "ledgerwick/autoenrol/auto_enrol_status.h"
#include "ledgerwick/employee/employee.h"
#include "ledgerwick/employee/load_queries.h"
#include "ledgerwick/host/dll_global.h"
#include "ledgerwick/records/row_at_hand.h"
#include "ledgerwick/records/schema.h"
#include "ledgerwick/values/checked.h"

namespace ledgerwick {
namespace {

using Employments = Collection<std::shared_ptr<cEmployment>>;

// ---- pay rows as payments -----------------------------------------------------------------------

// What a status reads of a pay row, the keys of the row and of its employment first.
constexpr std::array statusFields{
    field::PRPID,
    field::PRTID,
    field::PRPPeriodUpdated,
    field::PRPRTIPayDate,
    field::PRPPayDate,
    field::PRPPeriodPay,
    field::PRPWorksNo,
    field::PRPStdHourlyRate,
    field::PRPPaymentPeriod,
    field::PRPPenWorkplaceSchemeID,
};

// A row whose mark is Null counts as open, as it does in the fold.
bool isClosed(Recordset& row) {
    return !row.IsNull(field::PRPPeriodUpdated) && row.GetBoolean(field::PRPPeriodUpdated);
}

std::shared_ptr<CPayment> readPayment(Recordset& row, bool closed) {
    auto payment = std::make_shared<CPayment>();
    payment->PeriodUpdated(closed);
    payment->RTIPayDate(row.GetDate(field::PRPRTIPayDate));
    if (payment->RTIPayDate() == noDate1961) payment->PayDate(row.GetDate(field::PRPPayDate));
    payment->PeriodPay(row.GetCurrency(field::PRPPeriodPay));
    payment->StaffNo(std::string(row.GetText(field::PRPWorksNo)));
    payment->StdHourlyRate(row.GetCurrency(field::PRPStdHourlyRate));
    payment->PayFrequency(payFrequencyOf(row.GetInt16(field::PRPPaymentPeriod)));
    payment->PenWorkplaceSchemeID(row.GetInt32(field::PRPPenWorkplaceSchemeID));
    return payment;
}

// ---- the year store -----------------------------------------------------------------------------

// Whether the year has an employment, and all of them hold the year's payments.
bool yearIsInMemory(const Employments& employments, std::int32_t payrollYear, bool closed) {
    bool found = false;
    for (const auto& held : employments) {
        const cEmployment& employment = used(held, "GetAutoEnrolStatus");
        if (employment.holdsPayments(payrollYear, closed)) {
            found = true;
        } else if (employment.PayrollYear() == payrollYear) {
            return false;
        }
    }
    return found;
}

// Adds an employment that was stored since the load, with its pay of the year.
void bringIn(cEmployee& employee, std::int32_t naid, std::int32_t prtid, std::int32_t payrollYear) {
    const RecordsetRef rows = OpenEmployeesRS(naid, cEmployment::employmentFields());
    while (!rows->Eof() && rows->GetInt32(field::PRTID) != prtid) rows->MoveNext();
    if (rows->Eof()) return;
    employee.AddEmployment(*rows);
    rows->Close();

    const RecordsetRef pay = OpenPaymentsRS(naid, 0, payrollYear, cEmployment::paymentFields());
    for (; !pay->Eof(); pay->MoveNext()) {
        if (pay->GetInt32(field::PRTID) == prtid) employee.AddPayment(*pay);
    }
    pay->Close();
}

// The payments of one employment, and whether it needs them.
struct Intake {
    std::shared_ptr<cEmployment> employment;
    bool wanted;
    std::vector<std::pair<std::int32_t, std::shared_ptr<CPayment>>> payments;
};

// ---- the walk -----------------------------------------------------------------------------------

Date effectivePayDate(const CPayment& payment) {
    const Date reported = payment.RTIPayDate();
    return reported == noDate1961 ? payment.PayDate() : reported;
}

void countPayment(CAutoEnrolStatus& status, const CPayment& payment, Date payDate) {
    if (!status.FirstAssessDate().isSet()) {
        status.FirstAssessDate(payDate);
        status.FirstAssessCategory("First Cat");
    }
    status.PrevAssessDate(status.CurrentAssessDate());
    status.PrevAssessCategory(status.CurrentAssessCategory() + "*");
    status.CurrentAssessDate(payDate);
    status.CurrentAssessCategory("Cur Category");
    status.CurrentAssessChange("Cur Change");
    status.StaffNo(payment.StaffNo());
    status.StdHourlyRate(payment.StdHourlyRate());
    status.PeriodPay(payment.PeriodPay());
    status.PayFrequency(payment.PayFrequency());
    status.PenWorkplaceSchemeID(payment.PenWorkplaceSchemeID());
}

// Counts the payments of one employment in the order of their keys. It visits all of them,
// even after one that is dated too late.
// Returns whether one was dated too late, which ends the walk over the employments.
bool countPayments(CAutoEnrolStatus& status, const PaymentsOfYear& payments, Date upTo,
                   bool periodUpdated) {
    std::vector<std::int32_t> keys = payments.Keys();
    DLLGlobal::pf().BubbleSortLongArray(keys);
    bool finished = false;
    for (const std::int32_t key : keys) {
        const CPayment& payment = *payments.Item(key);
        if (payment.PeriodUpdated() != periodUpdated) continue;
        const Date payDate = effectivePayDate(payment);
        if (payDate > upTo) {
            finished = true;
        } else {
            countPayment(status, payment, payDate);
        }
    }
    return finished;
}

}  // namespace

std::shared_ptr<CAutoEnrolStatus> cEmployee::GetAutoEnrolStatus(Date dtmPayDateUpTo,
                                                                std::int32_t lPayrollYear,
                                                                bool bPeriodUpdated) {
    LoadPayrollYearIfMissing(NAID(), lPayrollYear, bPeriodUpdated);
    LoadPayrollYearIfMissing(NAID(), subtractInt32(lPayrollYear, 1), bPeriodUpdated);

    auto status = std::make_shared<CAutoEnrolStatus>();
    for (const auto& held : employments_) {
        cEmployment& employment = used(held, "GetAutoEnrolStatus");
        if (employment.PRTStartDate() > dtmPayDateUpTo) break;
        std::shared_ptr<PaymentsOfYear> payments;
        if (!employment.GetPayrollYearPayments(lPayrollYear, payments)) continue;
        if (countPayments(*status, *payments, dtmPayDateUpTo, bPeriodUpdated)) break;
    }
    return status;
}

// Reads the year's pay rows with that closing mark into the year stores of those employments that
// do not hold them yet. No row is folded a second time into an employment that a load has filled: a
// report must not move payroll state. One that the load has not seen gets its pay and its flags
// here. A failure while reading leaves every store as it was.
void cEmployee::LoadPayrollYearIfMissing(std::int32_t lNAID, std::int32_t lPayrollYear,
                                         bool bPeriodUpdated) {
    // The query would take these for all employees and for all years.
    if (lNAID < 1 || lPayrollYear < 0) return;
    if (yearIsInMemory(employments_, lPayrollYear, bPeriodUpdated)) return;

    std::map<std::int32_t, Intake> intakes;  // by PRTID
    bool hasNew = false;
    const RecordsetRef rows = OpenPaymentsRS(lNAID, 0, lPayrollYear, statusFields);
    const auto take = [&] {
        const std::int32_t prtid = rows->GetInt32(field::PRTID);
        auto found = intakes.find(prtid);
        if (found == intakes.end()) {
            const std::string key = std::to_string(prtid);
            if (!ItemExists(key)) {
                hasNew = true;
                try {
                    bringIn(*this, lNAID, prtid, lPayrollYear);
                } catch (...) {  // a half-filled employment must not stay
                    if (ItemExists(key)) employments_.Remove(key);
                    throw;
                }
            }
            const auto employment = employments_.Item(key);
            const bool wanted =
                !used(employment, "GetAutoEnrolStatus").holdsPayments(lPayrollYear, bPeriodUpdated);
            found = intakes.emplace(prtid, Intake{employment, wanted, {}}).first;
        }
        if (!found->second.wanted || isClosed(*rows) != bPeriodUpdated) return;
        found->second.payments.emplace_back(rows->GetInt32(field::PRPID),
                                            readPayment(*rows, bPeriodUpdated));
    };
    for (; !rows->Eof(); rows->MoveNext()) onRow(*rows, "PRPay", take);
    rows->Close();

    for (const auto& [prtid, intake] : intakes) {
        if (!intake.wanted) continue;
        const auto store = intake.employment->payrollYearStore(lPayrollYear, bPeriodUpdated);
        for (const auto& [id, payment] : intake.payments) store->Item(id, payment);
    }
    if (hasNew) UpdateFlags();
}

}  // namespace ledgerwick
