// 16- and 32-bit arithmetic in which an overflow is an error and never a wrong figure.
#pragma once

#include <cstdint>

#include "ledgerwick/export.h"

namespace ledgerwick {

// Sum, difference and product.
// Errors: 6 when the result does not fit; the operands stay as they were.
LEDGERWICK_API std::int16_t addInt16(std::int16_t a, std::int16_t b);
LEDGERWICK_API std::int32_t addInt32(std::int32_t a, std::int32_t b);
LEDGERWICK_API std::int32_t subtractInt32(std::int32_t a, std::int32_t b);
LEDGERWICK_API std::int32_t multiplyInt32(std::int32_t a, std::int32_t b);

// The whole number nearest to `value`; an exact half goes to the even neighbour.
// Errors: 6 when it does not fit, or `value` is no finite number.
LEDGERWICK_API std::int16_t roundToInt16(double value);
LEDGERWICK_API std::int32_t roundToInt32(double value);
LEDGERWICK_API std::int64_t roundToInt64(double value);

// A wider whole number brought to a narrower type.
// Errors: 6 when it does not fit.
LEDGERWICK_API std::int16_t narrowToInt16(std::int64_t value);
LEDGERWICK_API std::int32_t narrowToInt32(std::int64_t value);

}  // namespace ledgerwick
