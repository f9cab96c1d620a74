#include "hostkit/sqlite/tables.h"

#include "hostkit/sqlite/statement.h"
#include "hostkit/sqlite/values.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick::sqlite {

namespace {

std::string lowerCase(std::string_view name) {
    std::string lower(name);
    for (char& c : lower) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return lower;
}

}  // namespace

TableRef Tables::find(std::string_view name) {
    const std::string key = lowerCase(name);
    const auto known = tables_.find(key);
    if (known != tables_.end()) return known->second;
    TableRef table = read(key);
    if (table) tables_.emplace(key, table);
    return table;
}

TableRef Tables::read(const std::string& name) const {
    auto table = std::make_shared<Table>();
    table->name = name;
    Statement columns(database_, "SELECT name, type, dflt_value, pk FROM pragma_table_info(?1)");
    bind(columns.handle(), 1, Cell::ofText(name), true);
    int keyColumns = 0;
    while (columns.step()) {
        const std::string type(columns.cell(1).text);
        TableColumn column{std::string(columns.cell(0).text), rowsets::kindOfDeclaredType(type)};
        const Cell defaultText = columns.cell(2);
        if (defaultText.storage != Cell::Storage::Null) {
            column.defaultValue = evaluate(std::string(defaultText.text), column.kind);
        }
        if (columns.cell(3).whole > 0 && ++keyColumns == 1 && equalsIgnoringCase(type, "INTEGER")) {
            table->key = static_cast<int>(table->columns.size());
        }
        table->columns.push_back(std::move(column));
    }
    if (table->columns.empty()) return nullptr;
    if (keyColumns != 1) table->key = -1;
    table->isUpdatable =
        sqlite3_table_column_metadata(database_, nullptr, name.c_str(), "rowid", nullptr, nullptr,
                                      nullptr, nullptr, nullptr) == SQLITE_OK;
    return table;
}

Variant Tables::evaluate(const std::string& expression, VariantKind kind) const {
    Statement statement(database_, "SELECT " + expression);
    if (!statement.step()) return Null;
    return rowsets::toVariant(statement.cell(0), kind);
}

}  // namespace ledgerwick::sqlite
