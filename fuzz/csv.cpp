// Files of comma-separated values: a table that was written is read as it was.
//
// Input: 0 and a text to read; 1 and a table, its fields ended by \x1F and its rows by \x1E.
#include <optional>
#include <sstream>
#include <vector>

#include "fuzz/harness.h"
#include "hostkit/exchange/csv.h"

namespace ledgerwick::fuzz {

namespace {

using Row = std::vector<std::string>;
using Table = std::vector<Row>;

struct Reading {
    Table rows;
    std::optional<exchange::CsvFault> fault;
};

Reading read(const std::string& text) {
    Reading reading;
    std::istringstream in(text);
    std::size_t last = 0;
    const auto lines = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) + 1;
    reading.fault = exchange::CsvReader::read(in, [&](std::size_t line, const Row& row) {
        CHECK(line >= std::max<std::size_t>(last, 1) && line <= lines,
              "a line that the file does not have");
        last = line;
        reading.rows.push_back(row);
    });
    if (reading.fault) CHECK(reading.fault->line <= lines, reading.fault->reason);
    return reading;
}

std::string written(const Table& table) {
    std::ostringstream out;
    exchange::CsvWriter writer(out);
    for (const Row& row : table) writer.row(row);
    return out.str();
}

void comesBack(const Table& table) {
    const std::string text = written(table);
    const Reading again = read(text);
    CHECK(!again.fault, text);
    CHECK(again.rows == table, text);
}

}  // namespace

void fuzzOne(Input input) {
    if (input.choice(2) == 0) {
        const Reading reading = read(input.rest());
        comesBack(reading.rows);
        return;
    }
    Table table(1, Row(1));
    for (const char c : input.rest()) {
        if (c == '\x1E') {
            table.emplace_back(1);
        } else if (c == '\x1F') {
            table.back().emplace_back();
        } else {
            table.back().back() += c;
        }
    }
    comesBack(table);
    for (const Row& row : table) {
        for (const std::string& field : row) {
            const std::string safe = exchange::guarded(field);
            CHECK(exchange::unguarded(safe) == field, field);
            CHECK(safe.empty() || std::string_view("=+-@\\").find(safe[0]) == std::string::npos,
                  safe);
        }
    }
}

}  // namespace ledgerwick::fuzz
