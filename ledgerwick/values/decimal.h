// A number as its decimal digits, for what must be exact in decimal: rounding at a decimal place
// and writing.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace ledgerwick {

enum class Ties : std::uint8_t { ToEven, AwayFromZero };

// The value is 0.DIGITS times ten to the power of `point`.
struct Decimal {
    static constexpr std::size_t capacity = 40;

    std::array<char, capacity> digits;  // '0' to '9', neither leading nor trailing zeros
    std::size_t count = 0;              // 0 for the number zero
    int point = 0;
    bool negative = false;

    bool isZero() const noexcept { return count == 0; }
    // The digit at a place, 0 being the units, 1 the tens and -1 the tenths.
    char at(int place) const noexcept {
        const int index = point - 1 - place;
        return index >= 0 && index < static_cast<int>(count)
                   ? digits[static_cast<std::size_t>(index)]
                   : '0';
    }

    // Digits as a whole number; `value` is finite.
    static Decimal fromWhole(std::int64_t value) noexcept;
    // The shortest digits that read back as `value`, or `significant` digits.
    static Decimal shortest(double value) noexcept;
    static Decimal shortest(float value) noexcept;
    static Decimal ofDouble(double value, int significant) noexcept;
    // Digits with an optional sign, point and exponent, and nothing else. Digits past the
    // capacity are dropped.
    static Decimal fromPlainText(std::string_view text) noexcept;

    void shiftPoint(int places) noexcept {
        if (!isZero()) point += places;
    }
    // Leaves `decimals` digits after the point.
    void round(int decimals, Ties ties) noexcept;
    // The number times ten to the power of `decimals`, a half to the even neighbour; nothing when
    // it does not fit.
    std::optional<std::int64_t> scaled(int decimals) const noexcept;
    // Plain decimal, "-0.0012"; with an exponent outside 10^-15 to 10^15.
    std::string text() const;

  private:
    void push(char digit) noexcept {
        if (count < capacity) digits[count++] = digit;
    }
    void normalize() noexcept;
};

}  // namespace ledgerwick
