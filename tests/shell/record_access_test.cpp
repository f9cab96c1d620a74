#include "ledgerwick/shell/record_access.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "tests/support/expect.h"
#include "tests/support/rows.h"

namespace ledgerwick {
namespace {

using test::errorOf;
using test::on;
using test::Row;
using test::Rows;
using test::Told;

TEST(RecordAccess, TypedReadsConvertAsAVariantDoes) {
    Rows rows{Row{{"Number", 7}, {"Half", 2.5}, {"Text", "1,234.5"}, {"Day", on(5, 4, 2016)}}};
    EXPECT_EQ(rows.GetInt16("Number"), 7);
    EXPECT_EQ(rows.GetInt32("Half"), 2) << "a half to the even neighbour";
    EXPECT_EQ(rows.GetCurrency("Text"), Currency::fromDouble(1234.5));
    EXPECT_EQ(rows.GetDouble("text"), 1234.5) << "names in any case";
    EXPECT_EQ(rows.GetSingle("Half"), 2.5F);
    EXPECT_EQ(rows.GetDate("Day"), on(5, 4, 2016));
    EXPECT_EQ(rows.GetText("Number"), "7");
    EXPECT_TRUE(rows.GetBoolean("Half"));
    EXPECT_FALSE(rows.IsNull("Number"));
    EXPECT_EQ(rows.Fields("Number").Value(), Variant(7));
}

TEST(RecordAccess, ANullInATypedReadIsAnErrorThatNamesTheField) {
    Rows rows{Row{{"PRTEndDate", Null}}};
    EXPECT_TRUE(rows.IsNull("PRTEndDate"));
    const std::function<void()> reads[] = {
        [&] { rows.GetBoolean("PRTEndDate"); }, [&] { rows.GetInt16("PRTEndDate"); },
        [&] { rows.GetInt32("PRTEndDate"); },   [&] { rows.GetSingle("PRTEndDate"); },
        [&] { rows.GetDouble("PRTEndDate"); },  [&] { rows.GetCurrency("PRTEndDate"); },
        [&] { rows.GetDate("PRTEndDate"); },    [&] { rows.GetText("PRTEndDate"); },
    };
    for (const auto& read : reads) {
        EXPECT_EQ(errorOf(read), (Told{error_number::invalidUseOfNull, "PRTEndDate"}));
    }
}

TEST(RecordAccess, AFieldIsWrittenByItsName) {
    Rows rows{Row{{"PRPStatus", 3}}};
    rows.Edit();
    rows.Fields("PRPStatus").Value(4);
    rows.Update();
    EXPECT_EQ(rows.GetInt32("PRPStatus"), 4);
}

// Notes the order in which a batch begins, works and ends.
class NotingDatabase : public test::RowsDatabase {
  public:
    std::vector<std::string> steps;
    bool failAtEnd = false;

    void BeginBatch() override { steps.emplace_back("begin"); }
    void EndBatch() override {
        steps.emplace_back("end");
        if (failAtEnd) raise(error_number::databaseError, "EndBatch");
    }
};

TEST(RecordAccess, ABatchEndsAlsoWhenItsWorkFails) {
    NotingDatabase database;
    inOneBatch(database, [&] { database.steps.emplace_back("work"); });
    EXPECT_EQ(database.steps, (std::vector<std::string>{"begin", "work", "end"}));

    database.steps.clear();
    database.failAtEnd = true;
    EXPECT_EQ(errorOf([&] {
                  inOneBatch(database, [] { raise(error_number::noCurrentRecord, "work"); });
              }),
              (Told{error_number::noCurrentRecord, "work"}))
        << "the first failure is the one to tell";
    EXPECT_EQ(database.steps, (std::vector<std::string>{"begin", "end"}));
    EXPECT_EQ(errorOf([&] { inOneBatch(database, [] {}); }),
              (Told{error_number::databaseError, "EndBatch"}));
}

}  // namespace
}  // namespace ledgerwick
