// What a store knows of its tables, and the place of a field among others.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "hostkit/export.h"
#include "ledgerwick/records/record_access.h"
#include "ledgerwick/records/schema.h"
#include "ledgerwick/values/variant.h"

namespace ledgerwick::rowsets {

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

    LEDGERWICK_HOSTKIT_API int search(std::string_view name) const noexcept;

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
    bool isUpdatable = false;  // its rows can be fetched and written by a number; not a view
    int key = -1;              // the column that is this number, or -1

    LEDGERWICK_HOSTKIT_API int find(std::string_view column) const noexcept;
};

using TableRef = std::shared_ptr<const Table>;

// Whether the caller will read the column; an empty list stands for every field.
LEDGERWICK_HOSTKIT_API bool isRead(FieldList reads, std::string_view column);

// Finds a table by its name, in any case.
class Catalog {
  public:
    // A null pointer when there is no such table or view.
    virtual TableRef find(std::string_view name) = 0;

  protected:
    ~Catalog() = default;
};

}  // namespace ledgerwick::rowsets
