// What a command has to say, as an aligned table, as CSV or as JSON.
//
//   Report report;
//   report.say("2 employees");
//   Table& table = report.table("employees", {"naid", "name", "next_pay"});
//   table.add({7, "Ann Smith", date});
//   report.print(std::cout, Format::Text);
#pragma once

#include <cstddef>
#include <deque>
#include <iosfwd>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "hostkit/report/table.h"
#include "ledgerwick/values/result_table.h"
#include "ledgerwick/values/variant.h"

namespace ledgerwick::app {

using report::readable;
using report::Table;

enum class Format { Text, Csv, Json };

// Sentences for people, single facts, and tables. People see all of it but the facts, which the
// sentences already give; CSV is the first table alone; JSON has the facts and the tables by name,
// and is a plain list when there is one table and no fact.
class Report {
  public:
    void say(std::string sentence);
    void fact(std::string name, Variant value);
    // The reference lives as long as the report.
    Table& table(std::string name, std::vector<std::string> columns);
    Table& table(Table filled);
    const std::deque<Table>& tables() const noexcept { return tables_; }

    // A table for programs alone, to be called before those that people see.
    Table& dataTable(std::string name, std::vector<std::string> columns);
    // Says what another report says in sentences.
    void sayAll(const Report& other);

    // Lets people see only the first rows of each table.
    void showRows(std::size_t most);

    void print(std::ostream& out, Format format) const;

  private:
    // What people see, in order: a sentence, or the position of a table.
    struct Piece {
        std::string sentence;
        const Table* table;
    };
    void printText(std::ostream& out) const;
    void printJson(std::ostream& out) const;

    std::vector<Piece> pieces_;
    std::vector<std::pair<std::string, Variant>> facts_;
    std::deque<Table> tables_;
};

// The rows of a result table of the library, in their order, with columns named as its fields.
Table& addResult(Report& report, const std::string& name, ResultTable& result);

}  // namespace ledgerwick::app
