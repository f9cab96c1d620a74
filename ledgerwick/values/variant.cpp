#include "ledgerwick/values/variant.h"

#include <algorithm>
#include <cfloat>
#include <charconv>
#include <cmath>
#include <new>
#include <utility>

#include "ledgerwick/values/checked.h"
#include "ledgerwick/values/decimal.h"
#include "ledgerwick/values/error.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick {
namespace {

// A text on the heap: its length, directly followed by its bytes.
struct HeapText {
    std::size_t length;

    char* bytes() noexcept { return reinterpret_cast<char*>(this + 1); }
    std::string_view view() noexcept { return {bytes(), length}; }

    static HeapText* make(std::string_view text) {
        auto* made = new (::operator new(sizeof(HeapText) + text.size())) HeapText{text.size()};
        std::memcpy(made->bytes(), text.data(), text.size());
        return made;
    }
};

// The number that a Single is written with: 0.1 and not 0.100000001490116.
double asWritten(float value) noexcept {
    double result = value;
    if (std::isfinite(value)) {
        const std::string text = Decimal::shortest(value).text();
        std::from_chars(text.data(), text.data() + text.size(), result);
    }
    return result;
}

bool booleanOf(std::string_view text, bool& out) noexcept {
    const auto word = trim(text);
    out = equalsIgnoringCase(word, "True");
    return out || equalsIgnoringCase(word, "False");
}

std::string plainOrMismatch(std::string_view text, std::string_view source) {
    auto plain = plainNumber(text);
    if (!plain) raise(error_number::typeMismatch, source);
    return *std::move(plain);
}

double numberOf(std::string_view text, std::string_view source) {
    const auto number = parseNumber(text);
    if (!number) raise(error_number::typeMismatch, source);
    return *number;
}

// Whole numbers exactly, beyond what a double could hold.
std::int64_t wholeOf(std::string_view text, std::string_view source) {
    const auto whole = Decimal::fromPlainText(plainOrMismatch(text, source)).scaled(0);
    if (!whole) raise(error_number::overflow, source);
    return *whole;
}

Currency currencyOf(const Decimal& decimal, std::string_view source) {
    const auto ticks = decimal.scaled(4);
    if (!ticks) raise(error_number::overflow, source);
    return Currency::fromTicks(*ticks);
}

std::int64_t wholeOf(Currency value) noexcept {
    constexpr std::int64_t half = Currency::ticksPerUnit / 2;
    const std::int64_t pounds = value.ticks() / Currency::ticksPerUnit;
    const std::int64_t rest = value.ticks() % Currency::ticksPerUnit;
    if (rest > half || (rest == half && pounds % 2 != 0)) return pounds + 1;
    if (rest < -half || (rest == -half && pounds % 2 != 0)) return pounds - 1;
    return pounds;
}

[[noreturn]] void refuse(const Variant& value, std::string_view source) {
    raise(value.isNull() ? error_number::invalidUseOfNull : error_number::typeMismatch, source);
}

}  // namespace

Variant::Variant(std::string_view value) : Variant(VariantKind::Text) {
    if (value.size() > inlineCapacity) {
        own(HeapText::make(value));
    } else {
        placeInline(value);
    }
}

Variant::Variant(VariantArray value) : Variant(VariantKind::Array) {
    own(new VariantArray(std::move(value)));
}

Variant::Variant(ObjectRef value) : Variant(VariantKind::Object) {
    if (value) own(new ObjectRef(std::move(value)));
}

void Variant::copyFrom(const Variant& other) {
    bytes_[0] = other.bytes_[0];
    switch (other.kind()) {
        case VariantKind::Text:
            own(HeapText::make(other.textView()));
            break;
        case VariantKind::Array:
            own(new VariantArray(*other.owned<VariantArray>()));
            break;
        default:
            own(new ObjectRef(*other.owned<ObjectRef>()));
            break;
    }
}

void Variant::release() noexcept {
    switch (kind()) {
        case VariantKind::Text:
            ::operator delete(owned<HeapText>());
            break;
        case VariantKind::Array:
            delete owned<VariantArray>();
            break;
        default:
            delete owned<ObjectRef>();
            break;
    }
}

bool Variant::isNumeric() const {
    switch (kind()) {
        case VariantKind::Empty:
        case VariantKind::Null:
        case VariantKind::Array:
        case VariantKind::Object:
            return false;
        case VariantKind::Text:
            return parseNumber(textView()).has_value();
        default:
            return true;
    }
}

double Variant::convertDouble(std::string_view source) const {
    switch (kind()) {
        case VariantKind::Empty:
            return 0;
        case VariantKind::Boolean:
            return load<bool>() ? -1 : 0;
        case VariantKind::Int16:
            return load<std::int16_t>();
        case VariantKind::Int32:
            return load<std::int32_t>();
        case VariantKind::Int64:
            return static_cast<double>(load<std::int64_t>());
        case VariantKind::Single:
            return asWritten(load<float>());
        case VariantKind::Double:
            return load<double>();
        case VariantKind::Currency:
            return load<Currency>().toDouble();
        case VariantKind::Date:
            return load<Date>().serial();
        case VariantKind::Text:
            return numberOf(textView(), source);
        default:
            refuse(*this, source);
    }
}

bool Variant::convertBoolean(std::string_view source) const {
    bool result = false;
    if (kind() == VariantKind::Text && booleanOf(textView(), result)) return result;
    return toDouble(source) != 0;
}

std::int64_t Variant::toInt64(std::string_view source) const {
    switch (kind()) {
        case VariantKind::Int16:
            return load<std::int16_t>();
        case VariantKind::Int32:
            return load<std::int32_t>();
        case VariantKind::Int64:
            return load<std::int64_t>();
        case VariantKind::Currency:
            return wholeOf(load<Currency>());
        case VariantKind::Text:
            return wholeOf(textView(), source);
        default:
            return roundToInt64(toDouble(source), source);
    }
}

std::int16_t Variant::convertInt16(std::string_view source) const {
    return narrowToInt16(toInt64(source), source);
}

std::int32_t Variant::convertInt32(std::string_view source) const {
    return narrowToInt32(toInt64(source), source);
}

float Variant::toSingle(std::string_view source) const {
    if (kind() == VariantKind::Single) return load<float>();
    const double value = toDouble(source);
    if (std::abs(value) > FLT_MAX) raise(error_number::overflow, source);
    return static_cast<float>(value);
}

Currency Variant::toCurrency(std::string_view source) const {
    switch (kind()) {
        case VariantKind::Currency:
            return load<Currency>();
        case VariantKind::Int64:
            return Currency::fromWhole(load<std::int64_t>(), source);
        case VariantKind::Text:
            return currencyOf(Decimal::fromPlainText(plainOrMismatch(textView(), source)), source);
        default:
            return Currency::fromDouble(toDouble(source), source);
    }
}

Date Variant::convertDate(std::string_view source) const {
    Date date;
    if (kind() == VariantKind::Text && parseDate(textView(), date)) return date;
    const double serial = toDouble(source);
    if (!Date::inRange(serial)) raise(error_number::overflow, source);
    return Date(serial);
}

std::string Variant::toText(std::string_view source) const {
    switch (kind()) {
        case VariantKind::Empty:
            return {};
        case VariantKind::Boolean:
            return load<bool>() ? "True" : "False";
        case VariantKind::Int16:
        case VariantKind::Int32:
        case VariantKind::Int64:
            return std::to_string(toInt64(source));
        case VariantKind::Single:
        case VariantKind::Double:
            return numberText(toDouble(source));
        case VariantKind::Currency:
            return load<Currency>().toText();
        case VariantKind::Date:
            return load<Date>().toText();
        case VariantKind::Text:
            return std::string(textView());
        default:
            refuse(*this, source);
    }
}

const ObjectRef& Variant::toObject(std::string_view source) const {
    static const ObjectRef none;
    if (!isObject()) raise(error_number::typeMismatch, source);
    return ownsHeap() ? *owned<const ObjectRef>() : none;
}

VariantArray& Variant::array(std::string_view source) {
    if (!isArray()) raise(error_number::typeMismatch, source);
    return *owned<VariantArray>();
}

const VariantArray& Variant::array(std::string_view source) const {
    if (!isArray()) raise(error_number::typeMismatch, source);
    return *owned<const VariantArray>();
}

std::string_view Variant::textView() const noexcept {
    if (kind() != VariantKind::Text) return {};
    if (ownsHeap()) return owned<HeapText>()->view();
    return {reinterpret_cast<const char*>(bytes_ + textOffset), bytes_[1]};
}

bool operator==(const Variant& a, const Variant& b) {
    if (a.kind() != b.kind()) return false;
    switch (a.kind()) {
        case VariantKind::Empty:
        case VariantKind::Null:
            return true;
        case VariantKind::Int64:
            return a.load<std::int64_t>() == b.load<std::int64_t>();
        case VariantKind::Currency:
            return a.load<Currency>() == b.load<Currency>();
        case VariantKind::Text:
            return a.textView() == b.textView();
        case VariantKind::Array:
            return a.array() == b.array();
        case VariantKind::Object:
            return a.toObject() == b.toObject();
        default:
            return a.toDouble({}) == b.toDouble({});
    }
}

namespace {

// The number of elements from `lower` to `upper`.
std::int64_t extent(std::int32_t lower, std::int32_t upper) {
    const std::int64_t count = std::int64_t{upper} - lower + 1;
    if (count < 0) raise(error_number::subscriptOutOfRange, "VariantArray");
    return count;
}

std::int64_t within(std::int32_t index, std::int32_t lower, std::int32_t upper) {
    if (index < lower || index > upper) raise(error_number::subscriptOutOfRange, "VariantArray");
    return std::int64_t{index} - lower;
}

}  // namespace

VariantArray::VariantArray(std::int32_t lower, std::int32_t upper)
    : lower1_(lower), upper1_(upper), items_(static_cast<std::size_t>(extent(lower, upper))) {}

VariantArray::VariantArray(std::int32_t lower1, std::int32_t upper1, std::int32_t lower2,
                           std::int32_t upper2)
    : twoDimensional_(true),
      lower1_(lower1),
      upper1_(upper1),
      lower2_(lower2),
      upper2_(upper2),
      items_(static_cast<std::size_t>(extent(lower1, upper1) * extent(lower2, upper2))) {}

std::int32_t VariantArray::lowerBound(int dimension) const {
    if (dimension < 1 || dimension > dimensions()) {
        raise(error_number::subscriptOutOfRange, "VariantArray");
    }
    return dimension == 1 ? lower1_ : lower2_;
}

std::int32_t VariantArray::upperBound(int dimension) const {
    if (dimension < 1 || dimension > dimensions()) {
        raise(error_number::subscriptOutOfRange, "VariantArray");
    }
    return dimension == 1 ? upper1_ : upper2_;
}

Variant& VariantArray::at(std::int32_t index) {
    return items_[offset(index)];
}
const Variant& VariantArray::at(std::int32_t index) const {
    return items_[offset(index)];
}
Variant& VariantArray::at(std::int32_t index1, std::int32_t index2) {
    return items_[offset(index1, index2)];
}
const Variant& VariantArray::at(std::int32_t index1, std::int32_t index2) const {
    return items_[offset(index1, index2)];
}

void VariantArray::resizeLast(std::int32_t upper) {
    const std::int64_t rows = twoDimensional_ ? extent(lower1_, upper1_) : 1;
    const std::int64_t count = extent(twoDimensional_ ? lower2_ : lower1_, upper);
    items_.resize(static_cast<std::size_t>(rows * count));
    (twoDimensional_ ? upper2_ : upper1_) = upper;
}

void VariantArray::erase(std::int32_t index) {
    items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(offset(index)));
    --upper1_;
}

std::size_t VariantArray::offset(std::int32_t index) const {
    if (twoDimensional_) raise(error_number::subscriptOutOfRange, "VariantArray");
    return static_cast<std::size_t>(within(index, lower1_, upper1_));
}

std::size_t VariantArray::offset(std::int32_t index1, std::int32_t index2) const {
    if (!twoDimensional_) raise(error_number::subscriptOutOfRange, "VariantArray");
    const std::int64_t row = within(index1, lower1_, upper1_);
    const std::int64_t column = within(index2, lower2_, upper2_);
    return static_cast<std::size_t>(column * extent(lower1_, upper1_) + row);
}

bool operator==(const VariantArray& a, const VariantArray& b) {
    return a.dimensions() == b.dimensions() && a.lower1_ == b.lower1_ && a.upper1_ == b.upper1_ &&
           a.lower2_ == b.lower2_ && a.upper2_ == b.upper2_ && a.items_ == b.items_;
}

}  // namespace ledgerwick
