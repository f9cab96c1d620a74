// The rows of an updatable set: all of them came with the statement. What this set writes it knows
// itself; a row is fetched again only after something else has written to its table.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "hostkit/postgres/connection.h"
#include "hostkit/rowsets/keyed_set.h"

namespace ledgerwick::postgres {

class ServerRows final : public rowsets::KeyedRows, private OpenReader {
  public:
    // The cells of `rows` are the fields that are read, and the key.
    // `facts` are numbers that every row of the set has.
    ServerRows(std::shared_ptr<Connection> connection, std::shared_ptr<rowsets::KeyedFields> fields,
               Rows rows, Facts facts);
    ~ServerRows() override;

    // The keys of the set, in its order.
    std::vector<rowsets::RowKey> keys();

    Variant toFieldValue(const Variant& value, VariantKind kind, std::string_view source) override;
    rowsets::RowKey insert(const rowsets::EditedRow& row) override;
    bool update(rowsets::RowKey& key, const rowsets::EditedRow& row) override;

  private:
    // What this set has written of a row, by column of the table.
    struct Written {
        std::vector<Variant> values;
        std::vector<bool> touched;
    };

    bool fetch(rowsets::RowKey key, rowsets::KeptRow& row) override;
    bool fetchAgain(rowsets::RowKey key, rowsets::KeptRow& row);
    TableSet tablesRead() const noexcept override { return table_->bit; }
    void afterWrite() override;

    bool hasKey() const noexcept { return table_->key >= 0; }
    Facts factsOf(const rowsets::EditedRow& row) const;
    Image imageOf(rowsets::RowKey key, const rowsets::EditedRow& row, bool isNew) const;
    rowsets::RowKey insertNow(const rowsets::EditedRow& row);
    bool updateNow(rowsets::RowKey key, const rowsets::EditedRow& row);
    Parameters touchedParameters(const rowsets::EditedRow& row) const;
    void remember(rowsets::RowKey key, const rowsets::EditedRow& row, bool isNew);

    std::shared_ptr<Connection> connection_;
    TableRef table_;
    Rows rows_;
    Facts facts_;
    bool stale_ = false;  // the rows in memory may be older than the table
    std::unordered_map<rowsets::RowKey, std::size_t> placeOf_;
    std::unordered_map<rowsets::RowKey, Written> written_;
    // Where a table has no key: the places of its rows on the server, by the numbers given here.
    std::vector<std::string> places_;
};

}  // namespace ledgerwick::postgres
