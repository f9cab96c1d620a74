// The parts of a statement, as far as somebody who looks at its rows needs them.
//
//   UPDATE ORDERS SET ORDSTATUS = 5, ORDREF = 'Pay, late' WHERE ORDID IN (1, 2)
//   verb "UPDATE", source "ORDERS", assigned {"ORDSTATUS", "ORDREF"}, condition "ORDID IN (1, 2)"
#pragma once

#include <string_view>
#include <vector>

#include "hostkit/export.h"

namespace ledgerwick::recording {

// Views into a statement; a part that it does not have is empty.
struct StatementParts {
    std::string_view verb;  // SELECT, UPDATE, DELETE; anything else as it stands
    // Between SELECT and FROM.
    std::string_view columns;
    // The table with its joins.
    std::string_view source;
    std::string_view table;                  // the first of them
    std::vector<std::string_view> assigned;  // the fields of SET, without their table
    std::string_view condition;              // after WHERE, with all that follows
};

// The views are into `sql`.
// Shape:  a part that the statement does not have is empty.
LEDGERWICK_HOSTKIT_API StatementParts partsOf(std::string_view sql);

// Whether the word stands in the text as a word of its own, in any case.
LEDGERWICK_HOSTKIT_API bool holdsWord(std::string_view text, std::string_view word);

}  // namespace ledgerwick::recording
