#include "hostkit/sqlite/speller.h"

#include "hostkit/dialect/parsed_statement.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick::sqlite {

namespace {

using dialect::Item;
using dialect::ParsedStatement;
using dialect::Part;
using dialect::quotedName;
using dialect::Select;
using dialect::TableUse;
using dialect::Token;

class Spelling {
  public:
    Spelling(const ParsedStatement& parsed, FieldList reads) : parsed_(parsed), reads_(reads) {}

    // Returns false when a column is no column of a table.
    bool writeRow(const Select& select, RowTranslation& row) {
        row_ = &row;
        write("SELECT ledgerwick_row (");
        for (const Item& item : select.items) {
            const std::size_t before = sql_.size();
            const std::size_t columns = row.names.size();
            if (columns != 0) write(",");
            if (item.kind != Item::Kind::Star || !writeStar(select, item)) return false;
            if (row.names.size() == columns) sql_.resize(before);  // nothing of it is read
        }
        write(")");
        write(Part{select.from, parsed_.all().end});
        return true;
    }

    void write(const Select& select) {
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
        write(Part{select.from, parsed_.all().end});
    }

    void write(const dialect::Update& update) {
        const Part condition{update.where, parsed_.all().end};
        write("UPDATE");
        if (update.isJoined) {
            write(quotedName(update.tables.front().table->name));
        } else {
            write(update.target);
        }
        write("SET");
        for (const Part assignment : update.assignments) {
            if (assignment.begin != update.assignments.front().begin) write(",");
            write(assignment);
        }
        if (!update.isJoined) {
            write(condition);
            return;
        }
        write("WHERE rowid IN ( SELECT");
        write(std::string(update.tables.front().quoted) + ".rowid FROM");
        write(update.target);
        write(condition);
        write(")");
    }

    void write(Part part) {
        for (std::size_t i = part.begin; i < part.end; ++i) write(parsed_.tokens()[i]);
    }

    void write(std::string_view text) {
        if (!sql_.empty()) sql_ += ' ';
        sql_ += text;
    }

    std::string take() { return std::move(sql_); }

  private:
    void writeItem(const Select& select, std::size_t item) {
        const Item& column = select.items[item];
        if (column.kind == Item::Kind::Star && !reads_.empty() && select.rowByRow) {
            if (!writeStar(select, column)) write(column.expression);
            return;
        }
        for (const Token& token : parsed_.expanded(select, item, "ledgerwick_number")) {
            write(token);
        }
        if (column.alias.empty()) return;
        write("AS");
        write(column.quoted == column.alias ? quotedName(column.alias)
                                            : std::string(column.quoted));
    }

    // Writes those columns of the star's tables that the caller will read.
    // Returns false when it names no table of the statement.
    bool writeStar(const Select& select, const Item& item) {
        bool found = false;
        bool first = true;
        for (const TableUse& use : select.tables) {
            if (!item.table.empty() && !equalsIgnoringCase(item.table, use.name)) continue;
            found = true;
            for (const TableColumn& column : use.table->columns) {
                if (!rowsets::isRead(reads_, column.name)) continue;
                if (!first) write(",");
                first = false;
                write(std::string(use.quoted) + '.' + quotedName(column.name));
                if (!row_) continue;
                row_->names.push_back(column.name);
                row_->kinds.push_back(column.kind);
            }
        }
        return found;
    }

    void write(const Token& token) {
        if (token.kind == Token::Kind::Mark) {
            write(dialect::literalMark + std::to_string(token.literal));
        } else if (token.is("/")) {
            write("* 1.0 /");
        } else {
            write(token.text);
        }
    }

    const ParsedStatement& parsed_;
    FieldList reads_;
    std::string sql_;
    RowTranslation* row_ = nullptr;  // takes the columns that are written
};

}  // namespace

std::string translate(std::string_view shape, FieldList reads, Tables& tables) {
    const ParsedStatement parsed(shape);
    Spelling spelling(parsed, reads);
    if (const auto select = parsed.select(tables)) {
        spelling.write(*select);
    } else if (const auto update = parsed.update(tables)) {
        spelling.write(*update);
    } else {
        spelling.write(parsed.all());
    }
    return spelling.take();
}

RowTranslation translateRow(std::string_view shape, FieldList reads, Tables& tables) {
    if (reads.empty()) return {};
    const ParsedStatement parsed(shape);
    const auto select = parsed.select(tables);
    if (!select || !select->rowByRow) return {};
    // Rows may be ordered by the place of a column.
    const Part order{parsed.find("ORDER", parsed.all()), parsed.all().end};
    for (std::size_t i = order.begin; i < order.end; ++i) {
        if (parsed.tokens()[i].kind == Token::Kind::Number) return {};
    }
    RowTranslation row;
    Spelling spelling(parsed, reads);
    if (!spelling.writeRow(*select, row)) return {};
    row.sql = spelling.take();
    return row;
}

KeyedTranslation translateKeyed(std::string_view shape, FieldList reads, Tables& tables) {
    const ParsedStatement parsed(shape);
    const auto select = parsed.select(tables);
    if (!select) return {};
    const auto columns = parsed.columnsOfOneTable(*select);
    if (!columns || !columns->use.table->isUpdatable) return {};
    auto plan = std::make_shared<KeyedPlan>();
    static_cast<rowsets::KeyedFields&>(*plan) =
        rowsets::keyedFields(columns->use.table, columns->columns, reads);
    std::string names;
    for (std::size_t i = 0; i < plan->tableColumn.size(); ++i) {
        if (plan->rowColumn[i] < 0) continue;
        names += (names.empty() ? "" : ", ") + quotedName(plan->fields.names()[i]);
    }
    plan->rowSql = "SELECT " + (names.empty() ? "NULL" : names) + " FROM " +
                   quotedName(plan->table->name) + " WHERE rowid = ?1";
    Spelling keys(parsed, reads);
    keys.write("SELECT " + std::string(columns->use.quoted) + ".rowid");
    keys.write(Part{select->from, parsed.all().end});
    return {keys.take(), std::move(plan)};
}

}  // namespace ledgerwick::sqlite
