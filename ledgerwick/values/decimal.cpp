#include "ledgerwick/values/decimal.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace ledgerwick {
namespace {

constexpr bool isDigit(char c) noexcept {
    return c >= '0' && c <= '9';
}

template <class... Precision, class Number>
Decimal fromScientific(Number value, Precision... precision) noexcept {
    std::array<char, 64> buffer;
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                       std::chars_format::scientific, precision...);
    return Decimal::fromPlainText(
        {buffer.data(), static_cast<std::size_t>(written.ptr - buffer.data())});
}

}  // namespace

Decimal Decimal::fromWhole(std::int64_t value) noexcept {
    std::array<char, 24> buffer;
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    return fromPlainText({buffer.data(), static_cast<std::size_t>(written.ptr - buffer.data())});
}

Decimal Decimal::shortest(double value) noexcept {
    return fromScientific(value);
}
Decimal Decimal::shortest(float value) noexcept {
    return fromScientific(value);
}
Decimal Decimal::ofDouble(double value, int significant) noexcept {
    return fromScientific(value, significant - 1);
}

Decimal Decimal::fromPlainText(std::string_view text) noexcept {
    Decimal result;
    std::size_t i = 0;
    if (i < text.size() && (text[i] == '-' || text[i] == '+')) result.negative = text[i++] == '-';
    bool pointSeen = false;
    for (; i < text.size() && (isDigit(text[i]) || text[i] == '.'); ++i) {
        if (text[i] == '.') {
            pointSeen = true;
        } else if (result.count > 0 || text[i] != '0') {
            result.push(text[i]);
            if (!pointSeen) ++result.point;
        } else if (pointSeen) {
            --result.point;
        }
    }
    if (i < text.size() && result.count > 0) {
        const char* first = text.data() + i + 1;
        if (*first == '+') ++first;
        int exponent = 0;
        std::from_chars(first, text.data() + text.size(), exponent);
        result.point += exponent;
    }
    result.normalize();
    return result;
}

void Decimal::normalize() noexcept {
    while (count > 0 && digits[count - 1] == '0') --count;
    if (count == 0) {
        point = 0;
        negative = false;
    }
}

void Decimal::round(int decimals, Ties ties) noexcept {
    const int kept = point + decimals;
    if (kept >= static_cast<int>(count)) return;
    if (kept < 0) {
        count = 0;
        normalize();
        return;
    }
    const auto keep = static_cast<std::size_t>(kept);
    const bool tie = digits[keep] == '5' && keep + 1 == count;
    const bool odd = keep > 0 && (digits[keep - 1] - '0') % 2 != 0;
    const bool up = tie ? (ties == Ties::AwayFromZero || odd) : digits[keep] >= '5';
    count = keep;
    if (up) {
        while (count > 0 && digits[count - 1] == '9') --count;
        if (count > 0) {
            ++digits[count - 1];
        } else {
            digits[count++] = '1';
            ++point;
        }
    }
    normalize();
}

std::optional<std::int64_t> Decimal::scaled(int decimals) const noexcept {
    Decimal rounded = *this;
    rounded.round(decimals, Ties::ToEven);
    const int places = rounded.point + decimals;
    if (rounded.isZero()) return 0;
    if (places > std::numeric_limits<std::int64_t>::digits10 + 1) return std::nullopt;
    std::array<char, 24> plain;
    std::size_t length = 0;
    if (rounded.negative) plain[length++] = '-';
    for (int place = places - 1; place >= 0; --place)
        plain[length++] = rounded.at(place - decimals);
    std::int64_t result = 0;
    const auto read = std::from_chars(plain.data(), plain.data() + length, result);
    if (read.ec != std::errc{}) return std::nullopt;
    return result;
}

std::string Decimal::text() const {
    constexpr int plainPlaces = 15;
    if (isZero()) return "0";
    std::string result = negative ? "-" : "";
    const std::string_view all(digits.data(), count);
    if (point > plainPlaces || point <= -plainPlaces) {
        result += all.front();
        if (count > 1) result.append(".").append(all.substr(1));
        const int exponent = point - 1;
        result.append(exponent < 0 ? "E-" : "E+");
        if (std::abs(exponent) < 10) result += '0';
        return result + std::to_string(std::abs(exponent));
    }
    if (point <= 0) {
        result.append("0.").append(static_cast<std::size_t>(-point), '0').append(all);
        return result;
    }
    const auto whole = static_cast<std::size_t>(point);
    result.append(all.substr(0, whole));
    if (whole > count) result.append(whole - count, '0');
    if (whole < count) result.append(".").append(all.substr(whole));
    return result;
}

}  // namespace ledgerwick
