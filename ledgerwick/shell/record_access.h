// The record access layer: what the library asks of a host's database.
//
//   auto rs = database.OpenRecordset("SELECT * FROM PRPay WHERE PRPNAID = 7", RecordsetType::Snapshot);
//   for (; !rs->Eof(); rs->MoveNext()) use(rs->Fields("PRPWeekNo").Value());
//
// A host with a database of its own implements `Database`, `QueryDef` and `Recordset`, and nothing
// else. Only the pure members are needed; the others have a sound default built on these, which a
// fast layer overrides. The kit's own layer on SQLite is hostkit/sqlite; a suite of tests that any
// layer can be run against ships in tests/record_access_conformance.
//
// Errors are thrown as `Error`: 3265 for a field that the set does not have, 3021 when there is no
// current row, 94, 13 and 6 from the conversions, 3420 after `Close`, and the database's own
// failures with a number of the layer's choice and a description that names the statement.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "ledgerwick/export.h"
#include "ledgerwick/values/variant.h"

namespace ledgerwick {

// The name of a field. The constants of schema.h carry a small number as well, by which a layer can
// find a field without looking at its text; a name made from text has the number 0.
class FieldName {
  public:
    constexpr FieldName(std::uint16_t id, std::string_view text) noexcept : id_(id), text_(text) {}
    constexpr FieldName(std::string_view text) noexcept : text_(text) {}
    constexpr FieldName(const char* text) noexcept : text_(text) {}
    FieldName(const std::string& text) noexcept : text_(text) {}

    constexpr std::uint16_t id() const noexcept { return id_; }
    constexpr std::string_view text() const noexcept { return text_; }

  private:
    std::uint16_t id_ = 0;
    std::string_view text_;
};

// The fields of a statement that its reader will read. Empty means every field.
using FieldList = std::span<const FieldName>;

enum class RecordsetType : std::int16_t {
    Dynaset = 2,   // an updatable set
    Snapshot = 4,  // read-only; rows written after the set was opened are not seen by it
};

// The one option that the library passes to `Execute`: a failing statement is an error.
inline constexpr std::int32_t failOnError = 128;

// A place in a recordset to come back to. What it holds is the layer's own business.
using Bookmark = Variant;

class Recordset;

// A field of the row that its recordset stands on.
class LEDGERWICK_API Field {
  public:
    Field(Recordset& recordset, FieldName name) noexcept : recordset_(recordset), name_(name) {}
    Variant Value() const;
    void Value(const Variant& value) const;

  private:
    Recordset& recordset_;
    FieldName name_;
};

// Rows of a statement. A new set stands on its first row, or at the end when it has none.
// Field names are matched without regard to case.
class LEDGERWICK_API Recordset : public Object {
  public:
    std::string_view TypeName() const noexcept override { return "Recordset"; }

    // Zero for a set without rows, else above zero; exact after `MoveLast`, and always exact for a
    // Dynaset.
    virtual std::int32_t RecordCount() = 0;
    // Whether the set stands behind its last row.
    virtual bool Eof() = 0;
    // Zero-based position of the current row; -1 when there is none.
    virtual std::int32_t AbsolutePosition() = 0;

    // Errors: 3021 when there is no row to move to, or from. `MoveNext` from the last row goes
    //         behind it, and `MovePrevious` from there comes back to the last row.
    virtual void MoveFirst() = 0;
    virtual void MoveLast() = 0;
    virtual void MoveNext() = 0;
    virtual void MovePrevious() = 0;

    // A field of the row in edit, else of the current row. Null is given as Null.
    virtual Variant Value(const FieldName& name) = 0;
    // Writes a field of the row in edit.
    // Errors: 3020 when no row is in edit, 3027 when the set cannot be written.
    virtual void Value(const FieldName& name, const Variant& value) = 0;

    // Starts a new row; starts editing the current row; stores the row. After `AddNew` and `Update`
    // the set stands where it stood before; `Bookmark(LastModified())` goes to the new row.
    // Errors: 3021 for `Edit` without a row, 3020 for `Update` without either, 3027.
    virtual void AddNew() = 0;
    virtual void Edit() = 0;
    virtual void Update() = 0;

    // The row stored last, and the current row, as a place to go to.
    virtual ledgerwick::Bookmark LastModified() = 0;
    virtual ledgerwick::Bookmark Bookmark() = 0;
    virtual void Bookmark(const ledgerwick::Bookmark& place) = 0;

    virtual void Close() = 0;

    // `Fields("PRPID").Value()`, for those who like it spelt so.
    Field Fields(const FieldName& name) { return {*this, name}; }

    // Typed reads, for a reader who knows what a field holds: no Variant is made on the way.
    // Shape:  as the conversions of Variant. A text stays valid until the set moves, is written or
    //         another text is read from it.
    // Errors: as the conversions of Variant, with the field's name as the source.
    virtual bool IsNull(const FieldName& name);
    virtual bool GetBoolean(const FieldName& name);
    virtual std::int16_t GetInt16(const FieldName& name);
    virtual std::int32_t GetInt32(const FieldName& name);
    virtual float GetSingle(const FieldName& name);
    virtual double GetDouble(const FieldName& name);
    virtual Currency GetCurrency(const FieldName& name);
    virtual Date GetDate(const FieldName& name);
    virtual std::string_view GetText(const FieldName& name);

  private:
    std::string text_;  // the text that `GetText` gave last
};

using RecordsetRef = std::shared_ptr<Recordset>;

// A statement that can be opened. The library makes temporary ones only.
class LEDGERWICK_API QueryDef : public Object {
  public:
    std::string_view TypeName() const noexcept override { return "QueryDef"; }
    virtual RecordsetRef OpenRecordset(RecordsetType type, FieldList reads = {}) = 0;
};

// An open database.
class LEDGERWICK_API Database : public Object {
  public:
    std::string_view TypeName() const noexcept override { return "Database"; }

    // Opens the rows of a SELECT. `reads` names the fields that the caller will read, so that a
    // layer can leave the others undecoded; a layer that does must fail with 3265 when another
    // field is read.
    virtual RecordsetRef OpenRecordset(std::string_view sql, RecordsetType type,
                                       FieldList reads = {}) = 0;
    // Runs a statement that gives no rows. `option` is always `failOnError`.
    virtual void Execute(std::string_view sql, std::int32_t option) = 0;
    // `name` is always empty: a query that is not kept.
    virtual std::shared_ptr<QueryDef> CreateQueryDef(std::string_view name,
                                                     std::string_view sql) = 0;

    // Brackets the writes of one public operation, so that a layer may store them together. Not a
    // transaction: what was written stays, also when the operation fails in between. The default
    // does nothing.
    virtual void BeginBatch();
    virtual void EndBatch();
};

// Runs `work` with its writes in one batch of `database`. The batch is ended also when `work`
// throws; its error is the one that the caller sees.
template <class Work>
void inOneBatch(Database& database, Work&& work) {
    database.BeginBatch();
    try {
        work();
    } catch (...) {
        try {
            database.EndBatch();
        } catch (...) {  // the first failure is the one to tell
        }
        throw;
    }
    database.EndBatch();
}

}  // namespace ledgerwick
