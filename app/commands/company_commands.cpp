#include <memory>

#include "app/commands/commands.h"
#include "app/options.h"
#include "hostkit/exchange/company_files.h"
#include "hostkit/office/company.h"
#include "hostkit/store/open.h"
#include "hostkit/store/upgrade.h"
#include "ledgerwick/calendar/tax_calendar.h"

namespace ledgerwick::app {

namespace {

struct CompanyOptions {
    std::string database;
    std::string folder;
    int year = 0;
};

void runNew(const Context& context, const CompanyOptions& options) {
    if (store::exists(options.database)) {
        throw Refusal(options.database + " is there already");
    }
    office::layDownSettings(*store::create(options.database), options.year);
    Report report;
    report.say(options.database + " created for the tax year from 6 April " +
               std::to_string(options.year) + ", payroll year " +
               std::to_string(options.year - calendar::calendarYearOfPayrollYear0));
    context.show(report);
}

void show(const Context& context, const std::vector<exchange::TableCount>& counts,
          const std::string& done) {
    Report report;
    Table& table = report.table("tables", {"table", "rows"});
    std::int64_t rows = 0;
    for (const exchange::TableCount& count : counts) {
        table.add({count.table, static_cast<std::int64_t>(count.rows)});
        rows += static_cast<std::int64_t>(count.rows);
    }
    report.say(counted(rows, "row") + " " + done);
    context.show(report);
}

void runImport(const Context& context, const CompanyOptions& options) {
    const bool isNew = !store::exists(options.database);
    try {
        const auto database = exchange::openOrCreate(options.database);
        show(context, exchange::importCompany(*database, options.folder), "imported");
        for (const std::string& broken : exchange::brokenLinks(*database)) {
            context.err << "ledgerwick: warning: " << broken << '\n';
        }
    } catch (...) {
        if (isNew) store::remove(options.database);
        throw;
    }
}

void runExport(const Context& context, const CompanyOptions& options) {
    if (!store::exists(options.database)) {
        throw Refusal("there is no database " + options.database);
    }
    show(context,
         exchange::exportCompany(*exchange::openOrCreate(options.database), options.folder),
         "exported");
}

void runUpgrade(const Context& context, const CompanyOptions& options) {
    if (!store::exists(options.database)) {
        throw Refusal("there is no database " + options.database);
    }
    const store::Upgrade done = store::upgrade(options.database);
    Report report;
    if (done.copy.empty()) {
        report.say(options.database + " is of version " + std::to_string(done.to) + " already");
    } else {
        report.say(options.database + " upgraded from version " + std::to_string(done.from) +
                   " to version " + std::to_string(done.to) + "; as it was it is kept in " +
                   done.copy);
    }
    report.fact("from", std::int64_t{done.from});
    report.fact("to", std::int64_t{done.to});
    report.fact("copy", done.copy);
    context.show(report);
}

}  // namespace

void addCompanyCommands(CLI::App& app, Context& context) {
    const auto options = std::make_shared<CompanyOptions>();

    auto* create = app.add_subcommand("new", "Create an empty database for a company");
    addDatabase(*create, options->database);
    create->add_option("--year", options->year, "The calendar year in which the tax year begins")
        ->required()
        ->check(CLI::Range(2001, 9990));
    create->callback([&context, options] {
        context.action = [&context, options] { runNew(context, *options); };
    });

    auto* importing = app.add_subcommand(
        "import", "Take in a company from CSV files, one for each table; DB is made if need be");
    addDatabase(*importing, options->database);
    importing->add_option("DIR", options->folder, "The folder of the files")
        ->required()
        ->check(CLI::ExistingDirectory);
    importing->callback([&context, options] {
        context.action = [&context, options] { runImport(context, *options); };
    });

    auto* upgrading = app.add_subcommand(
        "upgrade", "Bring a company of an older release up to this one, and keep a copy");
    addDatabase(*upgrading, options->database);
    upgrading->callback([&context, options] {
        context.action = [&context, options] { runUpgrade(context, *options); };
    });

    auto* exporting = app.add_subcommand("export", "Write every table of a company as a CSV file");
    addDatabase(*exporting, options->database);
    exporting->add_option("DIR", options->folder, "The folder for the files")->required();
    exporting->callback([&context, options] {
        context.action = [&context, options] { runExport(context, *options); };
    });
}

}  // namespace ledgerwick::app
