#include "hostkit/rowsets/cell.h"

#include <array>
#include <cmath>
#include <limits>

#include "ledgerwick/values/error.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick::rowsets {

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

void takeWholeNumber(std::int64_t value, Variant& into) {
    if (holds<std::int32_t>(value)) {
        into.assign(static_cast<std::int32_t>(value));
    } else {
        into.assign(value);
    }
}

void takeReal(double value, VariantKind kind, Variant& into) {
    if (kind == VariantKind::Single && std::abs(value) <= std::numeric_limits<float>::max()) {
        into.assign(static_cast<float>(value));
    } else if (kind == VariantKind::Currency) {
        into.assign(Currency::fromDouble(value));
    } else if (kind == VariantKind::Date && Date::inRange(value)) {
        into.assign(Date(value));
    } else {
        into.assign(value);
    }
}

}  // namespace

VariantKind kindOfDeclaredType(std::string_view type) {
    for (const DeclaredType& declared : declaredTypes) {
        if (equalsIgnoringCase(declared.name, type)) return declared.kind;
    }
    return VariantKind::Empty;
}

void takeWhole(std::int64_t value, VariantKind kind, Variant& into) {
    switch (kind) {
        case VariantKind::Int16:
            if (!holds<std::int16_t>(value)) return takeWholeNumber(value, into);
            return into.assign(static_cast<std::int16_t>(value));
        case VariantKind::Single:
            return into.assign(static_cast<float>(value));
        case VariantKind::Double:
            return into.assign(static_cast<double>(value));
        case VariantKind::Boolean:
            return into.assign(value != 0);
        case VariantKind::Currency:
            return into.assign(Currency::fromWhole(value));
        case VariantKind::Date:
            return takeReal(static_cast<double>(value), kind, into);
        default:
            return takeWholeNumber(value, into);
    }
}

void take(const Cell& cell, VariantKind kind, Variant& into) {
    switch (cell.storage) {
        case Cell::Storage::Null:
            return into.assign(Null);
        case Cell::Storage::Whole:
            return takeWhole(cell.whole, kind, into);
        case Cell::Storage::Money:
            return into.assign(Currency::fromTicks(cell.whole));
        case Cell::Storage::Real:
            return takeReal(cell.real, kind, into);
        default:
            return into.assign(cell.text);
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
        case VariantKind::Currency:
            return value.toCurrency(source);
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

std::string_view toText(const Cell& cell, VariantKind kind, const FieldName& name,
                        std::string& made) {
    if (cell.storage == Cell::Storage::Text) return cell.text;
    made = toVariant(cell, kind).toText(name.text());
    return made;
}

}  // namespace ledgerwick::rowsets
