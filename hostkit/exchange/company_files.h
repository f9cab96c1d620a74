// Bringing a company in from files and taking it out again, one CSV file for each table.
#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "hostkit/export.h"
#include "hostkit/store/company_store.h"

namespace ledgerwick::exchange {

// The company of that name, with every table of the kit; created if need be.
LEDGERWICK_HOSTKIT_API std::shared_ptr<store::CompanyStore> openOrCreate(const std::string& name);

// What is wrong with the files of an import, a line for each fault: "PRPay.csv, line 12, field
// PRPPayDate: "2025-02-30" is not a date (YYYY-MM-DD)".
class LEDGERWICK_HOSTKIT_API BadFiles : public std::runtime_error {
  public:
    // All faults of the files.
    explicit BadFiles(const std::vector<std::string>& faults);
};

// How many rows went in or out of a table.
struct TableCount {
    // The table.
    std::string table;
    // How many rows.
    std::size_t rows;
};

// Reads the files `TABLE.csv` of a folder into the database. Each has a first row of field names; a
// field left out takes the table's default. Every file is read and judged before the first row is
// stored. A row whose key is in the database already is a fault, except in the settings
// (`PRControl`, `PRYearEnds`, `Parameters`), where it takes the old row's place.
// Errors: BadFiles, and then nothing was stored; those of the database.
LEDGERWICK_HOSTKIT_API std::vector<TableCount> importCompany(store::CompanyStore& database,
                                                             const std::filesystem::path& folder);

// What would stop a load: employees, pay rows and imported pay that lack the row that they belong to.
// A sentence for each, at most twenty.
LEDGERWICK_HOSTKIT_API std::vector<std::string> brokenLinks(Database& database);

// Writes every table into the folder, which is made if need be, in the form that `importCompany`
// reads. Files of the same names are replaced.
// Errors: std::runtime_error when a file cannot be written; those of the database.
LEDGERWICK_HOSTKIT_API std::vector<TableCount> exportCompany(store::CompanyStore& database,
                                                             const std::filesystem::path& folder);

}  // namespace ledgerwick::exchange
