#include "hostkit/sqlite/cell.h"

#include <array>
#include <cmath>
#include <limits>

#include "ledgerwick/values/error.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick::sqlite {

namespace {

struct DeclaredType {
    std::string_view name;
    VariantKind kind;
};

constexpr std::array declaredTypes{
    DeclaredType{"INTEGER", VariantKind::Int32},     DeclaredType{"SMALLINT", VariantKind::Int16},
    DeclaredType{"NUMBER", VariantKind::Double},     DeclaredType{"DOUBLE", VariantKind::Double},
    DeclaredType{"REAL", VariantKind::Double},       DeclaredType{"SINGLE", VariantKind::Single},
    DeclaredType{"CURRENCY", VariantKind::Currency}, DeclaredType{"BOOLEAN", VariantKind::Boolean},
    DeclaredType{"DATE", VariantKind::Date},         DeclaredType{"TEXT", VariantKind::Text},
};

template <class Integer>
bool holds(std::int64_t value) {
    return value >= std::numeric_limits<Integer>::min() &&
           value <= std::numeric_limits<Integer>::max();
}

Variant wholeNumber(std::int64_t value) {
    if (holds<std::int32_t>(value)) return static_cast<std::int32_t>(value);
    return value;
}

Variant fromReal(double value, VariantKind kind) {
    switch (kind) {
        case VariantKind::Single:
            if (std::abs(value) > std::numeric_limits<float>::max()) return value;
            return static_cast<float>(value);
        case VariantKind::Currency:
            return Currency::fromDouble(value);
        case VariantKind::Date:
            if (!Date::inRange(value)) return value;
            return Date(value);
        default:
            return value;
    }
}

Variant fromWhole(std::int64_t value, VariantKind kind) {
    switch (kind) {
        case VariantKind::Int16:
            return holds<std::int16_t>(value) ? Variant(static_cast<std::int16_t>(value))
                                              : wholeNumber(value);
        case VariantKind::Single:
            return static_cast<float>(value);
        case VariantKind::Double:
            return static_cast<double>(value);
        case VariantKind::Boolean:
            return value != 0;
        case VariantKind::Currency:
            return Currency::fromWhole(value);
        case VariantKind::Date:
            return fromReal(static_cast<double>(value), kind);
        default:
            return wholeNumber(value);
    }
}

void requireStorable(Currency value, std::string_view source) {
    if (Currency::fromDouble(value.toDouble()) == value) return;
    raise(error_number::overflow, source, value.toText() + " cannot be stored to four decimals");
}

}  // namespace

VariantKind kindOfDeclaredType(std::string_view type) {
    for (const DeclaredType& declared : declaredTypes) {
        if (equalsIgnoringCase(declared.name, type)) return declared.kind;
    }
    return VariantKind::Empty;
}

Variant toVariant(const Cell& cell, VariantKind kind) {
    switch (cell.storage) {
        case Cell::Storage::Null:
            return Null;
        case Cell::Storage::Whole:
            return fromWhole(cell.whole, kind);
        case Cell::Storage::Real:
            return fromReal(cell.real, kind);
        default:
            return cell.text;
    }
}

Variant toFieldValue(const Variant& value, VariantKind kind, std::string_view source) {
    if (value.isNull() || value.isEmpty()) return Null;
    switch (kind) {
        case VariantKind::Int16:
            return value.toInt16(source);
        case VariantKind::Int32:
            return value.toInt32(source);
        case VariantKind::Single:
            return value.toSingle(source);
        case VariantKind::Double:
            return value.toDouble(source);
        case VariantKind::Boolean:
            return value.toBoolean(source);
        case VariantKind::Date:
            return value.toDate(source);
        case VariantKind::Text:
            return value.toText(source);
        case VariantKind::Currency: {
            const Currency money = value.toCurrency(source);
            requireStorable(money, source);
            return money;
        }
        default:
            if (value.isArray() || value.isObject()) raise(error_number::typeMismatch, source);
            return value;
    }
}

Cell toCell(const Variant& value) noexcept {
    switch (value.kind()) {
        case VariantKind::Empty:
        case VariantKind::Null:
            return {};
        case VariantKind::Boolean:
            return Cell::ofWhole(value.toBoolean() ? -1 : 0);
        case VariantKind::Int16:
        case VariantKind::Int32:
        case VariantKind::Int64:
            return Cell::ofWhole(value.toInt64());
        case VariantKind::Text:
            return Cell::ofText(value.textView());
        default:
            return Cell::ofReal(value.toDouble());
    }
}

void bind(sqlite3_stmt* statement, int parameter, const Cell& cell, bool copyText) {
    switch (cell.storage) {
        case Cell::Storage::Null:
            sqlite3_bind_null(statement, parameter);
            break;
        case Cell::Storage::Whole:
            sqlite3_bind_int64(statement, parameter, cell.whole);
            break;
        case Cell::Storage::Real:
            sqlite3_bind_double(statement, parameter, cell.real);
            break;
        case Cell::Storage::Text:
            sqlite3_bind_text64(statement, parameter, cell.text.data() ? cell.text.data() : "",
                                cell.text.size(), copyText ? SQLITE_TRANSIENT : SQLITE_STATIC,
                                SQLITE_UTF8);
            break;
    }
}

std::string_view toText(const Cell& cell, VariantKind kind, const FieldName& name,
                        std::string& made) {
    if (cell.storage == Cell::Storage::Text) return cell.text;
    made = toVariant(cell, kind).toText(name.text());
    return made;
}

}  // namespace ledgerwick::sqlite
