// The statements' dialect, in the server's words.
//
//   UPDATE PRPay LEFT JOIN PensionSchemes ON ... SET PRPHasBeenVisited = False WHERE ... = ?
//   UPDATE "prpay" SET PRPHasBeenVisited = False
//   WHERE "prpid" IN (SELECT "prpay"."prpid" FROM PRPay LEFT JOIN PensionSchemes ON ... = $1)
//
// What differs, besides the literals that are lifted out:
// - names in quotes are looked up in small letters, as the server does with the others;
// - "/" divides with a fraction, and by nothing gives Null;
// - `iif` is a CASE; `Format` as a whole column is done by the store when the value is read, and
//   inside an expression is a rounding;
// - a column defined by the statement may be used in its other columns: its expression stands in;
// - Null sorts first;
// - an UPDATE may join tables; each row of its first table is changed once;
// - `*` is narrowed to the fields that the caller will read.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "hostkit/postgres/tables.h"
#include "hostkit/rowsets/keyed_set.h"

namespace ledgerwick::postgres {

// "Column = ?", which every row of the statement meets.
struct Equality {
    TableRef table;
    int column = 0;
    std::size_t literal = 0;  // from 0
    std::string qualified;    // the column as it stands in a statement for the server
};

// A statement as the server gets it.
struct Spelling {
    std::string sql;
    std::vector<std::string> aliases;  // as the statement spells them, for the names of its columns
    std::vector<std::pair<int, std::size_t>>
        formats;                   // a column, and the literal that is its picture
    TableSet tables = everyTable;  // those that it reads or writes
    TableSet written = everyTable;
    std::vector<Equality> equalities;
    bool rowByRow = false;       // each row is a row of the joined tables
    std::size_t columnsEnd = 0;  // where another column may follow

    // Of an updatable set: the fields of one table. In the result the key of the row follows them.
    std::shared_ptr<rowsets::KeyedFields> keyed;
};

// `updatable`: as an updatable set, if the rows are those of one table.
Spelling spell(std::string_view shape, FieldList reads, bool updatable, Tables& tables);

// A SELECT that asks for many values of one equality at once: the mark becomes an array, and the
// equality's column follows the others. Empty when the statement has no place for that.
std::string spellForMany(const Spelling& spelling, const Equality& equality);

}  // namespace ledgerwick::postgres
