// The employees as tables, and how an employment begins and ends.
#include "capi/columns.h"
#include "capi/session.h"
#include "capi/table.h"
#include "hostkit/office/employments.h"
#include "hostkit/office/up_to_date.h"

namespace {

using namespace ledgerwick;
using namespace ledgerwick::c;

constexpr std::string_view here = "ledgerwick_employees";

// The employee of a number, or with 0 all of them.
template <class Work>
void forEach(Session& session, std::int32_t naid, Work&& work) {
    if (naid != 0) return work(*session.employee(naid));
    for (const auto& employee : session.list().Employees()) work(*employee);
}

// An employee with one employment.
struct Of {
    cEmployee& employee;
    const cEmployment& employment;
};

constexpr ColumnOf<Of> employeeColumns[] = {
    {"naid", [](const Of& of) -> Variant { return of.employee.NAID(); }},
    {"reference", [](const Of& of) -> Variant { return of.employee.UserRef(); }},
    {"name", [](const Of& of) -> Variant { return of.employee.Name(); }},
    {"title", [](const Of& of) -> Variant { return of.employee.Title(); }},
    {"forename", [](const Of& of) -> Variant { return of.employee.Forename1(); }},
    {"surname", [](const Of& of) -> Variant { return of.employee.Surname(); }},
    {"nino", [](const Of& of) -> Variant { return of.employee.NINO(); }},
    {"date_of_birth", [](const Of& of) -> Variant { return of.employee.DOB(); }},
    {"frequency", [](const Of& of) -> Variant { return of.employee.PayFrequency(); }},
    {"group", [](const Of& of) -> Variant { return of.employee.Group(); }},
    {"active", [](const Of& of) -> Variant { return of.employee.Active(); }},
    {"casual", [](const Of& of) -> Variant { return of.employee.Casual(); }},
    {"director", [](const Of& of) -> Variant { return of.employee.Director(); }},
    {"hourly_paid", [](const Of& of) -> Variant { return of.employee.HourlyPaid(); }},
    {"tax_code", [](const Of& of) -> Variant { return of.employee.TaxCode(); }},
    {"ni_table", [](const Of& of) -> Variant { return of.employee.NITable(); }},
    {"period_rate", [](const Of& of) -> Variant { return of.employee.PeriodRate(); }},
    {"hourly_rate", [](const Of& of) -> Variant { return of.employee.HourlyRate(); }},
    {"scheme", [](const Of& of) -> Variant { return of.employee.PenWorkplaceSchemeID(); }},
    {"ae_joined", [](const Of& of) -> Variant { return of.employee.AEJoinedDate(); }},
    {"ae_opt_in", [](const Of& of) -> Variant { return of.employee.AEOptInDate(); }},
    {"ae_postponed_until",
     [](const Of& of) -> Variant { return of.employee.AEPostponementDate(); }},
    {"employments", [](const Of& of) -> Variant { return of.employee.Employments().Count(); }},
    {"prtid", [](const Of& of) -> Variant { return of.employment.PRTID(); }},
    {"payroll_year", [](const Of& of) -> Variant { return of.employment.PayrollYear(); }},
    {"employ_count", [](const Of& of) -> Variant { return of.employment.EmployCount(); }},
    {"start", [](const Of& of) -> Variant { return of.employment.PRTStartDate(); }},
    {"end", [](const Of& of) -> Variant { return of.employment.EndDate(); }},
    {"ae_status", [](const Of& of) -> Variant { return of.employment.AEStatusCur(); }},
    {"last_week", [](const Of& of) -> Variant { return of.employment.LastWeekNo(); }},
    {"last_pay", [](const Of& of) -> Variant { return of.employment.LastPayDate(); }},
    {"last_period_end", [](const Of& of) -> Variant { return of.employment.LastEPEDate(); }},
    {"next_pay", [](const Of& of) -> Variant { return of.employment.NExpPayDate(); }},
    {"next_period_end", [](const Of& of) -> Variant { return of.employment.NExpEPEDate(); }},
};

constexpr ColumnOf<Of> employmentColumns[] = {
    {"naid", [](const Of& of) -> Variant { return of.employee.NAID(); }},
    {"prtid", [](const Of& of) -> Variant { return of.employment.PRTID(); }},
    {"payroll_year", [](const Of& of) -> Variant { return of.employment.PayrollYear(); }},
    {"employ_count", [](const Of& of) -> Variant { return of.employment.EmployCount(); }},
    {"start", [](const Of& of) -> Variant { return of.employment.PRTStartDate(); }},
    {"end", [](const Of& of) -> Variant { return of.employment.EndDate(); }},
    {"tax_start", [](const Of& of) -> Variant { return of.employment.HMRCStartDate(); }},
    {"ae_start", [](const Of& of) -> Variant { return of.employment.StartDate(); }},
    {"active", [](const Of& of) -> Variant { return of.employment.Active(); }},
    {"casual", [](const Of& of) -> Variant { return of.employment.Casual(); }},
    {"void", [](const Of& of) -> Variant { return of.employment.IsVoid(); }},
    {"continuation", [](const Of& of) -> Variant { return of.employment.Continuation(); }},
    {"ae_continuation", [](const Of& of) -> Variant { return of.employment.AEContinuation(); }},
    {"continues_prtid",
     [](const Of& of) -> Variant { return of.employment.ContinuationOfPRTID(); }},
    {"ae_status_start", [](const Of& of) -> Variant { return of.employment.AEStatusStart(); }},
    {"ae_status", [](const Of& of) -> Variant { return of.employment.AEStatusCur(); }},
    {"first_prpid", [](const Of& of) -> Variant { return of.employment.FirstPRPID(); }},
    {"last_prpid", [](const Of& of) -> Variant { return of.employment.LastUD_PRPID(); }},
    {"last_week", [](const Of& of) -> Variant { return of.employment.LastWeekNo(); }},
    {"last_month", [](const Of& of) -> Variant { return of.employment.LastMonthNo(); }},
    {"last_frequency", [](const Of& of) -> Variant { return of.employment.LastPayFreq(); }},
    {"first_period_end", [](const Of& of) -> Variant { return of.employment.FirstEPEDate(); }},
    {"last_pay", [](const Of& of) -> Variant { return of.employment.LastPayDate(); }},
    {"last_expected_pay", [](const Of& of) -> Variant { return of.employment.LExpPayDate(); }},
    {"last_period_end", [](const Of& of) -> Variant { return of.employment.LastEPEDate(); }},
    {"next_pay", [](const Of& of) -> Variant { return of.employment.NExpPayDate(); }},
    {"next_period_end", [](const Of& of) -> Variant { return of.employment.NExpEPEDate(); }},
    {"has_imported_pay", [](const Of& of) -> Variant { return of.employment.HasImportedPay(); }},
    {"imported_pay", [](const Of& of) -> Variant { return of.employment.ImportedPayValue(); }},
    {"maternity_weeks",
     [](const Of& of) -> Variant { return of.employment.SMPConsecutiveWeeks(); }},
    {"adoption_weeks", [](const Of& of) -> Variant { return of.employment.SAPConsecutiveWeeks(); }},
    {"paternity_weeks",
     [](const Of& of) -> Variant { return of.employment.SPPConsecutiveWeeks(); }},
    {"shared_parental_days",
     [](const Of& of) -> Variant { return of.employment.ShPPConsecutiveDays(); }},
    {"student_loan_plan", [](const Of& of) -> Variant { return of.employment.SLCurStatus(); }},
    {"postgraduate_loan", [](const Of& of) -> Variant { return of.employment.PGLCurStatus(); }},
};

std::unique_ptr<Table> employees(Session& session, std::int32_t naid, const char* columns) {
    const ChosenColumns<Of> chosen(employeeColumns, columns);
    auto table = chosen.table();
    forEach(session, naid, [&](cEmployee& employee) {
        auto employment = employee.MostRecentEmployment();
        if (!employment) employment = employee.CurEmployment();
        chosen.addRow(*table, {employee, *employment});
    });
    return table;
}

std::unique_ptr<Table> employments(Session& session, std::int32_t naid, const char* columns) {
    const ChosenColumns<Of> chosen(employmentColumns, columns);
    auto table = chosen.table();
    forEach(session, naid, [&](cEmployee& employee) {
        for (const auto& employment : employee.Employments()) {
            chosen.addRow(*table, {employee, *employment});
        }
    });
    return table;
}

void moveNextDates(Session& session, std::int32_t naid, Date pay, Date periodEnd) {
    office::bringUpToDate(session.host(), naid);
    const auto employment = session.employee(naid)->CurEmployment();
    if (employment->LastUD_PRPID() == 0) {
        raise(
            LEDGERWICK_INVALID_CALL, "ledgerwick_set_next_dates",
            "employee " + std::to_string(naid) + " has no closed pay row of a current employment");
    }
    session.orMessage("ledgerwick_set_next_dates", [&] {
        if (pay.isSet()) employment->NExpPayDate(pay);
        if (periodEnd.isSet()) employment->NExpEPEDate(periodEnd);
    });
}

}  // namespace

std::int32_t ledgerwick_count(ledgerwick_session* session, std::int32_t* all, std::int32_t* regular,
                              std::int32_t* casual, ledgerwick_error* error) {
    return call(error, [&] {
        Session& company = loadedIn(session);
        give(all, company.list().EmployeeCount());
        give(regular, company.payroll().C_Count_Employees(PR_ET_Regular));
        give(casual, company.payroll().C_Count_Employees(PR_ET_Casual));
    });
}

std::int32_t ledgerwick_employees(ledgerwick_session* session, std::int32_t naid,
                                  ledgerwick_table** out, ledgerwick_error* error) {
    return ledgerwick_employees_select(session, naid, nullptr, out, error);
}

std::int32_t ledgerwick_employees_select(ledgerwick_session* session, std::int32_t naid,
                                         const char* columns, ledgerwick_table** out,
                                         ledgerwick_error* error) {
    return call(error, [&] {
        needHandle(out, here);
        giveHandle(out, employees(loadedIn(session), naid, columns));
    });
}

std::int32_t ledgerwick_employments(ledgerwick_session* session, std::int32_t naid,
                                    ledgerwick_table** out, ledgerwick_error* error) {
    return ledgerwick_employments_select(session, naid, nullptr, out, error);
}

std::int32_t ledgerwick_employments_select(ledgerwick_session* session, std::int32_t naid,
                                           const char* columns, ledgerwick_table** out,
                                           ledgerwick_error* error) {
    return call(error, [&] {
        needHandle(out, here);
        giveHandle(out, employments(loadedIn(session), naid, columns));
    });
}

std::int32_t ledgerwick_employment_add(ledgerwick_session* session, std::int32_t naid,
                                       ledgerwick_date start, std::int32_t casual,
                                       std::int32_t continuation, const char* ae_status,
                                       ledgerwick_date first_pay, ledgerwick_date first_period_end,
                                       std::int32_t* prtid, ledgerwick_error* error) {
    return call(error, [&] {
        Session& company = loadedIn(session);
        office::NewEmployment details;
        details.naid = naid;
        details.start = dateNeeded(start, here);
        details.casual = flagIn(casual, here);
        details.continuation = flagIn(continuation, here);
        details.aeStatus = textIn(ae_status, here, "");
        details.firstPay = dateIn(first_pay, here);
        details.firstPeriodEnd = dateIn(first_period_end, here);
        std::int32_t added = 0;
        company.database().inTransaction(
            [&] { added = office::addEmployment(company.host(), details)->PRTID(); });
        give(prtid, added);
    });
}

std::int32_t ledgerwick_employment_end(ledgerwick_session* session, std::int32_t naid,
                                       ledgerwick_date last_day, ledgerwick_error* error) {
    return call(error, [&] {
        office::endEmployment(loadedIn(session).host(), naid, dateNeeded(last_day, here));
    });
}

std::int32_t ledgerwick_set_next_dates(ledgerwick_session* session, std::int32_t naid,
                                       ledgerwick_date pay, ledgerwick_date period_end,
                                       ledgerwick_error* error) {
    return call(error, [&] {
        Session& company = loadedIn(session);
        inOneBatch(company.database(), [&] {
            moveNextDates(company, naid, dateIn(pay, here), dateIn(period_end, here));
        });
    });
}
