// The employees as tables, and how an employment begins and ends.
#include "capi/session.h"
#include "capi/table.h"
#include "hostkit/office/employments.h"

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

std::unique_ptr<Table> employees(Session& session, std::int32_t naid) {
    auto table =
        std::make_unique<Table>(std::vector<std::string>{"naid",         "reference",
                                                         "name",         "title",
                                                         "forename",     "surname",
                                                         "nino",         "date_of_birth",
                                                         "frequency",    "group",
                                                         "active",       "casual",
                                                         "director",     "hourly_paid",
                                                         "tax_code",     "ni_table",
                                                         "period_rate",  "hourly_rate",
                                                         "scheme",       "ae_joined",
                                                         "ae_opt_in",    "ae_postponed_until",
                                                         "employments",  "prtid",
                                                         "payroll_year", "employ_count",
                                                         "start",        "end",
                                                         "ae_status",    "last_week",
                                                         "last_pay",     "last_period_end",
                                                         "next_pay",     "next_period_end"});
    forEach(session, naid, [&](cEmployee& employee) {
        auto employment = employee.MostRecentEmployment();
        if (!employment) employment = employee.CurEmployment();
        table->add({employee.NAID(),
                    employee.UserRef(),
                    employee.Name(),
                    employee.Title(),
                    employee.Forename1(),
                    employee.Surname(),
                    employee.NINO(),
                    employee.DOB(),
                    employee.PayFrequency(),
                    employee.Group(),
                    employee.Active(),
                    employee.Casual(),
                    employee.Director(),
                    employee.HourlyPaid(),
                    employee.TaxCode(),
                    employee.NITable(),
                    employee.PeriodRate(),
                    employee.HourlyRate(),
                    employee.PenWorkplaceSchemeID(),
                    employee.AEJoinedDate(),
                    employee.AEOptInDate(),
                    employee.AEPostponementDate(),
                    employee.Employments().Count(),
                    employment->PRTID(),
                    employment->PayrollYear(),
                    employment->EmployCount(),
                    employment->PRTStartDate(),
                    employment->EndDate(),
                    employment->AEStatusCur(),
                    employment->LastWeekNo(),
                    employment->LastPayDate(),
                    employment->LastEPEDate(),
                    employment->NExpPayDate(),
                    employment->NExpEPEDate()});
    });
    return table;
}

std::unique_ptr<Table> employments(Session& session, std::int32_t naid) {
    auto table = std::make_unique<Table>(std::vector<std::string>{"naid",
                                                                  "prtid",
                                                                  "payroll_year",
                                                                  "employ_count",
                                                                  "start",
                                                                  "end",
                                                                  "tax_start",
                                                                  "ae_start",
                                                                  "active",
                                                                  "casual",
                                                                  "void",
                                                                  "continuation",
                                                                  "ae_continuation",
                                                                  "continues_prtid",
                                                                  "ae_status_start",
                                                                  "ae_status",
                                                                  "first_prpid",
                                                                  "last_prpid",
                                                                  "last_week",
                                                                  "last_month",
                                                                  "last_frequency",
                                                                  "first_period_end",
                                                                  "last_pay",
                                                                  "last_expected_pay",
                                                                  "last_period_end",
                                                                  "next_pay",
                                                                  "next_period_end",
                                                                  "has_imported_pay",
                                                                  "imported_pay",
                                                                  "maternity_weeks",
                                                                  "adoption_weeks",
                                                                  "paternity_weeks",
                                                                  "shared_parental_days",
                                                                  "student_loan_plan",
                                                                  "postgraduate_loan"});
    forEach(session, naid, [&](cEmployee& employee) {
        for (const auto& employment : employee.Employments()) {
            const cEmployment& one = *employment;
            table->add({employee.NAID(),
                        one.PRTID(),
                        one.PayrollYear(),
                        one.EmployCount(),
                        one.PRTStartDate(),
                        one.EndDate(),
                        one.HMRCStartDate(),
                        one.StartDate(),
                        one.Active(),
                        one.Casual(),
                        one.IsVoid(),
                        one.Continuation(),
                        one.AEContinuation(),
                        one.ContinuationOfPRTID(),
                        one.AEStatusStart(),
                        one.AEStatusCur(),
                        one.FirstPRPID(),
                        one.LastUD_PRPID(),
                        one.LastWeekNo(),
                        one.LastMonthNo(),
                        one.LastPayFreq(),
                        one.FirstEPEDate(),
                        one.LastPayDate(),
                        one.LExpPayDate(),
                        one.LastEPEDate(),
                        one.NExpPayDate(),
                        one.NExpEPEDate(),
                        one.HasImportedPay(),
                        one.ImportedPayValue(),
                        one.SMPConsecutiveWeeks(),
                        one.SAPConsecutiveWeeks(),
                        one.SPPConsecutiveWeeks(),
                        one.ShPPConsecutiveDays(),
                        one.SLCurStatus(),
                        one.PGLCurStatus()});
        }
    });
    return table;
}

void moveNextDates(Session& session, std::int32_t naid, Date pay, Date periodEnd) {
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
        Session& company = sessionIn(session);
        give(all, company.list().EmployeeCount());
        give(regular, company.payroll().C_Count_Employees(PR_ET_Regular));
        give(casual, company.payroll().C_Count_Employees(PR_ET_Casual));
    });
}

std::int32_t ledgerwick_employees(ledgerwick_session* session, std::int32_t naid,
                                  ledgerwick_table** out, ledgerwick_error* error) {
    return call(error, [&] {
        needHandle(out, here);
        giveHandle(out, employees(sessionIn(session), naid));
    });
}

std::int32_t ledgerwick_employments(ledgerwick_session* session, std::int32_t naid,
                                    ledgerwick_table** out, ledgerwick_error* error) {
    return call(error, [&] {
        needHandle(out, here);
        giveHandle(out, employments(sessionIn(session), naid));
    });
}

std::int32_t ledgerwick_employment_add(ledgerwick_session* session, std::int32_t naid,
                                       ledgerwick_date start, std::int32_t casual,
                                       std::int32_t continuation, const char* ae_status,
                                       ledgerwick_date first_pay, ledgerwick_date first_period_end,
                                       std::int32_t* prtid, ledgerwick_error* error) {
    return call(error, [&] {
        Session& company = sessionIn(session);
        office::NewEmployment details;
        details.naid = naid;
        details.start = dateNeeded(start, here);
        details.casual = casual != 0;
        details.continuation = continuation != 0;
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
        office::endEmployment(sessionIn(session).host(), naid, dateNeeded(last_day, here));
    });
}

std::int32_t ledgerwick_set_next_dates(ledgerwick_session* session, std::int32_t naid,
                                       ledgerwick_date pay, ledgerwick_date period_end,
                                       ledgerwick_error* error) {
    return call(error, [&] {
        moveNextDates(sessionIn(session), naid, dateIn(pay, here), dateIn(period_end, here));
    });
}
