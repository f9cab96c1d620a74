// What the store knows of the tables of a company.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "hostkit/postgres/link.h"
#include "hostkit/rowsets/tables.h"

namespace ledgerwick::postgres {

// A name as the server keeps it when it is not in quotes: A to Z become small.
std::string lowerCase(std::string_view name);

// A name of the kit's tables or fields as they are spelled; any other as it is.
std::string spelled(const std::string& name);

// A set of tables, one bit each; beyond 64 tables two share a bit.
using TableSet = std::uint64_t;
inline constexpr TableSet everyTable = ~TableSet{0};

// A column as the server has it.
struct ServerColumn {
    std::string quoted;  // its name, as it stands in a statement
    TypeId type = type_id::text;
    TypeId sentAs = type_id::text;  // the type of the values that are sent for it
};

// A table with what the server needs of it. `columns` spells the names.
struct Table : rowsets::Table {
    std::string quoted;  // its name, as it stands in a statement
    std::vector<ServerColumn> server;
    TableSet bit = 0;

    const std::string& quotedKey() const { return server[static_cast<std::size_t>(key)].quoted; }
};
using TableRef = std::shared_ptr<const Table>;

// Every table of this store is one of its own.
inline TableRef ownTable(const rowsets::TableRef& table) {
    return std::static_pointer_cast<const Table>(table);
}

// The tables of a company, read when they are first asked for.
// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor): a final class
class Tables final : public rowsets::Catalog {
  public:
    // Runs a statement that reads, with one text parameter or none.
    using Ask = std::function<Result(const std::string& sql, const std::string* parameter)>;

    explicit Tables(Ask ask) : ask_(std::move(ask)) {}

    rowsets::TableRef find(std::string_view name) override;
    // To be called after the schema may have changed.
    void forget() { tables_.clear(); }

  private:
    TableRef read(const std::string& name);
    TableSet bitOf(const std::string& name);

    Ask ask_;
    std::unordered_map<std::string, TableRef> tables_;  // by the name in lower case
    std::vector<std::string> names_;                    // the place gives the bit
};

}  // namespace ledgerwick::postgres
