#include <map>
#include <memory>

#include "app/commands.h"
#include "app/options.h"
#include "app/pay_run.h"

namespace ledgerwick::app {

namespace {

struct StarterForm {
    PRTAType type = PRTAT_JOIN;  // no form
    Date declared;
    std::string previousReference;
    Date previousLeft;
    std::string previousTaxCode;
    std::int16_t previousWeek = 0;
    double previousGross = 0;
    double previousTax = 0;
    std::string text;
};

struct AddOptions {
    std::string database;
    std::int32_t naid = 0;
    Date start;
    bool casual = false;
    bool continuation = false;
    std::string aeStatus;
    Date firstPay;
    Date firstPeriodEnd;
    StarterForm form;
};

struct NextOptions {
    std::string database;
    std::int32_t naid = 0;
    Date pay;
    Date periodEnd;
};

const std::map<std::string, PRTAType> formNames{{"p38s", PRTAT_P38S},
                                                {"p46", PRTAT_P46},
                                                {"p45-1", PRTAT_P451},
                                                {"p45-3", PRTAT_P453},
                                                {"left", PRTAT_LEFT}};

// The array in which the library takes a starter's form; element 2 is the library's own.
Variant addInfo(const StarterForm& form) {
    if (form.type == PRTAT_JOIN) return {};
    VariantArray array(1, 18);
    array.at(3) = std::int16_t{form.type};
    array.at(4) = std::int16_t{0};
    array.at(5) = "";
    array.at(6) = form.declared;
    array.at(7) = false;
    array.at(8) = form.previousReference;
    array.at(9) = form.previousLeft;
    array.at(10) = std::int16_t{0};
    array.at(11) = form.previousTaxCode;
    array.at(12) = false;
    array.at(13) = form.previousWeek;
    array.at(14) = Currency::fromDouble(form.previousGross);
    array.at(15) = Currency::fromDouble(form.previousTax);
    array.at(16) = form.text;
    array.at(17) = "";
    array.at(18) = std::int16_t{0};
    return array;
}

// The employee's next employment count in the current payroll year.
std::int32_t nextCount(cEmployee& employee) {
    const std::int32_t year = DLLGlobal::currentPayrollYear();
    std::int32_t highest = 0;
    for (const auto& employment : employee.Employments()) {
        if (employment->PayrollYear() == year)
            highest = std::max(highest, employment->EmployCount());
    }
    return highest + 1;
}

// The library takes the count from the employee's details, where the host keeps it.
void storeCount(Database& database, std::int32_t naid, std::int32_t count) {
    const auto rows = database.OpenRecordset(
        "SELECT PRENAID, PREPYEmployCount FROM PREmployeeDetails WHERE PRENAID = " +
            std::to_string(naid),
        RecordsetType::Dynaset);
    rows->Edit();
    rows->Value(field::PREPYEmployCount, count);
    rows->Update();
    rows->Close();
}

// When pay falls due first: on the next pay date of those paid as often that is not before the
// start, or else at the end of the first period.
Date firstPayDate(HostSession& session, PR_Pay_Freq frequency, Date start) {
    bool none = false;
    Date next = session.payroll().C_Next_Expected_Pay_Date(&none, frequency);
    if (none) return session.payroll().C_Calc_Next_NExpDate(start, frequency, PR_NExp_Pay, true);
    while (next < start) {
        next = session.payroll().C_Calc_Next_NExpDate(next, frequency, PR_NExp_Pay);
    }
    return next;
}

Date firstPeriodEnd(HostSession& session, PR_Pay_Freq frequency, Date start) {
    bool none = false;
    Date next = session.payroll().C_Next_Expected_EPE_Date(&none, frequency);
    if (none) return session.payroll().C_Calc_Next_NExpDate(start, frequency, PR_NExp_EPE, true);
    while (next < start) {
        next = session.payroll().C_Calc_Next_NExpDate(next, frequency, PR_NExp_EPE);
    }
    return next;
}

// How often the employee of that number is paid, who may have no employment yet.
PR_Pay_Freq frequencyOf(Database& database, std::int32_t naid) {
    const auto rows = database.OpenRecordset(
        "SELECT PREPayFrequency FROM PREmployeeDetails WHERE PRENAID = " + std::to_string(naid),
        RecordsetType::Snapshot);
    if (rows->Eof()) throw Refusal("there is no employee " + std::to_string(naid));
    const auto frequency = static_cast<PR_Pay_Freq>(rows->GetInt16(field::PREPayFrequency));
    rows->Close();
    return frequency;
}

// The row from which the periods of the employment are counted: closed, without pay, and up to the
// day before the start.
void layDownStartingRow(HostSession& session, PR_Pay_Freq frequency, const AddOptions& options) {
    const Date pay = options.firstPay.isSet() ? options.firstPay
                                              : firstPayDate(session, frequency, options.start);
    const Date end = options.firstPeriodEnd.isSet()
                         ? options.firstPeriodEnd
                         : firstPeriodEnd(session, frequency, options.start);
    const std::int32_t week = session.payroll().C_CalcTaxWeek(options.start) - 1;
    session.payroll().C_CreateStartingPayRecord(options.naid, week, options.start.addDays(-1), pay,
                                                end);
}

void runAdd(const Context& context, const AddOptions& options) {
    const auto session = openCompanyOfNewcomers(context, options.database);
    const PR_Pay_Freq frequency = frequencyOf(session->database(), options.naid);
    const auto employee = session->list().GetEmployeeByNAID(options.naid);
    if (employee && employee->Active()) {
        throw Refusal("employee " + std::to_string(options.naid) +
                      " has an employment of this year that has not ended");
    }
    storeOf(*session).inTransaction([&] {
        storeCount(session->database(), options.naid, employee ? nextCount(*employee) : 1);
        session->payroll().C_CreateNewEmploymentRecord(
            options.naid, session->payroll().C_CalcTaxWeek(options.start) - 1,
            options.casual ? PR_ET_Casual : PR_ET_Regular, options.start.toIso(),
            addInfo(options.form), options.continuation, options.aeStatus);
        if (!options.casual) layDownStartingRow(*session, frequency, options);
        session->list().ReLoadEmployee(options.naid);
    });
    const auto taken = employeeOf(*session, options.naid);
    const auto added = taken->MostRecentEmployment();
    Report report;
    report.say("Employment " + std::to_string(added->EmployCount()) + " of payroll year " +
               std::to_string(added->PayrollYear()) + " added for " + taken->Name());
    Table& table = report.table("employment", {"prtid", "payroll_year", "count", "start", "end",
                                               "next_pay", "next_period_end"});
    table.add({added->PRTID(), added->PayrollYear(), added->EmployCount(), added->PRTStartDate(),
               added->EndDate(), added->NExpPayDate(), added->NExpEPEDate()});
    context.show(report);
}

// The dates stand in the last closed row, from which the next run counts.
void runNext(const Context& context, const NextOptions& options) {
    const auto session = openCompany(context, options.database);
    const auto employee = employeeOf(*session, options.naid);
    const auto employment = employee->CurEmployment();
    if (employment->LastUD_PRPID() == 0) {
        throw Refusal("employee " + std::to_string(options.naid) +
                      " has no closed pay row of a current employment");
    }
    if (options.pay.isSet()) employment->NExpPayDate(options.pay);
    if (options.periodEnd.isSet()) employment->NExpEPEDate(options.periodEnd);
    Report report;
    report.say(employee->Name() + " is paid next on " + employment->NExpPayDate().toIso() +
               ", up to " + employment->NExpEPEDate().toIso());
    report.fact("next_pay", employment->NExpPayDate());
    report.fact("next_period_end", employment->NExpEPEDate());
    context.show(report);
}

void addNextCommand(CLI::App& employment, Context& context) {
    const auto options = std::make_shared<NextOptions>();
    auto* next = employment.add_subcommand(
        "next", "Move the dates that are expected next, to skip a period or change the pay day");
    addDatabase(*next, options->database);
    next->add_option("--employee", options->naid, "The number of the employee")->required();
    auto* dates = next->add_option_group("dates", "What to move");
    addDate(*dates, "--pay", options->pay, "Pay falls due next on this date");
    addDate(*dates, "--period-end", options->periodEnd, "The next pay period ends on this date");
    dates->require_option(1, 2);
    next->callback([&context, options] {
        context.action = [&context, options] { runNext(context, *options); };
    });
}

void addFormOptions(CLI::App& command, StarterForm& form) {
    const std::string group = "The starter's form";
    command.add_option("--form", form.type, "Which form the starter gave")
        ->transform(CLI::CheckedTransformer(formNames, CLI::ignore_case))
        ->group(group);
    addDate(command, "--declared", form.declared, "Date of the declaration")->group(group);
    command
        .add_option("--previous-reference", form.previousReference,
                    "PAYE reference of the previous employer")
        ->group(group);
    addDate(command, "--previous-left", form.previousLeft, "Leaving date there")->group(group);
    command.add_option("--previous-tax-code", form.previousTaxCode, "Tax code there")->group(group);
    command.add_option("--previous-week", form.previousWeek, "Tax week there")->group(group);
    command.add_option("--previous-gross", form.previousGross, "Gross pay there")->group(group);
    command.add_option("--previous-tax", form.previousTax, "Tax there")->group(group);
    command.add_option("--text", form.text, "Free text")->group(group);
}

}  // namespace

void addEmploymentCommands(CLI::App& app, Context& context) {
    const auto options = std::make_shared<AddOptions>();
    auto* employment = app.add_subcommand("employment", "Employment records");
    employment->require_subcommand(1);
    auto* add = employment->add_subcommand(
        "add", "Add an employment of the current year, with the row from which its pay counts");
    addDatabase(*add, options->database);
    add->add_option("--employee", options->naid, "The number of the employee")->required();
    addDate(*add, "--start", options->start, "The first day")->required();
    add->add_flag("--casual", options->casual, "Casual work");
    add->add_flag("--continuation", options->continuation,
                  "For auto-enrolment it carries on the employment before");
    add->add_option("--ae-status", options->aeStatus, "Auto-enrolment status at the start");
    addDate(*add, "--first-pay", options->firstPay,
            "First pay date; else that of those paid as often");
    addDate(*add, "--first-period-end", options->firstPeriodEnd, "End of the first pay period");
    addFormOptions(*add, options->form);
    add->callback([&context, options] {
        context.action = [&context, options] { runAdd(context, *options); };
    });
    addNextCommand(*employment, context);
}

}  // namespace ledgerwick::app
