#include "hostkit/dialect/parsed_statement.h"

#include <algorithm>
#include <array>

#include "ledgerwick/values/text.h"

namespace ledgerwick::dialect {

namespace {

// Columns that stand for one another stop growing here; the database then refuses the name.
constexpr std::size_t mostTokens = std::size_t{1} << 17;

constexpr Token symbol(std::string_view text) {
    return {Token::Kind::Symbol, text};
}

}  // namespace

std::string_view ParsedStatement::text(Part part) const noexcept {
    if (part.isEmpty()) return {};
    const char* const begin = tokens_[part.begin].text.data();
    const std::string_view last = tokens_[part.end - 1].text;
    return {begin, static_cast<std::size_t>(last.data() + last.size() - begin)};
}

std::size_t ParsedStatement::find(std::initializer_list<std::string_view> words, Part part) const {
    int depth = 0;
    for (std::size_t i = part.begin; i < part.end; ++i) {
        if (tokens_[i].is("(")) ++depth;
        if (tokens_[i].is(")")) --depth;
        if (depth != 0) continue;
        for (const std::string_view word : words) {
            if (tokens_[i].is(word)) return i;
        }
    }
    return part.end;
}

std::vector<Part> ParsedStatement::split(Part list) const {
    std::vector<Part> parts;
    while (list.begin < list.end) {
        const std::size_t comma = find(",", list);
        parts.push_back({list.begin, comma});
        list.begin = comma + 1;
    }
    return parts;
}

std::vector<Part> ParsedStatement::assignments(Part list) const {
    std::vector<Part> parts = split(list);
    for (Part& part : parts) {
        if (isAt(part.begin + 1, ".") && isAt(part.begin + 3, "=")) part.begin += 2;
    }
    return parts;
}

std::optional<Select> ParsedStatement::select(rowsets::Catalog& catalog) const {
    Select select;
    const std::size_t end = tokens_.size();
    if (!isAt(0, "SELECT")) return std::nullopt;
    for (const std::string_view word : {"DISTINCT", "ALL", "TOP"}) {
        if (isAt(1, word)) return std::nullopt;
    }
    select.from = find("FROM", all());
    if (select.from == end || !parseItems({1, select.from}, select)) return std::nullopt;
    const std::size_t clauses =
        find({"WHERE", "GROUP", "HAVING", "ORDER", "LIMIT", "UNION", "EXCEPT", "INTERSECT"},
             {select.from, end});
    select.rowByRow =
        find({"GROUP", "HAVING", "LIMIT", "UNION", "EXCEPT", "INTERSECT"}, {clauses, end}) == end;
    if (!parseTables({select.from + 1, clauses}, catalog, select.tables)) return std::nullopt;
    return select;
}

bool ParsedStatement::parseItems(Part list, Select& select) const {
    for (const Part part : split(list)) {
        if (part.isEmpty()) return false;
        select.items.push_back(parseItem(part));
    }
    return !select.items.empty();
}

Item ParsedStatement::parseItem(Part part) const {
    Item item;
    const std::size_t size = part.end - part.begin;
    if (size > 2 && tokens_[part.end - 2].is("AS") && tokens_[part.end - 1].isName()) {
        item.alias = tokens_[part.end - 1].name();
        item.quoted = tokens_[part.end - 1].text;
        item.expression = {part.begin, part.end - 2};
        return item;
    }
    item.expression = part;
    const bool qualified =
        size == 3 && tokens_[part.begin].isName() && tokens_[part.begin + 1].is(".");
    if (size != 1 && !qualified) return item;
    if (qualified) item.table = tokens_[part.begin].name();
    const Token& last = tokens_[part.end - 1];
    if (last.is("*")) item.kind = Item::Kind::Star;
    if (last.isName()) {
        item.kind = Item::Kind::Column;
        item.column = last.name();
    }
    return item;
}

// Finds the tables of a FROM clause. Fails when there is anything but tables and their joins.
bool ParsedStatement::parseTables(Part clause, rowsets::Catalog& catalog,
                                  std::vector<TableUse>& uses) const {
    static constexpr std::array<std::string_view, 9> joinWords{
        "LEFT", "RIGHT", "INNER", "OUTER", "CROSS", "NATURAL", "FULL", "ON", "JOIN"};
    bool tableNext = true;
    bool inCondition = false;
    for (std::size_t i = clause.begin; i < clause.end; ++i) {
        const Token& token = tokens_[i];
        if (token.is("SELECT") || token.is("USING")) return false;
        if (token.is("JOIN") || (token.is(",") && !inCondition)) {
            tableNext = true;
            inCondition = false;
        } else if (token.is("ON")) {
            inCondition = true;
        } else if (tableNext && token.isName()) {
            TableUse use{token.name(), token.text, catalog.find(token.name())};
            if (!use.table || isAt(i + 1, ".")) return false;
            if (isAt(i + 1, "AS")) ++i;
            const Token* const next = i + 1 < clause.end ? &tokens_[i + 1] : nullptr;
            if (next && next->isName() &&
                std::none_of(joinWords.begin(), joinWords.end(),
                             [&](std::string_view word) { return next->is(word); })) {
                use.name = next->name();
                use.quoted = next->text;
                ++i;
            }
            uses.push_back(std::move(use));
            tableNext = false;
        } else if (token.is(",")) {
            return false;
        }
    }
    return !uses.empty();
}

std::optional<Update> ParsedStatement::update(rowsets::Catalog& catalog) const {
    Update update;
    const std::size_t end = tokens_.size();
    if (!isAt(0, "UPDATE")) return std::nullopt;
    const std::size_t set = find("SET", all());
    if (set == end) return std::nullopt;
    update.target = {1, set};
    update.where = find("WHERE", {set, end});
    for (const Token& token : tokens_) {
        if (&token == &tokens_[set]) break;
        update.isJoined |= token.is("JOIN");
    }
    if (update.isJoined && !parseTables(update.target, catalog, update.tables)) return std::nullopt;
    update.assignments = assignments({set + 1, update.where});
    return update;
}

std::optional<TableColumns> ParsedStatement::columnsOfOneTable(const Select& select) const {
    if (!select.rowByRow || select.tables.size() != 1) return std::nullopt;
    for (std::size_t i = find("ORDER", all()); i < tokens_.size(); ++i) {
        if (tokens_[i].kind == Token::Kind::Number) return std::nullopt;
    }
    TableColumns found{select.tables.front(), {}};
    const rowsets::Table& table = *found.use.table;
    for (const Item& item : select.items) {
        const int column = table.find(item.column);
        if (item.kind == Item::Kind::Star) {
            for (std::size_t i = 0; i < table.columns.size(); ++i) {
                found.columns.push_back(static_cast<int>(i));
            }
        } else if (item.kind == Item::Kind::Column && column >= 0) {
            found.columns.push_back(column);
        } else {
            return std::nullopt;
        }
    }
    return found;
}

std::vector<Token> ParsedStatement::expanded(const Select& select, std::size_t item,
                                             std::string_view numberFunction) const {
    std::vector<Token> tokens;
    expand(select, item, numberFunction, 0, tokens);
    return tokens;
}

void ParsedStatement::expand(const Select& select, std::size_t item,
                             std::string_view numberFunction, std::size_t depth,
                             std::vector<Token>& into) const {
    const Part part = select.items[item].expression;
    for (std::size_t i = part.begin; i < part.end; ++i) {
        const std::size_t other =
            depth < select.items.size() ? otherColumn(select, item, i) : select.items.size();
        if (other == select.items.size() || into.size() > mostTokens) {
            into.push_back(tokens_[i]);
            continue;
        }
        const bool formatted = tokens_[select.items[other].expression.begin].is("Format");
        if (formatted) into.push_back({Token::Kind::Word, numberFunction});
        into.push_back(symbol("("));
        expand(select, other, numberFunction, depth + 1, into);
        into.push_back(symbol(")"));
    }
}

// The column of the statement that a name inside another column stands for, or their number.
std::size_t ParsedStatement::otherColumn(const Select& select, std::size_t item,
                                         std::size_t token) const {
    const std::size_t none = select.items.size();
    const Token& name = tokens_[token];
    if (!name.isName() || isAt(token + 1, ".") || isAt(token + 1, "(")) return none;
    if (token > 0 && tokens_[token - 1].is(".")) return none;
    for (const TableUse& use : select.tables) {
        if (use.table->find(name.name()) >= 0) return none;
    }
    for (std::size_t other = 0; other < none; ++other) {
        if (other != item && equalsIgnoringCase(select.items[other].alias, name.name())) {
            return other;
        }
    }
    return none;
}

}  // namespace ledgerwick::dialect
