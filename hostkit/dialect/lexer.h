// The first look at a statement: its literals are lifted out, and what is left is its shape.
//
//   SELECT * FROM PRPay WHERE PRPNAID = 7 AND PRPPayDate <= #4/29/2016#
//   SELECT * FROM PRPay WHERE PRPNAID = ? AND PRPPayDate <= ?          and 7, 42489
//
// Statements that differ in their literals only have one shape, so they are translated and
// prepared once. This runs for every statement and touches each character once.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "hostkit/export.h"
#include "hostkit/rowsets/cell.h"

namespace ledgerwick::dialect {

using rowsets::Cell;

// The mark of a lifted literal in a shape.
inline constexpr char literalMark = '?';

// A statement taken apart. The buffers are used again by the next statement.
class LEDGERWICK_HOSTKIT_API LiftedStatement {
  public:
    // Texts in single quotes, numbers, dates between # and the words True and False are lifted.
    // All but texts stay after ORDER BY and GROUP BY, where a number is the place of a column, and
    // in a statement with more than a thousand literals. A statement that is no query and changes
    // no rows keeps its texts too. What stays is written as SQLite writes it.
    // Errors: 3075 for a literal without an end, or one that is no date, and for a character that
    //         no statement holds outside a text.
    void lift(std::string_view sql);
    // From now on True and False stay in the shape as they are written.
    void keepBooleans() noexcept { keepBooleans_ = true; }

    const std::string& shape() const noexcept { return shape_; }
    std::size_t literalCount() const noexcept { return literals_.size(); }
    // Valid until the next `lift`.
    Cell literal(std::size_t index) const noexcept;
    // Whether the literal is a date.
    bool isDate(std::size_t index) const noexcept { return literals_[index].isDate; }
    // Whether it reads or changes rows; other statements are SQLite's own.
    bool isQuery() const noexcept { return query_; }
    // Whether the shape is worth keeping, as that of a statement that will come again.
    bool comesAgain() const noexcept { return lifting_; }

  private:
    struct Literal {
        Cell cell;
        std::size_t textStart = 0, textSize = 0;
        bool isDate = false;
    };

    void scan(std::string_view sql);
    std::size_t word(std::string_view sql, std::size_t at);
    std::size_t number(std::string_view sql, std::size_t at);
    std::size_t text(std::string_view sql, std::size_t at);
    std::size_t date(std::string_view sql, std::size_t at);
    std::size_t quotedName(std::string_view sql, std::size_t at, char close);
    void add(const Cell& cell);
    void lift(const Cell& cell, std::size_t textStart = 0, std::size_t textSize = 0);

    std::string shape_;
    std::string texts_;
    std::vector<Literal> literals_;
    bool query_ = true;
    bool lifting_ = true;
    bool keepBooleans_ = false;
    bool sorting_ = false;  // after ORDER BY or GROUP BY
};

// One word, name, mark, literal or symbol of a statement.
struct LEDGERWICK_HOSTKIT_API Token {
    // A `Literal` is a text or a date as it stands; a shape has marks in place of them.
    enum class Kind : std::uint8_t { Word, QuotedName, Mark, Number, Literal, Symbol };

    Kind kind;
    std::string_view text;    // as it stands, quotes included
    std::size_t literal = 0;  // of a mark: which literal, from 1

    bool is(std::string_view symbolOrWord) const noexcept;
    bool isName() const noexcept { return kind == Kind::Word || kind == Kind::QuotedName; }
    // The name without its quotes.
    std::string_view name() const noexcept;
};

// The tokens of a shape, or of a statement whose literals were not lifted.
LEDGERWICK_HOSTKIT_API std::vector<Token> tokensOf(std::string_view statement);

// A name as it stands in a statement, whatever its characters.
LEDGERWICK_HOSTKIT_API std::string quotedName(std::string_view name);

}  // namespace ledgerwick::dialect
