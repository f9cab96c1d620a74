#include "hostkit/services/terminal_text.h"

#include <algorithm>
#include <cstddef>

#include "ledgerwick/values/utf8.h"

namespace ledgerwick {
namespace {

// Ranges of characters that steer a terminal. UTF-8 sorts as its code points do.
struct Range {
    std::string_view first;
    std::string_view last;
};
constexpr Range steering[] = {
    {std::string_view("\0", 1), "\x1F"},  // controls
    {"\x7F", "\x7F"},                     // delete
    {"\u0080", "\u009F"},                 // the second block of controls
    {"\u202A", "\u202E"},                 // turn the direction of what follows
    {"\u2066", "\u2069"},                 // the same, for an isolated run
};

bool steers(std::string_view character) {
    return std::ranges::any_of(steering, [&](const Range& range) {
        return character >= range.first && character <= range.last;
    });
}

}  // namespace

std::string withoutControls(std::string_view text) {
    std::string clean;
    clean.reserve(text.size());
    while (!text.empty()) {
        const auto character = text.substr(0, std::max<std::size_t>(characterLength(text), 1));
        if (steers(character)) {
            clean.append(character.size(), ' ');
        } else {
            clean.append(character);
        }
        text.remove_prefix(character.size());
    }
    return clean;
}

}  // namespace ledgerwick
