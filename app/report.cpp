#include "app/report.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <ostream>

#include "hostkit/exchange/csv.h"
#include "hostkit/services/terminal_text.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick::app {

namespace {

using Json = nlohmann::ordered_json;

bool isNumber(VariantKind kind) {
    return kind >= VariantKind::Int16 && kind <= VariantKind::Currency;
}

std::string dateText(Date date) {
    return date.isSet() ? date.toIso() : std::string();
}

// A value as a program reads it.
std::string machineText(const Variant& value) {
    if (value.isEmpty() || value.isNull()) return {};
    if (value.kind() == VariantKind::Date) return dateText(value.toDate());
    if (value.kind() == VariantKind::Text) return exchange::guarded(value.textView());
    return value.toText();
}

Json jsonOf(const Variant& value) {
    switch (value.kind()) {
        case VariantKind::Boolean:
            return value.toBoolean();
        case VariantKind::Int16:
        case VariantKind::Int32:
        case VariantKind::Int64:
            return value.toInt64();
        case VariantKind::Single:
            return Json::parse(value.toText());
        case VariantKind::Double:
        case VariantKind::Currency:
            return value.toDouble();
        case VariantKind::Date:
            return value.toDate().isSet() ? Json(value.toDate().toIso()) : Json(nullptr);
        case VariantKind::Text:
            return value.toText();
        default:
            return nullptr;
    }
}

Json jsonOf(const Table& table) {
    Json rows = Json::array();
    for (const auto& row : table.rows()) {
        Json object = Json::object();
        for (std::size_t i = 0; i < row.size(); ++i) object[table.columns()[i]] = jsonOf(row[i]);
        rows.push_back(std::move(object));
    }
    return rows;
}

std::string padded(const std::string& text, std::size_t width, bool right) {
    const std::size_t length = characterCount(text);
    const std::string blanks(width > length ? width - length : 0, ' ');
    return right ? blanks + text : text + blanks;
}

// A column stands on the right when it has numbers and nothing else but numbers.
bool standsRight(const Table& table, std::size_t column) {
    bool any = false;
    for (const auto& row : table.rows()) {
        const VariantKind kind = row[column].kind();
        if (kind == VariantKind::Empty || kind == VariantKind::Null) continue;
        if (!isNumber(kind)) return false;
        any = true;
    }
    return any;
}

struct TextColumn {
    std::size_t index;
    std::size_t width;
    bool right;
};

TextColumn textColumn(const Table& table, std::size_t index) {
    TextColumn column{index, characterCount(table.columns()[index]), standsRight(table, index)};
    for (std::size_t i = 0; i < table.shownRows(); ++i) {
        column.width = std::max(column.width, characterCount(readable(table.rows()[i][index])));
    }
    return column;
}

// A line of a table; `cell` gives the text of a column.
template <class Cell>
void printLine(std::ostream& out, const std::vector<TextColumn>& columns, Cell cell) {
    std::string line;
    for (const TextColumn& column : columns) {
        if (!line.empty()) line += "  ";
        line += padded(cell(column.index), column.width, column.right);
    }
    out << trimRight(line) << '\n';
}

void printTable(std::ostream& out, const Table& table) {
    std::vector<TextColumn> columns;
    for (const std::size_t index : table.shownColumns())
        columns.push_back(textColumn(table, index));
    printLine(out, columns,
              [&](std::size_t i) { return replaceAll(table.columns()[i], "_", " "); });
    for (std::size_t row = 0; row < table.shownRows(); ++row) {
        printLine(out, columns, [&](std::size_t i) { return readable(table.rows()[row][i]); });
    }
    const std::size_t left = table.rows().size() - table.shownRows();
    if (left > 0) out << "... and " << left << " more\n";
}

void printCsv(std::ostream& out, const Table& table) {
    exchange::CsvWriter writer(out);
    writer.row(table.columns());
    for (const auto& row : table.rows()) {
        std::vector<std::string> cells;
        cells.reserve(row.size());
        for (const Variant& value : row) cells.push_back(machineText(value));
        writer.row(cells);
    }
}

}  // namespace

void Report::say(std::string sentence) {
    pieces_.push_back({std::move(sentence), nullptr});
}

void Report::fact(std::string name, Variant value) {
    facts_.emplace_back(std::move(name), std::move(value));
}

Table& Report::table(std::string name, std::vector<std::string> columns) {
    return table(Table(std::move(name), std::move(columns)));
}

Table& Report::table(Table filled) {
    tables_.push_back(std::move(filled));
    pieces_.push_back({{}, &tables_.back()});
    return tables_.back();
}

Table& Report::dataTable(std::string name, std::vector<std::string> columns) {
    tables_.emplace_back(std::move(name), std::move(columns));
    return tables_.back();
}

void Report::sayAll(const Report& other) {
    for (const Piece& piece : other.pieces_) {
        if (piece.table == nullptr) say(piece.sentence);
    }
}

void Report::showRows(std::size_t most) {
    for (Table& table : tables_) table.showRows(most);
}

void Report::print(std::ostream& out, Format format) const {
    switch (format) {
        case Format::Text:
            return printText(out);
        case Format::Csv:
            if (!tables_.empty()) printCsv(out, tables_.front());
            return;
        case Format::Json:
            return printJson(out);
    }
}

void Report::printText(std::ostream& out) const {
    for (const Piece& piece : pieces_) {
        if (piece.table == nullptr) {
            out << withoutControls(piece.sentence) << '\n';
        } else if (!piece.table->rows().empty()) {
            printTable(out, *piece.table);
        }
    }
}

void Report::printJson(std::ostream& out) const {
    Json document = Json::object();
    for (const auto& [name, value] : facts_) document[name] = jsonOf(value);
    for (const Table& table : tables_) document[table.name()] = jsonOf(table);
    const bool plainList = facts_.empty() && tables_.size() == 1;
    const Json& shown = plainList ? document.begin().value() : document;
    out << shown.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

Table& addResult(Report& report, const std::string& name, ResultTable& result) {
    std::vector<std::string> columns;
    columns.reserve(static_cast<std::size_t>(result.FieldCount()));
    for (std::int32_t i = 0; i < result.FieldCount(); ++i) columns.push_back(result.Field(i).name);
    Table& table = report.table(name, columns);
    if (result.RecordCount() == 0) return table;
    for (result.MoveFirst(); !result.Eof(); result.MoveNext()) {
        std::vector<Variant> row;
        row.reserve(columns.size());
        for (const std::string& column : columns) row.push_back(result.Fields(column));
        table.add(std::move(row));
    }
    return table;
}

}  // namespace ledgerwick::app
