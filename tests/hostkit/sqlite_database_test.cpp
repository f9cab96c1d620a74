#include "hostkit/sqlite/database.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "ledgerwick/shell/schema.h"
#include "ledgerwick/values/error.h"

namespace ledgerwick::sqlite {
namespace {

std::int32_t errorOf(const auto& work) {
    try {
        work();
    } catch (const Error& e) {
        return e.Number();
    }
    return 0;
}

// A company in a file, opened as often as a test wants.
class SqliteFile : public testing::Test {
  protected:
    SqliteFile() {
        std::filesystem::create_directories(folder_);
        open()->createSchema();
    }
    ~SqliteFile() override { std::filesystem::remove_all(folder_); }

    std::shared_ptr<SqliteDatabase> open(const OpenOptions& options = {}) {
        return SqliteDatabase::open((folder_ / "company.db").string(), options);
    }
    static std::int32_t count(Database& database, const char* table = "Customers") {
        return database
            .OpenRecordset(std::string("SELECT COUNT(*) AS n FROM ") + table,
                           RecordsetType::Snapshot)
            ->GetInt32("n");
    }
    static void add(Database& database, const char* name) {
        database.Execute(std::string("INSERT INTO Customers (NABusName) VALUES ('") + name + "')",
                         failOnError);
    }

    std::filesystem::path folder_ = std::filesystem::path(testing::TempDir()) /
                                    (std::string("ledgerwick_") +
                                     testing::UnitTest::GetInstance()->current_test_info()->name());
};

TEST_F(SqliteFile, WhatIsStoredIsThereForOthersAtOnce) {
    const auto one = open();
    const auto other = open();
    add(*one, "A");
    EXPECT_EQ(count(*other), 1);
    const auto rs = one->OpenRecordset("SELECT * FROM Customers", RecordsetType::Dynaset);
    rs->AddNew();
    rs->Value(field::NABusName, Variant("B"));
    rs->Update();
    EXPECT_EQ(count(*other), 2);
}

TEST_F(SqliteFile, ABatchIsStoredWhenItsOutermostEndIsReached) {
    for (const auto durability : {Durability::Batched, Durability::Relaxed}) {
        const auto one = open({.durability = durability});
        const auto other = open();
        const std::int32_t before = count(*other);
        one->BeginBatch();
        inOneBatch(*one, [&] { add(*one, "A"); });
        add(*one, "B");
        EXPECT_EQ(count(*other), before);
        EXPECT_EQ(count(*one), before + 2);
        one->EndBatch();
        EXPECT_EQ(count(*other), before + 2);
        add(*one, "C");
        EXPECT_EQ(count(*other), before + 3);
    }
    const auto each = open();
    const auto other = open();
    const std::int32_t before = count(*other);
    inOneBatch(*each, [&] {
        add(*each, "D");
        EXPECT_EQ(count(*other), before + 1);
    });
}

TEST_F(SqliteFile, ATransactionIsAllOrNothing) {
    const auto db = open({.durability = Durability::Batched});
    EXPECT_EQ(errorOf([&] {
                  db->inTransaction([&] {
                      inOneBatch(*db, [&] { add(*db, "A"); });
                      throw Error(9999, "test", "in between");
                  });
              }),
              9999);
    EXPECT_EQ(count(*db), 0);
    db->inTransaction([&] {
        add(*db, "A");
        EXPECT_EQ(errorOf([&] {
                      db->inTransaction([&] {
                          add(*db, "B");
                          throw Error(9999, "test", "in the inner one");
                      });
                  }),
                  9999);
    });
    EXPECT_EQ(count(*db), 1);
}

// A reader that is left standing in the middle of its rows keeps its view of the file. Once
// another process had written, every write of this one failed until the reader was closed.
TEST_F(SqliteFile, AReaderLeftOpenDoesNotHoldUpWrites) {
    const auto one = open({.busyTimeout = std::chrono::milliseconds(50)});
    const auto other = open();
    for (const char* name : {"A", "B", "C"}) add(*one, name);
    const auto reader =
        one->OpenRecordset("SELECT * FROM Customers ORDER BY NAID", RecordsetType::Snapshot);
    other->Execute("UPDATE Customers SET NABusName = 'changed'", failOnError);
    one->Execute("INSERT INTO UoM (UoMCode) VALUES ('box')", failOnError);
    EXPECT_EQ(count(*one, "UoM"), 1);
    std::string seen;
    for (; !reader->Eof(); reader->MoveNext()) seen += reader->GetText(field::NABusName);
    EXPECT_EQ(seen, "ABC");
}

TEST_F(SqliteFile, AWriteWaitsForAnotherProcessAndThenSaysSo) {
    const auto one = open({.busyTimeout = std::chrono::milliseconds(20)});
    const auto other = open();
    other->inTransaction(
        [&] { EXPECT_EQ(errorOf([&] { add(*one, "A"); }), error_number::databaseError); });
    add(*one, "A");
    EXPECT_EQ(count(*one), 1);
}

TEST_F(SqliteFile, SetsSeeTheChangesOfTheTablesAfterTheyWereOpened) {
    const auto db = open();
    add(*db, "A");
    const auto rs = db->OpenRecordset("SELECT * FROM Customers", RecordsetType::Dynaset);
    EXPECT_EQ(rs->GetText(field::NABusName), "A");
    db->Execute("UPDATE Customers SET NABusName = 'B'", failOnError);
    EXPECT_EQ(rs->GetText(field::NABusName), "B");
    db->Execute("DELETE FROM Customers", failOnError);
    EXPECT_EQ(errorOf([&] { rs->GetText(field::NABusName); }), error_number::noCurrentRecord);
    rs->Edit();
    rs->Value(field::NABusName, Variant("C"));
    EXPECT_EQ(errorOf([&] { rs->Update(); }), error_number::noCurrentRecord);
}

TEST_F(SqliteFile, ColumnsThatAHostAddsAreHandedThrough) {
    const auto db = open();
    const auto other = open();
    const char* const sql = "SELECT * FROM Customers WHERE NAID = 1";
    const std::vector<FieldName> reads{field::NAID, "HostNote"};
    add(*db, "A");
    EXPECT_EQ(errorOf([&] { db->OpenRecordset(sql, RecordsetType::Snapshot)->Value("HostNote"); }),
              error_number::noSuchItem);
    other->exec("ALTER TABLE Customers ADD COLUMN HostNote TEXT DEFAULT 'none'");
    EXPECT_EQ(db->OpenRecordset(sql, RecordsetType::Snapshot)->GetText("HostNote"), "none");
    db->exec("UPDATE Customers SET HostNote = 'here'");
    EXPECT_EQ(db->OpenRecordset(sql, RecordsetType::Snapshot, reads)->GetText("hostnote"), "here");
    const auto rs = db->OpenRecordset(sql, RecordsetType::Dynaset);
    rs->Edit();
    rs->Value("HostNote", Variant("there"));
    rs->Update();
    EXPECT_EQ(rs->GetText("HostNote"), "there");
}

TEST_F(SqliteFile, RecordsetsOutliveTheDatabaseObject) {
    auto db = open();
    for (const char* name : {"A", "B", "C"}) add(*db, name);
    const auto rs = db->OpenRecordset("SELECT * FROM Customers", RecordsetType::Snapshot);
    const auto keyed = db->OpenRecordset("SELECT * FROM Customers", RecordsetType::Dynaset);
    db.reset();
    rs->MoveLast();
    EXPECT_EQ(rs->GetText(field::NABusName), "C");
    EXPECT_EQ(keyed->GetText(field::NABusName), "A");
}

TEST_F(SqliteFile, AFileThatCannotBeOpenedIsNamed) {
    try {
        SqliteDatabase::open((folder_ / "missing" / "company.db").string());
        ADD_FAILURE();
    } catch (const Error& e) {
        EXPECT_EQ(e.Number(), error_number::databaseError);
        EXPECT_NE(e.Description().find("company.db"), std::string::npos);
    }
    const auto db = open({.readOnly = true});
    EXPECT_EQ(count(*db), 0);
    EXPECT_EQ(errorOf([&] { add(*db, "A"); }), error_number::databaseError);
}

TEST_F(SqliteFile, TemporaryTablesAreForOneConnectionOrKept) {
    const auto db = open();
    EXPECT_FALSE(db->tableExists("PRPayImport"));
    db->createPayImportTable();
    EXPECT_TRUE(db->tableExists("prpayimport"));
    EXPECT_FALSE(open()->tableExists("PRPayImport"));
    db->dropPayImportTable();
    EXPECT_FALSE(db->tableExists("PRPayImport"));
    db->createPayImportTable(true);
    const auto other = open();
    EXPECT_TRUE(other->tableExists("PRPayImport"));
    EXPECT_EQ(count(*other, "PRPayImport"), 0);
    db->dropPayImportTable();
    EXPECT_FALSE(other->tableExists("PRPayImport"));
    db->createLastWeekNosTable("PC_1");
    db->Execute("INSERT INTO TEMP_PR_LAST_WEEK_NOSPC_1 (TLWWeekNo, TLWCMonthNo) VALUES (4, 1)",
                failOnError);
    EXPECT_EQ(count(*db, "TEMP_PR_LAST_WEEK_NOSPC_1"), 1);
}

TEST_F(SqliteFile, MoneyThatCannotBeStoredExactlyIsRefused) {
    const auto db = open();
    const auto rs = db->OpenRecordset("SELECT * FROM PRPay", RecordsetType::Dynaset);
    rs->AddNew();
    rs->Value(field::PRPPeriodPay, Variant(Currency::fromTicks(-99999999999999)));
    EXPECT_EQ(errorOf([&] {
                  rs->Value(field::PRPPeriodPay, Variant(Currency::fromTicks(9223372036854775807)));
              }),
              error_number::overflow);
    rs->Update();
    rs->MoveFirst();
    EXPECT_EQ(rs->GetCurrency(field::PRPPeriodPay), Currency::fromTicks(-99999999999999));
}

TEST_F(SqliteFile, AnUpdatableSetOpenedForSomeFieldsWritesAllOfThem) {
    const auto db = open();
    add(*db, "A");
    const std::vector<FieldName> reads{field::NABusName};
    const auto rs = db->OpenRecordset("SELECT * FROM Customers", RecordsetType::Dynaset, reads);
    rs->Edit();
    rs->Value(field::NASeq, Variant("x"));
    rs->Update();
    EXPECT_EQ(rs->GetText(field::NABusName), "A");
    EXPECT_EQ(errorOf([&] { rs->GetText(field::NASeq); }), error_number::noSuchItem);
    EXPECT_EQ(db->OpenRecordset("SELECT * FROM Customers", RecordsetType::Snapshot)
                  ->GetText(field::NASeq),
              "x");
}

}  // namespace
}  // namespace ledgerwick::sqlite
