// The rows of an updatable set in SQLite: found by their numbers, written by prepared statements that
// are kept by the table and the touched fields.
#pragma once

#include <memory>
#include <string>

#include "hostkit/rowsets/keyed_set.h"
#include "hostkit/sqlite/connection.h"
#include "hostkit/sqlite/speller.h"

namespace ledgerwick::sqlite {

class SqliteRows final : public rowsets::KeyedRows, private OpenReader {
  public:
    // `tables` are those that the set reads.
    SqliteRows(std::shared_ptr<Connection> connection, std::shared_ptr<KeyedPlan> plan,
               TableSet tables);
    ~SqliteRows() override;

    // Errors: 6 for money that a floating-point number cannot hold to four decimals, since that is
    //         how the database keeps it.
    Variant toFieldValue(const Variant& value, VariantKind kind, std::string_view source) override;
    rowsets::RowKey insert(const rowsets::EditedRow& row) override;
    bool update(rowsets::RowKey& key, const rowsets::EditedRow& row) override;

  private:
    bool fetch(rowsets::RowKey key, rowsets::KeptRow& row) override;
    TableSet tablesRead() const noexcept override { return tables_; }
    void beforeWrite() override { forget(); }

    std::string writeKey(char verb, const rowsets::EditedRow& row) const;
    std::string insertSql(const rowsets::EditedRow& row) const;
    std::string updateSql(const rowsets::EditedRow& row) const;

    std::shared_ptr<Connection> connection_;
    std::shared_ptr<KeyedPlan> plan_;
    TableSet tables_;
};

}  // namespace ledgerwick::sqlite
