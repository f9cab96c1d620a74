// The tables of an open SQLite database.
#pragma once

#include <sqlite3.h>

#include <string>
#include <string_view>
#include <unordered_map>

#include "hostkit/rowsets/tables.h"

namespace ledgerwick::sqlite {

using rowsets::FieldIndex;
using rowsets::Table;
using rowsets::TableColumn;
using rowsets::TableRef;

// The tables of a connection, read when they are first asked for.
// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor): a final class
class Tables final : public rowsets::Catalog {
  public:
    explicit Tables(sqlite3* database) noexcept : database_(database) {}

    TableRef find(std::string_view name) override;
    // To be called after the schema may have changed.
    void forget() { tables_.clear(); }

  private:
    TableRef read(const std::string& name) const;
    Variant evaluate(const std::string& expression, VariantKind kind) const;

    sqlite3* database_;
    std::unordered_map<std::string, TableRef> tables_;  // by the name in lower case
};

}  // namespace ledgerwick::sqlite
