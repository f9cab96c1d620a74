#include "hostkit/postgres/companies.h"

#include "hostkit/dialect/lexer.h"
#include "hostkit/postgres/link.h"
#include "ledgerwick/values/error.h"

namespace ledgerwick::postgres {

namespace {

Result ask(Link& link, const char* sql, const std::string& parameter) {
    Statement statement{sql, {}, {}, 0};
    Parameters parameters;
    parameters.addText(parameter, type_id::text);
    Trip trip(link);
    trip.add(statement, std::move(parameters));
    if (!trip.run()) trip.raise();
    return trip.takeResult(0);
}

// Texts sort by their bytes once A to Z and a to z are the same, which only the plain locale does.
void requireLocale(Link& link) {
    const Result found = ask(link,
                             "SELECT pg_encoding_to_char(encoding) = 'UTF8' "
                             "AND datcollate::text IN ('C', 'POSIX') "
                             "AND datctype::text IN ('C', 'POSIX') "
                             "FROM pg_database WHERE datname = current_database() AND $1 <> ''",
                             "here");
    if (cellIn(found.get(), 0, 0).whole != 0) return;
    raise(
        error_number::invalidCall, "Database",
        "this database sorts texts otherwise than the library does: make one with CREATE DATABASE "
        "... TEMPLATE template0 ENCODING 'UTF8' LC_COLLATE 'C' LC_CTYPE 'C'");
}

}  // namespace

bool companyExists(const Target& target) {
    Link link(target, {});
    const Result found =
        ask(link, "SELECT to_regnamespace(quote_ident($1)) IS NOT NULL", target.company);
    return cellIn(found.get(), 0, 0).whole != 0;
}

void createCompany(const Target& target) {
    Link link(target, {});
    requireLocale(link);
    link.script(
        "CREATE SCHEMA IF NOT EXISTS lw_ext; "
        "CREATE EXTENSION IF NOT EXISTS citext SCHEMA lw_ext; "
        "CREATE SCHEMA " +
        dialect::quotedName(target.company));
}

void dropCompany(const Target& target) {
    Link link(target, {});
    link.script("DROP SCHEMA " + dialect::quotedName(target.company) + " CASCADE");
}

std::vector<std::string> companiesIn(const Target& target) {
    Link link(target, {});
    const Result found = ask(link,
                             "SELECT n.nspname::text FROM pg_namespace n JOIN pg_class c "
                             "ON c.relnamespace = n.oid AND c.relname = $1 ORDER BY 1",
                             "ledgerwickwriter");
    std::vector<std::string> names;
    names.reserve(static_cast<std::size_t>(PQntuples(found.get())));
    for (int row = 0; row < PQntuples(found.get()); ++row) {
        names.emplace_back(bytesIn(found.get(), row, 0));
    }
    return names;
}

}  // namespace ledgerwick::postgres
