#include "ledgerwick/autoenrol/letter_template.h"

namespace ledgerwick {
namespace {

bool isTag(std::string_view text) noexcept {
    for (std::size_t i = 0; i < yearTagPattern.size(); ++i) {
        const bool fits = yearTagPattern[i] == '#' ? text[i] >= '0' && text[i] <= '9'
                                                   : text[i] == yearTagPattern[i];
        if (!fits) return false;
    }
    return true;
}

// The two digits after the "_" of a tag.
int yearOfTag(std::string_view tag) noexcept {
    return (tag[7] - '0') * 10 + (tag[8] - '0');
}

}  // namespace

std::optional<YearBlock> findYearBlock(std::string_view text, std::size_t from) noexcept {
    for (std::size_t at = text.find('$', from); at != text.npos; at = text.find('$', at + 1)) {
        if (text.size() - at < yearTagPattern.size()) break;
        const std::string_view tail = text.substr(at);
        if (!isTag(tail)) continue;
        const bool isOpened =
            tail.size() > yearTagPattern.size() && tail[yearTagPattern.size()] == '[';
        return YearBlock{at, text.find(']', at), isOpened, yearOfTag(tail)};
    }
    return std::nullopt;
}

}  // namespace ledgerwick
