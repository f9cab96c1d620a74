#include <memory>

#include "app/commands/commands.h"
#include "app/commands/pay_run.h"
#include "app/options.h"
#include "hostkit/history/as_of.h"
#include "hostkit/history/figures.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick::app {

namespace {

struct QueryOptions {
    std::string database;
    Date date;
    std::int32_t naid = 0;
    std::int32_t year = 0;
};

std::string stateOf(cEmployee& employee) {
    if (employee.Active()) return employee.Casual() ? "casual" : "active";
    const auto latest = employee.MostRecentEmployment();
    if (!latest) return "void";
    return latest->EndDate().isSet() ? "left" : "not in this year";
}

void runEmployees(const Context& context, const QueryOptions& options) {
    const auto session = openCompany(context, options.database);
    Report report;
    Table& table = report.table("employees", {"naid", "reference", "name", "frequency", "group",
                                              "state", "start", "end", "last_pay", "next_pay"});
    for (const auto& employee : session->list().Employees()) {
        const auto latest = employee->MostRecentEmployment();
        const bool pays = isRegularActive(*employee);
        table.add({employee->NAID(), employee->UserRef(), employee->Name(),
                   frequencyName(employee->PayFrequency()), employee->Group(), stateOf(*employee),
                   latest ? latest->StartDate() : Date(), latest ? latest->EndDate() : Date(),
                   latest ? latest->LastPayDate() : Date(),
                   pays ? Variant(latest->NExpPayDate()) : Variant()});
    }
    report.say(counted(session->list().EmployeeCount(), "employee"));
    context.show(report);
}

// What is told of one employee, a line each.
std::vector<std::pair<std::string, Variant>> details(cEmployee& employee) {
    return {{"naid", employee.NAID()},
            {"reference", employee.UserRef()},
            {"name", employee.Name()},
            {"ni_number", employee.NINO()},
            {"ni_number_duplicated", employee.NINODuplicated()},
            {"born", employee.DOB()},
            {"state", stateOf(employee)},
            {"frequency", frequencyName(employee.PayFrequency())},
            {"group", employee.Group()},
            {"hourly_paid", employee.HourlyPaid()},
            {"hourly_rate", employee.HourlyRate()},
            {"period_rate", employee.PeriodRate()},
            {"tax_code", employee.TaxCode()},
            {"ni_table", employee.NITable()},
            {"director", employee.Director()},
            {"workplace_scheme", employee.PenWorkplaceSchemeID()},
            {"employee_percent", employee.PenWorkplaceEEDeductPC()},
            {"employer_percent", employee.PenWorkplaceERDeductPC()},
            {"pension_joined", employee.AEJoinedDate()},
            {"pension_opted_in", employee.AEOptInDate()},
            {"pension_postponed_to", employee.AEPostponementDate()}};
}

void addEmployments(cEmployee& employee, Report& report) {
    Table& table = report.table(
        "employments", {"prtid", "payroll_year", "count", "type", "row_start", "start",
                        "hmrc_start", "end", "continues", "ae_continues", "last_week", "last_pay",
                        "paid_to", "next_pay", "next_period_end", "ae_status"});
    for (const auto& employment : employee.Employments()) {
        table.add({employment->PRTID(), employment->PayrollYear(), employment->EmployCount(),
                   employment->Casual() ? "casual" : "regular", employment->PRTStartDate(),
                   employment->StartDate(), employment->HMRCStartDate(), employment->EndDate(),
                   employment->Continuation(), employment->AEContinuation(),
                   employment->LastWeekNo(), employment->LastPayDate(), employment->LastEPEDate(),
                   employment->NExpPayDate(), employment->NExpEPEDate(),
                   employment->AEStatusCur()});
    }
}

// What the pay rows say, and which row says it. A figure that no row has touched is left out.
void addFigures(cEmployee& employee, Report& report) {
    Table& table = report.table("figures", {"prtid", "payroll_year", "count", "figure", "value",
                                            "prpid", "pay_date", "week"});
    for (const auto& [employment, figures] : history::figuresOf(employee)) {
        for (const history::Figure& figure : figures) {
            if (figure.source.prpid == 0) continue;
            table.add({employment->PRTID(), employment->PayrollYear(), employment->EmployCount(),
                       figure.name, figure.value, figure.source.prpid, figure.source.payDate,
                       figure.source.week});
        }
    }
}

void runEmployeeAsOf(const Context& context, const QueryOptions& options) {
    const auto file = openFile(context, options.database);
    history::showAsOf(*file, options.date);
    const auto session = sessionOn(context, file);
    session->list().ReLoadEmployee(options.naid);
    const auto employee = employeeOf(*session, options.naid);
    Report report;
    report.say(employee->Name() + " as of " + options.date.toIso() + ": " + stateOf(*employee));
    report.fact("naid", employee->NAID());
    report.fact("name", employee->Name());
    report.fact("as_of", options.date);
    report.fact("state", stateOf(*employee));
    addEmployments(*employee, report);
    addFigures(*employee, report);
    context.show(report);
}

void runEmployee(const Context& context, const QueryOptions& options) {
    if (options.date.isSet()) return runEmployeeAsOf(context, options);
    const auto session = openCompany(context, options.database);
    const auto employee = employeeOf(*session, options.naid);
    Report report;
    for (const auto& [name, value] : details(*employee)) {
        report.fact(name, value);
        const std::string shown = readable(value);
        if (!shown.empty()) report.say(padOrCut(replaceAll(name, "_", " "), 22) + shown);
    }
    addEmployments(*employee, report);
    context.show(report);
}

void runRows(const Context& context, const QueryOptions& options) {
    const auto session = openCompany(context, options.database);
    const auto employee = employeeOf(*session, options.naid);
    const std::int32_t year = options.year != 0 ? options.year : DLLGlobal::currentPayrollYear();
    Report report;
    Table table("rows",
                {"prpid", "count", "week", "period", "pay_date", "to", "closed", "calculation",
                 "hours", "period_pay", "next_pay", "next_period_end", "late_reason"});
    const auto rows = OpenPaymentsRS(employee->NAID(), 0, year);
    for (; !rows->Eof(); rows->MoveNext()) {
        table.add({rows->GetInt32(field::PRPID), rows->GetInt32(field::PRPPYEmployCount),
                   rows->GetInt16(field::PRPWeekNo), rows->GetInt32(field::PRPPaymentPeriod),
                   rows->GetDate(field::PRPPayDate), rows->GetDate(field::PRPEPEDate),
                   rows->GetBoolean(field::PRPPeriodUpdated),
                   rows->GetInt32(field::PRPCalculationUsed), rows->GetDouble(field::PRPStdHours),
                   rows->GetCurrency(field::PRPPeriodPay), rows->GetDate(field::PRPNExpPayDate),
                   rows->GetDate(field::PRPNExpEPEDate), rows->GetText(field::PRPRTILateReason)});
    }
    rows->Close();
    report.say(employee->Name() + ": " +
               counted(static_cast<std::int64_t>(table.rows().size()), "row") +
               " in payroll year " + std::to_string(year));
    report.table(std::move(table));
    context.show(report);
}

void runDue(const Context& context, const QueryOptions& options) {
    const auto session = openCompany(context, options.database);
    const Date upTo =
        options.date.isSet() ? options.date : session->payroll().C_Next_Expected_Pay_Date();
    context.show(whatIsDue(*session, upTo));
}

}  // namespace

void addQueryCommands(CLI::App& app, Context& context) {
    const auto options = std::make_shared<QueryOptions>();
    const auto choose = [&context, options](CLI::App* command, auto run) {
        command->callback([&context, options, run] {
            context.action = [&context, options, run] { run(context, *options); };
        });
    };

    auto* employees = app.add_subcommand("employees", "All employees and where they stand");
    addDatabase(*employees, options->database);
    choose(employees, runEmployees);

    auto* employee = app.add_subcommand("employee", "One employee with every employment");
    addDatabase(*employee, options->database);
    employee->add_option("NAID", options->naid, "The number of the employee")->required();
    addDate(*employee, "--as-of", options->date,
            "By the rows paid up to this day alone, with the row behind each figure");
    choose(employee, runEmployee);

    auto* rows = app.add_subcommand("rows", "The pay rows of one employee in a payroll year");
    addDatabase(*rows, options->database);
    rows->add_option("NAID", options->naid, "The number of the employee")->required();
    rows->add_option("--year", options->year, "Payroll year number; else the current one");
    choose(rows, runRows);

    auto* due = app.add_subcommand("due", "Whose pay falls due, and how many periods");
    addDatabase(*due, options->database);
    addDate(*due, "--up-to", options->date,
            "Up to this pay date; else up to the next one expected");
    choose(due, runDue);
}

}  // namespace ledgerwick::app
