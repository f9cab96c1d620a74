#include <algorithm>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>

#include "app/commands/autoenrol.h"
#include "app/commands/commands.h"
#include "app/options.h"
#include "hostkit/office/template_check.h"

namespace ledgerwick::app {

namespace {

struct AutoEnrolOptions {
    std::string database;
    Date upTo;
    std::int32_t year = 0;
    std::int32_t naid = 0;
    std::int32_t scheme = 0;
    std::vector<Date> reEnrolment{Date(), Date()};
    bool full = false;
    PR_AE_LETTER_TYPES letterType = PR_AELT_NONE;
    std::string folder;
    std::string programFolder;
    std::vector<std::string> templates;
};

void runStatus(const Context& context, const AutoEnrolOptions& options) {
    const auto session = openCompany(context, options.database);
    const Date upTo = options.upTo.isSet() ? options.upTo : context.today();
    const std::int32_t year = options.year != 0 ? options.year : DLLGlobal::currentPayrollYear();
    context.show(autoEnrolStatus(*session, upTo, year, options.naid));
}

void runActive(const Context& context, const AutoEnrolOptions& options) {
    const auto session = openCompany(context, options.database);
    ResultTable result = session->payroll().C_ActiveEmployees(options.full);
    Report report;
    addResult(report, "employees", result);
    context.show(report);
}

std::int32_t visitedRows(HostSession& session) {
    const auto rows = session.database().OpenRecordset(
        "SELECT PRPID FROM PRPay WHERE PRPPeriodUpdated = False AND PRPHasBeenVisited = True",
        RecordsetType::Dynaset);
    const std::int32_t count = rows->RecordCount();
    rows->Close();
    return count;
}

void runSchemeChanged(const Context& context, const AutoEnrolOptions& options) {
    const auto session = openCompany(context, options.database);
    const std::int32_t before = visitedRows(*session);
    if (options.scheme != 0) session->payroll().C_PenWorkplaceSchemeUpdate(options.scheme);
    if (options.reEnrolment[0].isSet()) {
        session->payroll().C_ReEnrolDateChanged(options.reEnrolment[0], options.reEnrolment[1]);
    }
    const std::int32_t withdrawn = before - visitedRows(*session);
    Report report;
    report.say(counted(withdrawn, "open row") + " to be worked again");
    report.fact("rows_to_work_again", withdrawn);
    context.show(report);
}

void writeLetter(const std::filesystem::path& file, const std::string& text) {
    std::ofstream out(file, std::ios::binary);
    out << text;
    out.close();
    if (!out) throw std::runtime_error("cannot write " + file.string());
}

void runLetters(const Context& context, const AutoEnrolOptions& options) {
    const auto databaseFolder = std::filesystem::absolute(options.database).parent_path().string();
    const std::string& program =
        options.programFolder.empty() ? databaseFolder : options.programFolder;
    const auto session = openCompany(context, options.database, program);
    std::vector<std::shared_ptr<cEmployee>> workers;
    if (options.naid != 0) {
        workers.push_back(employeeOf(*session, options.naid));
    } else {
        workers = recipients(*session, options.letterType);
    }
    std::filesystem::create_directories(options.folder);
    Report report;
    Table& table = report.table("letters", {"naid", "name", "file"});
    for (const auto& worker : workers) {
        const std::string text = letterTo(*session, *worker, options.letterType);
        if (text.empty()) throw Refusal("there is no template of this letter below " + program);
        CAELetterDetail kind;
        kind.LetterType(options.letterType);
        const std::string name =
            kind.LetterTypeText() + " " + std::to_string(worker->NAID()) + ".txt";
        writeLetter(std::filesystem::path(options.folder) / name, text);
        table.add({worker->NAID(), worker->Name(), name});
    }
    report.say(counted(static_cast<std::int64_t>(workers.size()), "letter") + " written");
    context.show(report);
}

std::string contentOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    if (!file) throw Refusal("cannot read " + path.string());
    return std::move(bytes).str();
}

// The files named, and the text files of folders, by name.
std::vector<std::filesystem::path> templateFiles(const std::vector<std::string>& paths) {
    std::vector<std::filesystem::path> files;
    for (const std::string& path : paths) {
        if (!std::filesystem::is_directory(path)) {
            files.emplace_back(path);
            continue;
        }
        const auto first = static_cast<std::ptrdiff_t>(files.size());
        for (const auto& entry : std::filesystem::directory_iterator(path)) {
            if (entry.path().extension() == ".txt") files.push_back(entry.path());
        }
        std::sort(files.begin() + first, files.end());
    }
    if (files.empty()) throw Refusal("there is no template in " + paths.front());
    return files;
}

void runCheckTemplates(Context& context, const AutoEnrolOptions& options) {
    std::unique_ptr<HostSession> session;
    if (!options.database.empty()) session = openCompany(context, options.database);
    Report report;
    Table table("faults", {"file", "line", "column", "fault"});
    const auto files = templateFiles(options.templates);
    for (const auto& file : files) {
        const std::string name = file.filename().string();
        const auto type = options.letterType != PR_AELT_NONE ? std::optional(options.letterType)
                                                             : letterTypeOfTemplate(name);
        if (!type) {
            table.add({name, 1, 1, "no letter is made from a file of this name; say --type"});
        }
        const auto why = [&](LetterValue value) {
            return whyUnfilled(value, type, session ? &session->parameters() : nullptr);
        };
        for (const office::TemplateFault& fault : office::templateFaults(contentOf(file), why)) {
            table.add({name, static_cast<std::int64_t>(fault.line),
                       static_cast<std::int64_t>(fault.column), fault.what});
        }
    }
    const auto faults = static_cast<std::int64_t>(table.rows().size());
    report.say(counted(static_cast<std::int64_t>(files.size()), "template") + ", " +
               counted(faults, "fault"));
    report.table(std::move(table));
    context.show(report);
    if (faults > 0) context.outcome = exitBadFile;
}

CLI::Option* addLetterType(CLI::App& command, PR_AE_LETTER_TYPES& type, const std::string& help) {
    const auto read = [&type](const std::string& name) {
        const auto found = letterTypeOf(name);
        if (!found)
            throw CLI::ValidationError("\"" + name + "\" is not one of " + letterTypeNames());
        type = *found;
    };
    return command.add_option_function<std::string>("--type", read, help + letterTypeNames())
        ->type_name("NAME");
}

}  // namespace

void addAutoEnrolCommands(CLI::App& app, Context& context) {
    const auto options = std::make_shared<AutoEnrolOptions>();
    auto* ae = app.add_subcommand("ae", "Pension auto-enrolment");
    ae->require_subcommand(1);
    const auto add = [&](const std::string& name, const std::string& help, auto run) {
        auto* command = ae->add_subcommand(name, help);
        addDatabase(*command, options->database);
        command->callback([&context, options, run] {
            context.action = [&context, options, run] { run(context, *options); };
        });
        return command;
    };

    auto* status = add("status", "The table of all regular workers' status", runStatus);
    addDate(*status, "--up-to", options->upTo, "As of this pay date; else today");
    status->add_option("--year", options->year, "Payroll year number; else the current one");
    status->add_option("--employee", options->naid, "Only the employee of this number");

    auto* active = add("employees", "The table of all regular workers", runActive);
    active->add_flag("--full", options->full, "With the sixteen further fields");

    auto* changed =
        add("scheme-changed", "Have open rows worked again after a change", runSchemeChanged);
    auto* what = changed->add_option_group("what", "What has changed");
    what->add_option("--scheme", options->scheme, "The rates of this scheme");
    what->add_option_function<std::vector<std::string>>(
            "--re-enrolment",
            [options](const std::vector<std::string>& texts) {
                for (std::size_t i = 0; i < 2; ++i) {
                    if (!parseDate(texts[i], options->reEnrolment[i])) {
                        throw CLI::ValidationError("\"" + texts[i] +
                                                   "\" is not a date (YYYY-MM-DD)");
                    }
                }
            },
            "The re-enrolment date, from the first date to the second")
        ->type_name("OLD NEW")
        ->expected(2);
    what->require_option(1, 2);

    auto* letters =
        add("letters", "Write a letter to each worker that one of its kind goes to", runLetters);
    addLetterType(*letters, options->letterType, "One of ")->required();
    letters->add_option("--out", options->folder, "The folder for the letters")->required();
    letters->add_option("--employee", options->naid, "Only the employee of this number");
    letters->add_option("--templates", options->programFolder,
                        "The folder that holds \"AE Letter Templates\"; else that of the database");

    auto* check = ae->add_subcommand("check-templates", "Find what is wrong with letter templates");
    check->add_option("FILE", options->templates, "Templates, or folders of templates")
        ->required()
        ->check(CLI::ExistingPath);
    addLetterType(*check, options->letterType,
                  "The kind of letter, else told by each file's name: ");
    check->add_option("--db", options->database,
                      "The company, to tell which parameters its letters lack");
    check->callback([&context, options] {
        context.action = [&context, options] { runCheckTemplates(context, *options); };
    });
}

}  // namespace ledgerwick::app
