// A table made in memory for the host, connected to no database.
//
//   ResultTable table;
//   table.Append("Name", FieldType::Text, 100);
//   table.Open();
//   table.AddNew(); table.Fields("Name", "Ann"); table.Update();
//   table.Sort("Name");
//   for (table.MoveFirst(); !table.Eof(); table.MoveNext()) show(table.Fields("name"));
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "ledgerwick/export.h"
#include "ledgerwick/values/variant.h"

namespace ledgerwick {

// What a field of a result table holds.
enum class FieldType : std::uint8_t {
    Int16,      // a whole number of 16 bits
    Int32,      // a whole number of 32 bits
    Int64,      // a whole number of 64 bits
    Boolean,    // True or False
    Single,     // a number of single precision
    Double,     // a number of double precision
    Currency,   // money, with four decimals
    Date,       // a day, with or without a time of day
    Text,       // up to `size` characters
    FixedText,  // likewise; a shorter text is kept as it is, without padding
};

// Fields are named without regard to case. A value written is converted to the field's type, and a
// text longer than its field is cut to the field's width. A field never written is Empty.
class LEDGERWICK_API ResultTable : public Object {
  public:
    std::string_view TypeName() const noexcept override { return "ResultTable"; }

    // How a field was appended.
    struct FieldInfo {
        std::string name;   // as it was written there
        FieldType type;     // what it holds
        std::int32_t size;  // characters of a text field, else 0
    };

    // Appends a field; only before `Open`.
    // Errors: 457 for a name already there, 5 after `Open`.
    void Append(std::string_view name, FieldType type, std::int32_t size = 0);
    // Makes the table ready for rows.
    void Open();

    // Starts a new row, which `Update` stores. A row started and not stored is dropped.
    // Errors: 3420 before `Open`.
    void AddNew();
    // Stores the row in the making, and stands on it.
    // Errors: 3020 when no row is in the making.
    void Update();

    // A field of the row in the making, else of the current row.
    // Errors: 3265 for an unknown name, 3021 when there is no current row.
    const Variant& Fields(std::string_view name) const;
    // Writes a field of the row in the making, else of the current row.
    // Errors: as above; 13, 94 and 6 when the value does not convert to the field's type.
    void Fields(std::string_view name, const Variant& value);

    // Sorts by field names separated by commas, each followed by ASC (the default) or DESC, and
    // goes to the first row. Empty sorts first, texts without regard to case, and rows that are
    // equal stay in the order in which they were added. A row stored later goes to its place.
    // Errors: 3265 for an unknown name.
    void Sort(std::string_view order);

    std::int32_t RecordCount() const noexcept;  // the number of rows
    std::int32_t FieldCount() const noexcept;   // the number of fields
    // The field at a position from 0.
    // Errors: 3265 outside the fields.
    const FieldInfo& Field(std::int32_t position) const;

    bool Bof() const noexcept;  // before the first row
    bool Eof() const noexcept;  // after the last row
    // Zero-based position of the current row; -1 without one.
    std::int32_t AbsolutePosition() const noexcept;
    // Goes to the first row.
    // Errors: 3021 in an empty table, and for the next three also beyond either end.
    void MoveFirst();
    void MoveLast();      // goes to the last row
    void MoveNext();      // goes on, from the last row to the place after it
    void MovePrevious();  // goes back, from the first row to the place before it

  private:
    struct SortKey {
        std::size_t field;
        bool descending;
    };
    using Row = std::vector<Variant>;

    std::size_t indexOf(std::string_view name) const;
    bool lessRow(const Row& a, const Row& b) const;
    Row& rowInHand();
    const Row& rowInHand() const;

    std::vector<FieldInfo> fields_;
    std::vector<Row> rows_;
    Row pending_;
    std::vector<SortKey> sortKeys_;
    std::int32_t position_ = -1;
    bool open_ = false;
    bool adding_ = false;
};

}  // namespace ledgerwick
