// The statements' dialect, spelled for SQLite.
//
//   UPDATE PRPay LEFT JOIN PensionSchemes ON ... SET PRPHasBeenVisited = ? WHERE ...
//   UPDATE PRPay SET PRPHasBeenVisited = ?1
//   WHERE PRPay.rowid IN (SELECT PRPay.rowid FROM PRPay LEFT JOIN PensionSchemes ON ... WHERE ...)
//
// What differs, besides the literals that the lexer lifts out:
// - "/" divides whole numbers with a fraction, never down to a whole number;
// - a column defined by the statement may be used in its other columns: its expression stands in,
//   and when that is a `Format` it is read as a number again ("1,234.5");
// - an UPDATE may join tables; each row of its first table is changed once;
// - `*` is narrowed to the fields that the caller will read, and these are handed over together, as
//   the arguments of `ledgerwick_row`.
// `Format` is a function of the kit's own (functions.h); `iif`, `Min`, `Max` and names in square
// brackets are SQLite's too.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "hostkit/rowsets/keyed_set.h"
#include "hostkit/sqlite/tables.h"
#include "ledgerwick/records/record_access.h"

namespace ledgerwick::sqlite {

// How an updatable set reaches its rows.
struct KeyedPlan : rowsets::KeyedFields {
    std::string rowSql;  // one row by its number
};

// A shape of the lexer as a statement for SQLite, its marks numbered.
std::string translate(std::string_view shape, FieldList reads, Tables& tables);

// The same for rows that arrive whole, as the arguments of a function. Nothing (no names) for a
// statement of which not every row is a row of its tables, or not every column one of theirs.
struct RowTranslation {
    std::string sql;
    std::vector<std::string> names;
    std::vector<VariantKind> kinds;
};
RowTranslation translateRow(std::string_view shape, FieldList reads, Tables& tables);

// The keys of an updatable set.
struct KeyedTranslation {
    std::string keysSql;
    std::shared_ptr<KeyedPlan> plan;
};

// Nothing (a null plan) when the rows are not those of one table, field by field.
KeyedTranslation translateKeyed(std::string_view shape, FieldList reads, Tables& tables);

}  // namespace ledgerwick::sqlite
