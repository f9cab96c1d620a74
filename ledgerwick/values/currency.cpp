#include "ledgerwick/values/currency.h"

#include <cmath>

#include "ledgerwick/values/decimal.h"

namespace ledgerwick {

Currency Currency::fromWhole(std::int64_t pounds, std::string_view source) {
    constexpr std::int64_t limit = std::numeric_limits<std::int64_t>::max() / ticksPerUnit;
    if (pounds > limit || pounds < -limit) raise(error_number::overflow, source);
    return Currency(pounds * ticksPerUnit);
}

Currency Currency::fromDouble(double value, std::string_view source) {
    // Up to here the product is off by far less than the distance of `nearHalf` to a half, so
    // that only values near a half need their digits.
    constexpr double quickLimit = 1e14;
    constexpr double nearHalf = 0.4;
    const double scaled = value * static_cast<double>(ticksPerUnit);
    if (std::abs(scaled) < quickLimit) {
        const double whole = std::nearbyint(scaled);
        if (std::abs(scaled - whole) < nearHalf) return Currency(static_cast<std::int64_t>(whole));
    }
    if (!std::isfinite(value)) raise(error_number::overflow, source);
    const auto ticks = Decimal::shortest(value).scaled(4);
    if (!ticks) raise(error_number::overflow, source);
    return Currency(*ticks);
}

std::string Currency::toText() const {
    Decimal decimal = Decimal::fromWhole(ticks_);
    decimal.shiftPoint(-4);
    return decimal.text();
}

}  // namespace ledgerwick
