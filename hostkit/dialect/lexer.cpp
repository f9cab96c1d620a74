#include "hostkit/dialect/lexer.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "ledgerwick/values/date.h"
#include "ledgerwick/values/error.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick::dialect {

namespace {

constexpr std::size_t mostLiterals = 1000;

constexpr bool isDigit(char c) {
    return c >= '0' && c <= '9';
}
// Every byte of a character beyond ASCII counts as a letter.
constexpr bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80;
}
constexpr bool isWordCharacter(char c) {
    return isLetter(c) || isDigit(c) || c == '$';
}
constexpr bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

constexpr bool isControl(char c) {
    return static_cast<unsigned char>(c) < 0x20 && !isBlank(c);
}

std::size_t endOfWord(std::string_view sql, std::size_t at) {
    while (at < sql.size() && isWordCharacter(sql[at])) ++at;
    return at;
}

std::size_t endOfNumber(std::string_view sql, std::size_t at) {
    while (at < sql.size() && isDigit(sql[at])) ++at;
    if (at < sql.size() && sql[at] == '.') {
        do ++at;
        while (at < sql.size() && isDigit(sql[at]));
    }
    if (at < sql.size() && (sql[at] == 'e' || sql[at] == 'E')) {
        std::size_t digits = at + 1;
        if (digits < sql.size() && (sql[digits] == '+' || sql[digits] == '-')) ++digits;
        if (digits < sql.size() && isDigit(sql[digits])) {
            at = digits;
            while (at < sql.size() && isDigit(sql[at])) ++at;
        }
    }
    return at;
}

// Behind the closing character; twice the character stands for itself.
std::size_t endOfQuoted(std::string_view sql, std::size_t at, char close) {
    for (++at; at < sql.size(); ++at) {
        if (sql[at] != close) continue;
        if (at + 1 < sql.size() && sql[at + 1] == close && close != ']') {
            ++at;
        } else {
            return at + 1;
        }
    }
    return std::string_view::npos;
}

Cell numberCell(std::string_view digits) {
    std::int64_t whole = 0;
    const char* end = digits.data() + digits.size();
    if (const auto read = std::from_chars(digits.data(), end, whole);
        read.ec == std::errc() && read.ptr == end) {
        return Cell::ofWhole(whole);
    }
    double real = 0;
    std::from_chars(digits.data(), end, real);
    return Cell::ofReal(real);
}

Cell dateCell(Date date) {
    const double serial = date.serial();
    if (serial == std::trunc(serial)) return Cell::ofWhole(static_cast<std::int64_t>(serial));
    return Cell::ofReal(serial);
}

// Reads whole numbers with marks between them: "4/29/2016 13:00:00" gives six.
// Returns how many, or nothing for a text of another form.
std::size_t readParts(std::string_view text, std::array<int, 6>& parts) {
    const char* at = text.data();
    const char* const end = at + text.size();
    const auto skipBlanks = [&] {
        while (at != end && isBlank(*at)) ++at;
    };
    std::size_t count = 0;
    for (skipBlanks(); at != end && count < parts.size(); skipBlanks()) {
        if (count != 0 && count != 3) {
            if (*at != (count < 3 ? '/' : ':')) return 0;
            ++at;
            skipBlanks();
        }
        const auto read = std::from_chars(at, end, parts[count]);
        if (read.ec != std::errc()) return 0;
        ++count;
        at = read.ptr;
    }
    return at == end ? count : 0;
}

// A date literal: month, day, year, and the time if there is one. ISO dates are read too.
bool readDate(std::string_view text, Date& date) {
    text = trim(text);
    if (text.size() >= 10 && text[4] == '-') return parseDate(text, date);
    std::array<int, 6> parts{};
    const std::size_t count = readParts(text, parts);
    if (count != 3 && count != 5 && count != 6) return false;
    const auto [month, day, year, hour, minute, second] = parts;
    if (month < 1 || month > 12 || day < 1 || year < 100 || year > 9999) return false;
    if (day > Date::fromYmd(year, month, 1).daysInMonth()) return false;
    if (hour < 0 || hour > 23 || minute < 0 || minute > 59 || second < 0 || second > 59)
        return false;
    date = Date::fromYmdHms(year, month, day, hour, minute, second);
    return true;
}

bool readsOrChangesRows(std::string_view sql) {
    std::size_t at = 0;
    while (at < sql.size() && (isBlank(sql[at]) || sql[at] == '(')) ++at;
    const std::string_view first = sql.substr(at, endOfWord(sql, at) - at);
    static constexpr std::array<std::string_view, 6> words{"SELECT", "UPDATE", "INSERT",
                                                           "DELETE", "WITH",   "REPLACE"};
    return std::any_of(words.begin(), words.end(),
                       [&](std::string_view word) { return equalsIgnoringCase(first, word); });
}

// `before` is the statement up to there, without its literals.
[[noreturn]] void refuse(std::string_view what, std::string_view before) {
    raise(error_number::statementError, "Database",
          std::string(what) + " behind: " + std::string(before));
}

}  // namespace

void LiftedStatement::lift(std::string_view sql) {
    query_ = readsOrChangesRows(sql);
    lifting_ = query_;
    scan(sql);
    if (literals_.size() > mostLiterals) {
        lifting_ = false;
        scan(sql);
    }
}

void LiftedStatement::scan(std::string_view sql) {
    shape_.clear();
    texts_.clear();
    literals_.clear();
    sorting_ = false;
    std::size_t at = 0;
    while (at < sql.size()) {
        const char c = sql[at];
        if (isLetter(c)) {
            at = word(sql, at);
        } else if (isDigit(c) || (c == '.' && at + 1 < sql.size() && isDigit(sql[at + 1]))) {
            at = number(sql, at);
        } else if (c == '\'') {
            at = text(sql, at);
        } else if (c == '#') {
            at = date(sql, at);
        } else if (c == '[' || c == '"' || c == '`') {
            at = quotedName(sql, at, c == '[' ? ']' : c);
        } else {
            if (c == literalMark) refuse("a question mark outside a text", shape_);
            if (isControl(c)) refuse("a control character outside a text", shape_);
            shape_ += c;
            ++at;
        }
    }
}

std::size_t LiftedStatement::word(std::string_view sql, std::size_t at) {
    const std::size_t end = endOfWord(sql, at);
    const std::string_view word = sql.substr(at, end - at);
    if (!keepBooleans_ && word.size() == 4 && equalsIgnoringCase(word, "True")) {
        add(Cell::ofWhole(-1));
    } else if (!keepBooleans_ && word.size() == 5 && equalsIgnoringCase(word, "False")) {
        add(Cell::ofWhole(0));
    } else {
        if (word.size() == 2 && equalsIgnoringCase(word, "BY")) sorting_ = true;
        shape_ += word;
    }
    return end;
}

std::size_t LiftedStatement::number(std::string_view sql, std::size_t at) {
    const std::size_t end = endOfNumber(sql, at);
    const std::string_view digits = sql.substr(at, end - at);
    if (lifting_ && !sorting_) {
        add(numberCell(digits));
    } else {
        shape_ += digits;
    }
    return end;
}

std::size_t LiftedStatement::text(std::string_view sql, std::size_t at) {
    const std::size_t end = endOfQuoted(sql, at, '\'');
    if (end == std::string_view::npos) refuse("a text without an end", shape_);
    if (!query_) {
        shape_ += sql.substr(at, end - at);
        return end;
    }
    const std::size_t start = texts_.size();
    for (std::size_t i = at + 1; i + 1 < end; ++i) {
        texts_ += sql[i];
        if (sql[i] == '\'') ++i;
    }
    lift(Cell::ofText({}), start, texts_.size() - start);
    return end;
}

std::size_t LiftedStatement::date(std::string_view sql, std::size_t at) {
    const std::size_t close = sql.find('#', at + 1);
    if (close == std::string_view::npos) refuse("a date without an end", shape_);
    Date date;
    if (!readDate(sql.substr(at + 1, close - at - 1), date)) refuse("a date that is none", shape_);
    const std::size_t before = literals_.size();
    add(dateCell(date));
    if (literals_.size() != before) literals_.back().isDate = true;
    return close + 1;
}

std::size_t LiftedStatement::quotedName(std::string_view sql, std::size_t at, char close) {
    const std::size_t end = endOfQuoted(sql, at, close);
    if (end == std::string_view::npos) refuse("a name without an end", shape_);
    shape_ += sql.substr(at, end - at);
    return end;
}

void LiftedStatement::lift(const Cell& cell, std::size_t textStart, std::size_t textSize) {
    shape_ += literalMark;
    literals_.push_back({cell, textStart, textSize, false});
}

void LiftedStatement::add(const Cell& cell) {
    if (lifting_ && !sorting_) {
        lift(cell);
    } else if (cell.storage == Cell::Storage::Whole) {
        shape_ += std::to_string(cell.whole);
    } else {
        std::array<char, 32> digits{};
        const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), cell.real);
        shape_.append(digits.data(), end.ptr);
    }
}

Cell LiftedStatement::literal(std::size_t index) const noexcept {
    const Literal& literal = literals_[index];
    if (literal.cell.storage != Cell::Storage::Text) return literal.cell;
    return Cell::ofText(std::string_view(texts_).substr(literal.textStart, literal.textSize));
}

bool Token::is(std::string_view symbolOrWord) const noexcept {
    if (kind == Kind::Word) return equalsIgnoringCase(text, symbolOrWord);
    return kind == Kind::Symbol && text == symbolOrWord;
}

std::string_view Token::name() const noexcept {
    return kind == Kind::QuotedName ? text.substr(1, text.size() - 2) : text;
}

std::vector<Token> tokensOf(std::string_view statement) {
    static constexpr std::array<std::string_view, 6> twoCharacterSymbols{"<=", ">=", "<>",
                                                                         "!=", "==", "||"};
    std::vector<Token> tokens;
    std::size_t marks = 0;
    std::size_t at = 0;
    while (at < statement.size()) {
        const char c = statement[at];
        if (isBlank(c)) {
            ++at;
            continue;
        }
        Token token{Token::Kind::Symbol, {}};
        std::size_t end = at + 1;
        if (isLetter(c)) {
            token.kind = Token::Kind::Word;
            end = endOfWord(statement, at);
        } else if (isDigit(c) || (c == '.' && end < statement.size() && isDigit(statement[end]))) {
            token.kind = Token::Kind::Number;
            end = endOfNumber(statement, at);
        } else if (c == '[' || c == '"' || c == '`') {
            token.kind = Token::Kind::QuotedName;
            end = std::min(endOfQuoted(statement, at, c == '[' ? ']' : c), statement.size());
        } else if (c == '\'' || c == '#') {
            token.kind = Token::Kind::Literal;
            end = std::min(endOfQuoted(statement, at, c), statement.size());
        } else if (c == literalMark) {
            token.kind = Token::Kind::Mark;
            token.literal = ++marks;
        } else {
            for (const std::string_view symbol : twoCharacterSymbols) {
                if (statement.substr(at, 2) == symbol) end = at + 2;
            }
        }
        token.text = statement.substr(at, end - at);
        tokens.push_back(token);
        at = end;
    }
    return tokens;
}

std::string quotedName(std::string_view name) {
    return '"' + replaceAll(name, "\"", "\"\"") + '"';
}

}  // namespace ledgerwick::dialect
