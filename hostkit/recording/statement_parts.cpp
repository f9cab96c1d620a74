#include "hostkit/recording/statement_parts.h"

#include <algorithm>

#include "hostkit/dialect/parsed_statement.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick::recording {

using dialect::ParsedStatement;
using dialect::Part;
using dialect::Token;

StatementParts partsOf(std::string_view sql) {
    const ParsedStatement parsed(sql);
    const std::vector<Token>& tokens = parsed.tokens();
    StatementParts parts;
    if (tokens.empty()) return parts;
    parts.verb = tokens.front().text;
    const bool isUpdate = parsed.isAt(0, "UPDATE");
    const std::size_t where = parsed.find("WHERE", parsed.all());
    const std::size_t middle = parsed.find(isUpdate ? "SET" : "FROM", {0, where});
    const Part head{1, middle};
    const Part tail{middle + 1, where};
    const Part source = isUpdate ? head : tail;
    if (!isUpdate) parts.columns = parsed.text(head);
    parts.source = parsed.text(source);
    if (!source.isEmpty()) parts.table = tokens[source.begin].name();
    if (isUpdate) {
        for (const Part assignment : parsed.assignments(tail)) {
            parts.assigned.push_back(tokens[assignment.begin].name());
        }
    }
    parts.condition = parsed.text({where + 1, tokens.size()});
    return parts;
}

bool holdsWord(std::string_view text, std::string_view word) {
    const std::vector<Token> tokens = dialect::tokensOf(text);
    return std::any_of(tokens.begin(), tokens.end(), [word](const Token& token) {
        return token.isName() && equalsIgnoringCase(token.name(), word);
    });
}

}  // namespace ledgerwick::recording
