#include "hostkit/exchange/csv.h"

#include <csv.h>

#include <istream>
#include <memory>
#include <ostream>
#include <stdexcept>

namespace ledgerwick::exchange {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

// What the parser's callbacks fill.
struct Reading {
    const CsvReader::RowTaker& take;
    std::vector<std::string> fields;
    std::size_t rowStart;
    bool inRow;
};

void onField(void* text, std::size_t length, void* reading) {
    static_cast<Reading*>(reading)->fields.emplace_back(static_cast<const char*>(text), length);
}

void onRow(int, void* data) {
    auto& reading = *static_cast<Reading*>(data);
    reading.take(reading.rowStart, reading.fields);
    reading.fields.clear();
    reading.inRow = false;
}

// libcsv's parser, which has to be released.
class Parser {
  public:
    Parser() {
        if (csv_init(&parser_, CSV_STRICT | CSV_STRICT_FINI | CSV_APPEND_NULL) != 0) {
            throw std::runtime_error("the CSV parser cannot be started");
        }
        csv_set_space_func(&parser_, [](unsigned char) { return 0; });  // blanks are text
    }
    ~Parser() { csv_free(&parser_); }
    Parser(const Parser&) = delete;
    Parser& operator=(const Parser&) = delete;

    bool feed(std::string_view text, Reading& reading) {
        return csv_parse(&parser_, text.data(), text.size(), onField, onRow, &reading) ==
               text.size();
    }
    bool finish(Reading& reading) { return csv_fini(&parser_, onField, onRow, &reading) == 0; }

  private:
    csv_parser parser_{};
};

bool needsQuotes(std::string_view field) {
    if (field.empty()) return false;
    if (field.front() == ' ' || field.back() == ' ') return true;
    if (field.starts_with(byteOrderMark)) return true;
    return field.find_first_of(",\"\r\n") != std::string_view::npos;
}

void writeQuoted(std::ostream& out, std::string_view field) {
    out << '"';
    for (const char c : field) {
        if (c == '"') out << '"';
        out << c;
    }
    out << '"';
}

bool startsFormula(char c) {
    return c == '=' || c == '+' || c == '-' || c == '@' || c == '\\' ||
           (static_cast<unsigned char>(c) < 0x20);
}

}  // namespace

std::optional<CsvFault> CsvReader::read(std::istream& in, const RowTaker& take) {
    Parser parser;
    Reading reading{take, {}, 1, false};
    std::string text;
    for (std::size_t line = 1; std::getline(in, text); ++line) {
        if (line == 1 && text.starts_with(byteOrderMark)) text.erase(0, byteOrderMark.size());
        if (!reading.inRow && text.find_first_not_of('\r') != std::string::npos) {
            reading.inRow = true;
            reading.rowStart = line;
        }
        if (!in.eof()) text += '\n';
        if (!parser.feed(text, reading)) {
            return CsvFault{line, "a quote stands where none can stand"};
        }
    }
    if (!parser.finish(reading)) return CsvFault{reading.rowStart, "a quote is never closed"};
    return std::nullopt;
}

void CsvWriter::row(const std::vector<std::string>& fields) {
    const bool lookEmpty = fields.size() == 1 && fields.front().empty();
    bool first = true;
    for (const std::string& field : fields) {
        if (!first) out_ << ',';
        first = false;
        if (needsQuotes(field) || lookEmpty) {
            writeQuoted(out_, field);
        } else {
            out_ << field;
        }
    }
    out_ << '\n';
}

std::string guarded(std::string_view text) {
    const bool formula = !text.empty() && startsFormula(text[0]);
    const bool looksGuarded =
        text.size() > 1 && text[0] == '\'' && (startsFormula(text[1]) || text[1] == '\'');
    return (formula || looksGuarded ? "'" : "") + std::string(text);
}

std::string unguarded(std::string_view text) {
    const bool guardedBefore =
        text.size() > 1 && text[0] == '\'' && (startsFormula(text[1]) || text[1] == '\'');
    return std::string(guardedBefore ? text.substr(1) : text);
}

}  // namespace ledgerwick::exchange
