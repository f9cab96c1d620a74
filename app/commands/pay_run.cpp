#include "app/commands/pay_run.h"

#include <optional>
#include <vector>

#include "app/context.h"

namespace ledgerwick::app {

namespace {

using office::isRegular;
using office::isSelected;

void refuseWithoutHistory(HostSession& session, const Selection& selection) {
    const auto employee = office::withoutHistory(session, selection);
    if (!employee) return;
    throw Refusal("employee " + std::to_string(employee->NAID()) + ", " + employee->Name() +
                  ", has no pay history; `employment add` lays down a starting row");
}

// Closes the rows of one employee whole or not at all: a closed row whose imported pay stayed would
// be paid twice.
void closeEmployee(HostSession& session, std::int32_t naid,
                   const std::vector<office::OpenRow>& rows, Date payDate) {
    storeOf(session).inTransaction([&] {
        office::markCalculated(session, naid, payDate);
        office::closeRows(session, naid, rows, payDate);
    });
}

void tellNothingDue(HostSession& session, const Selection& selection, Report& report) {
    std::optional<Date> next;
    for (const auto& employee : session.list().Employees()) {
        if (!isRegular(*employee) || !isSelected(*employee, selection)) continue;
        const Date due = employee->CurEmployment()->NExpPayDate();
        if (!next || due < *next) next = due;
    }
    std::string sentence = "Nothing is due up to " + selection.payDate.toIso() + ".";
    if (next) sentence += " Pay falls due next on " + next->toIso() + ".";
    report.say(sentence);
}

}  // namespace

Report whatIsDue(HostSession& session, Date upTo) {
    Report report;
    std::int32_t employees = 0;
    std::int32_t periods = 0;
    session.payroll().C_Count_for_Pay_Date(upTo, &employees, &periods);
    report.say(counted(employees, "employee") + " and " + counted(periods, "period") +
               " due up to " + upTo.toIso());
    report.fact("up_to", upTo);
    report.fact("employees_due", employees);
    report.fact("periods_due", periods);
    bool noOpenRun = false;
    const Date openRun = session.payroll().C_Update_Period_Date(&noOpenRun);
    if (!noOpenRun) report.say("The run of " + openRun.toIso() + " is open.");
    report.fact("open_run", noOpenRun ? Variant() : Variant(openRun));
    Table& table =
        report.table("due", {"naid", "name", "frequency", "next_pay", "period_end", "periods"});
    for (const auto& employee : session.list().Employees()) {
        const auto employment = employee->CurEmployment();
        if (!isRegular(*employee) || employment->NExpPayDate() > upTo) continue;
        table.add({employee->NAID(), employee->Name(), frequencyName(employee->PayFrequency()),
                   employment->NExpPayDate(), employment->NExpEPEDate(),
                   office::periodsDue(session, *employee, upTo)});
    }
    return report;
}

Report openRun(HostSession& session, const Selection& selection) {
    refuseWithoutHistory(session, selection);
    Variant columns;
    bool unchecked = false;
    session.payroll().C_InputHoursInit(selection.payDate, selection.frequency, selection.group,
                                       selection.naid, &columns, &unchecked);
    Report report;
    const VariantArray& array = columns.array("C_InputHoursInit");
    if (array.at(1, 1).isEmpty()) {
        tellNothingDue(session, selection, report);
    } else {
        report.say("Run of " + selection.payDate.toIso() + ": " +
                   counted(array.upperBound(2), "period"));
    }
    if (unchecked) report.say("Some piecework of these periods has not been checked.");
    report.fact("unchecked_piecework", unchecked);
    Table& table = report.table(
        "columns", {"naid", "name", "from", "to", "imported", "week", "period", "prpid"});
    for (std::int32_t i = 1; i <= array.upperBound(2) && !array.at(1, i).isEmpty(); ++i) {
        const std::int32_t naid = array.at(1, i).toInt32();
        const Variant& imported = array.at(6, i);
        table.add({naid, employeeOf(session, naid)->Name(), array.at(3, i), array.at(4, i),
                   imported.kind() == VariantKind::Text ? Variant() : imported, array.at(7, i),
                   array.at(8, i), array.at(2, i)});
    }
    return report;
}

Report showRun(HostSession& session, const Selection& selection) {
    const auto rows = office::openRows(session, selection);
    Report report;
    report.say(counted(static_cast<std::int64_t>(rows.size()), "open row") + " up to " +
               selection.payDate.toIso());
    Table& table = report.table("open_rows", {"naid", "name", "pay_date", "to", "week", "period",
                                              "period_pay", "visited", "prpid"});
    for (const office::OpenRow& row : rows) {
        table.add({row.naid, employeeOf(session, row.naid)->Name(), row.payDate, row.periodEnd,
                   row.week, row.period, row.pay, row.visited, row.prpid});
    }
    return report;
}

Report closeRun(HostSession& session, const Selection& selection) {
    const auto rowsOf = office::openRowsByEmployee(session, selection);
    std::size_t count = 0;
    for (const auto& entry : rowsOf) count += entry.second.size();
    session.list().LoadImportedPay();
    Report report;
    report.say("Run of " + selection.payDate.toIso() + ": " +
               counted(static_cast<std::int64_t>(count), "row") + " closed");
    Table& table = report.table("closed", {"naid", "name", "rows", "paid_to", "next_pay_before",
                                           "next_pay_now", "next_period_end"});
    for (const auto& [naid, rows] : rowsOf) {
        const auto employee = employeeOf(session, naid);
        const Date before = employee->CurEmployment()->NExpPayDate();
        closeEmployee(session, naid, rows, selection.payDate);
        session.list().ReLoadEmployee(naid);
        const auto now = employeeOf(session, naid)->CurEmployment();
        table.add({naid, employee->Name(), static_cast<std::int32_t>(rows.size()),
                   now->LastEPEDate(), before, now->NExpPayDate(), now->NExpEPEDate()});
    }
    return report;
}

Report fillGaps(HostSession& session) {
    const std::int32_t before = office::highestPayRow(session);
    session.payroll().AutoFillMissingPeriods();
    const auto rows = session.database().OpenRecordset(
        "SELECT PRPID, PRPNAID, PRPWeekNo, PRPPaymentPeriod, PRPPayDate, PRPRTILateReason "
        "FROM PRPay "
        "WHERE PRPID > " +
            std::to_string(before) + " ORDER BY PRPID",
        RecordsetType::Snapshot);
    Report report;
    Table table("filled", {"prpid", "naid", "name", "week", "period", "pay_date", "late_reason"});
    for (; !rows->Eof(); rows->MoveNext()) {
        const std::int32_t naid = rows->GetInt32(field::PRPNAID);
        table.add({rows->GetInt32(field::PRPID), naid, employeeOf(session, naid)->Name(),
                   rows->GetInt16(field::PRPWeekNo), rows->GetInt32(field::PRPPaymentPeriod),
                   rows->GetDate(field::PRPPayDate), rows->GetText(field::PRPRTILateReason)});
    }
    rows->Close();
    report.say(counted(static_cast<std::int64_t>(table.rows().size()), "skipped period") +
               " filled");
    report.table(std::move(table));
    return report;
}

}  // namespace ledgerwick::app
