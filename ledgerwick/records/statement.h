// Statements as they are read aloud, with an `@` where a value goes.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace ledgerwick {

// The text with each `@` replaced by the next value, in order.
//
//   statement("SELECT * FROM PRPay WHERE PRPNAID = @", {std::to_string(naid)})
//
// Shape: the text has as many `@` as there are values.
inline std::string statement(std::string_view text,
                             std::initializer_list<std::string_view> values) {
    std::string result;
    result.reserve(text.size() + 32 * values.size());
    for (const std::string_view value : values) {
        const auto place = text.find('@');
        result.append(text.substr(0, place)).append(value);
        text.remove_prefix(place + 1);
    }
    return result.append(text);
}

}  // namespace ledgerwick
