#include <map>
#include <memory>

#include "app/commands/commands.h"
#include "app/commands/pay_run.h"
#include "app/options.h"
#include "hostkit/office/employments.h"
#include "hostkit/office/transaction.h"

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
    office::NewEmployment details;
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

// Whether the company has payroll details of the employee, who may have no employment yet.
bool hasDetails(Database& database, std::int32_t naid) {
    const auto rows = database.OpenRecordset(
        "SELECT PRENAID FROM PREmployeeDetails WHERE PRENAID = " + std::to_string(naid),
        RecordsetType::Snapshot);
    const bool found = !rows->Eof();
    rows->Close();
    return found;
}

void runAdd(const Context& context, AddOptions& options) {
    const auto session = openCompanyOfNewcomers(context, options.database);
    const std::int32_t naid = options.details.naid;
    if (!hasDetails(session->database(), naid)) {
        throw Refusal("there is no employee " + std::to_string(naid));
    }
    if (office::isEmployed(*session, naid)) {
        throw Refusal("employee " + std::to_string(naid) +
                      " has an employment of this year that has not ended");
    }
    options.details.addInfo = addInfo(options.form);
    std::shared_ptr<cEmployment> added;
    office::inTransaction(*session,
                          [&] { added = office::addEmployment(*session, options.details); });
    const auto taken = employeeOf(*session, naid);
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
    add->add_option("--employee", options->details.naid, "The number of the employee")->required();
    addDate(*add, "--start", options->details.start, "The first day")->required();
    add->add_flag("--casual", options->details.casual, "Casual work");
    add->add_flag("--continuation", options->details.continuation,
                  "For auto-enrolment it carries on the employment before");
    add->add_option("--ae-status", options->details.aeStatus, "Auto-enrolment status at the start");
    addDate(*add, "--first-pay", options->details.firstPay,
            "First pay date; else that of those paid as often");
    addDate(*add, "--first-period-end", options->details.firstPeriodEnd,
            "End of the first pay period");
    addFormOptions(*add, options->form);
    add->callback([&context, options] {
        context.action = [&context, options] { runAdd(context, *options); };
    });
    addNextCommand(*employment, context);
}

}  // namespace ledgerwick::app
