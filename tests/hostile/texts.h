// Texts that make trouble: what people, files and attackers put where a name is expected.
#pragma once

#include <string>
#include <vector>

#include "hostkit/exchange/tables.h"

namespace ledgerwick::test {

inline const std::vector<std::string>& hostileTexts() {
    static const std::vector<std::string> texts{
        // quotes and statement fragments
        "'", "''", "\"", "`", "O'Brien", "'; DROP TABLE Customers; --", "' OR '1'='1", "x'--",
        "' UNION SELECT * FROM PRPay --", "1); DELETE FROM PRPay; --", "/* ' */", "?", "?1", ":a",
        "@", "#1/1/2000#", "#", "True", "Null", "[NAID]", "a]b", "%_*", "\\", "\\'",
        // what a spreadsheet takes for a formula, and what stands for Null in a file
        "=1+1", "+44 20", "-5", "@SUM(A1)", "=cmd|' /C calc'!A1", "\tx", "\r=x", "\\N", "'=x",
        "''+",
        // CSV, pictures, placeholders and paths
        ",", "a,b\r\n\"c\"", "\n", "%LEL%", "%s%n", "{0}", "$(ls)", "../../x", "0.00;\"nil\"",
        // blanks, controls and direction
        " ", " a ", "\x01", "\x1b[31mred", "\x7f", "\u009b1m", "\u202Eevil", "\u2066x\u2069",
        "\uFEFF", "e\u0301", "\u0130i", "\U0001F600", "\u00A3\u20AC",
        // no text at all
        std::string("a\0b", 3), std::string(1, '\0'), "caf\xE9", "\xC0\xAF", "\xED\xA0\x80", "\xFF",
        "\xE2\x82",
        // long ones
        std::string(70000, 'x'), std::string(2000, '\''), std::string(300, '%')};
    return texts;
}

// Whether the bytes are text: UTF-8 without a zero byte. Others may be refused.
inline bool isText(const std::string& text) {
    return exchange::readField("'" + text, {"any", VariantKind::Text}).fault.empty();
}

}  // namespace ledgerwick::test
