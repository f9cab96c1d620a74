#include <memory>

#include "app/commands/commands.h"
#include "app/commands/pay_run.h"
#include "app/commands/plan.h"
#include "app/options.h"

namespace ledgerwick::app {

namespace {

struct RunOptions {
    std::string database;
    Selection selection;
};

// The options that say which run a step is for.
void addSelection(CLI::App& command, Selection& selection) {
    addDate(command, "--pay-date", selection.payDate, "The pay date of the run")->required();
    addFrequency(command, selection.frequency, "Only employees paid so");
    command.add_option("--group", selection.group, "Only employees of this group");
    command.add_option("--employee", selection.naid, "Only the employee of this number");
}

void addStep(CLI::App& run, Context& context, const std::string& name, const std::string& help,
             RunStep step) {
    const auto options = std::make_shared<RunOptions>();
    auto* command = run.add_subcommand(name, help);
    addDatabase(*command, options->database);
    addSelection(*command, options->selection);
    command->callback([&context, options, step] {
        context.action = [&context, options, step] {
            const auto session = openCompany(context, options->database);
            if (options->selection.naid != 0) employeeOf(*session, options->selection.naid);
            context.show(step(*session, options->selection));
        };
    });
}

void addPlan(CLI::App& run, Context& context) {
    const auto options = std::make_shared<RunOptions>();
    const auto step = std::make_shared<std::string>();
    auto* command = run.add_subcommand(
        "plan", "Show row by row what opening or closing would write; nothing is written");
    addDatabase(*command, options->database);
    command->add_option("STEP", *step, "The step to plan: open, close")
        ->required()
        ->check(CLI::IsMember({"open", "close"}));
    addSelection(*command, options->selection);
    command->callback([&context, options, step] {
        context.action = [&context, options, step] {
            context.show(planOf(context, options->database, *step == "open" ? openStep : closeStep,
                                options->selection));
        };
    });
}

}  // namespace

void addRunCommands(CLI::App& app, Context& context) {
    auto* run = app.add_subcommand("run", "A pay run: open it, look at it, close it");
    run->require_subcommand(1);
    addStep(*run, context, "open", "Prepare a pay record for every period due", openStep);
    addStep(*run, context, "show", "List the open pay records; nothing is written", showStep);
    addStep(*run, context, "close", "Close the open pay records and move the dates on", closeStep);

    addPlan(*run, context);

    const auto database = std::make_shared<std::string>();
    auto* fill = app.add_subcommand("fill", "Add a row for each period skipped in this year");
    addDatabase(*fill, *database);
    fill->callback([&context, database] {
        context.action = [&context, database] {
            context.show(fillGaps(*openCompany(context, *database)));
        };
    });
}

}  // namespace ledgerwick::app
