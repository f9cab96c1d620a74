#include "hostkit/sqlite/dialect.h"

#include <algorithm>
#include <array>

#include "hostkit/sqlite/lexer.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick::sqlite {

namespace {

// Columns that stand for one another stop growing here; the database then tells the name.
constexpr std::size_t longestStatement = std::size_t{1} << 20;

// A part of a statement: the tokens from `begin` up to `end`.
struct Part {
    std::size_t begin = 0;
    std::size_t end = 0;
};

// One column of a SELECT.
struct Item {
    enum class Kind : std::uint8_t { Star, Column, Expression };

    Kind kind = Kind::Expression;
    Part expression;
    std::string_view table;   // in front of a star or a column, or empty
    std::string_view column;  // of a plain column
    std::string_view alias;   // behind AS, or empty
    std::string_view quoted;  // the same as it stands
};

// One table of a FROM.
struct TableUse {
    std::string_view name;    // in the statement: its alias if it has one
    std::string_view quoted;  // the same as it stands
    TableRef table;
};

// A SELECT that the translation understands: one level, its tables known.
struct Select {
    std::vector<Item> items;
    std::vector<TableUse> tables;
    std::size_t from = 0;  // the word FROM
    bool rowByRow = true;  // each row is a row of the joined tables
};

class Translation {
  public:
    Translation(std::string_view shape, FieldList reads, Tables& tables)
        : tokens_(tokensOf(shape)), reads_(reads), tables_(tables) {}

    std::string run();
    KeyedTranslation runKeyed();

  private:
    bool parseSelect(Select& select) const;
    bool parseItems(Part list, Select& select) const;
    Item parseItem(Part part) const;
    bool parseTables(Part clause, std::vector<TableUse>& uses) const;
    std::size_t find(std::string_view word, Part part) const;
    std::size_t findAnyOf(std::initializer_list<std::string_view> words, Part part) const;
    bool contains(std::string_view word, Part part) const { return find(word, part) < part.end; }

    void writeSelect(const Select& select);
    void writeItem(const Select& select, std::size_t item);
    bool writeStar(const Select& select, const Item& item);
    void writeExpression(const Select& select, std::size_t item, std::size_t depth);
    std::size_t otherColumn(const Select& select, std::size_t item, std::size_t token) const;
    void writeUpdate();
    void writeAssignments(Part part);
    void write(Part part);
    void write(const Token& token);
    void write(std::string_view text);

    bool isRead(std::string_view column) const;
    Part all() const { return {0, tokens_.size()}; }
    const Token* at(std::size_t token) const {
        return token < tokens_.size() ? &tokens_[token] : nullptr;
    }
    bool isAt(std::size_t token, std::string_view symbolOrWord) const {
        return token < tokens_.size() && tokens_[token].is(symbolOrWord);
    }

    std::vector<Token> tokens_;
    FieldList reads_;
    Tables& tables_;
    std::string sql_;
};

std::string Translation::run() {
    Select select;
    if (isAt(0, "UPDATE")) {
        writeUpdate();
    } else if (isAt(0, "SELECT") && parseSelect(select)) {
        writeSelect(select);
    } else {
        write(all());
    }
    return std::move(sql_);
}

// The first place of a word outside parentheses, or the end.
std::size_t Translation::find(std::string_view word, Part part) const {
    return findAnyOf({word}, part);
}

std::size_t Translation::findAnyOf(std::initializer_list<std::string_view> words, Part part) const {
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

bool Translation::parseSelect(Select& select) const {
    const std::size_t end = tokens_.size();
    for (const std::string_view word : {"DISTINCT", "ALL", "TOP"}) {
        if (isAt(1, word)) return false;
    }
    select.from = find("FROM", all());
    if (select.from == end || !parseItems({1, select.from}, select)) return false;
    const std::size_t clauses =
        findAnyOf({"WHERE", "GROUP", "HAVING", "ORDER", "LIMIT", "UNION", "EXCEPT", "INTERSECT"},
                  {select.from, end});
    select.rowByRow = findAnyOf({"GROUP", "HAVING", "LIMIT", "UNION", "EXCEPT", "INTERSECT"},
                                {clauses, end}) == end;
    return parseTables({select.from + 1, clauses}, select.tables);
}

bool Translation::parseItems(Part list, Select& select) const {
    while (list.begin < list.end) {
        const std::size_t comma = find(",", list);
        if (comma == list.begin) return false;
        select.items.push_back(parseItem({list.begin, comma}));
        list.begin = comma + 1;
    }
    return !select.items.empty();
}

Item Translation::parseItem(Part part) const {
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
bool Translation::parseTables(Part clause, std::vector<TableUse>& uses) const {
    static constexpr std::array<std::string_view, 8> joinWords{"LEFT",  "RIGHT",   "INNER", "OUTER",
                                                               "CROSS", "NATURAL", "FULL",  "ON"};
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
            TableUse use{token.name(), token.text, tables_.find(token.name())};
            if (!use.table || isAt(i + 1, ".")) return false;
            if (isAt(i + 1, "AS")) ++i;
            const Token* const next = i + 1 < clause.end ? at(i + 1) : nullptr;
            if (next && next->isName() && !next->is("JOIN") &&
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

void Translation::writeSelect(const Select& select) {
    write("SELECT");
    const std::size_t start = sql_.size();
    for (std::size_t i = 0; i < select.items.size(); ++i) {
        const std::size_t before = sql_.size();
        if (before != start) write(",");
        const std::size_t item = sql_.size();
        writeItem(select, i);
        if (sql_.size() == item) sql_.resize(before);  // a star of which nothing is read
    }
    if (sql_.size() == start) write(Part{1, select.from});
    write(Part{select.from, tokens_.size()});
}

void Translation::writeItem(const Select& select, std::size_t item) {
    const Item& column = select.items[item];
    if (column.kind == Item::Kind::Star && !reads_.empty() && select.rowByRow) {
        if (!writeStar(select, column)) write(column.expression);
        return;
    }
    writeExpression(select, item, 0);
    if (!column.alias.empty()) {
        write("AS");
        write(column.quoted == column.alias ? quotedName(column.alias)
                                            : std::string(column.quoted));
    }
}

// Writes those columns of the star's tables that the caller will read.
// Returns false when it names no table of the statement.
bool Translation::writeStar(const Select& select, const Item& item) {
    bool found = false;
    bool first = true;
    for (const TableUse& use : select.tables) {
        if (!item.table.empty() && !equalsIgnoringCase(item.table, use.name)) continue;
        found = true;
        for (const TableColumn& column : use.table->columns) {
            if (!isRead(column.name)) continue;
            if (!first) write(",");
            first = false;
            write(std::string(use.quoted) + '.' + quotedName(column.name));
        }
    }
    return found;
}

void Translation::writeExpression(const Select& select, std::size_t item, std::size_t depth) {
    const Part part = select.items[item].expression;
    for (std::size_t i = part.begin; i < part.end; ++i) {
        const std::size_t other =
            depth < select.items.size() ? otherColumn(select, item, i) : select.items.size();
        if (other == select.items.size() || sql_.size() > longestStatement) {
            write(tokens_[i]);
            continue;
        }
        const bool formatted = tokens_[select.items[other].expression.begin].is("Format");
        write(formatted ? "ledgerwick_number ( (" : "( (");
        writeExpression(select, other, depth + 1);
        write(") )");
    }
}

// The column of the statement that a name inside another column stands for, or their number.
std::size_t Translation::otherColumn(const Select& select, std::size_t item,
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

void Translation::writeUpdate() {
    const std::size_t end = tokens_.size();
    const std::size_t set = find("SET", all());
    const Part target{1, set};
    const std::size_t where = find("WHERE", {set, end});
    std::vector<TableUse> uses;
    const bool joined = std::any_of(tokens_.begin(), tokens_.begin() + static_cast<long>(set),
                                    [](const Token& token) { return token.is("JOIN"); });
    if (set == end || (joined && !parseTables(target, uses))) {
        write(all());
        return;
    }
    write("UPDATE");
    if (joined) {
        write(quotedName(uses.front().table->name));
    } else {
        write(target);
    }
    write("SET");
    writeAssignments({set + 1, where});
    if (!joined) {
        write(Part{where, end});
        return;
    }
    write("WHERE rowid IN ( SELECT");
    write(std::string(uses.front().quoted) + ".rowid FROM");
    write(target);
    write(Part{where, end});
    write(")");
}

// The names of the fields that are set stand bare in SQLite.
void Translation::writeAssignments(Part part) {
    while (part.begin < part.end) {
        const std::size_t comma = find(",", part);
        std::size_t first = part.begin;
        if (isAt(first + 1, ".") && isAt(first + 3, "=")) first += 2;
        write(Part{first, comma});
        if (comma < part.end) write(",");
        part.begin = comma + 1;
    }
}

void Translation::write(Part part) {
    for (std::size_t i = part.begin; i < part.end; ++i) write(tokens_[i]);
}

void Translation::write(const Token& token) {
    if (token.kind == Token::Kind::Mark) {
        write(literalMark + std::to_string(token.literal));
    } else if (token.is("/")) {
        write("* 1.0 /");
    } else {
        write(token.text);
    }
}

void Translation::write(std::string_view text) {
    if (!sql_.empty()) sql_ += ' ';
    sql_ += text;
}

bool Translation::isRead(std::string_view column) const {
    return reads_.empty() || std::any_of(reads_.begin(), reads_.end(), [&](const FieldName& name) {
               return equalsIgnoringCase(name.text(), column);
           });
}

KeyedTranslation Translation::runKeyed() {
    Select select;
    if (!isAt(0, "SELECT") || !parseSelect(select) || !select.rowByRow) return {};
    if (select.tables.size() != 1 || !select.tables.front().table->hasRowId) return {};
    const std::size_t order = find("ORDER", all());
    for (std::size_t i = order; i < tokens_.size(); ++i) {
        if (tokens_[i].kind == Token::Kind::Number) return {};  // the place of a column
    }
    auto plan = std::make_shared<KeyedPlan>();
    plan->table = select.tables.front().table;
    const std::string use(select.tables.front().quoted);
    for (const Item& item : select.items) {
        const int column = plan->table->find(item.column);
        if (item.kind == Item::Kind::Star) {
            for (std::size_t i = 0; i < plan->table->columns.size(); ++i) {
                plan->tableColumn.push_back(static_cast<int>(i));
            }
        } else if (item.kind == Item::Kind::Column && column >= 0) {
            plan->tableColumn.push_back(column);
        } else {
            return {};
        }
    }
    std::vector<std::string> names;
    std::string columns;
    int rowColumns = 0;
    for (const int column : plan->tableColumn) {
        const std::string& name = plan->table->columns[static_cast<std::size_t>(column)].name;
        names.push_back(name);
        plan->rowColumn.push_back(isRead(name) ? rowColumns++ : -1);
        if (isRead(name)) columns += (columns.empty() ? "" : ", ") + quotedName(name);
    }
    plan->fields = FieldIndex(std::move(names));
    plan->rowSql = "SELECT " + (columns.empty() ? "NULL" : columns) + " FROM " +
                   quotedName(plan->table->name) + " WHERE rowid = ?1";
    write("SELECT " + use + ".rowid");
    write(Part{select.from, tokens_.size()});
    return {std::move(sql_), std::move(plan)};
}

}  // namespace

std::string quotedName(std::string_view name) {
    return '"' + replaceAll(name, "\"", "\"\"") + '"';
}

std::string translate(std::string_view shape, FieldList reads, Tables& tables) {
    return Translation(shape, reads, tables).run();
}

KeyedTranslation translateKeyed(std::string_view shape, FieldList reads, Tables& tables) {
    return Translation(shape, reads, tables).runKeyed();
}

}  // namespace ledgerwick::sqlite
