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
#include "ledgerwick/records/schema.h"
#include "ledgerwick/values/checked.h"

namespace ledgerwick {
namespace {

using Employments = Collection<std::shared_ptr<cEmployment>>;

// ---- pay rows as payments -----------------------------------------------------------------------

struct PaymentField {
    FieldName name;
    void (*read)(CPayment&, Recordset&, const FieldName&);
};

template <auto property, auto get>
void copy(CPayment& payment, Recordset& row, const FieldName& name) {
    using Value = std::decay_t<decltype((payment.*property)())>;
    (payment.*property)(Value((row.*get)(name)));
}

// A row whose mark is Null is open, as for the running state of an employment.
void readPeriodUpdated(CPayment& payment, Recordset& row, const FieldName& name) {
    payment.PeriodUpdated(!row.IsNull(name) && row.GetBoolean(name));
}

void readPayFrequency(CPayment& payment, Recordset& row, const FieldName& name) {
    payment.PayFrequency(payFrequencyOf(row.GetInt16(name)));
}

// clang-format off
constexpr std::array paymentFields{
    PaymentField{field::PRPDirector,             copy<&CPayment::Director, &Recordset::GetBoolean>},
    PaymentField{field::PRPWeek1,                copy<&CPayment::WeekOne, &Recordset::GetBoolean>},
    PaymentField{field::PRPPeriodUpdated,        readPeriodUpdated},
    PaymentField{field::PRPPeriodPay,            copy<&CPayment::PeriodPay, &Recordset::GetCurrency>},
    PaymentField{field::PRPStdHourlyRate,        copy<&CPayment::StdHourlyRate, &Recordset::GetCurrency>},
    PaymentField{field::PRPPayDate,              copy<&CPayment::PayDate, &Recordset::GetDate>},
    PaymentField{field::PRPEPEDate,              copy<&CPayment::EPEDate, &Recordset::GetDate>},
    PaymentField{field::PRPNExpEPEDate,          copy<&CPayment::NExpEPEDate, &Recordset::GetDate>},
    PaymentField{field::PRPNExpPayDate,          copy<&CPayment::NExpPayDate, &Recordset::GetDate>},
    PaymentField{field::PRPRTIPayDate,           copy<&CPayment::RTIPayDate, &Recordset::GetDate>},
    PaymentField{field::PRPWeekNo,               copy<&CPayment::WeekNo, &Recordset::GetInt32>},
    PaymentField{field::PRPPayrollYear,          copy<&CPayment::Year, &Recordset::GetInt32>},
    PaymentField{field::PRPNITable,              copy<&CPayment::NITable, &Recordset::GetText>},
    PaymentField{field::PRPTaxCode,              copy<&CPayment::TaxCode, &Recordset::GetText>},
    PaymentField{field::PRPWorksNo,              copy<&CPayment::StaffNo, &Recordset::GetText>},
    PaymentField{field::PRPPaymentPeriod,        readPayFrequency},
    PaymentField{field::PRPPenWorkplaceSchemeID, copy<&CPayment::PenWorkplaceSchemeID, &Recordset::GetInt32>},
};
// clang-format on

// Those, and the keys of the row and of its employment.
constexpr auto rowFields = []<std::size_t... i>(std::index_sequence<i...>) {
    return std::array{field::PRPID, field::PRTID, paymentFields[i].name...};
}
(std::make_index_sequence<paymentFields.size()>());

std::shared_ptr<CPayment> readPayment(Recordset& row) {
    auto payment = std::make_shared<CPayment>();
    for (const PaymentField& field : paymentFields) field.read(*payment, row, field.name);
    return payment;
}

// ---- the year store -----------------------------------------------------------------------------

bool holdsYear(cEmployment& employment, std::int32_t payrollYear) {
    std::shared_ptr<PaymentsOfYear> payments;
    return employment.GetPayrollYearPayments(payrollYear, payments);
}

// Whether every employment of the year, and at least one employment, holds the year's payments.
bool yearIsInMemory(const Employments& employments, std::int32_t payrollYear) {
    bool found = false;
    for (const auto& employment : employments) {
        if (holdsYear(*employment, payrollYear)) {
            found = true;
        } else if (employment->PayrollYear() == payrollYear) {
            return false;
        }
    }
    return found;
}

// Takes in an employment that the store has got since the load. The flags are left as they are, so
// that the most recent and the current employment stay what they were.
void addEmployment(cEmployee& employee, std::int32_t naid, std::int32_t prtid) {
    const RecordsetRef rows = OpenEmployeesRS(naid, cEmployment::employmentFields());
    for (; !rows->Eof(); rows->MoveNext()) {
        if (rows->GetInt32(field::PRTID) == prtid) {
            employee.AddEmployment(*rows);
            break;
        }
    }
    rows->Close();
}

std::shared_ptr<cEmployment> loadedEmployment(cEmployee& employee, std::int32_t naid,
                                              std::int32_t prtid) {
    const std::string key = std::to_string(prtid);
    if (auto employment = employee.GetEmploymentByIndex(key)) return employment;
    addEmployment(employee, naid, prtid);
    return employee.Employments().Item(key);
}

// The payments of one employment, and whether it is to get them.
struct Intake {
    std::shared_ptr<cEmployment> employment;
    bool wanted;
    std::vector<std::pair<std::int32_t, std::shared_ptr<CPayment>>> payments;
};

Intake openIntake(std::shared_ptr<cEmployment> employment, std::int32_t payrollYear) {
    const bool wanted = !holdsYear(*employment, payrollYear);
    return {std::move(employment), wanted, {}};
}

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

// Counts the payments of one employment in the order of their keys. All are visited, also behind
// one that is dated too late.
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
    LoadPayrollYearIfMissing(NAID(), lPayrollYear);
    LoadPayrollYearIfMissing(NAID(), subtractInt32(lPayrollYear, 1));

    auto status = std::make_shared<CAutoEnrolStatus>();
    for (const auto& employment : employments_) {
        if (employment->PRTStartDate() > dtmPayDateUpTo) break;
        std::shared_ptr<PaymentsOfYear> payments;
        if (!employment->GetPayrollYearPayments(lPayrollYear, payments)) continue;
        if (countPayments(*status, *payments, dtmPayDateUpTo, bPeriodUpdated)) break;
    }
    return status;
}

// Reads the year's pay rows into the year stores of those employments that do not hold the year
// yet. No row is folded into an employment: that happened at the load, and a report must not move
// payroll state. A failure while reading leaves every store as it was.
void cEmployee::LoadPayrollYearIfMissing(std::int32_t lNAID, std::int32_t lPayrollYear) {
    // The query would take these for all employees and for all years.
    if (lNAID < 1 || lPayrollYear < 0) return;
    if (yearIsInMemory(employments_, lPayrollYear)) return;

    std::map<std::int32_t, Intake> intakes;  // by PRTID
    const RecordsetRef rows = OpenPaymentsRS(lNAID, 0, lPayrollYear, rowFields);
    for (; !rows->Eof(); rows->MoveNext()) {
        const std::int32_t prtid = rows->GetInt32(field::PRTID);
        auto found = intakes.find(prtid);
        if (found == intakes.end()) {
            const auto employment = loadedEmployment(*this, lNAID, prtid);
            found = intakes.emplace(prtid, openIntake(employment, lPayrollYear)).first;
        }
        if (!found->second.wanted) continue;
        found->second.payments.emplace_back(rows->GetInt32(field::PRPID), readPayment(*rows));
    }
    rows->Close();

    for (const auto& [prtid, intake] : intakes) {
        if (!intake.wanted) continue;
        const auto store = intake.employment->payrollYearStore(lPayrollYear);
        for (const auto& [id, payment] : intake.payments) store->Item(id, payment);
    }
}

}  // namespace ledgerwick
