#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "ledgerwick/values/checked.h"
#include "ledgerwick/values/currency.h"
#include "ledgerwick/values/error.h"
#include "tests/support/errors.h"

namespace ledgerwick {
namespace {

using test::errorOf;
using test::raisedBy;
using test::Told;

TEST(Error, TellsNumberSourceAndDescriptionInOneSentence) {
    const Error error(9909, "AECalcR_PRP", "Invalid Pay Period (0).");
    EXPECT_STREQ("Error 9909 in AECalcR_PRP: Invalid Pay Period (0).", error.what());
}

TEST(Error, RaisedByNumberCarriesTheTextOfTheNumberAndTheDetail) {
    EXPECT_EQ(errorOf([] { raise(error_number::duplicateKey, "Collection.Add", "42"); }),
              (Told{457, "Collection.Add", "Key already present: 42"}));
}

TEST(CheckedArithmetic, RaisesAnOverflowJustBeyondTheType) {
    using Limits = std::numeric_limits<std::int32_t>;
    EXPECT_EQ(32767, addInt16(32766, 1));
    EXPECT_EQ(6, raisedBy([] { return addInt16(32767, 1); }));
    EXPECT_EQ(6, raisedBy([] { return addInt32(Limits::max(), 1); }));
    EXPECT_EQ(Limits::min(), subtractInt32(-1, Limits::max()));
    EXPECT_EQ(6, raisedBy([] { return subtractInt32(-2, Limits::max()); }));
    EXPECT_EQ(6, raisedBy([] { return multiplyInt32(Limits::min(), -1); }));
    EXPECT_EQ(6, raisedBy([] { return narrowToInt16(-32769); }));
}

TEST(RoundingToWholeNumbers, TakesHalvesToTheEvenNeighbour) {
    EXPECT_EQ(0, roundToInt32(0.5));
    EXPECT_EQ(2, roundToInt32(1.5));
    EXPECT_EQ(-2, roundToInt32(-2.5));
    EXPECT_EQ(32767, roundToInt16(32767.49));
    EXPECT_EQ(6, raisedBy([] { return roundToInt16(32767.5); }));
    EXPECT_EQ(6, raisedBy([] { return roundToInt64(0x1p63); }));
    EXPECT_EQ(6, raisedBy([] { return roundToInt32(std::numeric_limits<double>::quiet_NaN()); }));
}

constexpr auto largest = Currency::fromTicks(std::numeric_limits<std::int64_t>::max());
constexpr auto smallest = Currency::fromTicks(std::numeric_limits<std::int64_t>::min());

TEST(CurrencyFromDouble, RoundsHalvesToTheEvenTenThousandth) {
    const struct {
        double value;
        const char* text;
    } rows[] = {
        {1.00005, "1"},        {1.00015, "1.0002"},
        {1.00025, "1.0002"},   {-1.00005, "-1"},
        {-1.00015, "-1.0002"}, {0.00005, "0"},
        {0.00015, "0.0002"},   {1.000051, "1.0001"},
        {1.00004999, "1"},     {2.675, "2.675"},
        {1e-300, "0"},         {99999.99995, "100000"},
        {0.1 + 0.2, "0.3"},    {1234567890.12345, "1234567890.1234"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.text, Currency::fromDouble(row.value).toText()) << row.value;
    }
}

// The quick way of values away from a half and the exact way must agree; neighbours of every
// thousandth lie on both sides.
TEST(CurrencyFromDouble, BringsEveryAmountBackThatADoubleCanCarry) {
    for (std::int64_t ticks = 1; ticks < 900'000'000'000'000; ticks = ticks * 3 + 7) {
        const auto amount = Currency::fromTicks(ticks);
        EXPECT_EQ(amount, Currency::fromDouble(amount.toDouble()));
        EXPECT_EQ(Currency::fromTicks(-ticks), Currency::fromDouble(-amount.toDouble()));
    }
}

TEST(CurrencyFromDouble, RefusesWhatItCannotHold) {
    EXPECT_EQ(0, raisedBy([] { return Currency::fromDouble(922337203685477.0); }));
    EXPECT_EQ(6, raisedBy([] { return Currency::fromDouble(922337203685478.0); }));
    EXPECT_EQ(6, raisedBy([] { return Currency::fromDouble(-1e300); }));
    EXPECT_EQ(6, raisedBy([] { return Currency::fromDouble(std::nan("")); }));
    EXPECT_EQ(6, raisedBy([] { return Currency::fromWhole(922337203685478); }));
}

TEST(Currency, WritesPlainDecimals) {
    EXPECT_EQ("0", Currency().toText());
    EXPECT_EQ("12.5", Currency::fromTicks(125000).toText());
    EXPECT_EQ("-0.0001", Currency::fromTicks(-1).toText());
    EXPECT_EQ("922337203685477.5807", largest.toText());
    EXPECT_EQ("-922337203685477.5808", smallest.toText());
}

TEST(Currency, AddsAndSubtractsUpToItsLimitsAndNotBeyond) {
    const auto tick = Currency::fromTicks(1);
    EXPECT_EQ(largest, largest - tick + tick);
    EXPECT_EQ(Currency::fromTicks(-1), smallest + largest);
    EXPECT_EQ(largest, Currency::fromTicks(-1) - smallest);
    EXPECT_EQ(6, raisedBy([&] { return largest + tick; }));
    EXPECT_EQ(6, raisedBy([&] { return smallest - tick; }));
    EXPECT_EQ(6, raisedBy([&] { return Currency() - smallest; }));
}

}  // namespace
}  // namespace ledgerwick
