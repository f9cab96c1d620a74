#include "ledgerwick/values/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "ledgerwick/values/decimal.h"

namespace ledgerwick {
namespace {

constexpr unsigned char byteAt(std::string_view text, std::size_t i) noexcept {
    return static_cast<unsigned char>(text[i]);
}

constexpr bool isDigit(char c) noexcept {
    return c >= '0' && c <= '9';
}

constexpr char lowered(char c) noexcept {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// The allowed range of the second byte of a UTF-8 sequence, by its first one.
struct SecondByte {
    unsigned char low, high;
};
constexpr SecondByte secondByteAfter(unsigned char lead) noexcept {
    switch (lead) {
        case 0xE0:
            return {0xA0, 0xBF};
        case 0xED:
            return {0x80, 0x9F};
        case 0xF0:
            return {0x90, 0xBF};
        case 0xF4:
            return {0x80, 0x8F};
        default:
            return {0x80, 0xBF};
    }
}

// The number of bytes of the character at `start`; 1 for a byte that is no valid UTF-8.
std::size_t characterLength(std::string_view text, std::size_t start) noexcept {
    const unsigned char lead = byteAt(text, start);
    const std::size_t length = lead < 0xC2    ? 1
                               : lead < 0xE0  ? 2
                               : lead < 0xF0  ? 3
                               : lead <= 0xF4 ? 4
                                              : 1;
    if (length == 1 || start + length > text.size()) return 1;
    const SecondByte allowed = secondByteAfter(lead);
    const unsigned char second = byteAt(text, start + 1);
    if (second < allowed.low || second > allowed.high) return 1;
    for (std::size_t i = start + 2; i < start + length; ++i) {
        if ((byteAt(text, i) & 0xC0) != 0x80) return 1;
    }
    return length;
}

// Takes `what` off the front of `text` when it stands there.
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

// The digits before the point; with commas, groups of three behind a first group of one to three.
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

void appendUtf8(std::string& text, unsigned codePoint) {
    if (codePoint < 0x80) {
        text += static_cast<char>(codePoint);
    } else if (codePoint < 0x800) {
        text += static_cast<char>(0xC0 | (codePoint >> 6));
        text += static_cast<char>(0x80 | (codePoint & 0x3F));
    } else {
        text += static_cast<char>(0xE0 | (codePoint >> 12));
        text += static_cast<char>(0x80 | ((codePoint >> 6) & 0x3F));
        text += static_cast<char>(0x80 | (codePoint & 0x3F));
    }
}

// A number by its form alone, with what may be left out taken out.
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
    for (std::size_t i = 0; i < text.size(); i += characterLength(text, i)) ++count;
    return count;
}

std::string_view firstCharacters(std::string_view text, std::size_t count) noexcept {
    if (text.size() <= count) return text;
    std::size_t end = 0;
    for (; count > 0 && end < text.size(); --count) end += characterLength(text, end);
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
        appendUtf8(result, byte >= 0x80 && byte < 0xA0 ? windows1252Upper[byte - 0x80u] : byte);
    }
    return result;
}

}  // namespace ledgerwick
