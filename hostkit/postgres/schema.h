// The kit's tables, in the words of the server.
#pragma once

#include <string>
#include <string_view>

namespace ledgerwick::postgres {

// schema.sql, as every store of the kit reads it.
extern const char* const schemaSql;

// Statements written as in schema.sql, for the server.
//
//   PRPID INTEGER PRIMARY KEY     integer PRIMARY KEY, numbered as the file store numbers its rows
//   PRPPayDate DATE DEFAULT 0     timestamp DEFAULT '1899-12-30'
//
// Indexes keep Null first, and one that begins with a boolean is of the rows where that is False.
std::string definitionsFor(std::string_view statements);

// What a company has beside the tables of schema.sql: functions, which the tables need, and the row
// that the writer holds.
extern const char* const functionsSql;
extern const char* const writerSql;

}  // namespace ledgerwick::postgres
