#include "hostkit/postgres/tables.h"

#include <algorithm>
#include <cctype>

#include "hostkit/dialect/lexer.h"
#include "hostkit/postgres/schema.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick::postgres {

namespace {

// The columns of what the catalogue gives.
enum CatalogueColumn : int { atName, atType, atModifier, atDefault, atKind, atIsKey };

std::string textIn(const PGresult* rows, int row, int column) {
    return std::string(bytesIn(rows, row, column));
}

// The names of the tables that a host creates for a while.
const char* const temporaryNames = " PRPayImport PRPINAID PRPIPay TLWWeekNo TLWCMonthNo";

std::unordered_map<std::string, std::string> wordsOf(std::string_view text) {
    std::unordered_map<std::string, std::string> words;
    const auto isWord = [](char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0; };
    for (auto at = text.begin(); at != text.end();) {
        const auto start = std::find_if(at, text.end(), isWord);
        at = std::find_if_not(start, text.end(), isWord);
        std::string word(start, at);
        words.emplace(lowerCase(word), word);
    }
    return words;
}

}  // namespace

std::string lowerCase(std::string_view name) {
    std::string lower(name);
    for (char& c : lower) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return lower;
}

std::string spelled(const std::string& name) {
    static const auto words = wordsOf(std::string(schemaSql) + temporaryNames);
    const auto found = words.find(name);
    return found == words.end() ? name : found->second;
}

rowsets::TableRef Tables::find(std::string_view name) {
    const std::string key = lowerCase(name);
    const auto known = tables_.find(key);
    if (known != tables_.end()) return known->second;
    TableRef table = read(key);
    if (table) tables_.emplace(key, table);
    return table;
}

TableRef Tables::read(const std::string& name) {
    static const std::string sql = R"sql(
        SELECT a.attname::text, a.atttypid::int8, a.atttypmod,
               pg_get_expr(d.adbin, d.adrelid), c.relkind::text,
               COALESCE(i.indkey[0] = a.attnum, false)
        FROM pg_class c
        JOIN pg_attribute a ON a.attrelid = c.oid AND a.attnum > 0 AND NOT a.attisdropped
        LEFT JOIN pg_attrdef d ON d.adrelid = c.oid AND d.adnum = a.attnum
        LEFT JOIN pg_index i ON i.indrelid = c.oid AND i.indisprimary AND i.indnatts = 1
        WHERE c.oid = to_regclass(quote_ident($1))
        ORDER BY a.attnum)sql";
    const Result rows = ask_(sql, &name);
    const int count = PQntuples(rows.get());
    if (count == 0) return nullptr;
    auto table = std::make_shared<Table>();
    table->name = spelled(name);
    table->quoted = dialect::quotedName(name);
    table->bit = bitOf(name);
    const std::string kind = textIn(rows.get(), 0, atKind);
    table->isUpdatable = kind == "r" || kind == "p";
    std::string defaults = "SELECT ";
    for (int row = 0; row < count; ++row) {
        const std::string column = textIn(rows.get(), row, atName);
        const auto type = static_cast<TypeId>(cellIn(rows.get(), row, atType).whole);
        const auto modifier = static_cast<int>(cellIn(rows.get(), row, atModifier).whole);
        const VariantKind valueKind = kindOf(type, modifier);
        const bool isKey = cellIn(rows.get(), row, atIsKey).whole != 0;
        if (isKey && (type == type_id::int4 || type == type_id::int8)) table->key = row;
        table->columns.push_back({spelled(column), valueKind, Null});
        table->server.push_back(
            {dialect::quotedName(column), type, type == type_id::int8 ? type : typeOf(valueKind)});
        // The default of a key draws a number, so that it is not asked for.
        const bool none = isKey || PQgetisnull(rows.get(), row, atDefault) != 0;
        defaults += (row > 0 ? ", " : "") +
                    (none ? std::string("NULL") : textIn(rows.get(), row, atDefault));
    }
    const Result values = ask_(defaults, nullptr);
    for (std::size_t i = 0; i < table->columns.size(); ++i) {
        table->columns[i].defaultValue = rowsets::toVariant(
            cellIn(values.get(), 0, static_cast<int>(i)), table->columns[i].kind);
    }
    return table;
}

TableSet Tables::bitOf(const std::string& name) {
    constexpr std::size_t bits = 64;
    auto found = std::find(names_.begin(), names_.end(), name);
    if (found == names_.end()) found = names_.insert(names_.end(), name);
    return TableSet{1} << (static_cast<std::size_t>(found - names_.begin()) % bits);
}

}  // namespace ledgerwick::postgres
