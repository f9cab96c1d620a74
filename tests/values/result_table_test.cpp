#include "ledgerwick/values/result_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/errors.h"

namespace ledgerwick {
namespace {

using test::raisedBy;
using ::testing::ElementsAre;

class NamesAndPay : public ::testing::Test {
  protected:
    void SetUp() override {
        table.Append("Name", FieldType::Text, 5);
        table.Append("Pay", FieldType::Currency);
        table.Open();
    }
    void add(const Variant& name, const Variant& pay) {
        table.AddNew();
        if (!name.isEmpty()) table.Fields("Name", name);
        if (!pay.isEmpty()) table.Fields("Pay", pay);
        table.Update();
    }
    std::vector<std::string> names() {
        std::vector<std::string> result;
        for (table.MoveFirst(); !table.Eof(); table.MoveNext()) {
            result.push_back(table.Fields("name").toText());
        }
        return result;
    }

    ResultTable table;
};

TEST_F(NamesAndPay, ConvertAndCutWhatIsWritten) {
    add("Žofie Long", "1,234.56789");
    EXPECT_EQ(Variant("Žofie"), table.Fields("NAME"));
    EXPECT_EQ(Variant(Currency::fromTicks(12345679)), table.Fields("Pay"));
    table.AddNew();
    EXPECT_TRUE(table.Fields("Pay").isEmpty());
    table.Fields("Name", 42);
    EXPECT_EQ(Variant("42"), table.Fields("Name"));
    EXPECT_EQ(94, raisedBy([&] { table.Fields("Pay", Null); }));
    EXPECT_EQ(13, raisedBy([&] { table.Fields("Pay", "much"); }));
    EXPECT_EQ(6, raisedBy([&] { table.Fields("Pay", 1e300); }));
}

TEST_F(NamesAndPay, SortByTheirKeysWithEmptyFirst) {
    add("bob", 2);
    add("Ann", 1);
    add(Variant(), 3);
    add("ann", 2);
    table.Sort("Name");
    EXPECT_EQ(0, table.AbsolutePosition());
    EXPECT_THAT(names(), ElementsAre("", "Ann", "ann", "bob"));
    table.Sort(" pay desc , NAME ASC");
    EXPECT_THAT(names(), ElementsAre("", "ann", "bob", "Ann"));
    EXPECT_EQ(3265, raisedBy([&] { table.Sort("Name, Wage"); }));
    EXPECT_THAT(names(), ElementsAre("", "ann", "bob", "Ann"));
}

TEST_F(NamesAndPay, StoreALaterRowInItsPlaceAndDropOneThatWasNotStored) {
    add("c", 1);
    add("a", 1);
    table.Sort("Name DESC");
    add("b", 1);
    EXPECT_EQ(1, table.AbsolutePosition());
    EXPECT_EQ(Variant("b"), table.Fields("Name"));
    table.AddNew();
    table.Fields("Name", "x");
    table.MoveFirst();
    EXPECT_EQ(3020, raisedBy([&] { table.Update(); }));
    EXPECT_THAT(names(), ElementsAre("c", "b", "a"));
}

TEST_F(NamesAndPay, StopAtBothEnds) {
    EXPECT_EQ(3021, raisedBy([&] { table.MoveFirst(); }));
    EXPECT_EQ(3021, raisedBy([&] { table.Fields("Name"); }));
    add("a", 1);
    add("b", 1);
    table.MoveNext();
    EXPECT_TRUE(table.Eof());
    EXPECT_EQ(-1, table.AbsolutePosition());
    EXPECT_EQ(3021, raisedBy([&] { table.MoveNext(); }));
    EXPECT_EQ(3021, raisedBy([&] { table.Fields("Name", "x"); }));
    table.MovePrevious();
    EXPECT_EQ(Variant("b"), table.Fields("Name"));
    table.MoveFirst();
    table.MovePrevious();
    EXPECT_TRUE(table.Bof());
    EXPECT_EQ(3021, raisedBy([&] { table.MovePrevious(); }));
}

TEST_F(NamesAndPay, KeepTheirFieldsOnceOpen) {
    EXPECT_EQ(5, raisedBy([&] { table.Append("More", FieldType::Int32); }));
    EXPECT_EQ(3265, raisedBy([&] { table.Field(2); }));
    EXPECT_EQ(3265, raisedBy([&] { table.Fields("Wage"); }));

    ResultTable closed;
    closed.Append("Name", FieldType::Text);
    EXPECT_EQ(457, raisedBy([&] { closed.Append("NAME", FieldType::Text); }));
    EXPECT_EQ(3420, raisedBy([&] { closed.AddNew(); }));
}

TEST(ResultTableFields, HoldValuesOfTheirOwnType) {
    const Variant pound = Currency::fromWhole(1);
    const std::pair<FieldType, Variant> rows[] = {
        {FieldType::Date, Date(1)},          {FieldType::Boolean, true},
        {FieldType::Single, 1.0f},           {FieldType::Double, 1.0},
        {FieldType::Int16, std::int16_t{1}}, {FieldType::Int32, std::int32_t{1}},
        {FieldType::Int64, std::int64_t{1}}, {FieldType::Currency, pound},
        {FieldType::FixedText, "1"},
    };
    for (const auto& [type, stored] : rows) {
        ResultTable table;
        table.Append("Field", type, 10);
        table.Open();
        table.AddNew();
        table.Fields("Field", "1");
        EXPECT_EQ(stored, table.Fields("Field"));
    }
}

}  // namespace
}  // namespace ledgerwick
