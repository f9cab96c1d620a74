// An updatable set: the keys of its rows, collected when it is opened. A row is fetched by its key
// when a field of it is read, and written by its key, the touched fields only.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "hostkit/sqlite/connection.h"
#include "hostkit/sqlite/row_store.h"
#include "hostkit/sqlite/typed_reads.h"

namespace ledgerwick::sqlite {

class KeyedSet final : public TypedReads<KeyedSet>, private OpenReader {
  public:
    KeyedSet(std::shared_ptr<Connection> connection, StatementLease keys);
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
    bool isKey(std::size_t field) const override;
    bool inEdit() const override { return edit_ != EditMode::None; }
    bool wouldBeNull(std::size_t field) override;

    Cell cell(const FieldName& name);
    VariantKind kindOf(const FieldName& name);

  private:
    enum class EditMode : std::uint8_t { None, AddNew, Edit };
    static constexpr std::int64_t none = -1;

    TableSet tablesRead() const noexcept override { return tables_; }
    void beforeWrite() override { rowFetched_ = false; }

    std::size_t fieldOf(const FieldName& name);
    Cell cellOf(std::size_t field);
    const TableColumn& column(std::size_t field) const;
    std::size_t tableColumn(std::size_t field) const;
    bool isTouched(std::size_t tableColumn) const;
    void fetchRow();
    void goTo(std::size_t place);
    void startEdit(EditMode mode);
    std::string writeKey() const;
    std::string insertSql() const;
    std::string updateSql() const;
    int bindTouched(Statement& statement) const;
    void insertRow();
    void updateRow();
    bool hasRow() const noexcept { return at_ < keys_.size(); }
    void requireOpen() const;
    void requireRow() const;
    std::size_t requireField(std::size_t field) const;

    std::shared_ptr<Connection> connection_;
    std::shared_ptr<KeyedPlan> plan_;  // null when closed
    TableSet tables_ = 0;
    std::vector<std::int64_t> keys_;
    std::size_t at_ = 0;
    std::int64_t lastModified_ = none;

    bool rowFetched_ = false;
    KeptRow row_;

    EditMode edit_ = EditMode::None;
    std::vector<Variant> written_;        // by column of the table
    std::vector<std::uint64_t> touched_;  // a bit for each column of the table
};

}  // namespace ledgerwick::sqlite
