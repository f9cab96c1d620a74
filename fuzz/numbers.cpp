// Numbers and money: each way of writing a value reads back as the same, and a text is one number
// in every type or none.
//
// Input: 0 and a text; 1 and the bits of a value.
#include <cmath>
#include <limits>
#include <optional>

#include "fuzz/harness.h"
#include "hostkit/exchange/tables.h"
#include "ledgerwick/values/format.h"
#include "ledgerwick/values/text.h"
#include "ledgerwick/values/variant.h"

namespace ledgerwick::fuzz {

namespace {

void sameInEveryType(const std::string& text) {
    const Variant variant(text);
    const std::optional<double> number = parseNumber(text);
    const std::optional<std::string> plain = plainNumber(text);
    CHECK(number.has_value() == plain.has_value(), text);
    CHECK(variant.isNumeric() == number.has_value(), text);
    if (!number) {
        CHECK(raisedBy([&] { variant.toDouble(); }) == 13, text);
        CHECK(raisedBy([&] { variant.toCurrency(); }) == 13, text);
        CHECK(Format(variant, "#,##0.00") == text, text);
        return;
    }
    CHECK(parseNumber(*plain) == number, *plain);
    CHECK(variant.toDouble() == *number, text);
    Currency money;
    const std::int32_t raised = raisedBy([&] { money = variant.toCurrency(); });
    const bool fits = std::abs(*number) < 922337203685477.0;
    CHECK(raised == 0 || (raised == 6 && !fits), text);
    if (raised == 0)
        CHECK(std::abs(money.toDouble() - *number) <= 0.06 + 1e-12 * std::abs(*number), text);
    std::int32_t whole = 0;
    if (raisedBy([&] { whole = variant.toInt32(); }) == 0) {
        CHECK(std::abs(whole - *number) <= 0.5, text);
    } else {
        CHECK(std::abs(*number) > 2147483647.4, text);
    }
    const std::string shown = Format(variant, "0.0000");
    CHECK(shown.size() < 320, text);
    const auto again = parseNumber(shown);
    CHECK(again && std::abs(*again - *number) <= 0.00006 + 1e-12 * std::abs(*number), shown);
}

void moneyReadsBack(Currency money) {
    CHECK(Variant(money.toText()).toCurrency() == money, money.toText());
    for (const char* picture : {"0.0000", "#,##0.0000", "\u00A3#,##0.00##", "#.####"}) {
        const std::string shown = formatNumber(money, picture);
        if (shown == ".") continue;  // nothing, by a picture that shows no zero
        CHECK(Variant(shown).toCurrency() == money, shown);
    }
}

void numberReadsBack(double value) {
    if (!std::isfinite(value)) return;
    const auto again = parseNumber(numberText(value));
    CHECK(again || std::abs(value) < 1e-300 || std::abs(value) > 1.7976931348623e308,
          numberText(value));
    if (again) CHECK(std::abs(*again - value) <= 1e-14 * std::abs(value), numberText(value));
    const exchange::FieldLayout field{"N", VariantKind::Double};
    const auto kept = exchange::readField(exchange::writeField(value, field), field);
    CHECK(kept.fault.empty() && kept.value.toDouble() == value, exchange::writeField(value, field));
    Currency money;
    if (raisedBy([&] { money = Currency::fromDouble(value); }) == 0) {
        CHECK(Currency::fromDouble(money.toDouble()).ticks() == money.ticks() ||
                  std::abs(value) > 1e11,
              numberText(value));
    }
}

}  // namespace

void fuzzOne(Input input) {
    if (input.choice(2) == 0) {
        sameInEveryType(input.rest());
        return;
    }
    const auto bits = input.bits<std::int64_t>();
    double value = 0;
    std::memcpy(&value, &bits, sizeof value);
    moneyReadsBack(Currency::fromTicks(bits));
    numberReadsBack(value);
    numberReadsBack(static_cast<double>(bits) / 10000);
}

}  // namespace ledgerwick::fuzz
