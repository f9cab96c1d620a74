#include "hostkit/postgres/wire.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <limits>

#include "ledgerwick/values/error.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick::postgres {

using rowsets::Cell;

namespace {

// The server counts days from 1 January 2000, the library from 30 December 1899.
constexpr std::int64_t daysToServerEpoch = 36526;
constexpr std::int64_t microsecondsInDay = 86'400'000'000;

// A numeric is a row of digits to the base 10,000, so that four decimals are one digit.
constexpr std::int64_t numericBase = 10'000;
constexpr std::uint16_t numericNegative = 0x4000;
constexpr std::uint16_t numericSpecial = 0xC000;  // not a number, or endless

// What `modifier` is for numeric(p, 4), without the precision.
constexpr int modifierHeader = 4;
constexpr int scaleMask = 0x7ff;
constexpr int moneyScale = 4;

[[noreturn]] void refuseForm(TypeId type) {
    raise(error_number::databaseError, "Database",
          "the server sent a value of type " + std::to_string(type) + " in an unknown form");
}

template <class Unsigned>
Unsigned bigEndian(const char* at) noexcept {
    Unsigned value = 0;
    for (std::size_t i = 0; i < sizeof(Unsigned); ++i) {
        value = static_cast<Unsigned>((value << 8U) | static_cast<unsigned char>(at[i]));
    }
    return value;
}

template <class Unsigned>
void putBigEndian(std::string& bytes, Unsigned value) {
    for (std::size_t i = sizeof(Unsigned); i > 0; --i) {
        bytes += static_cast<char>(static_cast<unsigned char>(value >> (8 * (i - 1))));
    }
}

template <class Unsigned>
Unsigned whole(TypeId type, std::string_view bytes) {
    if (bytes.size() != sizeof(Unsigned)) refuseForm(type);
    return bigEndian<Unsigned>(bytes.data());
}

template <class Real, class Unsigned>
Real real(TypeId type, std::string_view bytes) {
    const auto bits = whole<Unsigned>(type, bytes);
    Real value;
    std::memcpy(&value, &bits, sizeof(Real));
    return value;
}

// ---- dates --------------------------------------------------------------------------------------

Cell timestampCell(std::int64_t microseconds) {
    const std::int64_t days = microseconds / microsecondsInDay;
    const std::int64_t rest = microseconds % microsecondsInDay;
    if (rest == 0) return Cell::ofWhole(days + daysToServerEpoch);
    return Cell::ofReal(static_cast<double>(days + daysToServerEpoch) +
                        static_cast<double>(rest) / static_cast<double>(microsecondsInDay));
}

std::int64_t microsecondsOf(const Cell& cell) {
    if (cell.storage == Cell::Storage::Whole) {
        return (cell.whole - daysToServerEpoch) * microsecondsInDay;
    }
    const double days = std::floor(cell.real);
    const double part = (cell.real - days) * static_cast<double>(microsecondsInDay);
    return (static_cast<std::int64_t>(days) - daysToServerEpoch) * microsecondsInDay +
           std::llround(part);
}

// ---- numeric ------------------------------------------------------------------------------------

struct Numeric {
    std::int16_t digits;
    std::int16_t weight;  // of the first digit: 0 for the ones
    std::uint16_t sign;
    const char* at;

    std::int64_t digit(std::int16_t place) const {
        return bigEndian<std::uint16_t>(at + 2 * static_cast<std::size_t>(place));
    }
};

Numeric numericOf(std::string_view bytes) {
    constexpr std::size_t header = 8;
    if (bytes.size() < header) refuseForm(type_id::numeric);
    const Numeric number{static_cast<std::int16_t>(bigEndian<std::uint16_t>(bytes.data())),
                         static_cast<std::int16_t>(bigEndian<std::uint16_t>(bytes.data() + 2)),
                         bigEndian<std::uint16_t>(bytes.data() + 4), bytes.data() + header};
    if (number.digits < 0 || bytes.size() != header + 2 * static_cast<std::size_t>(number.digits)) {
        refuseForm(type_id::numeric);
    }
    return number;
}

double toReal(const Numeric& number) {
    if ((number.sign & numericSpecial) == numericSpecial) {
        return std::numeric_limits<double>::quiet_NaN();
    }
    double value = 0;
    for (std::int16_t i = 0; i < number.digits; ++i) {
        value += static_cast<double>(number.digit(i)) *
                 std::pow(static_cast<double>(numericBase), number.weight - i);
    }
    return number.sign == numericNegative ? -value : value;
}

// Money has its ones in weight 0 and its ticks in weight -1; the largest begins in weight 3.
Cell moneyCell(const Numeric& number) {
    constexpr int largestWeight = 3;
    if ((number.sign & numericSpecial) == numericSpecial || number.weight > largestWeight) {
        return Cell::ofReal(toReal(number));
    }
    const bool negative = number.sign == numericNegative;
    std::int64_t ticks = 0;
    for (int weight = largestWeight; weight >= -1; --weight) {
        const int place = number.weight - weight;
        const std::int64_t digit = place >= 0 && place < number.digits
                                       ? number.digit(static_cast<std::int16_t>(place))
                                       : 0;
        if (__builtin_mul_overflow(ticks, numericBase, &ticks) ||
            __builtin_add_overflow(ticks, negative ? -digit : digit, &ticks)) {
            return Cell::ofReal(toReal(number));
        }
    }
    return Cell::ofMoney(ticks);
}

void encodeMoney(std::int64_t ticks, std::string& bytes) {
    std::array<std::uint16_t, 6> digits{};
    int count = 0;
    // Digits from the last, which has weight -1.
    for (std::int64_t rest = ticks; rest != 0; rest /= numericBase) {
        digits[static_cast<std::size_t>(count++)] =
            static_cast<std::uint16_t>(std::abs(rest % numericBase));
    }
    putBigEndian(bytes, static_cast<std::uint16_t>(count));
    putBigEndian(bytes, static_cast<std::uint16_t>(count - 2));
    putBigEndian(bytes, static_cast<std::uint16_t>(ticks < 0 ? numericNegative : 0));
    putBigEndian(bytes, static_cast<std::uint16_t>(moneyScale));
    while (count > 0) putBigEndian(bytes, digits[static_cast<std::size_t>(--count)]);
}

std::int64_t wholeOf(const Cell& cell, std::string_view source) {
    return cell.storage == Cell::Storage::Whole ? cell.whole
                                                : rowsets::asStored(cell).toInt64(source);
}

// Whether the server takes it as a text: UTF-8 in its shortest form, and no zero byte.
bool isSoundText(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const auto lead = static_cast<unsigned char>(text[at]);
        if (lead == 0) return false;
        const std::size_t more = lead < 0x80 ? 0 : lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
        if ((lead >= 0x80 && lead < 0xC2) || lead > 0xF4 || at + more >= text.size()) return false;
        std::uint32_t code = more == 0 ? lead : lead & (0x3FU >> more);
        for (std::size_t i = 1; i <= more; ++i) {
            const auto next = static_cast<unsigned char>(text[at + i]);
            if ((next & 0xC0U) != 0x80) return false;
            code = (code << 6U) | (next & 0x3FU);
        }
        constexpr std::array<std::uint32_t, 4> shortest{0, 0x80, 0x800, 0x10000};
        if (code < shortest[more] || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) {
            return false;
        }
        at += more + 1;
    }
    return true;
}

void encodeText(const Cell& cell, std::string& bytes, std::string_view source) {
    std::string made;
    const std::string_view text =
        rowsets::toText(cell, VariantKind::Empty, FieldName(source), made);
    if (!isSoundText(text)) {
        raise(error_number::typeMismatch, source, "a text that is not sound UTF-8");
    }
    bytes += text;
}

}  // namespace

VariantKind kindOf(TypeId type, int modifier) noexcept {
    switch (type) {
        case type_id::boolean:
            return VariantKind::Boolean;
        case type_id::int2:
            return VariantKind::Int16;
        case type_id::int4:
            return VariantKind::Int32;
        case type_id::float4:
            return VariantKind::Single;
        case type_id::float8:
            return VariantKind::Double;
        case type_id::timestamp:
            return VariantKind::Date;
        case type_id::numeric:
            return modifier >= modifierHeader &&
                           ((modifier - modifierHeader) & scaleMask) == moneyScale
                       ? VariantKind::Currency
                       : VariantKind::Empty;
        case type_id::int8:
            return VariantKind::Empty;
        default:
            return VariantKind::Text;
    }
}

TypeId typeOf(VariantKind kind) noexcept {
    switch (kind) {
        case VariantKind::Boolean:
            return type_id::boolean;
        case VariantKind::Int16:
            return type_id::int2;
        case VariantKind::Int32:
            return type_id::int4;
        case VariantKind::Single:
            return type_id::float4;
        case VariantKind::Double:
            return type_id::float8;
        case VariantKind::Date:
            return type_id::timestamp;
        case VariantKind::Currency:
            return type_id::numeric;
        default:
            return type_id::text;
    }
}

TypeId arrayOf(TypeId type) noexcept {
    switch (type) {
        case type_id::boolean:
            return 1000;
        case type_id::int2:
            return 1005;
        case type_id::int4:
            return 1007;
        case type_id::int8:
            return 1016;
        case type_id::float4:
            return 1021;
        case type_id::float8:
            return 1022;
        case type_id::timestamp:
            return 1115;
        case type_id::numeric:
            return 1231;
        default:
            return 1009;
    }
}

Cell decode(TypeId type, int modifier, std::string_view bytes) {
    switch (type) {
        case type_id::boolean:
            return Cell::ofWhole(bytes == std::string_view("\0", 1) ? 0 : -1);
        case type_id::int2:
            return Cell::ofWhole(static_cast<std::int16_t>(whole<std::uint16_t>(type, bytes)));
        case type_id::int4:
            return Cell::ofWhole(static_cast<std::int32_t>(whole<std::uint32_t>(type, bytes)));
        case type_id::int8:
            return Cell::ofWhole(static_cast<std::int64_t>(whole<std::uint64_t>(type, bytes)));
        case type_id::float4:
            return Cell::ofReal(real<float, std::uint32_t>(type, bytes));
        case type_id::float8:
            return Cell::ofReal(real<double, std::uint64_t>(type, bytes));
        case type_id::timestamp:
            return timestampCell(static_cast<std::int64_t>(whole<std::uint64_t>(type, bytes)));
        case type_id::numeric:
            return kindOf(type, modifier) == VariantKind::Currency
                       ? moneyCell(numericOf(bytes))
                       : Cell::ofReal(toReal(numericOf(bytes)));
        default:
            return Cell::ofText(bytes);
    }
}

Cell cellOf(const Variant& value) noexcept {
    if (value.kind() == VariantKind::Currency) return Cell::ofMoney(value.toCurrency().ticks());
    return rowsets::toCell(value);
}

void encode(const Cell& cell, TypeId type, std::string& bytes, std::string_view source) {
    const FieldName name(source);
    switch (type) {
        case type_id::boolean:
            bytes += static_cast<char>(rowsets::toBoolean(cell, name) ? 1 : 0);
            break;
        case type_id::int2:
            putInt16(bytes, rowsets::toInt16(cell, name));
            break;
        case type_id::int4:
            putInt32(bytes, rowsets::toInt32(cell, name));
            break;
        case type_id::int8:
            putInt64(bytes, wholeOf(cell, source));
            break;
        case type_id::float4: {
            const float value = rowsets::toSingle(cell, name);
            std::uint32_t bits = 0;
            std::memcpy(&bits, &value, sizeof bits);
            putBigEndian(bytes, bits);
            break;
        }
        case type_id::float8: {
            const double value = rowsets::toDouble(cell, name);
            std::uint64_t bits = 0;
            std::memcpy(&bits, &value, sizeof bits);
            putBigEndian(bytes, bits);
            break;
        }
        case type_id::timestamp:
            putInt64(bytes, microsecondsOf(cell));
            break;
        case type_id::numeric:
            encodeMoney(rowsets::toCurrency(cell, name).ticks(), bytes);
            break;
        default:
            encodeText(cell, bytes, source);
    }
}

void putInt16(std::string& bytes, std::int16_t value) {
    putBigEndian(bytes, static_cast<std::uint16_t>(value));
}
void putInt32(std::string& bytes, std::int32_t value) {
    putBigEndian(bytes, static_cast<std::uint32_t>(value));
}
void putInt64(std::string& bytes, std::int64_t value) {
    putBigEndian(bytes, static_cast<std::uint64_t>(value));
}

void ArrayBytes::add(const Cell& cell, std::string_view source) {
    ++count_;
    if (cell.storage == Cell::Storage::Null) {
        putInt32(elements_, -1);
        return;
    }
    const std::size_t length = elements_.size();
    putInt32(elements_, 0);
    encode(cell, element_, elements_, source);
    std::string size;
    putInt32(size, static_cast<std::int32_t>(elements_.size() - length - 4));
    std::copy(size.begin(), size.end(), elements_.begin() + static_cast<std::ptrdiff_t>(length));
}

std::string ArrayBytes::take() {
    std::string bytes;
    putInt32(bytes, count_ == 0 ? 0 : 1);  // dimensions
    putInt32(bytes, 1);                    // there may be Null
    putInt32(bytes, static_cast<std::int32_t>(element_));
    if (count_ != 0) {
        putInt32(bytes, count_);
        putInt32(bytes, 1);  // the first index
    }
    bytes += elements_;
    elements_.clear();
    count_ = 0;
    return bytes;
}

}  // namespace ledgerwick::postgres
