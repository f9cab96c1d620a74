// 16- and 32-bit arithmetic in which an overflow is an error and never a wrong figure.
//
// `source` is the source of the error.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>
#include <string_view>

#include "ledgerwick/values/error.h"

namespace ledgerwick {

// A wider whole number brought to a narrower type.
// Errors: 6 when it does not fit.
template <class Narrow>
constexpr Narrow narrowTo(std::int64_t value, std::string_view source) {
    if (value < std::numeric_limits<Narrow>::min() || value > std::numeric_limits<Narrow>::max()) {
        raise(error_number::overflow, source);
    }
    return static_cast<Narrow>(value);
}
// A whole number brought to 16 bits.
// Errors: 6 when it does not fit.
constexpr std::int16_t narrowToInt16(std::int64_t value,
                                     std::string_view source = "narrowToInt16") {
    return narrowTo<std::int16_t>(value, source);
}
// A whole number brought to 32 bits.
// Errors: 6 when it does not fit.
constexpr std::int32_t narrowToInt32(std::int64_t value,
                                     std::string_view source = "narrowToInt32") {
    return narrowTo<std::int32_t>(value, source);
}

// The sum in 16 bits.
// Errors: 6 when it does not fit.
constexpr std::int16_t addInt16(std::int16_t a, std::int16_t b,
                                std::string_view source = "addInt16") {
    return narrowTo<std::int16_t>(std::int64_t{a} + b, source);
}
// The sum in 32 bits.
// Errors: 6 when it does not fit.
constexpr std::int32_t addInt32(std::int32_t a, std::int32_t b,
                                std::string_view source = "addInt32") {
    return narrowTo<std::int32_t>(std::int64_t{a} + b, source);
}
// The difference in 32 bits.
// Errors: 6 when it does not fit.
constexpr std::int32_t subtractInt32(std::int32_t a, std::int32_t b,
                                     std::string_view source = "subtractInt32") {
    return narrowTo<std::int32_t>(std::int64_t{a} - b, source);
}
// The product in 32 bits.
// Errors: 6 when it does not fit.
constexpr std::int32_t multiplyInt32(std::int32_t a, std::int32_t b,
                                     std::string_view source = "multiplyInt32") {
    return narrowTo<std::int32_t>(std::int64_t{a} * b, source);
}

// The whole number nearest to `value`; an exact half goes to the even neighbour.
// Errors: 6 when it does not fit, or `value` is no finite number.
inline std::int64_t roundToInt64(double value, std::string_view source = "roundToInt64") {
    const double rounded = std::nearbyint(value);
    if (!(rounded >= -0x1p63 && rounded < 0x1p63)) raise(error_number::overflow, source);
    return static_cast<std::int64_t>(rounded);
}
// The same, brought to 16 bits.
inline std::int16_t roundToInt16(double value, std::string_view source = "roundToInt16") {
    return narrowTo<std::int16_t>(roundToInt64(value, source), source);
}
// The same, brought to 32 bits.
inline std::int32_t roundToInt32(double value, std::string_view source = "roundToInt32") {
    return narrowTo<std::int32_t>(roundToInt64(value, source), source);
}

}  // namespace ledgerwick
