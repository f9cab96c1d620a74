// Rows of a statement that are in memory, and what is known of their columns.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "hostkit/postgres/link.h"
#include "hostkit/rowsets/row_store.h"
#include "hostkit/rowsets/tables.h"

namespace ledgerwick::postgres {

// The columns of a statement's result.
struct Columns {
    rowsets::FieldIndex fields;
    std::vector<VariantKind> kinds;
    std::vector<std::pair<TypeId, int>> types;  // and their modifiers
    std::vector<int> pictures;                  // the literal that a column is formatted by, or -1

    int count() const noexcept { return static_cast<int>(kinds.size()); }
};

// A row of a result as a row source.
struct ResultRow {
    const Columns& columns;
    const PGresult* result;
    int row = 0;

    int columnCount() const noexcept { return columns.count(); }
    rowsets::Cell cell(int column) const {
        if (PQgetisnull(result, row, column) != 0) return {};
        const auto& [type, modifier] = columns.types[static_cast<std::size_t>(column)];
        return decode(type, modifier, bytesIn(result, row, column));
    }
};

// Some rows of a store, or all.
struct Rows {
    std::shared_ptr<const rowsets::RowStore> store;
    std::vector<std::uint32_t> places;  // which, when it is `some`
    bool some = false;

    std::size_t size() const noexcept {
        if (!store) return 0;
        return some ? places.size() : store->size();
    }
    void read(std::size_t row, std::vector<rowsets::Cell>& cells) const {
        store->read(some ? places[row] : row, cells);
    }
};

}  // namespace ledgerwick::postgres
