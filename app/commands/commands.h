// The commands, each group in a file of its own. Adding a group gives its options to the parser and
// sets `Context::action` when one of its commands was chosen.
#pragma once

namespace CLI {
class App;
}

namespace ledgerwick::app {

struct Context;

void addCompanyCommands(CLI::App& app, Context& context);     // new, import, export, upgrade
void addCalendarCommands(CLI::App& app, Context& context);    // calendar, explain
void addQueryCommands(CLI::App& app, Context& context);       // employees, employee, rows, due
void addReportCommand(CLI::App& app, Context& context);       // report
void addRunCommands(CLI::App& app, Context& context);         // run open, show, close, plan; fill
void addEmploymentCommands(CLI::App& app, Context& context);  // employment add, next
void addAutoEnrolCommands(CLI::App& app, Context& context);   // ae ...
void addAuditCommand(CLI::App& app, Context& context);        // audit
void addStatementsCommand(CLI::App& app, Context& context);   // statements
void addDemoCommand(CLI::App& app, Context& context);         // demo
void addDescribeCommand(CLI::App& app, Context& context);     // describe, not shown in the help

}  // namespace ledgerwick::app
