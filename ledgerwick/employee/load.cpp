// The load: two queries become a tree of employees and employments with their pay folded in.
#include <iterator>
#include <span>
#include <utility>
#include <vector>

#include "ledgerwick/employee/employee_list.h"
#include "ledgerwick/employee/load_queries.h"
#include "ledgerwick/employee/load_steps.h"
#include "ledgerwick/host/dll_global.h"
#include "ledgerwick/records/row_at_hand.h"
#include "ledgerwick/records/schema.h"
#include "ledgerwick/values/checked.h"

namespace ledgerwick {

namespace {

// ---- the fields of an employee ------------------------------------------------------------------

// A field of the current row, read as the type that its property takes.
struct FieldValue {
    Recordset& row;
    const FieldName& name;

    operator bool() const { return row.GetBoolean(name); }
    operator std::int16_t() const { return row.GetInt16(name); }
    operator std::int32_t() const { return row.GetInt32(name); }
    operator float() const { return row.GetSingle(name); }
    operator Currency() const { return row.GetCurrency(name); }
    operator Date() const { return row.GetDate(name); }
    operator std::string_view() const { return row.GetText(name); }
};

struct Binding {
    FieldName field;
    void (*fill)(cEmployee& emp, const FieldValue& value);
};

// Which field fills which property, in order.
constexpr Binding employeeBindings[] = {
    // clang-format off
    {field::NAID,                       [](auto& e, auto& v) { e.NAID(v); }},
    {field::NASeq,                      [](auto& e, auto& v) { e.Seq(v); }},
    {field::NABusName,                  [](auto& e, auto& v) { e.BusName(v); }},
    {field::NASeq,                      [](auto& e, auto& v) { e.SortSeq(v); }},
    {field::NAUserRef,                  [](auto& e, auto& v) { e.UserRef(v); }},
    {field::PRESex,                     [](auto& e, auto& v) { e.Sex(v); }},
    {field::PREDoB,                     [](auto& e, auto& v) { e.DOB(v); }},
    {field::NAAdd1,                     [](auto& e, auto& v) { e.Add1(v); }},
    {field::NAAdd2,                     [](auto& e, auto& v) { e.Add2(v); }},
    {field::NAVillage,                  [](auto& e, auto& v) { e.Village(v); }},
    {field::NATown,                     [](auto& e, auto& v) { e.Town(v); }},
    {field::NACounty,                   [](auto& e, auto& v) { e.County(v); }},
    {field::NAPostCode,                 [](auto& e, auto& v) { e.PostCode(v); }},
    {field::NACountry,                  [](auto& e, auto& v) { e.Country(v); }},
    {field::NAEMailADD,                 [](auto& e, auto& v) { e.Email(v); }},
    {field::PREPayFrequency,            [](auto& e, auto& v) { e.PayFrequency(v); }},
    {field::PRENINO,                    [](auto& e, auto& v) { e.NINO(v); }},
    {field::PRENITable,                 [](auto& e, auto& v) { e.NITable(v); }},
    {field::PRETaxCode,                 [](auto& e, auto& v) { e.TaxCode(v); }},
    {field::PREDirector,                [](auto& e, auto& v) { e.Director(v); }},
    {field::PREGroup,                   [](auto& e, auto& v) { e.Group(v); }},
    {field::PREHourlyPaid,              [](auto& e, auto& v) { e.HourlyPaid(v); }},
    {field::PREStdHourlyRate,           [](auto& e, auto& v) { e.HourlyRate(v); }},
    {field::PREStdPeriodRate,           [](auto& e, auto& v) { e.PeriodRate(v); }},
    {field::PREHDays,                   [](auto& e, auto& v) { e.HolidayAllowance(v); }},
    {field::PREPensionJoinedDate,       [](auto& e, auto& v) { e.AEJoinedDate(v); }},
    {field::PREPensionOptInDate,        [](auto& e, auto& v) { e.AEOptInDate(v); }},
    {field::PREPensionOptOutDate,       [](auto& e, auto& v) { e.AEOptOutDate(v); }},
    {field::PREPensionPostponementDate, [](auto& e, auto& v) { e.AEPostponementDate(v); }},
    // clang-format on
};

void append(std::vector<FieldName>& fields, FieldList more) {
    fields.insert(fields.end(), more.begin(), more.end());
}

// ---- how neighbouring employments hang together -------------------------------------------------

// A return within so many days is the same employment for auto-enrolment, and one within a year
// keeps the student loan.
constexpr std::int32_t aeReturnDays = 7;
constexpr std::int32_t studentLoanDays = 365;

void startFirstEmployment(cEmployment& first, Date minStart, Recordset& rs) {
    const bool startsWithTheRecords = first.PRTStartDate() == minStart;
    first.StartDate(startsWithTheRecords ? rs.GetDate(field::PREOriginallyJoined)
                                         : first.PRTStartDate());
    first.HMRCStartDate(first.StartDate());
}

void carryStudentLoan(const cEmployment& prev, cEmployment& next) {
    next.SLLastKnownPlan(prev.SLLastKnownPlan());
    next.SLCurStatus(prev.SLCurStatus());
}

void continueEmployment(const cEmployment& prev, cEmployment& next) {
    next.HMRCStartDate(prev.HMRCStartDate());
    next.Continuation(true);
    next.ContinuationOfPRTID(prev.PRTID());
    next.AEContinuation(true);
    carryStudentLoan(prev, next);
}

void returnAfterGap(const cEmployment& prev, cEmployment& next) {
    const std::int32_t gap =
        subtractInt32(next.PRTStartDate().roundedDayNumber(), prev.EndDate().roundedDayNumber());
    if (gap <= aeReturnDays) next.AEContinuation(true);
    if (gap <= studentLoanDays) carryStudentLoan(prev, next);
}

void followEmployment(const cEmployment& prev, cEmployment& next) {
    if (!prev.EndDate().isSet() && prev.Casual() == next.Casual()) {
        continueEmployment(prev, next);
    } else {
        next.HMRCStartDate(next.PRTStartDate());
        next.Continuation(false);
    }
    if (!next.AEContinuation() && prev.EndDate().isSet()) returnAfterGap(prev, next);
    next.StartDate(next.Continuation() || next.AEContinuation() ? prev.StartDate()
                                                                : next.PRTStartDate());
}

// ---- the rows of one employee -------------------------------------------------------------------

// The name for the caption. A missing one is an error later, where it is read into its property.
std::string nameIn(Recordset& rs) {
    return rs.IsNull(field::NABusName) ? std::string() : std::string(rs.GetText(field::NABusName));
}

bool isRowOf(std::int32_t naid, Recordset& rs) {
    return !rs.IsNull(field::NAID) && rs.GetInt32(field::NAID) == naid;
}

}  // namespace

// ---- the steps ----------------------------------------------------------------------------------

FieldList load::employeeFields() {
    static const std::vector<FieldName> fields = [] {
        std::vector<FieldName> all{field::PREOriginallyJoined, field::PRENAID};
        for (const Binding& binding : employeeBindings) all.push_back(binding.field);
        append(all, cEmployee::workplacePensionFields());
        append(all, cEmployment::employmentFields());
        return all;
    }();
    return fields;
}

void load::fillEmployee(cEmployee& employee, Recordset& rs) {
    for (const Binding& binding : employeeBindings)
        binding.fill(employee, FieldValue{rs, binding.field});
    employee.UpdateWorkplacePensionDetails(rs);
}

Date load::earliestStart() {
    const RecordsetRef rs = DLLGlobal::g().DBDll().OpenRecordset(
        "SELECT min(PRTStartDate) AS MinStart FROM PREmployments", RecordsetType::Snapshot);
    const Date earliest = rs->GetDate(field::MinStart);
    rs->Close();
    return earliest;
}

std::shared_ptr<cEmployment> load::addEmploymentRow(cEmployee& employee,
                                                    const std::shared_ptr<cEmployment>& prev,
                                                    Date minStart, Recordset& rs) {
    auto employment = employee.AddEmployment(rs);
    if (prev) {
        followEmployment(*prev, *employment);
    } else {
        startFirstEmployment(*employment, minStart, rs);
    }
    return employment;
}

// ---- the two loads ------------------------------------------------------------------------------

bool CEmployeeList::LoadEmployees(const ObjectRef& lblProgress) {
    if (lblProgress && lblProgress->TypeName() == "Label") {
        auto label = std::dynamic_pointer_cast<Label>(lblProgress);
        if (!label) raise(error_number::noSuchMember, "CEmployeeList.LoadEmployees", "Caption");
        label_ = std::move(label);
    }
    showProgress("Loading Employees......");
    const std::int64_t version = DLLGlobal::g().DBDll().DataVersion();
    LoadFromRecordset(0, OpenEmployeesRS(0, load::employeeFields()));
    version_ = version;
    laterVersions_.clear();
    return false;
}

bool CEmployeeList::ReLoadEmployee(std::int32_t lNAID) {
    const std::int64_t version = DLLGlobal::g().DBDll().DataVersion();
    RemoveEmployee(lNAID);
    LoadFromRecordset(lNAID, OpenEmployeesRS(lNAID, load::employeeFields()));
    if (version != version_) laterVersions_[lNAID] = version;
    return false;
}

void CEmployeeList::LoadFromRecordset(std::int32_t lNAID, RecordsetRef rs) {
    if (rs->RecordCount() != 0) {
        for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
            if (label_) showProgress("Loading " + nameIn(*rs) + "......");
            onRow(*rs, "PREmployeeDetails", [&] { LoadEmployeeRows(*rs); });
        }
    }
    rs.reset();

    LoadPayments(lNAID, -1);
    showProgress("Checking Figures......");
    UpdateEmployeeFlags(lNAID);
    showProgress("Figures Checked......");
}

// Leaves `rs` on the last row of the employee.
void CEmployeeList::LoadEmployeeRows(Recordset& rs) {
    if (rs.AbsolutePosition() == 0) minStart_ = load::earliestStart();

    const std::int32_t naid = rs.GetInt32(field::NAID);
    unfilled_.push_back(naid);
    const auto employee = ExistsByNAID(naid) ? GetEmployeeByNAID(naid) : CreateEmployee(rs);
    std::shared_ptr<cEmployment> prev;
    for (; !rs.Eof() && isRowOf(naid, rs); rs.MoveNext()) {
        prev = load::addEmploymentRow(*employee, prev, minStart_, rs);
    }
    rs.MovePrevious();
    load::fillEmployee(*employee, rs);
    unfilled_.pop_back();
}

void CEmployeeList::LoadPayments(std::int32_t lNAID, std::int32_t lPayrollYear) {
    const RecordsetRef rs = OpenPaymentsRS(lNAID, 0, lPayrollYear, cEmployment::paymentFields());
    if (rs->RecordCount() == 0) return;

    std::shared_ptr<cEmployee> employee;
    std::int32_t lastNAID = 0;
    const auto addPayment = [&] {
        const std::int32_t naid = rs->GetInt32(field::PRPNAID);
        if (naid != lastNAID) {
            employee = GetEmployeeByNAID(naid);
            lastNAID = naid;
            cEmployee& next = used(employee, "CEmployeeList.LoadPayments");
            if (label_) showProgress("Loading Payments for " + next.BusName());
        }
        used(employee, "CEmployeeList.LoadPayments").AddPayment(*rs);
    };
    for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) onRow(*rs, "PRPay", addPayment);
}

void CEmployeeList::UpdateEmployeeFlags(std::int32_t lNAID) {
    // Found by its key, unless a host has changed the list.
    const auto own = GetEmployeeByNAID(lNAID);
    if (own && holdsOwnEmployeesOnly() && own->NAID() == lNAID) {
        return forEmployee(lNAID, [&] { own->UpdateFlags(); });
    }
    for (const auto& held : employees_) {
        cEmployee& employee = used(held, "CEmployeeList.UpdateEmployeeFlags");
        if (lNAID != 0 && employee.NAID() != lNAID) continue;
        forEmployee(employee.NAID(), [&] { employee.UpdateFlags(); });
    }
}

void CEmployeeList::showProgress(std::string_view caption) {
    if (!label_) return;
    label_->Caption(caption);
    label_->DoEvents();
}

}  // namespace ledgerwick
