#include "app/commands/commands.h"
#include "app/context.h"
#include "app/options.h"
#include "hostkit/conformance/statements.h"

namespace ledgerwick::app {

namespace {

const char* wordFor(conformance::Sent sent) {
    switch (sent) {
        case conformance::Sent::Snapshot:
            return "snapshot";
        case conformance::Sent::Dynaset:
            return "dynaset";
        default:
            return "execute";
    }
}

void showStatements(Context& context) {
    Report report;
    Table& table = report.table("statements", {"operation", "sent", "statement"});
    for (const conformance::Statement& each : conformance::statements()) {
        table.add({each.operation, wordFor(each.sent), each.sql});
    }
    context.show(report);
}

}  // namespace

void addStatementsCommand(CLI::App& app, Context& context) {
    auto* command = app.add_subcommand(
        "statements", "Print every statement that the library sends to its database");
    command->callback([&context] { context.action = [&context] { showStatements(context); }; });
}

}  // namespace ledgerwick::app
