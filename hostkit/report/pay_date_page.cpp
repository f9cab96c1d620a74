#include "hostkit/report/pay_date_page.h"

#include <vector>

#include "hostkit/explain/calendar_rules.h"
#include "hostkit/explain/look_ahead.h"
#include "hostkit/explain/words.h"
#include "hostkit/office/pay_run.h"
#include "hostkit/office/refusal.h"
#include "hostkit/office/transaction.h"
#include "hostkit/report/html.h"
#include "hostkit/report/year_drawing.h"
#include "ledgerwick/values/format.h"

namespace ledgerwick::report {

namespace {

PR_Pay_Freq frequencyOfEmployee(const cEmployee& employee) {
    return static_cast<PR_Pay_Freq>(employee.PayFrequency());
}

// How the next expected date came about, checked against the rule rather than taken for granted.
std::string whyDue(cEmployee& employee, const explain::Controllers& controllers) {
    const auto employment = employee.CurEmployment();
    const PR_Pay_Freq frequency = frequencyOfEmployee(employee);
    const Date before = employment->LExpPayDate();
    const bool follows = before.isSet() && explain::expectedDate(before, frequency, controllers) ==
                                               employment->NExpPayDate();
    if (!follows) return "set by hand, by a starting row or by a change of frequency";
    const std::string controller = explain::controllerWords(frequency, controllers);
    return "after " + before.toIso() + ": " +
           (controller.empty() ? std::string(explain::rulesOf(frequency).step.words)
                               : controller + ".");
}

Table dueAndWhy(HostSession& session, Date upTo, const explain::Controllers& controllers) {
    Table table("due", {"naid", "name", "frequency", "last_pay", "next_pay", "period_end",
                        "periods", "why"});
    for (const office::DueEmployee& due : office::dueEmployees(session, upTo)) {
        cEmployee& employee = *due.employee;
        table.add({employee.NAID(), employee.Name(),
                   explain::frequencyName(employee.PayFrequency()),
                   employee.CurEmployment()->LastPayDate(), due.nextPay, due.periodEnd, due.periods,
                   whyDue(employee, controllers)});
    }
    return table;
}

// ---- the drawn year ------------------------------------------------------------------------------

void addPaid(HostSession& session, int taxYear, std::vector<PayMark>& marks) {
    const std::int16_t payrollYear = calendar::payrollYearOf(explain::taxYearDays(taxYear).first);
    const auto rows = session.database().OpenRecordset(
        "SELECT DISTINCT PRPPayDate, PRPPaymentPeriod FROM PRPay "
        "WHERE PRPPeriodUpdated = True AND PRPCalculationUsed > 0 AND PRPPaymentPeriod <> 0 "
        "AND PRPPayrollYear = " +
            std::to_string(payrollYear),
        RecordsetType::Snapshot);
    for (; !rows->Eof(); rows->MoveNext()) {
        const auto period = static_cast<std::int16_t>(rows->GetInt32(field::PRPPaymentPeriod));
        marks.push_back(
            {rows->GetDate(field::PRPPayDate), PR_Convert_PayPeriod_to_PayFreq(period), true});
    }
    rows->Close();
}

// From the next expected dates to the end of the year.
void addExpected(HostSession& session, int taxYear, const explain::Controllers& controllers,
                 std::vector<PayMark>& marks) {
    for (const explain::Payer& payer : explain::payersOf(session)) {
        for (const explain::PayDate& each :
             explain::payDatesOf(taxYear, payer.frequency, payer.first, controllers)) {
            if (each.date >= payer.first) marks.push_back({each.date, each.frequency, false});
        }
    }
}

std::string drawnYear(HostSession& session, Date payDate, const explain::Controllers& controllers) {
    YearDrawing drawing{.taxYear = calendar::taxYearOf(payDate)};
    drawing.today = session.state().g_dtmToday();
    drawing.payDate = payDate;
    addPaid(session, drawing.taxYear, drawing.marks);
    addExpected(session, drawing.taxYear, controllers, drawing.marks);
    return drawYear(drawing);
}

// ---- the page ------------------------------------------------------------------------------------

// The run as it would be opened now, and the rows that filling gaps would add. Nothing is stored.
struct LookedUp {
    office::OpenedRun run;
    std::vector<office::FilledPeriod> gaps;
    std::string refusal;  // why the run cannot be opened
};

void lookUp(HostSession& session, Date payDate, LookedUp& found) {
    office::storeOf(session).rehearse([&] { found.gaps = office::fillMissing(session); });
    try {
        office::storeOf(session).rehearse([&] { found.run = office::openRun(session, {payDate}); });
    } catch (const office::Refusal& refusal) {
        found.refusal = refusal.Description();
    }
}

std::string nameOf(HostSession& session, std::int32_t naid) {
    const auto employee = session.list().GetEmployeeByNAID(naid);
    return employee ? employee->Name() : std::string();
}

// The columns of the run; a row that is not stored yet has no key.
Table columnsOf(HostSession& session, const office::OpenedRun& run, std::int32_t highestKey) {
    Table table("columns",
                {"naid", "name", "from", "to", "imported", "week", "period", "open_row"});
    for (const office::OpenedPeriod& each : run.periods) {
        table.add({each.naid, nameOf(session, each.naid), each.firstDay, each.lastDay,
                   each.imported ? Variant(*each.imported) : Variant(), each.week, each.period,
                   each.prpid > highestKey ? "new" : std::to_string(each.prpid)});
    }
    return table;
}

Table gapsOf(HostSession& session, const std::vector<office::FilledPeriod>& gaps) {
    Table table("filled", {"prpid", "naid", "name", "week", "period", "pay_date", "late_reason"});
    for (const office::FilledPeriod& each : gaps) {
        table.add({each.prpid, each.naid, nameOf(session, each.naid), each.week, each.period,
                   each.payDate, each.lateReason});
    }
    return table;
}

Table statusOf(HostSession& session, Date upTo) {
    ResultTable result =
        session.payroll().GetAEStatus(upTo, DLLGlobal::currentPayrollYear(), true, 0);
    result.Sort("NameSort");
    // What a person asks about a worker; the keys, orders and categories of the table are for programs.
    const std::vector<std::string> columns{
        "NAID",       "Name",       "StaffNo",         "PeriodRate",     "Scheme",
        "JoinedDate", "OptOutDate", "FirstAssessDate", "PrevAssessDate", "NextAssessDate"};
    Table table("status", columns);
    if (result.RecordCount() == 0) return table;
    for (result.MoveFirst(); !result.Eof(); result.MoveNext()) {
        std::vector<Variant> row;
        row.reserve(columns.size());
        for (const std::string& column : columns) row.push_back(result.Fields(column));
        table.add(std::move(row));
    }
    return table;
}

void addRun(HtmlPage& page, const LookedUp& found, const Table& columns) {
    page.section("run", "The run's columns");
    page.paragraph(
        "One column for each period due, in the order of the input screen. Nothing was opened for "
        "this page: a row marked new would be added by opening the run.");
    if (!found.refusal.empty()) {
        page.paragraph("The run cannot be opened: " + found.refusal + ".");
        return;
    }
    page.table(columns,
               explain::counted(static_cast<std::int64_t>(columns.rows().size()), "period"),
               "Nothing is due.");
}

std::string shortDate(Date date) {
    return date.isSet() ? formatDate(date, "d mmm yyyy") : "none";
}

}  // namespace

std::string payDatePage(HostSession& session, const std::string& company, Date payDate) {
    const explain::Controllers controllers = explain::controllersOf(session);
    const std::int32_t highestKey = office::highestPayRow(session);
    LookedUp found;
    lookUp(session, payDate, found);
    const Table due = dueAndWhy(session, payDate, controllers);
    const Table columns = columnsOf(session, found.run, highestKey);
    const Table gaps = gapsOf(session, found.gaps);
    const Table status = statusOf(session, payDate);
    bool noOpenRun = false;
    const Date openRun = session.payroll().C_Update_Period_Date(&noOpenRun);

    HtmlPage page("Pay date " + formatDate(payDate, "d mmmm yyyy"),
                  company + ", " + formatDate(payDate, "dddd") + ", tax year " +
                      explain::taxYearText(calendar::taxYearOf(payDate)) + ", tax week " +
                      std::to_string(calendar::taxWeek(payDate)) + ", tax month " +
                      std::to_string(calendar::taxMonth(payDate)));
    page.figures({{"employees due", std::to_string(due.rows().size())},
                  {"periods in the run", std::to_string(columns.rows().size())},
                  {"oldest open run", noOpenRun ? "none" : shortDate(openRun)},
                  {"skipped periods", std::to_string(gaps.rows().size())},
                  {"next pay date", shortDate(session.payroll().C_Next_Expected_Pay_Date())}});
    addRun(page, found, columns);

    page.section("due", "Who is due, and why");
    page.table(due, "Regular employees whose pay falls due up to " + payDate.toIso(),
               "Nobody is due.");

    page.section("gaps", "Gaps");
    page.paragraph(
        "Periods skipped between closed rows of this year, each with the row that "
        "filling would add.");
    page.table(gaps,
               explain::counted(static_cast<std::int64_t>(gaps.rows().size()), "skipped period"),
               "No period was skipped.");

    page.section("auto-enrolment", "Pension auto-enrolment");
    page.table(status, "Regular workers by name, as of " + payDate.toIso(),
               "There are no regular workers.");

    page.section("year", "The year");
    page.drawing(drawnYear(session, payDate, controllers));
    return page.finish("Ledgerwick, as of " +
                       formatDate(session.state().g_dtmToday(), "d mmmm yyyy"));
}

}  // namespace ledgerwick::report
