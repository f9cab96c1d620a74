// Whether bytes are UTF-8, and what stands for those that are not.
#pragma once

#include <string>
#include <string_view>

namespace ledgerwick::c {

constexpr bool isContinuation(char byte) noexcept {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

bool isUtf8(std::string_view text) noexcept;
// The text with U+FFFD in place of each byte that belongs to no character.
std::string soundUtf8(std::string_view text);

}  // namespace ledgerwick::c
