#include "ledgerwick/values/variant.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/errors.h"

namespace ledgerwick {
namespace {

using test::raisedBy;

class Thing : public Object {
  public:
    std::string_view TypeName() const noexcept override { return "Thing"; }
};

const std::int64_t mostInt64 = std::numeric_limits<std::int64_t>::max();

// One value of every kind, and of every way of holding it.
std::vector<Variant> samples() {
    VariantArray array(1, 2);
    array.at(1) = "an element that is too long for its place";
    return {Variant(),
            Null,
            true,
            std::int16_t{-7},
            std::int32_t{70000},
            mostInt64,
            0.5f,
            0.1,
            Currency::fromTicks(-1),
            Date(42489.5),
            "",
            "fourteen bytes",
            "fifteen bytes..",
            array,
            std::make_shared<Thing>(),
            ObjectRef()};
}

TEST(Variant, IsEqualToItsCopiesAndToNoOtherValue) {
    const auto values = samples();
    for (std::size_t i = 0; i < values.size(); ++i) {
        Variant copy = values[i];
        EXPECT_EQ(values[i], copy) << i;
        const Variant moved = std::move(copy);
        EXPECT_EQ(values[i], moved) << i;
        for (std::size_t j = 0; j < values.size(); ++j) {
            EXPECT_EQ(i == j, values[i] == values[j]) << i << " " << j;
        }
    }
}

TEST(Variant, TakesAnyValueInPlaceOfAnyOther) {
    for (const Variant& from : samples()) {
        for (const Variant& to : samples()) {
            Variant value = from;
            value = to;
            const Variant& itself = value;
            value = itself;
            EXPECT_EQ(to.kind(), value.kind());
            value = Variant(from);
            EXPECT_EQ(from, value.isObject() ? from : value);
        }
    }
}

TEST(Variant, CopiesAnArrayWholeAndSharesAnObject) {
    VariantArray array(1, 1);
    array.at(1) = 1;
    const Variant original(array);
    Variant copy = original;
    copy.array().at(1) = 2;
    EXPECT_EQ(Variant(1), original.array().at(1));

    const auto thing = std::make_shared<Thing>();
    const Variant held(thing);
    EXPECT_EQ(thing, Variant(held).toObject());
    EXPECT_EQ(nullptr, Variant(ObjectRef()).toObject());
    EXPECT_EQ(13, raisedBy([] { return Variant().toObject(); }));
    EXPECT_EQ(13, raisedBy([] { return Variant(1).array(); }));
}

TEST(VariantConversion, ReadsEmptyAsNothingOfEveryType) {
    const Variant empty;
    EXPECT_FALSE(empty.toBoolean());
    EXPECT_EQ(0, empty.toInt16());
    EXPECT_EQ(Currency(), empty.toCurrency());
    EXPECT_EQ(Date(), empty.toDate());
    EXPECT_EQ("", empty.toText());
    EXPECT_FALSE(empty.isNumeric());
}

TEST(VariantConversion, RefusesNullArraysObjectsAndStrangeTexts) {
    const struct {
        Variant value;
        std::int32_t error;
        std::int32_t errorAsText;
    } rows[] = {
        {Null, 94, 94},
        {VariantArray(1, 2), 13, 13},
        {std::make_shared<Thing>(), 13, 13},
        {"abc", 13, 0},
        {"", 13, 0},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.error, raisedBy([&] { return row.value.toBoolean(); }));
        EXPECT_EQ(row.error, raisedBy([&] { return row.value.toInt16(); }));
        EXPECT_EQ(row.error, raisedBy([&] { return row.value.toInt32(); }));
        EXPECT_EQ(row.error, raisedBy([&] { return row.value.toInt64(); }));
        EXPECT_EQ(row.error, raisedBy([&] { return row.value.toSingle(); }));
        EXPECT_EQ(row.error, raisedBy([&] { return row.value.toDouble(); }));
        EXPECT_EQ(row.error, raisedBy([&] { return row.value.toCurrency(); }));
        EXPECT_EQ(row.error, raisedBy([&] { return row.value.toDate(); }));
        EXPECT_EQ(row.errorAsText, raisedBy([&] { return row.value.toText(); }));
        EXPECT_FALSE(row.value.isNumeric());
    }
}

TEST(VariantConversion, NamesTheSourceOfItsErrors) {
    for (const Variant& value : {Variant(Null), Variant("abc"), Variant(1e300)}) {
        try {
            static_cast<void>(value.toInt32("PRTNAID"));
            ADD_FAILURE() << "nothing was raised";
        } catch (const Error& error) {
            EXPECT_EQ("PRTNAID", error.Source());
        }
    }
}

TEST(VariantConversion, RoundsHalvesToTheEvenWholeNumber) {
    EXPECT_EQ(2, Variant(2.5).toInt16());
    EXPECT_EQ(4, Variant(3.5f).toInt32());
    EXPECT_EQ(-2, Variant("-2.5").toInt32());
    EXPECT_EQ(2, Variant(Currency::fromTicks(25000)).toInt64());
    EXPECT_EQ(-4, Variant(Currency::fromTicks(-35000)).toInt64());
    EXPECT_EQ(3, Variant(Currency::fromTicks(25001)).toInt64());
    EXPECT_EQ(42490, Variant(Date(42489.75)).toInt32());
    EXPECT_EQ(1235, Variant("1,234.56").toInt16());
    EXPECT_EQ(-1, Variant(true).toInt16());
}

TEST(VariantConversion, KeepsWholeNumbersAndMoneyExactPastWhatADoubleHolds) {
    EXPECT_EQ(mostInt64, Variant("9223372036854775807").toInt64());
    EXPECT_EQ("922337203685477.5807", Variant("922,337,203,685,477.5807").toCurrency().toText());
    EXPECT_EQ("9007199254740993", Variant(std::int64_t{9007199254740993}).toText());
    EXPECT_EQ(Currency::fromTicks(123500), Variant(12.35f).toCurrency());
    EXPECT_EQ("0.1", Variant(0.1f).toText());
}

TEST(VariantConversion, RaisesAnOverflowForWhatDoesNotFit) {
    EXPECT_EQ(6, raisedBy([] { return Variant(32768).toInt16(); }));
    EXPECT_EQ(6, raisedBy([] { return Variant("3e9").toInt32(); }));
    EXPECT_EQ(6, raisedBy([] { return Variant("9223372036854775808").toInt64(); }));
    EXPECT_EQ(6, raisedBy([] { return Variant(1e300).toSingle(); }));
    EXPECT_EQ(6, raisedBy([] { return Variant(mostInt64).toCurrency(); }));
    EXPECT_EQ(6, raisedBy([] { return Variant("1e20").toCurrency(); }));
    EXPECT_EQ(6, raisedBy([] { return Variant(3000000).toDate(); }));
}

TEST(VariantConversion, TakesAnyNumberButZeroAndTheWordTrueForTrue) {
    EXPECT_TRUE(Variant(0.4).toBoolean());
    EXPECT_TRUE(Variant(Currency::fromTicks(1)).toBoolean());
    EXPECT_TRUE(Variant("-1").toBoolean());
    EXPECT_TRUE(Variant("true").toBoolean());
    EXPECT_FALSE(Variant(" FALSE ").toBoolean());
    EXPECT_FALSE(Variant(Date()).toBoolean());
}

TEST(VariantConversion, ReadsDatesFromTextsAndFromNumbersOfDays) {
    const Date day = Date::fromYmd(2016, 4, 29);
    EXPECT_EQ(day, Variant("29/04/2016").toDate());
    EXPECT_EQ(day, Variant("42489").toDate());
    EXPECT_EQ(day, Variant(42489).toDate());
    EXPECT_EQ(42489, Variant(day).toInt32());
    EXPECT_EQ("29/04/2016", Variant(day).toText());
    EXPECT_EQ(13, raisedBy([] { return Variant("4/29/2016").toDate(); }));
}

TEST(VariantArray, KeepsItsBoundsAndItsElementsWhenItGrows) {
    VariantArray table(1, 2, 1, 1);
    table.at(1, 1) = "a";
    table.at(2, 1) = "b";
    table.resizeLast(3);
    EXPECT_EQ(3, table.upperBound(2));
    EXPECT_EQ(Variant("b"), table.at(2, 1));
    EXPECT_TRUE(table.at(1, 3).isEmpty());
    table.at(2, 3) = "c";
    table.resizeLast(0);
    EXPECT_EQ(0u, table.size());
}

TEST(VariantArray, ClosesTheGapOfAnErasedElement) {
    VariantArray list(5, 7);
    for (std::int32_t i = 5; i <= 7; ++i) list.at(i) = i;
    list.erase(6);
    EXPECT_EQ(5, list.lowerBound());
    EXPECT_EQ(6, list.upperBound());
    EXPECT_EQ(Variant(7), list.at(6));
}

TEST(VariantArray, RefusesIndexesOutsideItsBounds) {
    VariantArray list(1, 3);
    VariantArray table(1, 2, 1, 3);
    EXPECT_EQ(9, raisedBy([&] { return list.at(0); }));
    EXPECT_EQ(9, raisedBy([&] { return list.at(4); }));
    EXPECT_EQ(9, raisedBy([&] { return list.at(1, 1); }));
    EXPECT_EQ(9, raisedBy([&] { return table.at(1); }));
    EXPECT_EQ(9, raisedBy([&] { return table.at(3, 1); }));
    EXPECT_EQ(9, raisedBy([&] { return list.lowerBound(2); }));
    EXPECT_EQ(9, raisedBy([&] {
                  list.resizeLast(-1);
                  return 0;
              }));
    EXPECT_EQ(9, raisedBy([&] {
                  table.erase(1);
                  return 0;
              }));
    EXPECT_EQ(9, raisedBy([] { return VariantArray(2, 0); }));
    EXPECT_EQ(9, raisedBy([] { return VariantArray().at(0); }));
}

}  // namespace
}  // namespace ledgerwick
