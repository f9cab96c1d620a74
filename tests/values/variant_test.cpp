#include "ledgerwick/values/variant.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/errors.h"

namespace ledgerwick {
namespace {

using test::errorOf;
using test::raisedBy;
using test::Told;

class Thing : public Object {
  public:
    std::string_view TypeName() const noexcept override { return "Thing"; }
};

const std::int64_t mostInt64 = std::numeric_limits<std::int64_t>::max();

// One value of every kind, and of every way of holding it.
std::vector<Variant> samples() {
    VariantArray array(1, 2);
    array.at(1) = "an element that is too long for its place";
    const ObjectRef thing = std::make_shared<Thing>();
    return {Null,
            true,
            0.5f,
            0.1,
            "",
            array,
            thing,
            Variant(),
            ObjectRef(),
            mostInt64,
            Date(42489.5),
            std::int16_t{-7},
            std::int32_t{70000},
            Currency::fromTicks(-1),
            "fourteen bytes",
            "fifteen bytes.."};
}

TEST(Variant, TakesAnyValueInPlaceOfAnyOtherAndIsEqualToItAlone) {
    const auto values = samples();
    for (std::size_t i = 0; i < values.size(); ++i) {
        for (std::size_t j = 0; j < values.size(); ++j) {
            EXPECT_EQ(i == j, values[i] == values[j]) << i << " " << j;
            Variant value = values[i];
            value = values[j];
            const Variant& itself = value;
            value = itself;
            EXPECT_EQ(values[j], value) << i << " " << j;
            Variant moved = values[i];
            moved = std::move(value);
            EXPECT_EQ(values[j], moved) << i << " " << j;
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
    const std::function<void(const Variant&)> conversions[] = {
        [](const Variant& v) { v.toBoolean(); },  [](const Variant& v) { v.toInt16(); },
        [](const Variant& v) { v.toInt32(); },    [](const Variant& v) { v.toInt64(); },
        [](const Variant& v) { v.toSingle(); },   [](const Variant& v) { v.toDouble(); },
        [](const Variant& v) { v.toCurrency(); }, [](const Variant& v) { v.toDate(); },
    };
    for (const auto& row : rows) {
        for (const auto& convert : conversions) {
            EXPECT_EQ(row.error, raisedBy([&] { convert(row.value); }));
        }
        EXPECT_EQ(row.errorAsText, raisedBy([&] { return row.value.toText(); }));
        EXPECT_FALSE(row.value.isNumeric());
    }
}

TEST(VariantConversion, NamesTheSourceOfItsErrors) {
    EXPECT_EQ(errorOf([] { Variant(Null).toInt32("PRTNAID"); }), (Told{94, "PRTNAID"}));
    EXPECT_EQ(errorOf([] { Variant("abc").toInt32("PRTNAID"); }), (Told{13, "PRTNAID"}));
    EXPECT_EQ(errorOf([] { Variant(1e300).toInt32("PRTNAID"); }), (Told{6, "PRTNAID"}));
}

TEST(VariantConversion, RoundsHalvesToTheEvenWholeNumber) {
    EXPECT_EQ(2, Variant(2.5).toInt16());
    EXPECT_EQ(4, Variant(3.5f).toInt32());
    EXPECT_EQ(-2, Variant("-2.5").toInt32());
    EXPECT_EQ(2, Variant(Currency::fromTicks(25000)).toInt64());
    EXPECT_EQ(-2, Variant(Currency::fromTicks(-25000)).toInt64());
    EXPECT_EQ(-4, Variant(Currency::fromTicks(-35000)).toInt64());
    EXPECT_EQ(3, Variant(Currency::fromTicks(25001)).toInt64());
    EXPECT_EQ(42490, Variant(Date(42489.75)).toInt32());
    EXPECT_EQ(1235, Variant("1,234.56").toInt16());
    EXPECT_EQ(-1, Variant(true).toInt16());
    EXPECT_EQ(0, Variant().toInt16());
    EXPECT_EQ("", Variant().toText());
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
    for (const Variant& value : {Variant(0.4), Variant(Currency::fromTicks(1)), Variant("-1"),
                                 Variant("true"), Variant(std::int64_t{1} << 40)}) {
        EXPECT_TRUE(value.toBoolean()) << value.toText();
    }
    for (const Variant& value : {Variant(" FALSE "), Variant(Date()), Variant(), Variant("0")}) {
        EXPECT_FALSE(value.toBoolean()) << value.toText();
    }
}

TEST(VariantConversion, ReadsDatesFromTextsAndFromNumbersOfDays) {
    const Date day = Date::fromYmd(2016, 4, 29);
    EXPECT_EQ(day, Variant("29/04/2016").toDate());
    EXPECT_EQ(day, Variant(42489).toDate());
    EXPECT_EQ(42489, Variant(day).toInt32());
    EXPECT_EQ("29/04/2016", Variant(day).toText());
    EXPECT_EQ(13, raisedBy([] { return Variant("4/29/2016").toDate(); }));
}

TEST(VariantArray, KeepsItsBoundsAndElementsWhenItGrowsOrLosesOne) {
    VariantArray table(1, 2, 1, 1);
    table.at(1, 1) = "a";
    table.at(2, 1) = "b";
    table.resizeLast(3);
    EXPECT_EQ(3, table.upperBound(2));
    EXPECT_EQ(Variant("b"), table.at(2, 1));
    EXPECT_TRUE(table.at(1, 3).isEmpty());
    table.resizeLast(0);
    EXPECT_EQ(0u, table.size());

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
    EXPECT_EQ(9, raisedBy([&] { list.resizeLast(-1); }));
    EXPECT_EQ(9, raisedBy([&] { table.erase(1); }));
    EXPECT_EQ(9, raisedBy([] { return VariantArray(2, 0); }));
}

}  // namespace
}  // namespace ledgerwick
