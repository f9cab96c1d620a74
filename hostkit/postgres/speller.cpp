#include "hostkit/postgres/speller.h"

#include <algorithm>
#include <array>
#include <span>

#include "hostkit/dialect/parsed_statement.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick::postgres {

namespace {

using dialect::Item;
using dialect::ParsedStatement;
using dialect::Part;
using dialect::quotedName;
using dialect::Select;
using dialect::TableUse;
using dialect::Token;

using Tokens = std::span<const Token>;

// A function that reads the number in a formatted text, which a rounding here gives as it is.
constexpr std::string_view numberFunction = "ledgerwick_number";

std::string loweredName(std::string_view name) {
    return quotedName(lowerCase(replaceAll(name, "\"\"", "\"")));
}

// The place of the parenthesis that closes the one at `open`, or the end.
std::size_t closing(Tokens tokens, std::size_t open) {
    int depth = 0;
    for (std::size_t i = open; i < tokens.size(); ++i) {
        if (tokens[i].is("(")) ++depth;
        if (tokens[i].is(")") && --depth == 0) return i;
    }
    return tokens.size();
}

bool isAt(Tokens tokens, std::size_t place, std::string_view symbolOrWord) {
    return place < tokens.size() && tokens[place].is(symbolOrWord);
}

// The arguments of the call whose parenthesis stands at `open`.
std::vector<Tokens> argumentsOf(Tokens tokens, std::size_t open) {
    std::vector<Tokens> arguments;
    const std::size_t end = closing(tokens, open);
    std::size_t start = open + 1;
    int depth = 0;
    for (std::size_t i = start; i <= end && i < tokens.size(); ++i) {
        if (tokens[i].is("(")) ++depth;
        if (i == end || (depth == 0 && tokens[i].is(","))) {
            arguments.push_back(tokens.subspan(start, i - start));
            start = i + 1;
        }
        if (tokens[i].is(")")) --depth;
    }
    return arguments;
}

class Speller {
  public:
    Speller(const ParsedStatement& parsed, FieldList reads, Tables& tables)
        : parsed_(parsed), reads_(reads), tables_(tables) {}

    Spelling run(bool updatable) {
        noticeTables();
        if (const auto select = parsed_.select(tables_)) {
            spelling_.rowByRow = select->rowByRow;
            if (select->rowByRow) noticeEqualities(select->tables);
            if (!updatable || !writeKeyed(*select)) writeSelect(*select);
        } else if (const auto update = parsed_.update(tables_)) {
            writeUpdate(*update);
        } else {
            writeClauses(0);
        }
        spelling_.sql = std::move(sql_);
        return std::move(spelling_);
    }

  private:
    Tokens all() const { return parsed_.tokens(); }
    Tokens tokensOf(Part part) const { return all().subspan(part.begin, part.end - part.begin); }
    std::size_t end() const { return parsed_.all().end; }

    // ---- what the statement touches

    // The names after FROM, JOIN, INTO and UPDATE. What a view reads is not known.
    void noticeTables() {
        TableSet tables = 0;
        bool tableNext = false;
        bool inFrom = false;
        for (const Token& token : all()) {
            if (token.is("FROM") || token.is("JOIN") || token.is("INTO") || token.is("UPDATE")) {
                tableNext = true;
                inFrom = token.is("FROM");
            } else if (token.is("WHERE") || token.is("SELECT") || token.is("SET") ||
                       token.is("ON")) {
                tableNext = inFrom = false;
            } else if (token.is(",")) {
                tableNext = inFrom;
            } else if (tableNext && token.isName()) {
                const TableRef table = ownTable(tables_.find(token.name()));
                tables |= table && table->isUpdatable ? table->bit : everyTable;
                tableNext = false;
            }
        }
        spelling_.tables = spelling_.written = tables;
    }

    void noticeEqualities(const std::vector<TableUse>& uses) {
        const std::size_t where = parsed_.find("WHERE", parsed_.all());
        if (where == end()) return;
        Part condition{where + 1, parsed_.find({"ORDER", "LIMIT", ";"}, {where, end()})};
        if (parsed_.find({"OR", "BETWEEN", "CASE"}, condition) != condition.end) return;
        while (!condition.isEmpty()) {
            const std::size_t next = parsed_.find("AND", condition);
            noticeEquality(uses, tokensOf({condition.begin, next}));
            condition.begin = next + 1;
        }
    }

    void noticeEquality(const std::vector<TableUse>& uses, Tokens part) {
        if (part.size() > 2 && part.front().is("(") && closing(part, 0) == part.size() - 1) {
            return noticeEquality(uses, part.subspan(1, part.size() - 2));
        }
        const bool qualified = part.size() == 5 && part[1].is(".");
        if (part.size() != 3 && !qualified) return;
        const Token& name = part[part.size() - 3];
        const Token& mark = part.back();
        if (!part[part.size() - 2].is("=") || !name.isName() || mark.kind != Token::Kind::Mark) {
            return;
        }
        for (const TableUse& use : uses) {
            if (qualified && !equalsIgnoringCase(part.front().name(), use.name)) continue;
            const int column = use.table->find(name.name());
            if (column < 0) continue;
            const TableRef table = ownTable(use.table);
            spelling_.equalities.push_back(
                {table, column, mark.literal - 1,
                 loweredName(use.name) + "." +
                     table->server[static_cast<std::size_t>(column)].quoted});
            return;
        }
    }

    // ---- SELECT

    void writeSelect(const Select& select) {
        write("SELECT");
        const std::size_t start = sql_.size();
        for (std::size_t i = 0; i < select.items.size(); ++i) {
            const std::size_t before = sql_.size();
            if (before != start) write(",");
            const std::size_t item = sql_.size();
            writeItem(select, i);
            if (sql_.size() == item) sql_.resize(before);  // a star of which nothing is read
        }
        if (sql_.size() == start) write("NULL");
        spelling_.columnsEnd = sql_.size();
        writeClauses(select.from);
    }

    // The fields of one table that the caller will read, and the key.
    bool writeKeyed(const Select& select) {
        const auto columns = parsed_.columnsOfOneTable(select);
        if (!columns || !columns->use.table->isUpdatable) return false;
        const TableRef table = ownTable(columns->use.table);
        spelling_.keyed = std::make_shared<rowsets::KeyedFields>(
            rowsets::keyedFields(table, columns->columns, reads_));
        const std::string of = loweredName(columns->use.name) + ".";
        write("SELECT");
        for (std::size_t i = 0; i < columns->columns.size(); ++i) {
            if (spelling_.keyed->rowColumn[i] < 0) continue;
            write(of + table->server[static_cast<std::size_t>(columns->columns[i])].quoted + " ,");
        }
        write(of + (table->key < 0 ? std::string("ctid::text") : table->quotedKey()));
        write("AS lw_key");
        spelling_.columnsEnd = sql_.size();
        writeClauses(select.from);
        return true;
    }

    void writeItem(const Select& select, std::size_t item) {
        const Item& column = select.items[item];
        if (column.kind == Item::Kind::Star) {
            if (reads_.empty() || !select.rowByRow || !writeStar(select, column)) {
                write(tokensOf(column.expression));
            }
            return;
        }
        const std::vector<Token> expression = parsed_.expanded(select, item, numberFunction);
        if (!writeFormatted(expression, item)) write(expression);
        if (!column.alias.empty()) {
            spelling_.aliases.emplace_back(replaceAll(column.alias, "\"\"", "\""));
            write("AS");
            write(loweredName(column.alias));
        } else if (column.kind == Item::Kind::Expression) {
            write("AS");
            write(quotedName("column" + std::to_string(item + 1)));
        }
    }

    // A column that is one `Format` of one picture: its value is asked for.
    bool writeFormatted(Tokens expression, std::size_t item) {
        if (!isAt(expression, 0, "Format") || !isAt(expression, 1, "(")) return false;
        if (closing(expression, 1) != expression.size() - 1) return false;
        const std::vector<Tokens> arguments = argumentsOf(expression, 1);
        if (arguments.size() != 2 || arguments[1].size() != 1) return false;
        const Token& picture = arguments[1].front();
        if (picture.kind != Token::Kind::Mark) return false;
        spelling_.formats.emplace_back(static_cast<int>(item), picture.literal - 1);
        write(arguments[0]);
        return true;
    }

    // Writes those columns of the star's tables that the caller will read.
    // Returns false when it names no table of the statement.
    bool writeStar(const Select& select, const Item& item) {
        bool found = false;
        bool first = true;
        for (const TableUse& use : select.tables) {
            if (!item.table.empty() && !equalsIgnoringCase(item.table, use.name)) continue;
            found = true;
            const TableRef table = ownTable(use.table);
            for (std::size_t i = 0; i < table->columns.size(); ++i) {
                if (!rowsets::isRead(reads_, table->columns[i].name)) continue;
                if (!first) write(",");
                first = false;
                write(loweredName(use.name) + '.' + table->server[i].quoted);
            }
        }
        return found;
    }

    // The clauses from `from` on, with Null in front of every other value in an order.
    void writeClauses(std::size_t from) {
        const std::size_t order = parsed_.find("ORDER", {from, end()});
        if (order == end() || !parsed_.isAt(order + 1, "BY")) {
            return write(tokensOf({from, end()}));
        }
        write(tokensOf({from, order + 2}));
        const std::size_t last = parsed_.find({"LIMIT", "OFFSET", ";"}, {order, end()});
        bool first = true;
        for (const Part part : parsed_.split({order + 2, last})) {
            if (!first) write(",");
            first = false;
            write(tokensOf(part));
            write(parsed_.isAt(part.end - 1, "DESC") ? "NULLS LAST" : "NULLS FIRST");
        }
        write(tokensOf({last, end()}));
    }

    // ---- UPDATE

    void writeUpdate(const dialect::Update& update) {
        const Part condition{update.where, end()};
        write("UPDATE");
        if (update.isJoined) {
            write(ownTable(update.tables.front().table)->quoted);
        } else {
            write(tokensOf(update.target));
            noticeTarget(update);
        }
        write("SET");
        for (const Part assignment : update.assignments) {
            if (assignment.begin != update.assignments.front().begin) write(",");
            write(tokensOf(assignment));
        }
        if (!update.isJoined) return write(tokensOf(condition));
        const TableUse& use = update.tables.front();
        const TableRef table = ownTable(use.table);
        spelling_.written = table->isUpdatable ? table->bit : everyTable;
        const std::string key = table->key < 0 ? "ctid" : table->quotedKey();
        write("WHERE " + key + " IN ( SELECT " + loweredName(use.name) + "." + key + " FROM");
        write(tokensOf(update.target));
        write(tokensOf(condition));
        write(")");
    }

    // The equalities of an UPDATE of one table.
    void noticeTarget(const dialect::Update& update) {
        const Tokens target = tokensOf(update.target);
        if (target.size() != 1 || !target.front().isName()) return;
        const rowsets::TableRef table = tables_.find(target.front().name());
        if (table) noticeEqualities({{target.front().name(), target.front().text, table}});
    }

    // ---- expressions

    // Tokens with what the server writes otherwise in its words.
    void write(Tokens tokens) {
        for (std::size_t i = 0; i < tokens.size();) {
            const Token& token = tokens[i];
            if (token.is("/")) {
                i = writeDivisor(tokens, i + 1);
            } else if (isAt(tokens, i + 1, "(") &&
                       (token.is("iif") || token.is("Format") || token.is(numberFunction))) {
                i = writeCall(tokens, i);
            } else {
                write(token);
                ++i;
            }
        }
    }

    // Writes a call, and gives the place after it.
    std::size_t writeCall(Tokens tokens, std::size_t at) {
        const std::vector<Tokens> arguments = argumentsOf(tokens, at + 1);
        const std::size_t after = std::min(closing(tokens, at + 1) + 1, tokens.size());
        if (tokens[at].is("Format") && arguments.size() == 2) {
            write("ledgerwick_round( (");
            write(arguments[0]);
            write(") ::float8 ,");
            write(arguments[1]);
            write(")");
        } else if (tokens[at].is("iif") && arguments.size() == 3) {
            write("( CASE WHEN");
            write(arguments[0]);
            write("THEN");
            write(arguments[1]);
            write("ELSE");
            write(arguments[2]);
            write("END )");
        } else if (tokens[at].is(numberFunction) && arguments.size() == 1) {
            write("(");
            write(arguments[0]);
            write(")");
        } else {
            write(tokens[at]);
            return at + 1;
        }
        return after;
    }

    // Writes a division whose divisor stands at `at`, and gives the place after it.
    std::size_t writeDivisor(Tokens tokens, std::size_t at) {
        std::size_t after = at;
        while (isAt(tokens, after, "-") || isAt(tokens, after, "+")) ++after;
        if (isAt(tokens, after, "(")) {
            after = closing(tokens, after) + 1;
        } else {
            ++after;
            while (isAt(tokens, after, ".")) after += 2;
            if (isAt(tokens, after, "(")) after = closing(tokens, after) + 1;
        }
        after = std::min(after, tokens.size());
        write("* 1.0::float8 / NULLIF(");
        write(tokens.subspan(at, after - at));
        write(", 0)");
        return after;
    }

    void write(const Token& token) {
        if (token.kind == Token::Kind::Mark) {
            write("$" + std::to_string(token.literal));
        } else if (token.kind == Token::Kind::QuotedName) {
            write(loweredName(token.name()));
        } else {
            write(token.text);
        }
    }
    void write(const char* text) { write(std::string_view(text)); }
    void write(const std::string& text) { write(std::string_view(text)); }
    void write(const std::vector<Token>& tokens) { write(Tokens(tokens)); }
    void write(std::string_view text) {
        if (!sql_.empty()) sql_ += ' ';
        sql_ += text;
    }

    const ParsedStatement& parsed_;
    FieldList reads_;
    Tables& tables_;
    Spelling spelling_;
    std::string sql_;
};

}  // namespace

Spelling spell(std::string_view shape, FieldList reads, bool updatable, Tables& tables) {
    const ParsedStatement parsed(shape);
    return Speller(parsed, reads, tables).run(updatable);
}

std::string spellForMany(const Spelling& spelling, const Equality& equality) {
    if (spelling.columnsEnd == 0) return {};
    std::string sql = spelling.sql;
    const std::string mark = "= $" + std::to_string(equality.literal + 1);
    std::size_t at = sql.find(mark);
    const auto isWhole = [&] {
        const std::size_t after = at + mark.size();
        return after == sql.size() || sql[after] == ' ';
    };
    while (at != std::string::npos && !isWhole()) at = sql.find(mark, at + 1);
    if (at == std::string::npos) return {};
    sql.replace(at, mark.size(), "= ANY (" + mark.substr(2) + ")");
    sql.insert(spelling.columnsEnd, " , " + equality.qualified + " AS lw_many");
    return sql;
}

}  // namespace ledgerwick::postgres
