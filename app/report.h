// What a command has to say, as an aligned table, as CSV or as JSON.
//
//   Report report;
//   report.say("2 employees");
//   Table& table = report.table("employees", {"naid", "name", "next_pay"});
//   table.add({7, "Ann Smith", date});
//   report.print(std::cout, Format::Text);
#pragma once

#include <algorithm>
#include <cstddef>
#include <deque>
#include <iosfwd>
#include <limits>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "ledgerwick/values/result_table.h"
#include "ledgerwick/values/variant.h"

namespace ledgerwick::app {

enum class Format { Text, Csv, Json };

// Rows of values. Column names are small words joined by "_"; a table for people shows blanks.
class Table {
  public:
    Table(std::string name, std::vector<std::string> columns);

    void add(std::vector<Variant> row);

    // What people see of a wide or long table; programs always get all of it.
    void showColumns(std::vector<std::string> names) { shownColumns_ = std::move(names); }
    void showRows(std::size_t most) { shownRows_ = most; }

    const std::string& name() const noexcept { return name_; }
    const std::vector<std::string>& columns() const noexcept { return columns_; }
    const std::vector<std::vector<Variant>>& rows() const noexcept { return rows_; }
    std::vector<std::size_t> shownColumns() const;
    std::size_t shownRows() const noexcept { return std::min(shownRows_, rows_.size()); }

  private:
    std::string name_;
    std::vector<std::string> columns_;
    std::vector<std::vector<Variant>> rows_;
    std::vector<std::string> shownColumns_;  // all of them when empty
    std::size_t shownRows_ = std::numeric_limits<std::size_t>::max();
};

// Sentences for people, single facts, and tables. People see all of it but the facts, which the
// sentences already tell; CSV is the first table alone; JSON has the facts and the tables by name,
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

// A value as people read it: dates as 2016-04-29, money as 1,234.50, "yes" and "no", and nothing
// for what is not set. Control characters become blanks.
std::string readable(const Variant& value);

// The rows of a result table of the library, in their order, with columns named as its fields.
Table& addResult(Report& report, const std::string& name, ResultTable& result);

}  // namespace ledgerwick::app
