// A statement's tokens with what they are: the columns and tables of a SELECT, the assignments of an
// UPDATE. A store spells what it finds here in its database's own words.
//
//   const ParsedStatement parsed("SELECT Orders.*, OrdQty * 2 AS Twice FROM Orders WHERE OrdID = ?");
//   const auto select = parsed.select(tables);   // items "Orders.*" and Twice, table Orders
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string_view>
#include <vector>

#include "hostkit/dialect/lexer.h"
#include "hostkit/export.h"
#include "hostkit/rowsets/tables.h"

namespace ledgerwick::dialect {

// A part of a statement: the tokens from `begin` up to `end`.
struct Part {
    std::size_t begin = 0;
    std::size_t end = 0;

    bool isEmpty() const noexcept { return begin >= end; }
};

// One column of a SELECT.
struct Item {
    enum class Kind : std::uint8_t { Star, Column, Expression };

    Kind kind = Kind::Expression;
    Part expression;
    std::string_view table;   // in front of a star or a column, or empty
    std::string_view column;  // of a plain column
    std::string_view alias;   // after AS, or empty
    std::string_view quoted;  // the same as it stands
};

// One table of a FROM or an UPDATE.
struct TableUse {
    std::string_view name;    // in the statement: its alias if it has one
    std::string_view quoted;  // the same as it stands
    rowsets::TableRef table;
};

// A SELECT of one level whose tables are known.
struct Select {
    std::vector<Item> items;
    std::vector<TableUse> tables;
    std::size_t from = 0;  // the word FROM
    bool rowByRow = true;  // each row is a row of the joined tables
};

// An UPDATE.
struct Update {
    Part target;                    // the table with its joins
    std::vector<Part> assignments;  // "Field = value"
    std::size_t where = 0;          // the word WHERE, or the end
    bool isJoined = false;
    std::vector<TableUse> tables;  // of a joined one, the table that is changed first
};

// The columns of one table that a set without joins consists of.
struct TableColumns {
    TableUse use;
    std::vector<int> columns;  // places in the table, in the order of the statement
};

class LEDGERWICK_HOSTKIT_API ParsedStatement {
  public:
    // Views into `statement`, which must outlive this object.
    explicit ParsedStatement(std::string_view statement) : tokens_(tokensOf(statement)) {}

    const std::vector<Token>& tokens() const noexcept { return tokens_; }
    Part all() const noexcept { return {0, tokens_.size()}; }
    bool isAt(std::size_t token, std::string_view symbolOrWord) const noexcept {
        return token < tokens_.size() && tokens_[token].is(symbolOrWord);
    }
    // The text of a part as it stands.
    std::string_view text(Part part) const noexcept;

    // The first place of a word outside parentheses, or the end.
    std::size_t find(std::string_view word, Part part) const { return find({word}, part); }
    // The first place of any of the words.
    std::size_t find(std::initializer_list<std::string_view> words, Part part) const;
    // The parts between the commas outside parentheses.
    std::vector<Part> split(Part list) const;
    // The assignments of a SET, "Field = value", each without the table in front of its field.
    std::vector<Part> assignments(Part list) const;

    // Nothing for a statement of another kind, a SELECT of several levels, one with DISTINCT, ALL or
    // TOP, and one that reads anything but known tables and their joins.
    std::optional<Select> select(rowsets::Catalog& catalog) const;
    // Nothing for a statement of another kind, and for joins of unknown tables.
    std::optional<Update> update(rowsets::Catalog& catalog) const;

    // The columns of the only table of a SELECT whose rows are those of that table, column by column;
    // nothing when they are anything else, or are sorted by the places of columns.
    std::optional<TableColumns> columnsOfOneTable(const Select& select) const;

    // The tokens of a column's expression. A name that another column defines is replaced by that
    // column's expression in parentheses; when that is a `Format`, a call of `numberFunction`, which
    // reads the number in the text, stands around it.
    std::vector<Token> expanded(const Select& select, std::size_t item,
                                std::string_view numberFunction) const;

  private:
    bool parseItems(Part list, Select& select) const;
    Item parseItem(Part part) const;
    bool parseTables(Part clause, rowsets::Catalog& catalog, std::vector<TableUse>& uses) const;
    void expand(const Select& select, std::size_t item, std::string_view numberFunction,
                std::size_t depth, std::vector<Token>& into) const;
    std::size_t otherColumn(const Select& select, std::size_t item, std::size_t token) const;

    std::vector<Token> tokens_;
};

}  // namespace ledgerwick::dialect
