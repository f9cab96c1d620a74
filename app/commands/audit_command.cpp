#include <algorithm>
#include <memory>
#include <vector>

#include "app/commands/commands.h"
#include "app/options.h"
#include "hostkit/audit/audit.h"
#include "hostkit/audit/removal.h"

namespace ledgerwick::app {

namespace {

const char* wordFor(audit::Severity severity) {
    switch (severity) {
        case audit::Severity::Stops:
            return "stops";
        case audit::Severity::Figures:
            return "figures";
        default:
            return "note";
    }
}

std::int64_t countOf(const std::vector<audit::Finding>& findings, audit::Severity severity) {
    return std::count_if(findings.begin(), findings.end(), [severity](const audit::Finding& each) {
        return each.kind->severity == severity;
    });
}

// Each kind once, in the order of the findings.
std::vector<const audit::Kind*> kindsIn(const std::vector<audit::Finding>& findings) {
    std::vector<const audit::Kind*> kinds;
    for (const audit::Finding& finding : findings) {
        if (std::find(kinds.begin(), kinds.end(), finding.kind) == kinds.end()) {
            kinds.push_back(finding.kind);
        }
    }
    return kinds;
}

void tell(const std::vector<audit::Finding>& findings, Report& report) {
    Table& table = report.table("findings", {"severity", "kind", "table", "key", "naid", "name",
                                             "what", "error", "what_to_do"});
    table.showColumns({"severity", "kind", "table", "key", "naid", "name", "what"});
    for (const audit::Finding& finding : findings) {
        table.add({wordFor(finding.kind->severity), finding.kind->name, finding.table, finding.key,
                   finding.naid == 0 ? Variant() : Variant(finding.naid), finding.name,
                   finding.what, finding.error == 0 ? Variant() : Variant(finding.error),
                   finding.kind->advice});
    }
    for (const audit::Kind* kind : kindsIn(findings)) {
        report.say(std::string(kind->name) + ": " + std::string(kind->advice) + ".");
    }
}

void runAudit(Context& context, const std::string& path) {
    const auto session = sessionOn(context, openFile(context, path));
    const auto findings = audit::auditCompany(session->list(), session->payroll());
    Report report;
    if (findings.empty()) {
        report.say("Nothing found.");
    } else {
        context.outcome = exitFindings;
        report.say(
            counted(static_cast<std::int64_t>(findings.size()), "finding") + ": " +
            std::to_string(countOf(findings, audit::Severity::Stops)) + " stop a load or a run, " +
            std::to_string(countOf(findings, audit::Severity::Figures)) + " make figures wrong, " +
            std::to_string(countOf(findings, audit::Severity::Note)) + " may be meant so");
    }
    tell(findings, report);
    context.show(report);
}

}  // namespace

void addAuditCommand(CLI::App& app, Context& context) {
    struct Options {
        std::string database;
        std::vector<std::string> removed;  // a table and a key
    };
    const auto options = std::make_shared<Options>();
    auto* command = app.add_subcommand(
        "audit", "Tell every fault of a company's database; exit code 5 when there is one");
    addDatabase(*command, options->database);
    command
        ->add_option(
            "--remove", options->removed,
            "First take a row away, by its table and key; refused where something rests on it")
        ->type_name("TABLE KEY")
        ->expected(2);
    command->callback([&context, options] {
        context.action = [&context, options] {
            if (!options->removed.empty()) {
                const auto database = openFile(context, options->database);
                audit::removeRow(*database, options->removed[0],
                                 Variant(options->removed[1]).toInt32("--remove"));
            }
            runAudit(context, options->database);
        };
    });
}

}  // namespace ledgerwick::app
