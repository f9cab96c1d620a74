// What falls due, and the road of a pay run.
#include "hostkit/office/pay_run.h"

#include "capi/session.h"
#include "capi/table.h"

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
    for (const auto& employee : session.list().Employees()) {
        const auto employment = employee->CurEmployment();
        if (!office::isRegular(*employee) || employment->NExpPayDate() > upTo) continue;
        table->add({employee->NAID(), employee->Name(), employee->PayFrequency(),
                    employment->NExpPayDate(), employment->NExpEPEDate(),
                    office::periodsDue(session.host(), *employee, upTo)});
    }
    return table;
}

std::unique_ptr<Table> openRun(Session& session, const office::Selection& run, bool& unchecked) {
    if (const auto employee = office::withoutHistory(session.host(), run)) {
        raise(LEDGERWICK_INVALID_CALL, here,
              "employee " + std::to_string(employee->NAID()) + ", " + employee->Name() +
                  ", has no pay history");
    }
    Variant columns;
    session.payroll().C_InputHoursInit(run.payDate, run.frequency, run.group, run.naid, &columns,
                                       &unchecked);
    const VariantArray& array = columns.array(here);
    auto table = std::make_unique<Table>(std::vector<std::string>{
        "naid", "name", "prpid", "first_day", "last_day", "imported", "week", "period"});
    for (std::int32_t i = 1; i <= array.upperBound(2) && !array.at(1, i).isEmpty(); ++i) {
        const std::int32_t naid = array.at(1, i).toInt32();
        const Variant& imported = array.at(6, i);  // "N" for none
        table->add({naid, session.employee(naid)->Name(), array.at(2, i), array.at(3, i),
                    array.at(4, i), imported.kind() == VariantKind::Text ? Variant() : imported,
                    array.at(7, i), array.at(8, i)});
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

std::size_t markCalculated(Session& session, const office::Selection& run) {
    const auto rowsOf = office::openRowsByEmployee(session.host(), run);
    std::size_t count = 0;
    session.database().inTransaction([&] {
        for (const auto& [naid, rows] : rowsOf) {
            office::markCalculated(session.host(), naid, run.payDate);
            count += rows.size();
        }
    });
    return count;
}

// One employee whole or not at all.
void closeWhole(Session& session, std::int32_t naid, const std::vector<office::OpenRow>& rows,
                Date payDate) {
    session.database().inTransaction(
        [&] { office::closeRows(session.host(), naid, rows, payDate); });
}

std::unique_ptr<Table> closeRun(Session& session, const office::Selection& run) {
    const auto rowsOf = office::openRowsByEmployee(session.host(), run);
    session.list().LoadImportedPay();
    auto table = std::make_unique<Table>(std::vector<std::string>{
        "naid", "name", "rows", "paid_to", "next_pay_before", "next_pay", "next_period_end"});
    for (const auto& [naid, rows] : rowsOf) {
        const Date before = session.employee(naid)->CurEmployment()->NExpPayDate();
        closeWhole(session, naid, rows, run.payDate);
        session.list().ReLoadEmployee(naid);
        const auto employee = session.employee(naid);
        const auto now = employee->CurEmployment();
        table->add({naid, employee->Name(), static_cast<std::int32_t>(rows.size()),
                    now->LastEPEDate(), before, now->NExpPayDate(), now->NExpEPEDate()});
    }
    return table;
}

std::unique_ptr<Table> fillMissing(Session& session) {
    const std::int32_t before = office::highestPayRow(session.host());
    session.payroll().AutoFillMissingPeriods();
    const auto rows = session.database().OpenRecordset(
        "SELECT PRPID, PRPNAID, PRPWeekNo, PRPPaymentPeriod, PRPPayDate, PRPRTILateReason "
        "FROM PRPay "
        "WHERE PRPID > " +
            std::to_string(before) + " ORDER BY PRPID",
        RecordsetType::Snapshot);
    auto table = std::make_unique<Table>(std::vector<std::string>{
        "prpid", "naid", "name", "week", "period", "pay_date", "late_reason"});
    for (; !rows->Eof(); rows->MoveNext()) {
        const std::int32_t naid = rows->GetInt32(field::PRPNAID);
        table->add({rows->GetInt32(field::PRPID), naid, session.employee(naid)->Name(),
                    rows->GetInt16(field::PRPWeekNo), rows->GetInt32(field::PRPPaymentPeriod),
                    rows->GetDate(field::PRPPayDate), rows->GetText(field::PRPRTILateReason)});
    }
    rows->Close();
    return table;
}

void importPay(Session& session, std::int32_t naid, Currency value) {
    session.employee(naid);
    // The table keeps a number; one that does not come back as the same amount would stop the run.
    if (Currency::fromDouble(value.toDouble(), here) != value) {
        raise(LEDGERWICK_OVERFLOW, "ledgerwick_import_pay", "the amount is too large");
    }
    session.database().inTransaction([&] {
        if (session.database().tableExists("PRPayImport")) {
            session.database().Execute(
                "DELETE FROM PRPayImport WHERE PRPINAID = " + std::to_string(naid), failOnError);
        } else {
            session.database().createPayImportTable(true);
        }
        const auto rows =
            session.database().OpenRecordset("SELECT * FROM PRPayImport", RecordsetType::Dynaset);
        rows->AddNew();
        rows->Value(field::PRPINAID, naid);
        rows->Value(field::PRPIPay, value);
        rows->Update();
        rows->Close();
    });
}

}  // namespace

std::int32_t ledgerwick_next_pay_date(ledgerwick_session* session, std::int32_t frequency,
                                      std::int32_t highest, std::int32_t scheme,
                                      ledgerwick_date* date, std::int32_t* none,
                                      ledgerwick_error* error) {
    return call(error, [&] {
        bool nobody = false;
        const Date found = sessionIn(session).payroll().C_Next_Expected_Pay_Date(
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
        const Date found = sessionIn(session).payroll().C_Last_Expected_Pay_Date(&nobody, scheme);
        give(date, dateOut(found));
        give(none, nobody);
    });
}

std::int32_t ledgerwick_next_period_end(ledgerwick_session* session, std::int32_t frequency,
                                        ledgerwick_date* date, std::int32_t* none,
                                        ledgerwick_error* error) {
    return call(error, [&] {
        bool nobody = false;
        const Date found = sessionIn(session).payroll().C_Next_Expected_EPE_Date(
            &nobody, frequencyIn(frequency, true));
        give(date, dateOut(found));
        give(none, nobody);
    });
}

std::int32_t ledgerwick_open_run_date(ledgerwick_session* session, ledgerwick_date* date,
                                      std::int32_t* none, ledgerwick_error* error) {
    return call(error, [&] {
        bool nothing = false;
        const Date found = sessionIn(session).payroll().C_Update_Period_Date(&nothing);
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
        sessionIn(session).payroll().C_Count_for_Pay_Date(dateNeeded(date, here), &people, &all);
        give(employees, people);
        give(periods, all);
    });
}

std::int32_t ledgerwick_due(ledgerwick_session* session, ledgerwick_date date,
                            ledgerwick_table** out, ledgerwick_error* error) {
    return call(error, [&] {
        needHandle(out, here);
        giveHandle(out, due(sessionIn(session), dateNeeded(date, here)));
    });
}

std::int32_t ledgerwick_reference_period_end(ledgerwick_session* session, std::int32_t naid,
                                             ledgerwick_date pay_date, ledgerwick_date* last,
                                             ledgerwick_error* error) {
    return call(error, [&] {
        Session& company = sessionIn(session);
        company.employee(naid);
        const Date end =
            company.payroll().PR_End_of_PRP_for_PayDate(naid, dateNeeded(pay_date, here));
        give(last, dateOut(end));
    });
}

std::int32_t ledgerwick_last_reference_period_end(ledgerwick_session* session,
                                                  ledgerwick_date* last, ledgerwick_error* error) {
    return call(error, [&] {
        give(last, dateOut(sessionIn(session).payroll().PR_PRP_Get_Last_End_Date()));
    });
}

std::int32_t ledgerwick_run_open(ledgerwick_session* session, ledgerwick_date pay_date,
                                 std::int32_t frequency, std::int32_t group, std::int32_t naid,
                                 ledgerwick_table** out, std::int32_t* unchecked,
                                 ledgerwick_error* error) {
    return call(error, [&] {
        needHandle(out, here);
        Session& company = sessionIn(session);
        bool some = false;
        giveHandle(out,
                   openRun(company, selectionIn(company, pay_date, frequency, group, naid), some));
        give(unchecked, some);
    });
}

std::int32_t ledgerwick_run_rows(ledgerwick_session* session, ledgerwick_date pay_date,
                                 std::int32_t frequency, std::int32_t group, std::int32_t naid,
                                 ledgerwick_table** out, ledgerwick_error* error) {
    return call(error, [&] {
        needHandle(out, here);
        Session& company = sessionIn(session);
        giveHandle(out, openRows(company, selectionIn(company, pay_date, frequency, group, naid)));
    });
}

std::int32_t ledgerwick_run_mark_calculated(ledgerwick_session* session, ledgerwick_date pay_date,
                                            std::int32_t frequency, std::int32_t group,
                                            std::int32_t naid, std::int32_t* rows,
                                            ledgerwick_error* error) {
    return call(error, [&] {
        Session& company = sessionIn(session);
        give(rows, markCalculated(company, selectionIn(company, pay_date, frequency, group, naid)));
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
        Session& company = sessionIn(session);
        giveHandle(out, closeRun(company, selectionIn(company, pay_date, frequency, group, naid)));
    });
}

std::int32_t ledgerwick_fill_missing_periods(ledgerwick_session* session, ledgerwick_table** out,
                                             ledgerwick_error* error) {
    return call(error, [&] {
        needHandle(out, here);
        giveHandle(out, fillMissing(sessionIn(session)));
    });
}

std::int32_t ledgerwick_import_pay(ledgerwick_session* session, std::int32_t naid,
                                   ledgerwick_money value, ledgerwick_error* error) {
    return call(error, [&] { importPay(sessionIn(session), naid, Currency::fromTicks(value)); });
}

std::int32_t ledgerwick_load_imported(ledgerwick_session* session, ledgerwick_error* error) {
    return call(error, [&] { sessionIn(session).list().LoadImportedPay(); });
}

std::int32_t ledgerwick_piecework(ledgerwick_session* session, std::int32_t naid,
                                  ledgerwick_date from, ledgerwick_date to, ledgerwick_table** out,
                                  ledgerwick_money* total, ledgerwick_error* error) {
    return call(error, [&] {
        needHandle(out, here);
        const auto employment = sessionIn(session).employee(naid)->CurEmployment();
        Currency sum;
        ResultTable rows =
            employment->ImportedEarningsRS(dateNeeded(from, here), dateNeeded(to, here), sum);
        giveHandle(out, tableOf(rows));
        give(total, sum.ticks());
    });
}
