// What the layer knows of the tables of an open database.
#pragma once

#include <sqlite3.h>

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "ledgerwick/records/schema.h"
#include "ledgerwick/values/variant.h"

namespace ledgerwick::sqlite {

// Finds the place of a field by its name. A name of the schema is looked up once and then found by
// its number.
class FieldIndex {
  public:
    FieldIndex() { byId_.fill(notLookedUp); }
    explicit FieldIndex(std::vector<std::string> names) : FieldIndex() {
        names_ = std::move(names);
    }

    static constexpr int none = -1;

    // The place of the field, from 0, or `none`.
    int find(const FieldName& name) {
        const std::uint16_t id = name.id();
        if (id == 0 || id > field::fieldCount) return search(name.text());
        if (byId_[id] == notLookedUp) byId_[id] = static_cast<std::int16_t>(search(name.text()));
        return byId_[id];
    }

    const std::vector<std::string>& names() const noexcept { return names_; }

  private:
    static constexpr std::int16_t notLookedUp = -2;

    int search(std::string_view name) const noexcept;

    std::vector<std::string> names_;
    std::array<std::int16_t, field::fieldCount + 1> byId_{};
};

struct TableColumn {
    std::string name;
    VariantKind kind = VariantKind::Empty;
    Variant defaultValue = Null;
};

struct Table {
    std::string name;
    std::vector<TableColumn> columns;
    bool hasRowId = false;  // not for a view
    int key = -1;           // the column that is the row's number in the table, or -1

    int find(std::string_view column) const noexcept;
};

using TableRef = std::shared_ptr<const Table>;

// The tables of a connection, read when they are first asked for.
class Tables {
  public:
    explicit Tables(sqlite3* database) noexcept : database_(database) {}

    // A null pointer when there is no such table or view.
    TableRef find(std::string_view name);
    // To be called after the schema may have changed.
    void forget() { tables_.clear(); }

  private:
    TableRef read(const std::string& name) const;
    Variant evaluate(const std::string& expression, VariantKind kind) const;

    sqlite3* database_;
    std::unordered_map<std::string, TableRef> tables_;  // by the name in lower case
};

}  // namespace ledgerwick::sqlite
