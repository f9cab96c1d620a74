#include "app/commands/pay_run.h"

#include <vector>

#include "app/context.h"
#include "hostkit/audit/explain.h"

namespace ledgerwick::app {

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
    for (const office::DueEmployee& due : office::dueEmployees(session, upTo)) {
        table.add({due.employee->NAID(), due.employee->Name(),
                   frequencyName(due.employee->PayFrequency()), due.nextPay, due.periodEnd,
                   due.periods});
    }
    return report;
}

Report openStep(HostSession& session, const Selection& selection) {
    const office::OpenedRun run =
        audit::explaining([&] { return office::openRun(session, selection); });
    Report report;
    if (run.periods.empty()) {
        std::string sentence = "Nothing is due up to " + selection.payDate.toIso() + ".";
        if (run.nextPay) sentence += " Pay falls due next on " + run.nextPay->toIso() + ".";
        report.say(sentence);
    } else {
        report.say("Run of " + selection.payDate.toIso() + ": " +
                   counted(static_cast<std::int64_t>(run.periods.size()), "period"));
    }
    if (run.uncheckedPiecework) report.say("Some piecework of these periods has not been checked.");
    report.fact("unchecked_piecework", run.uncheckedPiecework);
    Table& table = report.table(
        "columns", {"naid", "name", "from", "to", "imported", "week", "period", "prpid"});
    for (const office::OpenedPeriod& each : run.periods) {
        table.add({each.naid, employeeOf(session, each.naid)->Name(), each.firstDay, each.lastDay,
                   each.imported ? Variant(*each.imported) : Variant(), each.week, each.period,
                   each.prpid});
    }
    return report;
}

Report showStep(HostSession& session, const Selection& selection) {
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

Report closeStep(HostSession& session, const Selection& selection) {
    office::markCalculated(session, selection);
    const auto closed = audit::explaining([&] { return office::closeRun(session, selection); });
    std::int64_t count = 0;
    for (const office::ClosedEmployee& each : closed) count += each.rows;
    Report report;
    report.say("Run of " + selection.payDate.toIso() + ": " + counted(count, "row") + " closed");
    Table& table = report.table("closed", {"naid", "name", "rows", "paid_to", "next_pay_before",
                                           "next_pay_now", "next_period_end"});
    for (const office::ClosedEmployee& each : closed) {
        table.add({each.naid, employeeOf(session, each.naid)->Name(), each.rows, each.paidTo,
                   each.nextPayBefore, each.nextPay, each.nextPeriodEnd});
    }
    return report;
}

Report fillGaps(HostSession& session) {
    const auto filled = audit::explaining([&] { return office::fillMissing(session); });
    Report report;
    report.say(counted(static_cast<std::int64_t>(filled.size()), "skipped period") + " filled");
    Table& table = report.table(
        "filled", {"prpid", "naid", "name", "week", "period", "pay_date", "late_reason"});
    for (const office::FilledPeriod& each : filled) {
        table.add({each.prpid, each.naid, employeeOf(session, each.naid)->Name(), each.week,
                   each.period, each.payDate, each.lateReason});
    }
    return report;
}

}  // namespace ledgerwick::app
