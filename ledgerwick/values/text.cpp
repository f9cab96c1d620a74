#include "ledgerwick/values/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "ledgerwick/values/decimal.h"
#include "ledgerwick/values/utf8.h"

namespace ledgerwick {
namespace {

constexpr bool isDigit(char c) noexcept {
    return c >= '0' && c <= '9';
}

constexpr char lowered(char c) noexcept {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// The number of bytes of the character at `start`; a byte that belongs to none counts as one.
std::size_t stepAt(std::string_view text, std::size_t start) noexcept {
    return std::max<std::size_t>(characterLength(text.substr(start)), 1);
}

// Removes `what` from the front of `text` when the text begins with it.
bool take(std::string_view& text, std::string_view what) noexcept {
    if (!text.starts_with(what)) return false;
    text.remove_prefix(what.size());
    return true;
}

std::string_view takeDigits(std::string_view& text) noexcept {
    std::size_t length = 0;
    while (length < text.size() && isDigit(text[length])) ++length;
    const auto digits = text.substr(0, length);
    text.remove_prefix(length);
    return digits;
}

// The digits before the point; with commas, groups of three after a first group of one to three.
bool takeWholePart(std::string_view& text, std::string& plain) {
    const auto first = takeDigits(text);
    plain.append(first);
    if (!text.starts_with(',')) return true;
    if (first.empty() || first.size() > 3) return false;
    while (take(text, ",")) {
        const auto group = takeDigits(text);
        if (group.size() != 3) return false;
        plain.append(group);
    }
    return true;
}

bool takeExponent(std::string_view& text, std::string& plain) {
    if (!take(text, "e") && !take(text, "E")) return true;
    plain += 'e';
    if (take(text, "-")) {
        plain += '-';
    } else {
        take(text, "+");
    }
    const auto digits = takeDigits(text);
    plain.append(digits);
    return !digits.empty();
}

// The code points of the bytes 0x80 to 0x9F.
constexpr std::array<char16_t, 32> windows1252Upper = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

// The digits, sign, point and exponent of a number, without commas and signs of currency.
std::optional<std::string> plainForm(std::string_view text) {
    text = trim(text);
    std::string plain;
    const auto takeSign = [&] {
        if (take(text, "-")) {
            plain += '-';
            return true;
        }
        return take(text, "+");
    };
    const bool signedInFront = takeSign();
    if (take(text, "\u00A3") && !signedInFront) takeSign();
    const std::size_t signLength = plain.size();
    if (!takeWholePart(text, plain)) return std::nullopt;
    std::size_t digitCount = plain.size() - signLength;
    if (take(text, ".")) {
        const auto fraction = takeDigits(text);
        if (digitCount == 0) plain += '0';
        if (!fraction.empty()) plain.append(".").append(fraction);
        digitCount += fraction.size();
    }
    if (digitCount == 0 || !takeExponent(text, plain) || !text.empty()) return std::nullopt;
    return plain;
}

std::optional<double> valueOf(const std::string& plain) {
    double value = 0;
    const auto read = std::from_chars(plain.data(), plain.data() + plain.size(), value);
    if (read.ec != std::errc{}) return std::nullopt;
    return value;
}

}  // namespace

std::string_view trimLeft(std::string_view text) noexcept {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    return text;
}

std::string_view trimRight(std::string_view text) noexcept {
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

std::string_view trim(std::string_view text) noexcept {
    return trimLeft(trimRight(text));
}

std::size_t characterCount(std::string_view text) noexcept {
    std::size_t count = 0;
    for (std::size_t i = 0; i < text.size(); i += stepAt(text, i)) ++count;
    return count;
}

std::string_view firstCharacters(std::string_view text, std::size_t count) noexcept {
    if (text.size() <= count) return text;
    std::size_t end = 0;
    for (; count > 0 && end < text.size(); --count) end += stepAt(text, end);
    return text.substr(0, end);
}

std::string padOrCut(std::string_view text, std::size_t width) {
    std::string result(firstCharacters(text, width));
    result.append(width - characterCount(result), ' ');
    return result;
}

std::string replaceAll(std::string_view text, std::string_view what, std::string_view with) {
    if (what.empty()) return std::string(text);
    std::string result;
    std::size_t start = 0;
    for (std::size_t found; (found = text.find(what, start)) != std::string_view::npos;) {
        result.append(text.substr(start, found - start)).append(with);
        start = found + what.size();
    }
    return result.append(text.substr(start));
}

bool equalsIgnoringCase(std::string_view a, std::string_view b) noexcept {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
               return lowered(x) == lowered(y);
           });
}

int compareIgnoringCase(std::string_view a, std::string_view b) noexcept {
    const std::size_t common = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < common; ++i) {
        const auto x = static_cast<unsigned char>(lowered(a[i]));
        const auto y = static_cast<unsigned char>(lowered(b[i]));
        if (x != y) return x < y ? -1 : 1;
    }
    return a.size() == b.size() ? 0 : a.size() < b.size() ? -1 : 1;
}

std::optional<std::string> plainNumber(std::string_view text) {
    auto plain = plainForm(text);
    if (plain && !valueOf(*plain)) plain.reset();
    return plain;
}

std::optional<double> parseNumber(std::string_view text) {
    const auto plain = plainForm(text);
    return plain ? valueOf(*plain) : std::nullopt;
}

std::string numberText(double value) {
    if (!std::isfinite(value)) return std::isnan(value) ? "nan" : value < 0 ? "-inf" : "inf";
    return Decimal::ofDouble(value, 15).text();
}

std::string windows1252ToUtf8(std::string_view bytes) {
    std::string result;
    result.reserve(bytes.size());
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        const bool isUpper = byte >= 0x80 && byte < 0xA0;
        appendUtf8(result, isUpper ? windows1252Upper[byte - 0x80u] : char16_t{byte});
    }
    return result;
}

}  // namespace ledgerwick
