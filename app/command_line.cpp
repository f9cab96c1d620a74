#include "app/command_line.h"

#include <algorithm>
#include <map>
#include <ostream>
#include <sstream>
#include <string>
#include <string_view>

#include "app/commands/commands.h"
#include "app/context.h"
#include "app/options.h"
#include "hostkit/all_stores.h"
#include "hostkit/exchange/company_files.h"
#include "hostkit/office/refusal.h"
#include "hostkit/services/terminal_text.h"
#include "ledgerwick/values/text.h"
#include "ledgerwick/version.h"

namespace ledgerwick::app {

namespace {

constexpr const char* footer = R"(Exit codes:
  0  done
  1  the library, the database or a file failed; an error of the library is
     shown with its number, source and description
  2  the command line cannot be understood
  3  a file to import holds a fault, and nothing of that import was stored; or a
     template does
  4  there is no such employee or database, or it is not in a state for this
  5  an audit found something)";

// The letters of the name are the form: `--csv`, `--json`.
void addFormats(CLI::App& app, Context& context) {
    auto* csv = app.add_flag_callback(
        "--csv", [&context] { context.format = Format::Csv; }, "Write the table as CSV");
    app.add_flag_callback(
           "--json", [&context] { context.format = Format::Json; }, "Write everything as JSON")
        ->excludes(csv);
}

void addToday(CLI::App& app, Context& context) {
    const auto read = [&context](const std::string& text) {
        Date day;
        if (!parseDate(text, day)) {
            throw CLI::ValidationError("\"" + text + "\" is not a date (YYYY-MM-DD)");
        }
        context.fixedToday = day;
    };
    app.add_option_function<std::string>("--today", read, "Work as on this day, not on the clock's")
        ->type_name("DATE");
}

void addDurability(CLI::App& app, Context& context) {
    static const std::map<std::string, store::Durability> settings{
        {"each-update", store::Durability::EachUpdate},
        {"batched", store::Durability::Batched},
        {"relaxed", store::Durability::Relaxed},
    };
    const auto choose = [&context](const std::string& name) {
        context.durability = settings.at(name);
    };
    app.add_option_function<std::string>("--durability", choose,
                                         "What a power cut can take: each-update, batched, relaxed")
        ->check(CLI::IsMember(settings).description(""))
        ->type_name("NAME");
}

// What is told of a failure, whatever stands in the words: each line without controls and cut to a
// bearable length.
void tell(std::ostream& err, std::string_view words) {
    constexpr std::size_t longestLine = 1000;
    while (!words.empty()) {
        const std::string line = withoutControls(words.substr(0, words.find('\n')));
        const std::string_view shown = firstCharacters(line, longestLine);
        err << shown << (shown.size() < line.size() ? "..." : "") << '\n';
        words.remove_prefix(std::min(words.find('\n'), words.size() - 1) + 1);
    }
}

int runAction(const Context& context) {
    try {
        context.action();
        context.out.flush();
        return context.out.good() ? context.outcome : exitError;
    } catch (const Refusal& refusal) {
        tell(context.err, "ledgerwick: " + withoutControls(refusal.what()));
        return exitRefused;
    } catch (const office::Refusal& refusal) {
        tell(context.err, "ledgerwick: " + withoutControls(refusal.Description()));
        return exitRefused;
    } catch (const Error& error) {
        const bool otherVersion = error.Number() == error_number::wrongVersion;
        tell(context.err,
             "ledgerwick: " + withoutControls(otherVersion ? error.Description() : error.what()));
        return otherVersion ? exitRefused : exitError;
    } catch (const exchange::BadFiles& faults) {
        tell(context.err, std::string(faults.what()) + "\nledgerwick: nothing was imported");
        return exitBadFile;
    } catch (const std::exception& error) {  // an Error says number, source and description
        tell(context.err, "ledgerwick: " + withoutControls(error.what()));
        return exitError;
    }
}

}  // namespace

int runCommandLine(std::vector<std::string> arguments, std::ostream& out, std::ostream& err) {
    registerStores();
    Context context(out, err);
    CLI::App app("Runs a UK payroll database with the Ledgerwick library.", "ledgerwick");
    app.footer(footer);
    app.set_version_flag("--version", "ledgerwick " + std::string(libraryVersion()),
                         "Print the version and exit");
    app.require_subcommand(1);
    app.fallthrough();
    addToday(app, context);
    addFormats(app, context);
    addDurability(app, context);
    addCompanyCommands(app, context);
    addCalendarCommands(app, context);
    addQueryCommands(app, context);
    addRunCommands(app, context);
    addReportCommand(app, context);
    addEmploymentCommands(app, context);
    addAutoEnrolCommands(app, context);
    addAuditCommand(app, context);
    addStatementsCommand(app, context);
    addDemoCommand(app, context);
    addDescribeCommand(app, context);
    std::reverse(arguments.begin(), arguments.end());  // the parser takes them from the end
    try {
        app.parse(arguments);
    } catch (const CLI::ParseError& result) {
        std::ostringstream words;
        const bool isHelp = app.exit(result, out, words) == 0;
        tell(err, words.str());
        return isHelp ? exitDone : exitUsage;
    }
    return runAction(context);
}

}  // namespace ledgerwick::app
