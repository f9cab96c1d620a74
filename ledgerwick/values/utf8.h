// The one decoder of UTF-8: every place that counts, cuts or tests characters asks here.
//
// A character is the shortest form of a code point up to U+10FFFF. Overlong forms, surrogates and
// what is cut off belong to no character.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "ledgerwick/export.h"

namespace ledgerwick {

// The number of bytes of the character at the front of the text.
// Shape:  1 to 4; 0 for an empty text, and when the first byte belongs to no character.
LEDGERWICK_API std::size_t characterLength(std::string_view text) noexcept;

// Whether the text consists of characters alone.
LEDGERWICK_API bool isUtf8(std::string_view text) noexcept;

// The text with U+FFFD in place of each byte that belongs to no character.
LEDGERWICK_API std::string soundUtf8(std::string_view text);

// The first `bytes` bytes, or fewer, so that no character is cut in two.
LEDGERWICK_API std::string_view cutToBytes(std::string_view text, std::size_t bytes) noexcept;

// The UTF-8 form of a code point up to U+FFFF, put at the end of `text`.
LEDGERWICK_API void appendUtf8(std::string& text, char16_t codePoint);

}  // namespace ledgerwick
