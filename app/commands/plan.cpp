#include "app/commands/plan.h"

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

#include "hostkit/recording/recording_database.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick::app {

namespace {

using recording::ChangeKind;
using recording::FieldChange;
using recording::RowChange;

constexpr std::size_t fieldWidth = 34;

const char* wordFor(ChangeKind kind) {
    switch (kind) {
        case ChangeKind::Added:
            return "added";
        case ChangeKind::Changed:
            return "changed";
        default:
            return "removed";
    }
}

std::string shown(const Variant& value) {
    const std::string text = readable(value);
    return text.empty() ? "(blank)" : text;
}

// "26 rows of PRPay added, 2 rows of Orders changed"
std::string summaryOf(const std::vector<RowChange>& changes) {
    std::map<std::pair<std::string_view, ChangeKind>, std::int64_t> counts;
    for (const RowChange& change : changes) ++counts[{change.table, change.kind}];
    std::string text;
    for (const auto& [what, count] : counts) {
        if (!text.empty()) text += ", ";
        text +=
            counted(count, "row") + " of " + std::string(what.first) + " " + wordFor(what.second);
    }
    return text;
}

std::string rowLine(const RowChange& change) {
    std::string line = "  " + std::string(change.table);
    if (!change.key.isEmpty()) line += " " + change.key.toText();
    return line + " " + wordFor(change.kind);
}

std::string fieldLine(const RowChange& change, const FieldChange& field) {
    std::string line = "    " + padOrCut(field.field, fieldWidth);
    if (change.kind != ChangeKind::Added) line += shown(field.from);
    if (change.kind == ChangeKind::Changed) line += " -> ";
    if (change.kind != ChangeKind::Removed) line += shown(field.to);
    return line;
}

std::string nameOf(HostSession& session, std::int32_t naid) {
    const auto employee = session.list().GetEmployeeByNAID(naid);
    return employee ? employee->Name() : std::string();
}

// The changes of each employee together, the employees in the order in which the step took them.
void groupByEmployee(std::vector<RowChange>& changes) {
    std::map<std::int32_t, std::size_t> order;
    for (const RowChange& change : changes) order.emplace(change.naid, order.size());
    std::stable_sort(changes.begin(), changes.end(), [&order](const auto& a, const auto& b) {
        return order.at(a.naid) < order.at(b.naid);
    });
}

void show(HostSession& session, const std::vector<RowChange>& changes, Report& report) {
    Table& table = report.dataTable(
        "changes", {"naid", "name", "change", "table", "key", "field", "from", "to"});
    const RowChange* last = nullptr;
    std::string name;
    for (const RowChange& change : changes) {
        if (last == nullptr || last->naid != change.naid) {
            name = nameOf(session, change.naid);
            report.say(std::to_string(change.naid) + " " + name);
        }
        last = &change;
        report.say(rowLine(change));
        for (const FieldChange& field : change.fields) {
            report.say(fieldLine(change, field));
            table.add({change.naid, name, wordFor(change.kind), change.table, change.key,
                       field.field, field.from, field.to});
        }
    }
}

}  // namespace

Report planOf(const Context& context, const std::string& path, RunStep step,
              const office::Selection& selection) {
    const auto file = openFile(context, path);
    const auto recording = std::make_shared<RecordingDatabase>(file);
    const auto session = loadCompany(context, recording);
    if (selection.naid != 0) employeeOf(*session, selection.naid);
    Report report;
    file->rehearse([&] {
        report.sayAll(step(*session, selection));
        auto changes = recording->changes();
        groupByEmployee(changes);
        const std::string summary = summaryOf(changes);
        report.say(summary.empty() ? "Nothing would be written."
                                   : "Would be written: " + summary + ". Nothing was written.");
        show(*session, changes, report);
    });
    return report;
}

}  // namespace ledgerwick::app
