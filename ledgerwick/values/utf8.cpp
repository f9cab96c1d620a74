#include "ledgerwick/values/utf8.h"

namespace ledgerwick {
namespace {

constexpr std::string_view replacement = "\uFFFD";

// The first byte decides the length of a character and the range of the second byte.
struct Form {
    std::size_t length;  // 0 for a byte that begins no character
    unsigned char low;   // least second byte
    unsigned char high;  // greatest second byte
};

constexpr Form formAfter(unsigned char lead) noexcept {
    if (lead < 0x80) return {1, 0, 0};
    if (lead < 0xC2) return {0, 0, 0};  // a later byte, or an overlong form
    if (lead < 0xE0) return {2, 0x80, 0xBF};
    if (lead == 0xE0) return {3, 0xA0, 0xBF};  // below: overlong
    if (lead == 0xED) return {3, 0x80, 0x9F};  // above: surrogates
    if (lead < 0xF0) return {3, 0x80, 0xBF};
    if (lead == 0xF0) return {4, 0x90, 0xBF};  // below: overlong
    if (lead < 0xF4) return {4, 0x80, 0xBF};
    if (lead == 0xF4) return {4, 0x80, 0x8F};  // above: beyond U+10FFFF
    return {0, 0, 0};
}

constexpr bool isLaterByte(char byte) noexcept {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

}  // namespace

std::size_t characterLength(std::string_view text) noexcept {
    if (text.empty()) return 0;
    const Form form = formAfter(static_cast<unsigned char>(text[0]));
    if (form.length <= 1) return form.length;
    if (form.length > text.size()) return 0;
    const auto second = static_cast<unsigned char>(text[1]);
    if (second < form.low || second > form.high) return 0;
    for (std::size_t i = 2; i < form.length; ++i) {
        if (!isLaterByte(text[i])) return 0;
    }
    return form.length;
}

bool isUtf8(std::string_view text) noexcept {
    while (!text.empty()) {
        const std::size_t length = characterLength(text);
        if (length == 0) return false;
        text.remove_prefix(length);
    }
    return true;
}

std::string soundUtf8(std::string_view text) {
    std::string sound;
    sound.reserve(text.size());
    while (!text.empty()) {
        const std::size_t length = characterLength(text);
        sound += length == 0 ? replacement : text.substr(0, length);
        text.remove_prefix(length == 0 ? 1 : length);
    }
    return sound;
}

std::string_view cutToBytes(std::string_view text, std::size_t bytes) noexcept {
    if (text.size() <= bytes) return text;
    while (bytes > 0 && isLaterByte(text[bytes])) --bytes;
    return text.substr(0, bytes);
}

void appendUtf8(std::string& text, char16_t codePoint) {
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

}  // namespace ledgerwick
