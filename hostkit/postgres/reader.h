// A read-only set of rows.
//
// The first rows are in memory from the start, and most sets end with them. The rows of a larger set
// come from the server as they are asked for; the row before the current one is kept. When something
// else needs the wire, what is left of them comes into memory. Further back than one row, and after
// the first rows, such a set is asked for again.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "hostkit/postgres/connection.h"
#include "hostkit/postgres/incoming.h"
#include "hostkit/rowsets/typed_reads.h"

namespace ledgerwick::postgres {

class Reader final : public rowsets::TypedReads<Reader>, private OpenReader {
  public:
    // How many rows are in memory before any stays on the wire.
    static constexpr std::size_t rowsAtOnce = 256;

    Reader(std::shared_ptr<Connection> connection, std::shared_ptr<Columns> columns,
           std::vector<std::string> pictures, Rows rows);
    ~Reader() override;

    // More rows follow those in memory.
    void continueFrom(IncomingRows incoming, std::string sql);

    std::int32_t RecordCount() override;
    bool Eof() override;
    std::int32_t AbsolutePosition() override;
    void MoveFirst() override;
    void MoveLast() override;
    void MoveNext() override;
    void MovePrevious() override;

    using TypedReads::Value;
    void Value(const FieldName& name, const Variant& value) override;
    void AddNew() override;
    void Edit() override;
    void Update() override;

    ledgerwick::Bookmark LastModified() override;
    ledgerwick::Bookmark Bookmark() override;
    void Bookmark(const ledgerwick::Bookmark& place) override;
    void Close() override;

    std::size_t fieldCount() const override;
    std::string_view fieldName(std::size_t field) const override;
    VariantKind fieldKind(std::size_t field) const override;

    rowsets::Cell cell(const FieldName& name);
    VariantKind kindOf(const FieldName& name) { return columns_->kinds[columnOf(name)]; }

  private:
    TableSet tablesRead() const noexcept override { return 0; }
    void afterWrite() override {}
    void leaveWire() override;

    std::size_t columnOf(const FieldName& name);
    void stand(std::int64_t row);
    void stepWire();
    void drawRest();
    bool hasRow() const noexcept { return cells_ || wireRow_; }
    std::int64_t inMemory() const noexcept { return static_cast<std::int64_t>(rows_.size()); }
    void requireOpen() const;

    std::shared_ptr<Connection> connection_;
    std::shared_ptr<Columns> columns_;  // null when closed
    std::vector<std::string> pictures_;
    std::vector<std::string> formatted_;  // of the columns that are

    Rows rows_;  // the first rows, or all
    std::int64_t at_ = 0;
    const rowsets::Cell* cells_ = nullptr;  // of the current row, when it is in memory
    std::vector<rowsets::Cell> row_;

    // Beyond the rows in memory: the row of the wire that the set stands on or in front of, and the
    // one before it.
    std::optional<IncomingRows> incoming_;
    std::string sql_;
    const PGresult* wireRow_ = nullptr;  // the current row
    Result before_;
    std::int64_t reached_ = 0;  // of the row of the wire

    // The rest of the wire, drawn into memory: the rows from `restFrom_` on.
    std::shared_ptr<rowsets::RowStore> rest_;
    std::int64_t restFrom_ = 0;
};

}  // namespace ledgerwick::postgres
