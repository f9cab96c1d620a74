// What falls due, and the road of a pay run.
#include "hostkit/office/pay_run.h"

#include "capi/session.h"
#include "capi/table.h"
#include "hostkit/office/imported_pay.h"

namespace {

using namespace ledgerwick;
using namespace ledgerwick::c;

constexpr std::string_view here = "ledgerwick_run";

office::Selection selectionIn(Session& session, ledgerwick_date payDate, std::int32_t frequency,
                              std::int32_t group, std::int32_t naid) {
    if (naid != 0) session.employee(naid);  // a wrong number is no empty run
    return {dateNeeded(payDate, here), frequencyIn(frequency, true), group, naid};
}

std::unique_ptr<Table> due(Session& session, Date upTo) {
    auto table = std::make_unique<Table>(
        std::vector<std::string>{"naid", "name", "frequency", "next_pay", "period_end", "periods"});
    for (const office::DueEmployee& each : office::dueEmployees(session.host(), upTo)) {
        table->add({each.employee->NAID(), each.employee->Name(), each.employee->PayFrequency(),
                    each.nextPay, each.periodEnd, each.periods});
    }
    return table;
}

std::unique_ptr<Table> periodsOf(Session& session, const office::OpenedRun& run) {
    auto table = std::make_unique<Table>(std::vector<std::string>{
        "naid", "name", "prpid", "first_day", "last_day", "imported", "week", "period"});
    for (const office::OpenedPeriod& each : run.periods) {
        table->add({each.naid, session.employee(each.naid)->Name(), each.prpid, each.firstDay,
                    each.lastDay, each.imported ? Variant(*each.imported) : Variant(), each.week,
                    each.period});
    }
    return table;
}

std::unique_ptr<Table> openRows(Session& session, const office::Selection& run) {
    auto table = std::make_unique<Table>(
        std::vector<std::string>{"naid", "name", "prpid", "pay_date", "period_end", "week",
                                 "period", "pay", "visited", "status"});
    for (const office::OpenRow& row : office::openRows(session.host(), run)) {
        table->add({row.naid, session.employee(row.naid)->Name(), row.prpid, row.payDate,
                    row.periodEnd, row.week, row.period, row.pay, row.visited, row.status});
    }
    return table;
}

std::unique_ptr<Table> closeRun(Session& session, const office::Selection& run) {
    auto table = std::make_unique<Table>(std::vector<std::string>{
        "naid", "name", "rows", "paid_to", "next_pay_before", "next_pay", "next_period_end"});
    for (const office::ClosedEmployee& each : office::closeRun(session.host(), run)) {
        table->add({each.naid, session.employee(each.naid)->Name(), each.rows, each.paidTo,
                    each.nextPayBefore, each.nextPay, each.nextPeriodEnd});
    }
    return table;
}

std::unique_ptr<Table> fillMissing(Session& session) {
    auto table = std::make_unique<Table>(std::vector<std::string>{
        "prpid", "naid", "name", "week", "period", "pay_date", "late_reason"});
    for (const office::FilledPeriod& each : office::fillMissing(session.host())) {
        table->add({each.prpid, each.naid, session.employee(each.naid)->Name(), each.week,
                    each.period, each.payDate, each.lateReason});
    }
    return table;
}

}  // namespace

std::int32_t ledgerwick_next_pay_date(ledgerwick_session* session, std::int32_t frequency,
                                      std::int32_t highest, std::int32_t scheme,
                                      ledgerwick_date* date, std::int32_t* none,
                                      ledgerwick_error* error) {
    return call(error, [&] {
        bool nobody = false;
        const Date found = loadedIn(session).payroll().C_Next_Expected_Pay_Date(
            &nobody, frequencyIn(frequency, true), flagIn(highest, here), scheme);
        give(date, dateOut(found));
        give(none, nobody);
    });
}

std::int32_t ledgerwick_last_pay_date(ledgerwick_session* session, std::int32_t scheme,
                                      ledgerwick_date* date, std::int32_t* none,
                                      ledgerwick_error* error) {
    return call(error, [&] {
        bool nobody = false;
        const Date found = loadedIn(session).payroll().C_Last_Expected_Pay_Date(&nobody, scheme);
        give(date, dateOut(found));
        give(none, nobody);
    });
}

std::int32_t ledgerwick_next_period_end(ledgerwick_session* session, std::int32_t frequency,
                                        ledgerwick_date* date, std::int32_t* none,
                                        ledgerwick_error* error) {
    return call(error, [&] {
        bool nobody = false;
        const Date found = loadedIn(session).payroll().C_Next_Expected_EPE_Date(
            &nobody, frequencyIn(frequency, true));
        give(date, dateOut(found));
        give(none, nobody);
    });
}

std::int32_t ledgerwick_open_run_date(ledgerwick_session* session, ledgerwick_date* date,
                                      std::int32_t* none, ledgerwick_error* error) {
    return call(error, [&] {
        bool nothing = false;
        const Date found = loadedIn(session).payroll().C_Update_Period_Date(&nothing);
        give(date, dateOut(found));
        give(none, nothing);
    });
}

std::int32_t ledgerwick_count_due(ledgerwick_session* session, ledgerwick_date date,
                                  std::int32_t* employees, std::int32_t* periods,
                                  ledgerwick_error* error) {
    return call(error, [&] {
        std::int32_t people = 0;
        std::int32_t all = 0;
        loadedIn(session).payroll().C_Count_for_Pay_Date(dateNeeded(date, here), &people, &all);
        give(employees, people);
        give(periods, all);
    });
}

std::int32_t ledgerwick_due(ledgerwick_session* session, ledgerwick_date date,
                            ledgerwick_table** out, ledgerwick_error* error) {
    return call(error, [&] {
        needHandle(out, here);
        giveHandle(out, due(loadedIn(session), dateNeeded(date, here)));
    });
}

std::int32_t ledgerwick_reference_period_end(ledgerwick_session* session, std::int32_t naid,
                                             ledgerwick_date pay_date, ledgerwick_date* last,
                                             ledgerwick_error* error) {
    return call(error, [&] {
        Session& company = loadedIn(session);
        company.employee(naid);
        const Date end =
            company.payroll().PR_End_of_PRP_for_PayDate(naid, dateNeeded(pay_date, here));
        give(last, dateOut(end));
    });
}

std::int32_t ledgerwick_last_reference_period_end(ledgerwick_session* session,
                                                  ledgerwick_date* last, ledgerwick_error* error) {
    return call(error, [&] {
        give(last, dateOut(loadedIn(session).payroll().PR_PRP_Get_Last_End_Date()));
    });
}

std::int32_t ledgerwick_run_open(ledgerwick_session* session, ledgerwick_date pay_date,
                                 std::int32_t frequency, std::int32_t group, std::int32_t naid,
                                 ledgerwick_table** out, std::int32_t* unchecked,
                                 ledgerwick_error* error) {
    return call(error, [&] {
        needHandle(out, here);
        Session& company = loadedIn(session);
        const office::OpenedRun run =
            office::openRun(company.host(), selectionIn(company, pay_date, frequency, group, naid));
        giveHandle(out, periodsOf(company, run));
        give(unchecked, run.uncheckedPiecework);
    });
}

std::int32_t ledgerwick_run_rows(ledgerwick_session* session, ledgerwick_date pay_date,
                                 std::int32_t frequency, std::int32_t group, std::int32_t naid,
                                 ledgerwick_table** out, ledgerwick_error* error) {
    return call(error, [&] {
        needHandle(out, here);
        Session& company = loadedIn(session);
        giveHandle(out, openRows(company, selectionIn(company, pay_date, frequency, group, naid)));
    });
}

std::int32_t ledgerwick_run_mark_calculated(ledgerwick_session* session, ledgerwick_date pay_date,
                                            std::int32_t frequency, std::int32_t group,
                                            std::int32_t naid, std::int32_t* rows,
                                            ledgerwick_error* error) {
    return call(error, [&] {
        Session& company = loadedIn(session);
        give(rows, office::markCalculated(company.host(),
                                          selectionIn(company, pay_date, frequency, group, naid)));
    });
}

std::int32_t ledgerwick_reset_visited(ledgerwick_session* session, std::int32_t naid,
                                      ledgerwick_error* error) {
    return call(error, [&] {
        Session& company = sessionIn(session);
        company.orMessage("ledgerwick_reset_visited",
                          [&] { company.payroll().C_Reset_HasBeenVisited(naid); });
    });
}

std::int32_t ledgerwick_run_close(ledgerwick_session* session, ledgerwick_date pay_date,
                                  std::int32_t frequency, std::int32_t group, std::int32_t naid,
                                  ledgerwick_table** out, ledgerwick_error* error) {
    return call(error, [&] {
        needHandle(out, here);
        Session& company = loadedIn(session);
        giveHandle(out, closeRun(company, selectionIn(company, pay_date, frequency, group, naid)));
    });
}

std::int32_t ledgerwick_fill_missing_periods(ledgerwick_session* session, ledgerwick_table** out,
                                             ledgerwick_error* error) {
    return call(error, [&] {
        needHandle(out, here);
        giveHandle(out, fillMissing(loadedIn(session)));
    });
}

std::int32_t ledgerwick_import_pay(ledgerwick_session* session, std::int32_t naid,
                                   ledgerwick_money value, ledgerwick_error* error) {
    return call(error, [&] {
        Session& company = loadedIn(session);
        company.employee(naid);
        office::importPay(company.host(), naid, Currency::fromTicks(value));
    });
}

std::int32_t ledgerwick_load_imported(ledgerwick_session* session, ledgerwick_error* error) {
    return call(error, [&] { loadedIn(session).list().LoadImportedPay(); });
}

std::int32_t ledgerwick_piecework(ledgerwick_session* session, std::int32_t naid,
                                  ledgerwick_date from, ledgerwick_date to, ledgerwick_table** out,
                                  ledgerwick_money* total, ledgerwick_error* error) {
    return call(error, [&] {
        needHandle(out, here);
        const auto employment = loadedIn(session).employee(naid)->CurEmployment();
        Currency sum;
        ResultTable rows =
            employment->ImportedEarningsRS(dateNeeded(from, here), dateNeeded(to, here), sum);
        giveHandle(out, tableOf(rows));
        give(total, sum.ticks());
    });
}
