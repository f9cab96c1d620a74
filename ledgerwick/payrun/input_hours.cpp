// The opening of a pay run: one open pay row for each period that falls due.
#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "ledgerwick/calendar/frequency.h"
#include "ledgerwick/host/dll_global.h"
#include "ledgerwick/host/payroll_functions.h"
#include "ledgerwick/payrun/due_employees.h"
#include "ledgerwick/payrun/pay_record.h"
#include "ledgerwick/payrun/run_array.h"
#include "ledgerwick/records/pay_row_order.h"
#include "ledgerwick/records/row_at_hand.h"
#include "ledgerwick/records/schema.h"
#include "ledgerwick/records/statement.h"
#include "ledgerwick/values/checked.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick {

namespace {

using payrun::frequencyOf;

// ---- which employees, and in which order

constexpr std::size_t sortSeqWidth = 100;

struct Selected {
    std::string sortSeq;
    std::int32_t naid;
};

// What the host chose. 0 selects everything, and so does any negative frequency.
struct Choice {
    std::int32_t frequency;
    std::int32_t group;
    std::int32_t naid;

    bool holds(const cEmployee& employee) const {
        return isRegularActive(employee) && (naid == 0 || employee.NAID() == naid) &&
               (frequency < 0 || employee.PayFrequency() == frequency) &&
               (group == 0 || employee.Group() == group);
    }
};

std::string sortSeqOf(const cEmployee& employee) {
    const std::string whole =
        DLLGlobal::pf().padstring(employee.Seq(), 3, ' ') + employee.BusName();
    return std::string(firstCharacters(whole, sortSeqWidth));
}

bool comesBefore(const Selected& a, const Selected& b) {
    const int order = compareIgnoringCase(a.sortSeq, b.sortSeq);
    return order != 0 ? order < 0 : a.naid < b.naid;
}

std::vector<Selected> selectedInOrder(CEmployeeList& list, const Choice& choice) {
    std::vector<Selected> selection;
    for (const auto& held : list.Employees()) {
        const cEmployee& employee = used(held, "C_InputHoursInit");
        if (choice.holds(employee)) selection.push_back({sortSeqOf(employee), employee.NAID()});
    }
    std::stable_sort(selection.begin(), selection.end(), comesBefore);
    return selection;
}

std::vector<std::int32_t> naidsOf(const std::vector<Selected>& selection) {
    std::vector<std::int32_t> naids;
    naids.reserve(selection.size());
    for (const Selected& selected : selection) naids.push_back(selected.naid);
    return naids;
}

}  // namespace

// One opening of a run, employee by employee. Each period adds a column.
class CPayrollFunctions::InputHours {
  public:
    InputHours(CPayrollFunctions& payroll, Date payDate, bool& hasUnchecked)
        : payroll_(payroll), payDate_(payDate), hasUnchecked_(hasUnchecked) {}

    void prepare(std::int32_t naid);
    VariantArray takeColumns() { return std::move(columns_); }

  private:
    void collectPeriodsDue();
    RecordsetRef openRows() const;
    void useOpenRows();
    void addRows();

    void startFirstPeriod();
    void stepPeriod();
    void openColumn();
    void takeImportedPay();
    void updateRow();
    void closeColumn();

    Date nextDate(Date from, PR_NExpMode mode) const {
        return payroll_.C_Calc_Next_NExpDate(from, frequency_, mode);
    }
    bool periodsRemain() const { return item_ < weeks_.size(); }
    std::int32_t week() const { return weeks_[item_]; }
    Variant& cell(std::int32_t row) { return columns_.at(row, columns_.upperBound(2)); }

    CPayrollFunctions& payroll_;
    const Date payDate_;
    bool& hasUnchecked_;
    VariantArray columns_{1, run_array::rows, 1, 1};

    // The employee who is being prepared.
    std::shared_ptr<cEmployee> employee_;
    std::shared_ptr<cEmployment> employment_;
    PR_Pay_Freq frequency_ = PFREQ_Casual;
    std::int32_t payPeriod_ = 0;
    std::vector<std::int32_t> weeks_;  // one week number for each period due
    RecordsetRef rows_;
    bool importedDone_ = false;

    // The period that is being prepared.
    std::size_t item_ = 0;  // position in `weeks_`
    Date nextPay_;          // expected pay date of the period after it
    Date from_;
    Date epe_;
    std::optional<Currency> imported_;
};

void CPayrollFunctions::InputHours::prepare(std::int32_t naid) {
    employee_ = payrun::employeeOf(payroll_.employeeList(), naid, "C_InputHoursInit");
    employment_ = employee_->CurEmployment();
    frequency_ = frequencyOf(*employee_);
    payPeriod_ = payroll_.C_Convert_PayFreq_to_PayPeriod(frequency_);
    importedDone_ = false;
    collectPeriodsDue();
    if (weeks_.empty()) return;
    rows_ = openRows();
    startFirstPeriod();
    useOpenRows();
    addRows();
    rows_.reset();
}

// A weekly type takes the tax week in which its tax period ends, or the week counted on from the last
// week paid, whichever is later. A longer period takes the tax week of the last day of its tax
// period, at most 52.
void CPayrollFunctions::InputHours::collectPeriodsDue() {
    weeks_.clear();
    const calendar::Frequency& frequency = calendar::frequencyOf(frequency_);
    const bool isWeeklyType = frequency.isWeeklyType();
    std::int16_t counted = employment_->LastWeekNo();
    for (Date due = employment_->NExpPayDate(); due <= payDate_; due = nextDate(due, PR_NExp_Pay)) {
        if (isWeeklyType) counted = addInt16(counted, frequency.weeks);
        const std::int32_t taxWeek =
            payroll_.C_CalcTaxWeek(payroll_.C_CalcTaxPeriodEndDate(due, payPeriod_));
        weeks_.push_back(isWeeklyType ? std::max<std::int32_t>(counted, taxWeek)
                                      : std::min(taxWeek, 52));
    }
}

RecordsetRef CPayrollFunctions::InputHours::openRows() const {
    const std::string sql = statement(
        R"(SELECT *
           FROM PRPay
           WHERE (PRPNAID = @)
             AND (PRPPayrollYear = @)
             AND (PRPPeriodUpdated = false)
           ORDER BY @)",
        {std::to_string(employee_->NAID()), std::to_string(DLLGlobal::currentPayrollYear()),
         PaymentsOrderBy()});
    const auto query = DLLGlobal::g().DBDll().CreateQueryDef("", sql);
    return query->OpenRecordset(RecordsetType::Dynaset, payrun::openRowFields());
}

void CPayrollFunctions::InputHours::startFirstPeriod() {
    item_ = 0;
    nextPay_ = nextDate(employment_->NExpPayDate(), PR_NExp_Pay);
    from_ = employment_->LastEPEDate().addDays(1);
    epe_ = employment_->NExpEPEDate();
}

void CPayrollFunctions::InputHours::stepPeriod() {
    ++item_;
    nextPay_ = nextDate(nextPay_, PR_NExp_Pay);
    from_ = epe_.addDays(1);
    epe_ = nextDate(epe_, PR_NExp_EPE);
}

// Uses the rows of an earlier preparation in order. Rows beyond the periods due stay unchanged.
void CPayrollFunctions::InputHours::useOpenRows() {
    if (rows_->RecordCount() == 0) return;
    while (periodsRemain() && !rows_->Eof()) {
        openColumn();
        updateRow();
        closeColumn();
        rows_->MoveNext();
        stepPeriod();
    }
}

void CPayrollFunctions::InputHours::addRows() {
    for (; periodsRemain(); stepPeriod()) {
        openColumn();
        payroll_.CreatePayRecord(*rows_, week(), payDate_, employee_->NAID(), false, false, {}, {},
                                 {});
        updateRow();
        closeColumn();
    }
}

void CPayrollFunctions::InputHours::openColumn() {
    from_ = employment_->PRTStartDate() > from_ ? employment_->PRTStartDate() : from_;
    if (from_ > epe_) from_ = epe_;
    if (!cell(run_array::naid).isEmpty()) columns_.resizeLast(addInt32(columns_.upperBound(2), 1));
    cell(run_array::naid) = employee_->NAID();
    cell(run_array::firstDay) = from_;
    cell(run_array::lastDay) = epe_;
    takeImportedPay();
    cell(run_array::importedPay) = imported_ ? Variant(*imported_) : Variant("N");
}

// Imported pay goes into the employee's first period only. Earnings go into the period in which they
// were earned.
void CPayrollFunctions::InputHours::takeImportedPay() {
    imported_.reset();
    if (!importedDone_ && employment_->HasImportedPay()) {
        imported_ = employment_->ImportedPayValue();
    }
    Currency earnings;
    bool uncheckedHere = false;
    if (employment_->HasImportedEarnings(from_, epe_, earnings, &uncheckedHere)) {
        imported_ = imported_ ? *imported_ + earnings : earnings;
    }
    if (!hasUnchecked_) hasUnchecked_ = uncheckedHere;
    importedDone_ = true;
}

void CPayrollFunctions::InputHours::updateRow() {
    try {
        payroll_.UpdatePayRecord(*rows_, week(), payPeriod_, payDate_, epe_, nextPay_,
                                 imported_.has_value(), imported_.value_or(Currency()));
    } catch (Error& error) {
        // What the row does not read of itself comes from the employee.
        const FieldList own = payrun::openRowFields();
        const bool isOwn = std::any_of(own.begin(), own.end(), [&](const FieldName& name) {
            return name.text() == error.Source();
        });
        const std::int32_t naid = employee_->NAID();
        error.Row(isOwn ? rowAtHand(*rows_, error.Source(), "PRPay")
                        : ErrorRow{"PREmployeeDetails", naid, naid});
        throw;
    }
}

void CPayrollFunctions::InputHours::closeColumn() {
    cell(run_array::payRecord) = rows_->GetInt32(field::PRPID);
    cell(run_array::weekNo) = rows_->GetInt32(field::PRPWeekNo);
    cell(run_array::paymentPeriod) = rows_->GetInt32(field::PRPPaymentPeriod);
}

void payrun::openPeriods(CPayrollFunctions& payroll, std::int32_t naid, Date payDate) {
    bool hasUnchecked = false;
    CPayrollFunctions::InputHours run(payroll, payDate, hasUnchecked);
    run.prepare(naid);
}

Variant CPayrollFunctions::C_InputHoursInit(Date dPayDateIn, std::int32_t lngFrequencyIn,
                                            std::int32_t lngSLGNoIn, std::int32_t lngNAIDIn,
                                            Variant* vRet, bool* bUncheckedOut) {
    bool unheard = false;
    bool& hasUnchecked = bUncheckedOut ? *bUncheckedOut : unheard;
    hasUnchecked = false;
    requireInForce();
    InputHours run(*this, dPayDateIn, hasUnchecked);
    CEmployeeList& list = employeeList();
    Database& database = DLLGlobal::g().DBDll();
    inOneBatch(database, [&] {
        payrun::refuseChanged(
            lngNAIDIn == 0 ? list.ChangedSinceLoad() : list.ChangedSinceLoad({&lngNAIDIn, 1}),
            "C_InputHoursInit");
        list.LoadImportedPay();
        const auto selection = selectedInOrder(list, {lngFrequencyIn, lngSLGNoIn, lngNAIDIn});
        if (!selection.empty()) database.Announce(naidsOf(selection));
        for (const Selected& selected : selection) {
            forEmployee(selected.naid, [&] { run.prepare(selected.naid); });
        }
    });
    if (vRet) *vRet = run.takeColumns();
    return {};
}

}  // namespace ledgerwick
