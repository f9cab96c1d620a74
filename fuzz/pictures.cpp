// Pictures: any picture writes any number, within measure, and keeps what is literal in it.
//
// Input: the bits of a number, and a picture.
#include <cmath>

#include "fuzz/harness.h"
#include "ledgerwick/values/format.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick::fuzz {

void fuzzOne(Input input) {
    const auto bits = input.bits<std::int64_t>();
    double value = 0;
    std::memcpy(&value, &bits, sizeof value);
    const std::string picture = input.rest();
    const std::size_t most = 2 * picture.size() + 450;
    for (const Variant& number :
         {Variant(value), Variant(static_cast<float>(value)), Variant(Currency::fromTicks(bits)),
          Variant(bits), Variant(numberText(value))}) {
        const std::string shown = Format(number, picture);
        CHECK(shown.size() <= most, shown);
        // Neither an infinity nor a text of one is written by a picture.
        if (!number.isNumeric() || !std::isfinite(number.toDouble())) continue;

        // The picture's text in front, at the end and between is kept.
        if (picture.find_first_of("\"\\;") == std::string::npos) {
            const std::string framed = Format(number, "\"<0\"" + picture + "\\0\">\"");
            if (!picture.empty()) CHECK(framed.find("<0") < 2 && framed.ends_with("0>"), framed);
        }
    }
    if (std::isfinite(value) && std::abs(value) < 1e12) {
        // No more than the rounding is lost by a plain picture.
        const auto shown = parseNumber(formatNumber(value, "#,##0.00"));
        CHECK(shown && std::abs(*shown - value) <= 0.005 + 1e-14 * std::abs(value),
              formatNumber(value, "#,##0.00"));
    }
}

}  // namespace ledgerwick::fuzz
