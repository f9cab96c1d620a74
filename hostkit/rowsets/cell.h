// One value of a row as the database holds it, and its way into the library's types.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "hostkit/export.h"
#include "ledgerwick/records/record_access.h"
#include "ledgerwick/values/variant.h"

namespace ledgerwick::rowsets {

// A text belongs to the row that the cell was read from.
struct Cell {
    enum class Storage : std::uint8_t { Null, Whole, Real, Money, Text };  // Money: in ticks

    Storage storage = Storage::Null;
    union {
        std::int64_t whole = 0;
        double real;
    };
    std::string_view text;

    static Cell ofWhole(std::int64_t value) noexcept {
        Cell cell;
        cell.storage = Storage::Whole;
        cell.whole = value;
        return cell;
    }
    static Cell ofReal(double value) noexcept {
        Cell cell;
        cell.storage = Storage::Real;
        cell.real = value;
        return cell;
    }
    static Cell ofMoney(std::int64_t ticks) noexcept {
        Cell cell;
        cell.storage = Storage::Money;
        cell.whole = ticks;
        return cell;
    }
    static Cell ofText(std::string_view value) noexcept {
        Cell cell;
        cell.storage = Storage::Text;
        cell.text = value;
        return cell;
    }
};

// The kind of value that a column of this declared type gives; Empty for a column without a type,
// or of an unknown one, which gives what is stored.
LEDGERWICK_HOSTKIT_API VariantKind kindOfDeclaredType(std::string_view type);

// The cell as a value of that kind, or as it is stored when it is no such value.
LEDGERWICK_HOSTKIT_API void take(const Cell& cell, VariantKind kind, Variant& into);
LEDGERWICK_HOSTKIT_API void takeWhole(std::int64_t value, VariantKind kind, Variant& into);
inline Variant toVariant(const Cell& cell, VariantKind kind) {
    Variant value;
    take(cell, kind, value);
    return value;
}

// A value as a field of that kind takes it. Null and Empty are Null.
// Errors: as the conversions of Variant.
LEDGERWICK_HOSTKIT_API Variant toFieldValue(const Variant& value, VariantKind kind,
                                            std::string_view source);

// The cell that such a value is stored as. A text stays in the value.
LEDGERWICK_HOSTKIT_API Cell toCell(const Variant& value) noexcept;

// The conversions of Variant. The first line of each is the whole way of a sound field.
inline Variant asStored(const Cell& cell) {
    return toVariant(cell, VariantKind::Empty);
}

inline std::int32_t toInt32(const Cell& cell, const FieldName& name) {
    const auto value = static_cast<std::int32_t>(cell.whole);
    if (cell.storage == Cell::Storage::Whole && value == cell.whole) return value;
    return asStored(cell).toInt32(name.text());
}

inline std::int16_t toInt16(const Cell& cell, const FieldName& name) {
    const auto value = static_cast<std::int16_t>(cell.whole);
    if (cell.storage == Cell::Storage::Whole && value == cell.whole) return value;
    return asStored(cell).toInt16(name.text());
}

inline bool toBoolean(const Cell& cell, const FieldName& name) {
    if (cell.storage == Cell::Storage::Whole) return cell.whole != 0;
    return asStored(cell).toBoolean(name.text());
}

inline double toDouble(const Cell& cell, const FieldName& name) {
    if (cell.storage == Cell::Storage::Whole) return static_cast<double>(cell.whole);
    if (cell.storage == Cell::Storage::Real) return cell.real;
    return asStored(cell).toDouble(name.text());
}

inline float toSingle(const Cell& cell, const FieldName& name) {
    return asStored(cell).toSingle(name.text());
}

inline Currency toCurrency(const Cell& cell, const FieldName& name) {
    if (cell.storage == Cell::Storage::Money) return Currency::fromTicks(cell.whole);
    if (cell.storage == Cell::Storage::Real) return Currency::fromDouble(cell.real, name.text());
    return asStored(cell).toCurrency(name.text());
}

inline Date toDate(const Cell& cell, const FieldName& name) {
    if (cell.storage == Cell::Storage::Whole) {
        const auto serial = static_cast<double>(cell.whole);
        if (Date::inRange(serial)) return Date(serial);
    }
    return asStored(cell).toDate(name.text());
}

// The text of a cell in place, or made in `made`.
LEDGERWICK_HOSTKIT_API std::string_view toText(const Cell& cell, VariantKind kind,
                                               const FieldName& name, std::string& made);

}  // namespace ledgerwick::rowsets
