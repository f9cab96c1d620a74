// Money: a 64-bit count of ten-thousandths, exact and checked.
#pragma once

#include <compare>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

#include "ledgerwick/export.h"
#include "ledgerwick/values/error.h"

namespace ledgerwick {

// Units:  pounds, with four decimals.
// Shape:  -922337203685477.5808 to 922337203685477.5807.
// Errors: a result outside that range is error 6.
class LEDGERWICK_API Currency {
  public:
    constexpr Currency() noexcept = default;  // no money

    static constexpr std::int64_t ticksPerUnit = 10000;  // ticks in a pound
    // That many ten-thousandths.
    static constexpr Currency fromTicks(std::int64_t ticks) noexcept { return Currency(ticks); }
    // Exact for whole pounds.
    static Currency fromWhole(std::int64_t pounds, std::string_view source = "Currency");
    // Rounds at the fourth decimal, an exact half to the even neighbour. What counts as a half is
    // the decimal that the value stands for, its shortest one: 1.00015 is 1.0002 and 1.00025 is
    // 1.0002, although neither is exact in binary.
    // Errors: 6 also when `value` is no finite number.
    static Currency fromDouble(double value, std::string_view source = "Currency");

    // The count of ten-thousandths.
    constexpr std::int64_t ticks() const noexcept { return ticks_; }
    // The nearest floating-point number of pounds.
    double toDouble() const noexcept {
        return static_cast<double>(ticks_) / static_cast<double>(ticksPerUnit);
    }
    // Plain decimal without trailing zeros: "12.5", "-0.0001", "0".
    std::string toText() const;

    // The sum.
    friend constexpr Currency operator+(Currency a, Currency b) {
        using Limits = std::numeric_limits<std::int64_t>;
        if (b.ticks_ > 0 ? a.ticks_ > Limits::max() - b.ticks_
                         : a.ticks_ < Limits::min() - b.ticks_) {
            raise(error_number::overflow, "Currency");
        }
        return Currency(a.ticks_ + b.ticks_);
    }
    // The difference.
    friend constexpr Currency operator-(Currency a, Currency b) {
        using Limits = std::numeric_limits<std::int64_t>;
        if (b.ticks_ > 0 ? a.ticks_ < Limits::min() + b.ticks_
                         : a.ticks_ > Limits::max() + b.ticks_) {
            raise(error_number::overflow, "Currency");
        }
        return Currency(a.ticks_ - b.ticks_);
    }
    // Adds to this amount.
    Currency& operator+=(Currency other) { return *this = *this + other; }

    // Compared exactly.
    friend constexpr auto operator<=>(Currency, Currency) noexcept = default;

  private:
    constexpr explicit Currency(std::int64_t ticks) noexcept : ticks_(ticks) {}
    std::int64_t ticks_ = 0;
};

}  // namespace ledgerwick
