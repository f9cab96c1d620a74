#include "capi/utf8.h"

#include <cstddef>

namespace ledgerwick::c {

namespace {

// The length of the character that `text` begins with; 0 when it begins with none.
std::size_t characterLength(std::string_view text) noexcept {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byte(0);
    if (lead < 0x80) return 1;
    const std::size_t length = lead < 0xC2 ? 0 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if (length == 0 || lead > 0xF4 || length > text.size()) return 0;
    for (std::size_t i = 1; i < length; ++i) {
        if (!isContinuation(text[i])) return 0;
    }
    const bool overlong = (lead == 0xE0 && byte(1) < 0xA0) || (lead == 0xF0 && byte(1) < 0x90);
    const bool surrogate = lead == 0xED && byte(1) > 0x9F;
    const bool tooHigh = lead == 0xF4 && byte(1) > 0x8F;
    return overlong || surrogate || tooHigh ? 0 : length;
}

}  // namespace

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
        if (length == 0) {
            sound += "\xEF\xBF\xBD";
            text.remove_prefix(1);
        } else {
            sound += text.substr(0, length);
            text.remove_prefix(length);
        }
    }
    return sound;
}

}  // namespace ledgerwick::c
