#include "ledgerwick/values/error.h"

#include <gtest/gtest.h>

#include <limits>

#include "ledgerwick/values/checked.h"
#include "tests/support/errors.h"

namespace ledgerwick {
namespace {

using test::raisedBy;

TEST(Error, TellsNumberSourceAndDescriptionInOneSentence) {
    const Error error(9909, "AECalcR_PRP", "Invalid Pay Period (0).");
    EXPECT_STREQ("Error 9909 in AECalcR_PRP: Invalid Pay Period (0).", error.what());
}

TEST(Error, RaisedByNumberCarriesTheTextOfTheNumberAndTheDetail) {
    try {
        raise(error_number::duplicateKey, "Collection.Add", "42");
    } catch (const Error& error) {
        EXPECT_EQ(457, error.Number());
        EXPECT_EQ("Collection.Add", error.Source());
        EXPECT_EQ("Key already present: 42", error.Description());
        return;
    }
    FAIL() << "nothing was raised";
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

}  // namespace
}  // namespace ledgerwick
