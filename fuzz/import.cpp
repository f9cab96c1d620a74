// Imports: a file is taken in whole, or reported as wrong and not taken in at all; what was taken in, taken
// out and taken in again is the same.
//
// Input: which table, and its file.
#include <unistd.h>

#include <array>
#include <filesystem>
#include <fstream>

#include "fuzz/harness.h"
#include "hostkit/exchange/company_files.h"
#include "hostkit/exchange/tables.h"

namespace ledgerwick::fuzz {

namespace {

namespace fs = std::filesystem;

constexpr std::array files{
    "Customers", "PREmployeeDetails", "PREmployments", "PRPay",      "PensionSchemes",
    "Orders",    "PRPayImport",       "PRYearEnds",    "Parameters", "PRControl"};

struct Folder {
    Folder() { fs::create_directories(path); }
    ~Folder() {
        std::error_code ignored;
        fs::remove_all(path, ignored);
    }
    fs::path path =
        fs::temp_directory_path() / ("ledgerwick-fuzz-import-" + std::to_string(getpid()));
};

// A new database, without the cost of creating its tables.
class Company {
  public:
    Company() { exchange::companyTables(*database); }
    void empty() {
        for (const auto& table : exchange::companyTables(*database)) {
            database->exec("DELETE FROM " + table.name);
        }
    }
    std::string contents(const char* table) {
        std::string text;
        for (const auto& layout : exchange::companyTables(*database)) {
            if (layout.name != table) continue;
            const auto rows =
                database->OpenRecordset("SELECT * FROM " + layout.name, RecordsetType::Snapshot);
            for (; !rows->Eof(); rows->MoveNext()) {
                for (const auto& field : layout.fields) {
                    const Variant value = rows->Value(field.name);
                    text += std::to_string(static_cast<int>(value.kind())) + ':' +
                            exchange::writeField(value, field) + '|';
                }
                text += '\n';
            }
        }
        return text;
    }
    std::shared_ptr<store::CompanyStore> database = exchange::openOrCreate(":memory:");
};

}  // namespace

void fuzzOne(Input input) {
    static const Folder folder;
    static Company first, second;
    const char* table = files[input.choice(files.size())];
    const fs::path file = folder.path / (std::string(table) + ".csv");
    fs::remove_all(folder.path);
    fs::create_directories(folder.path);
    std::ofstream(file, std::ios::binary) << input.rest();
    first.empty();
    try {
        exchange::importCompany(*first.database, folder.path);
    } catch (const exchange::BadFiles& faults) {
        CHECK(first.contents(table).empty(), faults.what());
        CHECK(std::string_view(faults.what()).starts_with(table), faults.what());
        return;
    }
    const std::string stored = first.contents(table);
    exchange::exportCompany(*first.database, folder.path);
    second.empty();
    exchange::importCompany(*second.database, folder.path);
    CHECK(second.contents(table) == stored, stored + second.contents(table));
}

}  // namespace ledgerwick::fuzz
