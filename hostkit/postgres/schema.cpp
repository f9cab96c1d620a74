#include "hostkit/postgres/schema.h"

#include <algorithm>
#include <array>
#include <set>
#include <vector>

#include "hostkit/dialect/lexer.h"
#include "hostkit/postgres/tables.h"

namespace ledgerwick::postgres {

const char* const functionsSql = R"sql(
CREATE OR REPLACE FUNCTION ledgerwick_round(value float8, picture text) RETURNS float8
    LANGUAGE sql IMMUTABLE AS
    'SELECT round(value::numeric, length(split_part(picture, ''.'', 2)))::float8';
CREATE OR REPLACE FUNCTION ledgerwick_next(tab text, col text) RETURNS integer
    LANGUAGE plpgsql AS
    'DECLARE n integer;
     BEGIN
         EXECUTE format(''SELECT COALESCE(max(%I), 0) + 1 FROM %I'', col, tab) INTO n;
         RETURN n;
     END';
)sql";

// The writer's row: who updates it writes alone until the transaction ends. `Version` counts the
// writes, `Tokens` are the marks of the last of them, by which a lost answer to a COMMIT is found.
const char* const writerSql = R"sql(
CREATE TABLE IF NOT EXISTS LedgerwickWriter (
    Id integer PRIMARY KEY, Version bigint NOT NULL, Tokens bigint[] NOT NULL
) WITH (fillfactor = 50);
INSERT INTO LedgerwickWriter VALUES (1, 1, '{}') ON CONFLICT DO NOTHING;
ALTER TABLE PRControl REPLICA IDENTITY FULL;
ALTER TABLE PRPay SET (fillfactor = 90, autovacuum_vacuum_scale_factor = 0.02,
                                 autovacuum_analyze_scale_factor = 0.02);
)sql";

namespace {

using dialect::Token;

struct TypeName {
    std::string_view ours;
    std::string_view servers;
    std::string_view zero;  // what DEFAULT 0 is
};

constexpr std::array typeNames{
    TypeName{"INTEGER", "integer", "0"},     TypeName{"SMALLINT", "smallint", "0"},
    TypeName{"NUMBER", "float8", "0"},       TypeName{"DOUBLE", "float8", "0"},
    TypeName{"SINGLE", "real", "0"},         TypeName{"CURRENCY", "numeric(19,4)", "0"},
    TypeName{"BOOLEAN", "boolean", "false"}, TypeName{"DATE", "timestamp", "'1899-12-30'"},
    TypeName{"TEXT", "citext", "''"},
};

const TypeName* typeNamed(const Token& token) {
    for (const TypeName& type : typeNames) {
        if (token.is(type.ours)) return &type;
    }
    return nullptr;
}

// Takes the comments out, which end with their lines.
std::string withoutComments(std::string_view text) {
    std::string plain;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size() - 1) + 1;
        const std::string_view line = text.substr(0, end);
        plain += line.substr(0, line.find("--"));
        plain += '\n';
        text.remove_prefix(end);
    }
    return plain;
}

class Definitions {
  public:
    explicit Definitions(std::string_view statements)
        : text_(withoutComments(statements)), tokens_(dialect::tokensOf(text_)) {}

    std::string run() {
        while (at_ < tokens_.size()) {
            const std::size_t end = endOfStatement();
            if (isIndex(end)) {
                writeIndex(end);
            } else {
                writeTable(end);
            }
            at_ = end;
        }
        return std::move(sql_);
    }

  private:
    std::size_t endOfStatement() const {
        std::size_t end = at_;
        while (end < tokens_.size() && !tokens_[end].is(";")) ++end;
        return std::min(end + 1, tokens_.size());
    }
    std::size_t find(std::string_view word, std::size_t from, std::size_t end) const {
        while (from < end && !tokens_[from].is(word)) ++from;
        return from;
    }
    bool isIndex(std::size_t end) const {
        return find("INDEX", at_, std::min(at_ + 3, end)) < std::min(at_ + 3, end);
    }

    // A name is the server's in small letters, also one in quotes.
    void write(const Token& token) {
        if (token.kind == Token::Kind::QuotedName) {
            write(dialect::quotedName(lowerCase(token.name())));
        } else {
            write(token.text);
        }
    }
    void write(std::string_view text) {
        if (!sql_.empty()) sql_ += ' ';
        sql_ += text;
    }

    void writeTable(std::size_t end) {
        std::string table;
        const TypeName* type = nullptr;
        for (; at_ < end; ++at_) {
            const Token& token = tokens_[at_];
            if (token.is("(") && table.empty()) table = lowerCase(tokens_[at_ - 1].name());
            const TypeName* const named = at_ > 0 && !table.empty() ? typeNamed(token) : nullptr;
            if (named) {
                type = named;
                write(named->servers);
                const bool isKey = at_ + 1 < end && tokens_[at_ + 1].is("PRIMARY");
                if (isKey && named->ours == "INTEGER") writeKeyDefault(table);
                if (named->ours == "BOOLEAN") {
                    booleans_.insert(lowerCase(tokens_[at_ - 1].name()));
                }
            } else if (token.is("COLLATE")) {
                ++at_;
            } else if (token.is("DEFAULT") && type) {
                write("DEFAULT");
                ++at_;
                write(tokens_[at_].text == "0" ? type->zero : tokens_[at_].text);
            } else {
                write(token);
            }
        }
    }

    void writeKeyDefault(const std::string& table) {
        write("DEFAULT ledgerwick_next('" + table + "', '" + lowerCase(tokens_[at_ - 1].name()) +
              "')");
    }

    void writeIndex(std::size_t end) {
        const std::size_t open = find("(", at_, end);
        while (at_ <= open) write(tokens_[at_++]);
        std::string condition;
        if (booleans_.count(lowerCase(tokens_[at_].name())) != 0) {
            condition = "WHERE NOT " + std::string(tokens_[at_].text);
            at_ += 2;  // and its comma
        }
        for (; at_ < end; ++at_) {
            const Token& token = tokens_[at_];
            if (token.is(")") || token.is(",")) write("NULLS FIRST");
            if (token.is(";")) write(condition);
            write(token);
        }
    }

    std::string text_;
    std::vector<Token> tokens_;
    std::size_t at_ = 0;
    std::set<std::string> booleans_;
    std::string sql_;
};

}  // namespace

std::string definitionsFor(std::string_view statements) {
    return Definitions(statements).run();
}

}  // namespace ledgerwick::postgres
