// Companies taken out and in again, whatever they hold.
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <unistd.h>

#include <filesystem>
#include <map>

#include "hostkit/exchange/company_files.h"
#include "hostkit/exchange/tables.h"
#include "ledgerwick/records/record_access.h"

namespace ledgerwick::test {
namespace {

namespace fs = std::filesystem;

using Cells = std::map<std::string, Variant>;

// A text of what files and people make trouble with.
rc::Gen<std::string> anyText() {
    const auto piece = rc::gen::elementOf(std::vector<std::string>{
        "a",      "B",      " ",          ",",    "\"", "'",    "=", "-",      "+",
        "@",      "\\",     "\\N",        "\n",   "\r", "\t",   ";", "\u00A3", "\u20AC",
        "\u202E", "\uFEFF", "\U0001F600", "\x01", "0",  "True", "--"});
    return rc::gen::map(rc::gen::container<std::vector<std::string>>(piece),
                        [](const std::vector<std::string>& pieces) {
                            std::string text;
                            for (const std::string& each : pieces) text += each;
                            return text;
                        });
}

// A value that a field can hold; Null now and then.
Variant anyValue(const exchange::FieldLayout& field) {
    if (!field.isKey && *rc::gen::weightedElement<bool>({{9, false}, {1, true}})) return Null;
    const auto whole = *rc::gen::arbitrary<std::int32_t>();
    if (field.isDayNumber) return Variant(std::abs(whole % 60000));
    switch (field.kind) {
        case VariantKind::Boolean:
            return Variant(whole % 2 == 0);
        case VariantKind::Int16:
            return Variant(static_cast<std::int16_t>(whole));
        case VariantKind::Int32:
            return Variant(whole);
        case VariantKind::Single:
            return Variant(static_cast<float>(*rc::gen::arbitrary<double>()));
        case VariantKind::Double:
            return Variant(*rc::gen::arbitrary<double>());
        case VariantKind::Currency:
            return Variant(Currency::fromTicks(std::int64_t{whole} * 1000 + 7));
        case VariantKind::Date:
            return Variant(Date::fromYmdHms(1900 + std::abs(whole % 200), 1, whole % 400, 0, 0,
                                            whole % 86400));
        default:
            return Variant(*anyText());
    }
}

std::vector<Cells> rowsOf(store::CompanyStore& database, const exchange::TableLayout& table) {
    std::vector<Cells> rows;
    const auto set = database.OpenRecordset("SELECT * FROM " + table.name, RecordsetType::Snapshot);
    for (; !set->Eof(); set->MoveNext()) {
        for (Cells& row = rows.emplace_back(); const exchange::FieldLayout& field : table.fields) {
            row[field.name] = set->Value(field.name);
        }
    }
    return rows;
}

RC_GTEST_PROP(Exchange, OfAnyCompanyGivesTheSameDatabase, ()) {
    const fs::path folder =
        fs::path(testing::TempDir()) / ("ledgerwick-laws-" + std::to_string(getpid()));
    const auto first = exchange::openOrCreate(":memory:");
    const auto second = exchange::openOrCreate(":memory:");
    const auto tables = exchange::companyTables(*first);
    for (const auto& table : tables) {
        if (table.isSettings) continue;
        const auto set =
            first->OpenRecordset("SELECT * FROM " + table.name, RecordsetType::Dynaset);
        const auto count = *rc::gen::inRange<std::int32_t>(0, 3);
        for (std::int32_t key = 1; key <= count; ++key) {
            set->AddNew();
            for (const exchange::FieldLayout& field : table.fields) {
                set->Value(field.name, field.isKey ? Variant(key) : anyValue(field));
            }
            set->Update();
        }
    }
    exchange::exportCompany(*first, folder);
    exchange::importCompany(*second, folder);
    for (const auto& table : tables) {
        const auto before = rowsOf(*first, table);
        const auto after = rowsOf(*second, table);
        RC_ASSERT(before.size() == after.size());
        for (std::size_t i = 0; i < before.size(); ++i) {
            for (const auto& [name, value] : before[i]) {
                RC_LOG() << table.name << ", row " << i << ", field " << name << '\n';
                RC_ASSERT(after[i].at(name) == value);
            }
        }
    }
    fs::remove_all(folder);
}

}  // namespace
}  // namespace ledgerwick::test
