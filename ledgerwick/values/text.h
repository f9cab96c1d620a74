// Small text helpers. Text is UTF-8; widths count characters, not bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "ledgerwick/export.h"

namespace ledgerwick {

// Without leading spaces (U+0020 only).
LEDGERWICK_API std::string_view trimLeft(std::string_view text) noexcept;
// Without trailing spaces.
LEDGERWICK_API std::string_view trimRight(std::string_view text) noexcept;
// Without either.
LEDGERWICK_API std::string_view trim(std::string_view text) noexcept;

// The number of characters; a byte that is no valid UTF-8 counts as one.
LEDGERWICK_API std::size_t characterCount(std::string_view text) noexcept;
// The first `count` characters.
LEDGERWICK_API std::string_view firstCharacters(std::string_view text, std::size_t count) noexcept;
// Padded on the right with blanks, or cut, to exactly `width` characters.
LEDGERWICK_API std::string padOrCut(std::string_view text, std::size_t width);

// Every occurrence of `what` replaced; an empty `what` changes nothing.
LEDGERWICK_API std::string replaceAll(std::string_view text, std::string_view what,
                                      std::string_view with);

// Letters A to Z compared without regard to case.
LEDGERWICK_API bool equalsIgnoringCase(std::string_view a, std::string_view b) noexcept;
// Below, equal or above: -1, 0, 1. Letters A to Z compare without regard to case.
LEDGERWICK_API int compareIgnoringCase(std::string_view a, std::string_view b) noexcept;

// A number as people and format pictures write it: blanks around it, a sign, a pound sign,
// thousands commas, a decimal point, an exponent.
// Shape:  nothing when the text is no number, or one that the type cannot hold. Commas must stand
//         between groups of three digits, so that "1,5" is no number.
LEDGERWICK_API std::optional<double> parseNumber(std::string_view text);
// The same number with nothing but its sign, digits, point and exponent left: "-1234.5".
LEDGERWICK_API std::optional<std::string> plainNumber(std::string_view text);

// Plain decimal, up to 15 significant digits: "12.5"; with an exponent only from 10^15 on and
// below 10^-15.
LEDGERWICK_API std::string numberText(double value);

// Windows code page 1252 to UTF-8. The five bytes that the code page leaves open become the
// control characters of the same number.
LEDGERWICK_API std::string windows1252ToUtf8(std::string_view bytes);

}  // namespace ledgerwick
