// The record access layer: what the library asks of a host's database.
//
//   auto rs = database.OpenRecordset("SELECT * FROM PRPay WHERE PRPNAID = 7", RecordsetType::Snapshot);
//   for (; !rs->Eof(); rs->MoveNext()) use(rs->Fields("PRPWeekNo").Value());
//
// A host with a database of its own implements `Database`, `QueryDef` and `Recordset`, and nothing
// else. Only the pure members are needed; the others have a sound default built on these, which a
// fast layer overrides. The kit's own layer on SQLite is hostkit/sqlite; a suite of tests that any
// layer can be run against ships in hostkit/conformance.
//
// Errors are thrown as `Error`: 3265 for a field that the set does not have, 3021 when there is no
// current row, 94, 13 and 6 from the conversions, 3420 after `Close`, 3078 for a statement on a table
// that is not there, and the database's own failures, each with the number of what to do about it
// (`error_number` in values/error.h) and a description that names the statement. A description
// carries no values of rows.
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
    // A name with its number, or made from text.
    constexpr FieldName(std::uint16_t id, std::string_view text) noexcept : id_(id), text_(text) {}
    constexpr FieldName(std::string_view text) noexcept : text_(text) {}
    constexpr FieldName(const char* text) noexcept : text_(text) {}
    FieldName(const std::string& text) noexcept : text_(text) {}

    constexpr std::uint16_t id() const noexcept { return id_; }  // 0 for a name made from text
    constexpr std::string_view text() const noexcept { return text_; }  // as the tables spell it

  private:
    std::uint16_t id_ = 0;
    std::string_view text_;
};

// The fields of a statement that its reader will read. Empty means every field.
using FieldList = std::span<const FieldName>;

// The two kinds of sets that the library opens.
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
    // A field of `recordset`, which must outlive this object.
    Field(Recordset& recordset, FieldName name) noexcept : recordset_(recordset), name_(name) {}
    // Reads or writes the field, with the errors of the set.
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
    // Whether the set stands after its last row.
    virtual bool Eof() = 0;
    // Zero-based position of the current row; -1 without one.
    virtual std::int32_t AbsolutePosition() = 0;

    // Goes to the first row.
    // Errors: 3021 when there is no row to move to, or from; so for all four.
    virtual void MoveFirst() = 0;
    // Goes to the last row.
    virtual void MoveLast() = 0;
    // Goes on one row; from the last row to the place after it.
    virtual void MoveNext() = 0;
    // Goes back one row; from the place after the last row to that row.
    virtual void MovePrevious() = 0;

    // A field of the row in edit, else of the current row. Null is given as Null.
    virtual Variant Value(const FieldName& name) = 0;
    // Writes a field of the row in edit.
    // Errors: 3020 when no row is in edit, 3027 when the set cannot be written.
    virtual void Value(const FieldName& name, const Variant& value) = 0;

    // Starts a new row.
    // Errors: 3027 when the set cannot be written.
    virtual void AddNew() = 0;
    // Starts editing the current row.
    // Errors: 3021 without a row, 3027 when the set cannot be written.
    virtual void Edit() = 0;
    // Stores the row in edit. After `AddNew` the set stands where it stood before;
    // `Bookmark(LastModified())` goes to the new row.
    // Errors: 3020 without a row in edit, 3027.
    virtual void Update() = 0;

    // Gives each field of the row in edit that `Update` would store as Null the blank value of its
    // kind: 0, "", False, the zero date. A key that the database gives stays. The default knows the
    // fields that the library writes into a new row of `PREmploymentsAddInfo`; a layer that knows
    // its columns overrides it for all of them.
    // Errors: 3020 without a row in edit, 3027.
    virtual void FillEmpty();

    // The row stored last, as a place to go to.
    virtual ledgerwick::Bookmark LastModified() = 0;
    // The current row as a place to go to, and going there.
    virtual ledgerwick::Bookmark Bookmark() = 0;
    virtual void Bookmark(const ledgerwick::Bookmark& place) = 0;

    // Closes the set; every later use of it fails.
    // Errors: 3420 from each later operation.
    virtual void Close() = 0;

    // Another way to write a read or a write: `Fields("PRPID").Value()`.
    Field Fields(const FieldName& name) { return {*this, name}; }

    // Typed reads, for a reader who knows what a field holds: no Variant is made on the way.
    // Shape:  as the conversions of Variant. A text stays valid until the set moves, is written or
    //         another text is read from it.
    // Errors: as the conversions of Variant, with the field's name as the source.

    // Whether the field holds Null.
    virtual bool IsNull(const FieldName& name);
    // The field as a boolean.
    virtual bool GetBoolean(const FieldName& name);
    // The field as a whole number of 16 bits.
    virtual std::int16_t GetInt16(const FieldName& name);
    // The field as a whole number of 32 bits.
    virtual std::int32_t GetInt32(const FieldName& name);
    // The field as a number of single precision.
    virtual float GetSingle(const FieldName& name);
    // The field as a number of double precision.
    virtual double GetDouble(const FieldName& name);
    // The field as money.
    virtual Currency GetCurrency(const FieldName& name);
    // The field as a date.
    virtual Date GetDate(const FieldName& name);
    // The field as text, which stays valid until the set moves, is written or gives another text.
    virtual std::string_view GetText(const FieldName& name);

    // Several fields of the row at once, each as `Value` gives it, for a reader of many rows.
    // Shape:  as many places as names; they are written over.
    // Errors: those of `Value`; the places are then valid, but hold what they may.
    virtual void Values(FieldList names, std::span<Variant> values);

  private:
    std::string text_;  // the text that `GetText` gave last
};

// A set held by whoever uses it.
using RecordsetRef = std::shared_ptr<Recordset>;

// A statement that can be opened. The library makes temporary ones only.
class LEDGERWICK_API QueryDef : public Object {
  public:
    std::string_view TypeName() const noexcept override { return "QueryDef"; }
    // As `Database::OpenRecordset`, of the statement that the query was made of.
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

    // Whether there is a table of that name, temporary or not. Leaves a batch that is open as it is.
    // The default opens the table and takes error 3078, and no other failure, for a no.
    // Errors: those of a database that cannot tell.
    virtual bool TableExists(std::string_view name);

    // Opens one public operation, before its first read, so that a layer may store its writes
    // together. Not a transaction: what was written stays, also when the operation fails in between.
    // A layer that several connections write through holds the right to write from here to
    // `EndBatch`, so that nobody changes what the operation has read before it writes. Batches nest;
    // the outermost counts. The default does nothing.
    // Errors: 3218 when another connection holds the right for longer than the layer waits. The
    //         batch has then not begun, and `EndBatch` is not called.
    virtual void BeginBatch();
    // Ends what `BeginBatch` opened; what was written is stored then.
    virtual void EndBatch();

    // Names the keys, such as employee numbers, that the work at hand goes through one after the
    // other, in this order. A layer far from its data can then read for many of them in one
    // request. Only a hint: no result depends on it, and keys that nobody asks for do no harm. It
    // holds until the batch ends or the next call; outside a batch until the next call. No keys
    // end it. The default does nothing.
    virtual void Announce(std::span<const std::int32_t> keys);

    // A number that another connection moves by writing, and this one does not. Two calls that give
    // the same number, other than 0, promise that nobody else has stored anything in between. It may
    // move for no reason: what was loaded is then compared with the database, at the cost of two
    // reads for each employee.
    // Shape:  0 for a layer that does not know, the default; nothing is then compared.
    virtual std::int64_t DataVersion();
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
        } catch (...) {  // the first failure is the one to report
        }
        throw;
    }
    database.EndBatch();
}

}  // namespace ledgerwick
