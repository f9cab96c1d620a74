// An updatable set over the keys of its rows, which are collected when it is opened. A row is fetched
// by its key when a field of it is read, and written by its key, the touched fields only. How rows are
// fetched and written is the store's (`KeyedRows`).
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "hostkit/export.h"
#include "hostkit/rowsets/row_store.h"
#include "hostkit/rowsets/tables.h"
#include "hostkit/rowsets/typed_reads.h"

namespace ledgerwick::rowsets {

// By what a store finds a row again.
using RowKey = std::int64_t;

// The fields of a keyed set, in the order of its statement.
struct KeyedFields {
    TableRef table;
    FieldIndex fields;             // by name
    std::vector<int> tableColumn;  // of each field
    std::vector<int> rowColumn;    // of each field in a fetched row, -1 when it will not be read
};

// The fields that stand in these columns of the table.
LEDGERWICK_HOSTKIT_API KeyedFields keyedFields(TableRef table, const std::vector<int>& columns,
                                               FieldList reads);

// A row in edit, by column of its table.
class LEDGERWICK_HOSTKIT_API EditedRow {
  public:
    void start(std::size_t columns);
    void write(std::size_t column, Variant value);
    bool isTouched(std::size_t column) const {
        return (touched_[column / bitsInWord] >> (column % bitsInWord)) & 1;
    }
    bool isUntouched() const noexcept;
    std::size_t size() const noexcept { return written_.size(); }
    const Variant& value(std::size_t column) const { return written_[column]; }
    // The same bytes for rows whose touched columns are the same.
    std::string_view touchedBytes() const noexcept;

  private:
    static constexpr std::size_t bitsInWord = 64;

    std::vector<Variant> written_;
    std::vector<std::uint64_t> touched_;
};

// The rows of a keyed set in their store.
class LEDGERWICK_HOSTKIT_API KeyedRows {
  public:
    virtual ~KeyedRows();

    KeyedFields& fields() const noexcept { return *fields_; }

    // The cells of a row, in the order of `rowColumn`. The row fetched last is kept until `forget`.
    // Errors: 3021 when the row is gone.
    const std::vector<Cell>& cells(RowKey key) {
        if (!isKept_) keep(key);
        return kept_.cells();
    }
    void forget() noexcept { isKept_ = false; }

    // The value as the field takes it.
    virtual Variant toFieldValue(const Variant& value, VariantKind kind,
                                 std::string_view source) = 0;
    // Stores a new row and gives its key.
    virtual RowKey insert(const EditedRow& row) = 0;
    // Writes the touched fields, and gives the key by which the row is found from now on. False when
    // the row is gone.
    virtual bool update(RowKey& key, const EditedRow& row) = 0;

  protected:
    explicit KeyedRows(std::shared_ptr<KeyedFields> fields) noexcept : fields_(std::move(fields)) {}

    // Fetches a row. False when it is gone.
    virtual bool fetch(RowKey key, KeptRow& row) = 0;

  private:
    void keep(RowKey key);

    std::shared_ptr<KeyedFields> fields_;
    bool isKept_ = false;
    KeptRow kept_;
};

class LEDGERWICK_HOSTKIT_API KeyedSet final : public TypedReads<KeyedSet> {
  public:
    KeyedSet(std::unique_ptr<KeyedRows> rows, std::vector<RowKey> keys);
    ~KeyedSet() override;

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

    // Places in the set, which never loses a key.
    ledgerwick::Bookmark LastModified() override;
    ledgerwick::Bookmark Bookmark() override;
    void Bookmark(const ledgerwick::Bookmark& place) override;
    void Close() override;

    std::size_t fieldCount() const override;
    std::string_view fieldName(std::size_t field) const override;
    VariantKind fieldKind(std::size_t field) const override;
    void FillEmpty() override;

    Cell cell(const FieldName& name);
    VariantKind kindOf(const FieldName& name);

  private:
    enum class EditMode : std::uint8_t { None, AddNew, Edit };

    // Whether the database gives the field its value, being the number of the row.
    bool isKey(std::size_t field) const;
    bool inEdit() const { return edit_ != EditMode::None; }
    // Whether `Update` would leave Null in a field of the row in edit.
    bool wouldBeNull(std::size_t field);
    static constexpr std::int64_t none = -1;

    KeyedFields& fields() const noexcept { return rows_->fields(); }
    std::size_t fieldOf(const FieldName& name);
    Cell cellOf(std::size_t field);
    const TableColumn& column(std::size_t field) const;
    std::size_t tableColumn(std::size_t field) const;
    void goTo(std::size_t place);
    void startEdit(EditMode mode);
    void insertRow();
    void updateRow();
    bool hasRow() const noexcept { return at_ < keys_.size(); }
    void requireOpen() const;
    void requireRow() const;
    std::size_t requireField(std::size_t field) const;

    std::unique_ptr<KeyedRows> rows_;  // null when closed
    std::vector<RowKey> keys_;
    std::size_t at_ = 0;
    std::int64_t lastModified_ = none;

    EditMode edit_ = EditMode::None;
    EditedRow edited_;
};

}  // namespace ledgerwick::rowsets
