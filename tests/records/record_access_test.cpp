#include "ledgerwick/records/record_access.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "ledgerwick/records/schema.h"
#include "tests/support/errors.h"
#include "tests/support/rows.h"

namespace ledgerwick {
namespace {

using test::errorOf;
using test::Row;
using test::Rows;
using test::Told;

TEST(RecordAccess, TypedReadsConvertAsAVariantDoesAndRefuseNull) {
    Rows rows{Row{{"Number", 7}, {"Half", 2.5}, {"Text", "1,234.5"}, {"PRTEndDate", Null}}};
    EXPECT_EQ(rows.GetInt32("Half"), 2) << "a half to the even neighbour";
    EXPECT_EQ(rows.GetCurrency("Text"), Currency::fromDouble(1234.5));
    EXPECT_EQ(rows.GetDouble("text"), 1234.5) << "names in any case";
    EXPECT_EQ(rows.GetText("Number"), "7");
    EXPECT_TRUE(rows.GetBoolean("Half"));
    EXPECT_FALSE(rows.IsNull("Number"));
    EXPECT_TRUE(rows.IsNull("PRTEndDate"));
    const std::function<void()> reads[] = {
        [&] { rows.GetBoolean("PRTEndDate"); },  [&] { rows.GetInt16("PRTEndDate"); },
        [&] { rows.GetCurrency("PRTEndDate"); }, [&] { rows.GetDate("PRTEndDate"); },
        [&] { rows.GetText("PRTEndDate"); },
    };
    for (const auto& read : reads) {
        EXPECT_EQ(errorOf(read), (Told{error_number::invalidUseOfNull, "PRTEndDate"}));
    }
}

// Notes the order in which a batch begins, works and ends; its end fails.
struct NotingDatabase : test::RowsDatabase {
    std::string steps;
    void BeginBatch() override { steps += "begin "; }
    void EndBatch() override {
        steps += "end ";
        raise(error_number::databaseError, "EndBatch");
    }
};

TEST(RecordAccess, ABatchEndsAlsoWhenItsWorkFails) {
    NotingDatabase database;
    EXPECT_EQ(errorOf([&] { inOneBatch(database, [&] { database.steps += "work "; }); }),
              (Told{error_number::databaseError, "EndBatch"}));
    EXPECT_EQ(errorOf([&] {
                  inOneBatch(database, [] { raise(error_number::noCurrentRecord, "work"); });
              }),
              (Told{error_number::noCurrentRecord, "work"}))
        << "the first failure is the one to tell";
    EXPECT_EQ(database.steps, "begin work end begin end ");
}

// What a layer gets that implements the pure members only.
TEST(RecordAccess, TheDefaultsFillAnAddInfoRowAndFindATable) {
    Rows rows{Row{{field::PRTAID, Null},
                  {field::PRTAPRTID, 7},
                  {field::PRTADecDate, Null},
                  {field::PRTAText, Null},
                  {field::PRTAPEmpGross, Null},
                  {field::PRTAPEmpTaxCode, "1000L"}}};
    rows.Edit();
    rows.FillEmpty();
    rows.Update();
    EXPECT_TRUE(rows.IsNull(field::PRTAID)) << "a key is given by the database";
    EXPECT_EQ(rows.Value(field::PRTAPRTID), Variant(7));
    EXPECT_EQ(rows.Value(field::PRTADecDate), Variant(Date()));
    EXPECT_EQ(rows.Value(field::PRTAText), Variant(""));
    EXPECT_EQ(rows.Value(field::PRTAPEmpGross), Variant(Currency()));
    EXPECT_EQ(rows.Value(field::PRTAPEmpTaxCode), Variant("1000L"));

    struct OneTable : test::RowsDatabase {
        RecordsetRef OpenRecordset(std::string_view sql, RecordsetType, FieldList) override {
            if (sql == "SELECT * FROM [There] WHERE 1 = 0") return std::make_shared<Rows>();
            raise(sql.find("Broken") == sql.npos ? error_number::noSuchTable
                                                 : error_number::databaseError,
                  "OneTable");
        }
    } database;
    EXPECT_TRUE(database.TableExists("There"));
    EXPECT_FALSE(database.TableExists("Elsewhere"));
    EXPECT_FALSE(database.TableExists("There] WHERE [x"));
    EXPECT_THROW(database.TableExists("Broken"), Error) << "no failure is taken for an answer";
}

}  // namespace
}  // namespace ledgerwick
