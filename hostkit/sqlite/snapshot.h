// A read-only set of rows, read forwards out of the database as they are asked for.
//
// Stepping back by one row costs a copy of each row that is left; it is kept for the first rows,
// and on from there when the reader has stepped back. Any other way back, and a write of this
// connection to a table of the set, brings all of its rows into memory once.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "hostkit/rowsets/row_store.h"
#include "hostkit/rowsets/typed_reads.h"
#include "hostkit/sqlite/connection.h"

namespace ledgerwick::sqlite {

class SnapshotReader final : public rowsets::TypedReads<SnapshotReader>, private OpenReader {
  public:
    // The statement has been stepped once, and has or has not a row.
    SnapshotReader(std::shared_ptr<Connection> connection, StatementLease statement, bool hasRow);
    ~SnapshotReader() override;

    // Brings all rows into memory.
    void keepAllRows();

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

    void Values(FieldList names, std::span<Variant> values) override;

    ledgerwick::Bookmark LastModified() override;
    ledgerwick::Bookmark Bookmark() override;
    void Bookmark(const ledgerwick::Bookmark& place) override;
    void Close() override;

    std::size_t fieldCount() const override;
    std::string_view fieldName(std::size_t field) const override;
    VariantKind fieldKind(std::size_t field) const override;

    Cell cell(const FieldName& name) { return cellIn(columnOf(name)); }
    VariantKind kindOf(const FieldName& name) { return statement_->kind(columnOf(name)); }

  private:
    // How many rows are copied when they are left, until the reader steps back for the first time.
    static constexpr std::int64_t rowsKeptAtFirst = 16;

    TableSet tablesRead() const noexcept override { return statement_->reads; }
    void beforeWrite() override { keepAllRows(); }

    int columnOf(const FieldName& name) {
        if (!statement_) refuseClosed();
        const int column = statement_->fields().find(name);
        if (column == FieldIndex::none) refuseField(name);
        return column;
    }
    Cell cellIn(int column) const {
        if (values_) return rowsets::toCell(values_[column]);
        if (onStatement_) return statement_->cell(column);
        if (!cells_) refuseRead();
        return cells_[column];
    }
    void stepStatement();
    void standOnStatement();
    void stand(std::int64_t row);
    std::int64_t position() const noexcept { return onKept_ ? reached_ - 1 : reached_; }
    bool hasRow() const noexcept { return onStatement_ || values_ || cells_; }
    void requireOpen() const;
    std::size_t requireField(std::size_t field) const;
    [[noreturn]] static void refuseClosed();
    [[noreturn]] static void refuseField(const FieldName& name);
    [[noreturn]] static void refuseRead();
    [[noreturn]] static void refuseWrite();

    std::shared_ptr<Connection> connection_;
    StatementLease statement_;  // null when closed

    // While the rows come out of the database: the row that the statement has reached, and whether
    // it is after the last one. The current row is that one, or the kept one in front of it.
    // With all rows in memory: the current row.
    std::int64_t reached_ = 0;
    bool ended_ = false;
    bool onStatement_ = false;  // the current row is the statement's
    bool onKept_ = false;       // the current row is the kept one
    bool keeping_ = true;
    bool keptRow_ = false;  // there is one
    bool steppedBack_ = false;
    const Variant* values_ = nullptr;  // the current row, when it has arrived whole or is kept
    const Cell* cells_ = nullptr;      // the current row, out of the rows in memory
    ValueRow kept_;

    std::unique_ptr<rowsets::RowStore> store_;  // all rows, when they are in memory
    std::vector<Cell> row_;
};

}  // namespace ledgerwick::sqlite
