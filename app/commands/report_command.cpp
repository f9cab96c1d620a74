// A pay date on one page, as a file.
#include <filesystem>
#include <fstream>
#include <memory>

#include "app/commands/commands.h"
#include "app/options.h"
#include "hostkit/report/pay_date_page.h"

namespace ledgerwick::app {

namespace {

struct PageOptions {
    std::string database;
    Date payDate;
    std::string output;
};

void runPage(const Context& context, const PageOptions& options) {
    const auto session = openCompany(context, options.database);
    const std::string page = report::payDatePage(
        *session, std::filesystem::path(options.database).filename().string(), options.payDate);
    std::ofstream out(options.output, std::ios::binary);
    out << page;
    out.close();
    if (!out) throw std::runtime_error("cannot write " + options.output);
    Report report;
    report.say("Report of " + options.payDate.toIso() + " written to " + options.output);
    report.fact("file", options.output);
    context.show(report);
}

}  // namespace

void addReportCommand(CLI::App& app, Context& context) {
    const auto options = std::make_shared<PageOptions>();
    auto* command = app.add_subcommand(
        "report", "A pay date on one HTML page: the run, who is due and why, gaps, the year drawn");
    addDatabase(*command, options->database);
    addDate(*command, "--pay-date", options->payDate, "The pay date of the run")->required();
    command->add_option("--output", options->output, "The HTML file to write")->required();
    command->callback([&context, options] {
        context.action = [&context, options] { runPage(context, *options); };
    });
}

}  // namespace ledgerwick::app
