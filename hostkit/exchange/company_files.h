// Bringing a company in from files and taking it out again, one CSV file for each table.
#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "hostkit/export.h"
#include "hostkit/sqlite/database.h"

namespace ledgerwick::exchange {

// The database file, made if need be, with the kit's tables in it.
LEDGERWICK_HOSTKIT_API std::shared_ptr<sqlite::SqliteDatabase> openDatabaseFile(
    const std::string& path);

// What is wrong with the files of an import, a line for each fault: "PRPay.csv, line 12, field
// PRPPayDate: "2025-02-30" is not a date (YYYY-MM-DD)".
class LEDGERWICK_HOSTKIT_API BadFiles : public std::runtime_error {
  public:
    explicit BadFiles(const std::vector<std::string>& faults);
};

// How many rows went in or out of a table.
struct TableCount {
    std::string table;
    std::size_t rows;
};

// Reads the files `TABLE.csv` of a folder into the database. Each has a first row of field names; a
// field left out takes the table's default. Every file is read and judged before the first row is
// stored. A row whose key is in the database already is a fault, except in the settings
// (`PRControl`, `PRYearEnds`, `Parameters`), where it takes the old row's place.
// Errors: BadFiles, and then nothing was stored; those of the database.
LEDGERWICK_HOSTKIT_API std::vector<TableCount> importCompany(sqlite::SqliteDatabase& database,
                                                             const std::filesystem::path& folder);

// What would stop a load: employees, pay rows and imported pay that lack the row that they belong to.
// A sentence for each, at most twenty.
LEDGERWICK_HOSTKIT_API std::vector<std::string> brokenLinks(Database& database);

// Writes every table into the folder, which is made if need be, in the form that `importCompany`
// reads. Files of the same names are replaced.
// Errors: std::runtime_error when a file cannot be written; those of the database.
LEDGERWICK_HOSTKIT_API std::vector<TableCount> exportCompany(sqlite::SqliteDatabase& database,
                                                             const std::filesystem::path& folder);

}  // namespace ledgerwick::exchange
