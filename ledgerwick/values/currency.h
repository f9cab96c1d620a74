// Money: a 64-bit count of ten-thousandths, exact and checked.
#pragma once

#include <compare>
#include <cstdint>
#include <string>

#include "ledgerwick/export.h"

namespace ledgerwick {

// Units:  pounds, with four decimals.
// Shape:  -922337203685477.5808 to 922337203685477.5807.
// Errors: a result outside that range is error 6.
class LEDGERWICK_API Currency {
  public:
    constexpr Currency() noexcept = default;

    static constexpr std::int64_t ticksPerUnit = 10000;
    static constexpr Currency fromTicks(std::int64_t ticks) noexcept { return Currency(ticks); }
    // Exact for whole pounds.
    static Currency fromWhole(std::int64_t pounds);
    // Rounds at the fourth decimal, an exact half to the even neighbour.
    static Currency fromDouble(double value);

    constexpr std::int64_t ticks() const noexcept { return ticks_; }
    double toDouble() const noexcept;
    // Plain decimal without trailing zeros: "12.5", "-0.0001", "0".
    std::string toText() const;

    friend LEDGERWICK_API Currency operator+(Currency a, Currency b);
    friend LEDGERWICK_API Currency operator-(Currency a, Currency b);
    Currency& operator+=(Currency other) { return *this = *this + other; }

    friend constexpr auto operator<=>(Currency, Currency) noexcept = default;

  private:
    constexpr explicit Currency(std::int64_t ticks) noexcept : ticks_(ticks) {}
    std::int64_t ticks_ = 0;
};

}  // namespace ledgerwick
