#include "hostkit/sqlite/database.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "hostkit/services/host_session.h"
#include "ledgerwick/records/schema.h"
#include "ledgerwick/values/error.h"
#include "tests/support/errors.h"

namespace ledgerwick::sqlite {
namespace {

using test::raisedBy;

// A company in a file, opened as often as a test wants.
class SqliteFile : public testing::Test {
  protected:
    SqliteFile() {
        std::filesystem::create_directories(folder_);
        open()->createSchema();
    }
    ~SqliteFile() override { std::filesystem::remove_all(folder_); }

    std::shared_ptr<SqliteDatabase> open(const store::OpenOptions& options = {}) {
        return SqliteDatabase::open((folder_ / "company.db").string(), options);
    }
    static std::int32_t count(Database& database) {
        return database
            .OpenRecordset("SELECT COUNT(*) AS n FROM Customers", RecordsetType::Snapshot)
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

TEST_F(SqliteFile, OthersSeeEveryUpdateAtOnceAndABatchAtItsOutermostEnd) {
    for (const auto durability :
         {store::Durability::EachUpdate, store::Durability::Batched, store::Durability::Relaxed}) {
        const auto one = open({.durability = durability});
        const auto other = open();
        const std::int32_t before = count(*other);
        const std::int32_t atOnce = durability == store::Durability::EachUpdate ? 2 : 0;
        one->BeginBatch();
        inOneBatch(*one, [&] { add(*one, "A"); });
        add(*one, "B");
        EXPECT_EQ(count(*other), before + atOnce);
        EXPECT_EQ(count(*one), before + 2);
        one->EndBatch();
        EXPECT_EQ(count(*other), before + 2);
        const auto rs = one->OpenRecordset("SELECT * FROM Customers", RecordsetType::Dynaset);
        rs->AddNew();
        rs->Update();
        EXPECT_EQ(count(*other), before + 3);
    }
}

// What one has read in a batch, nobody else changes before it is written.
TEST_F(SqliteFile, OneHasTheRightToWriteFromTheBeginningOfABatchToItsEnd) {
    for (const auto durability :
         {store::Durability::EachUpdate, store::Durability::Batched, store::Durability::Relaxed}) {
        const auto one = open({.durability = durability});
        const auto other =
            open({.durability = durability, .busyTimeout = std::chrono::milliseconds(20)});
        const std::int32_t before = count(*other);
        const std::function<void()> writes[] = {
            [&] { add(*other, "B"); },
            [&] { inOneBatch(*other, [] {}); },
            [&] { other->inTransaction([] {}); },
            [&] { other->exec("DELETE FROM Customers"); },
        };
        inOneBatch(*one, [&] {
            for (int i = 0; i < 2; ++i) {  // and also once rows are stored
                for (const auto& write : writes) {
                    const auto told = test::errorOf(write);
                    EXPECT_EQ(told.number, error_number::writerBusy);
                    EXPECT_EQ(told.description, "Somebody else is writing, try again");
                }
                EXPECT_GE(count(*other), before);
                one->inTransaction([&] { add(*one, "A"); });
            }
        });
        for (const auto& write : writes) EXPECT_NO_THROW(write());
        add(*one, "A");
    }
}

TEST_F(SqliteFile, TheDataVersionMovesWhenAnotherConnectionHasWritten) {
    const auto one = open();
    const auto other = open();
    const std::int64_t before = one->DataVersion();
    add(*one, "A");
    EXPECT_EQ(one->DataVersion(), before);
    EXPECT_NE(before, 0);
    inOneBatch(*other, [&] {});
    EXPECT_EQ(one->DataVersion(), before);
    add(*other, "B");
    EXPECT_NE(one->DataVersion(), before);
}

TEST_F(SqliteFile, ATransactionIsAllOrNothing) {
    const auto db = open({.durability = store::Durability::Batched});
    const auto addAndFail = [&] {
        db->inTransaction([&] {
            inOneBatch(*db, [&] { add(*db, "A"); });
            throw Error(9999, "test", "in between");
        });
    };
    EXPECT_EQ(raisedBy(addAndFail), 9999);
    EXPECT_EQ(count(*db), 0);
    db->inTransaction([&] {
        add(*db, "B");
        EXPECT_EQ(raisedBy(addAndFail), 9999);
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
    // A table that the reader does not read.
    one->Execute("INSERT INTO UoM (UoMCode) VALUES ('box')", failOnError);
    std::string seen;
    for (; !reader->Eof(); reader->MoveNext()) seen += reader->GetText(field::NABusName);
    EXPECT_EQ(seen, "ABC");
}

TEST_F(SqliteFile, SetsSeeTheChangesOfTheTablesAfterTheyWereOpened) {
    const auto db = open();
    add(*db, "A");
    const auto rs = db->OpenRecordset("SELECT * FROM Customers", RecordsetType::Dynaset);
    EXPECT_EQ(rs->GetText(field::NABusName), "A");
    db->Execute("UPDATE Customers SET NABusName = 'B'", failOnError);
    EXPECT_EQ(rs->GetText(field::NABusName), "B");
    db->Execute("DELETE FROM Customers", failOnError);
    EXPECT_EQ(raisedBy([&] { rs->GetText(field::NABusName); }), error_number::noCurrentRecord);
    rs->Edit();
    rs->Value(field::NABusName, Variant("C"));
    EXPECT_EQ(raisedBy([&] { rs->Update(); }), error_number::noCurrentRecord);
}

TEST_F(SqliteFile, RowsOfFewFieldsAreTheRowsOfAllOfThemInAnyOrder) {
    const auto db = open();
    const std::string longText(300, 'x');
    for (const char* name : {"B", "D", "A"}) add(*db, name);
    db->Execute("UPDATE Customers SET NATown = '" + longText + "' WHERE NABusName = 'D'",
                failOnError);
    db->Execute("UPDATE Customers SET NATown = NULL WHERE NABusName = 'A'", failOnError);
    const std::vector<FieldName> few{field::NATown, field::NABusName};
    // By the table's own order, and by one that no index gives: the database sorts.
    for (const char* order : {"NAID", "NABusName", "NATown DESC, Customers.NABusName"}) {
        const std::string sql = std::string("SELECT * FROM Customers ORDER BY ") + order;
        for (int again = 0; again < 2; ++again) {
            const auto all = db->OpenRecordset(sql, RecordsetType::Snapshot);
            const auto some = db->OpenRecordset(sql, RecordsetType::Snapshot, few);
            for (; !all->Eof(); all->MoveNext(), some->MoveNext()) {
                EXPECT_EQ(some->Value(field::NABusName), all->Value("NABusName")) << order;
                EXPECT_EQ(some->Value(field::NATown), all->Value("NATown")) << order;
                EXPECT_EQ(raisedBy([&] { some->Value(field::NASeq); }), error_number::noSuchItem);
            }
            EXPECT_TRUE(some->Eof());
            some->MovePrevious();
            EXPECT_EQ(some->AbsolutePosition(), 2);
        }
    }
}

TEST_F(SqliteFile, ColumnsThatAHostAddsAreHandedThrough) {
    const auto db = open();
    const char* const sql = "SELECT * FROM Customers WHERE NAID = 1";
    const std::vector<FieldName> reads{field::NAID, "HostNote"};
    add(*db, "A");
    EXPECT_EQ(raisedBy([&] { db->OpenRecordset(sql, RecordsetType::Snapshot)->Value("HostNote"); }),
              error_number::noSuchItem);
    open()->exec("ALTER TABLE Customers ADD COLUMN HostNote TEXT DEFAULT 'none'");
    EXPECT_EQ(db->OpenRecordset(sql, RecordsetType::Snapshot)->GetText("HostNote"), "none");
    db->exec("UPDATE Customers SET HostNote = 'here'");
    EXPECT_EQ(db->OpenRecordset(sql, RecordsetType::Snapshot, reads)->GetText("hostnote"), "here");
    const auto rs = db->OpenRecordset(sql, RecordsetType::Dynaset);
    rs->Edit();
    rs->Value("HostNote", Variant("there"));
    rs->Update();
    EXPECT_EQ(rs->GetText("HostNote"), "there");

    // One statement for one field of the host's, and then for another.
    db->exec("ALTER TABLE Customers ADD COLUMN HostMark TEXT DEFAULT 'mark'");
    for (const char* name : {"HostNote", "HostMark", "HostNote"}) {
        const std::vector<FieldName> one{name};
        EXPECT_EQ(db->OpenRecordset(sql, RecordsetType::Snapshot, one)->GetText(name),
                  std::string(name) == "HostMark" ? "mark" : "there");
    }
}

TEST_F(SqliteFile, RecordsetsOutliveTheDatabaseObject) {
    auto db = open();
    for (const char* name : {"A", "B"}) add(*db, name);
    const auto rs = db->OpenRecordset("SELECT * FROM Customers", RecordsetType::Snapshot);
    const auto keyed = db->OpenRecordset("SELECT * FROM Customers", RecordsetType::Dynaset);
    db.reset();
    rs->MoveLast();
    EXPECT_EQ(rs->GetText(field::NABusName), "B");
    EXPECT_EQ(keyed->GetText(field::NABusName), "A");
}

// Each failure that calls for another act has a number of its own.
TEST_F(SqliteFile, AFailureSaysByItsNumberWhatToDo) {
    const auto told = test::errorOf([&] { SqliteDatabase::open(folder_ / "no" / "company.db"); });
    EXPECT_EQ(told.number, error_number::databaseError);
    EXPECT_NE(told.description.find("company.db"), std::string::npos);
    EXPECT_EQ(raisedBy([&] { add(*open({.readOnly = true}), "A"); }), error_number::readOnly);
    EXPECT_EQ(raisedBy([&] { open()->Execute("DELETE FROM NoSuchTable", failOnError); }),
              error_number::noSuchTable);
    const auto one = open({.busyTimeout = std::chrono::milliseconds(20)});
    open()->inTransaction(
        [&] { EXPECT_EQ(raisedBy([&] { add(*one, "A"); }), error_number::writerBusy); });
    add(*one, "A");
    EXPECT_EQ(count(*one), 1);

    one->exec("PRAGMA max_page_count = 1");  // no more than there are
    const std::string long_(20000, 'x');
    EXPECT_EQ(raisedBy([&] { add(*one, long_.c_str()); }), error_number::diskFull);
}

TEST_F(SqliteFile, ADamagedFileAndOneThatIsNoCompanyAreToldApartAndLeftAsTheyAre) {
    const auto bytesOf = [](const std::filesystem::path& path) {
        std::ifstream file(path, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    };
    const std::filesystem::path company = folder_ / "company.db";
    {
        const std::string whole = bytesOf(company);
        std::ofstream damaged(folder_ / "damaged.db", std::ios::binary);
        damaged << whole.substr(0, 4096) << std::string(whole.size() - 4096, '\xff');
    }
    SqliteDatabase::open((folder_ / "foreign.db").string())
        ->exec("PRAGMA journal_mode = DELETE; CREATE TABLE Songs (Title TEXT)");
    std::ofstream(folder_ / "text.db") << std::string(3000, 't');
    std::ofstream(folder_ / "empty.db").flush();
    const std::pair<const char*, std::int32_t> files[]{
        {"damaged.db", error_number::damagedFile},
        {"foreign.db", error_number::notACompany},
        {"text.db", error_number::notACompany},
        {"empty.db", error_number::notACompany},
    };
    for (const auto& [name, number] : files) {
        const std::string path = (folder_ / name).string();
        const std::string before = bytesOf(path);
        EXPECT_EQ(raisedBy([&] {
                      HostSession session(path, Date());
                      count(session.database());
                  }),
                  number)
            << name;
        if (number != error_number::notACompany) continue;
        EXPECT_EQ(bytesOf(path), before) << name;
        EXPECT_FALSE(std::filesystem::exists(path + "-wal")) << name;
    }
}

TEST_F(SqliteFile, ErrorsShowValuesOfRowsOnlyWhenTheHostAsks) {
    open()->exec("CREATE UNIQUE INDEX one_name ON Customers (NABusName)");
    for (const bool asked : {false, true}) {
        const auto file = open({.valuesInErrors = asked});
        if (!asked) add(*file, "Secret Name");
        const auto keyed = file->OpenRecordset("SELECT * FROM Customers", RecordsetType::Dynaset);
        keyed->AddNew();
        keyed->Value(field::NABusName, "Secret Name");
        const std::string texts = test::errorOf([&] { keyed->Update(); }).description +
                                  test::errorOf([&] { add(*file, "Secret Name"); }).description +
                                  test::errorOf([&] { add(*file, "Secret Name') #"); }).description;
        EXPECT_EQ(texts.find("Secret") != std::string::npos, asked) << texts;
    }
}

TEST_F(SqliteFile, MoneyThatCannotBeStoredExactlyIsRefused) {
    const auto db = open();
    const auto rs = db->OpenRecordset("SELECT * FROM PRPay", RecordsetType::Dynaset);
    rs->AddNew();
    rs->Value(field::PRPPeriodPay, Variant(Currency::fromTicks(-99999999999999)));
    EXPECT_EQ(raisedBy([&] {
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
    EXPECT_EQ(raisedBy([&] { rs->GetText(field::NASeq); }), error_number::noSuchItem);
    EXPECT_EQ(db->OpenRecordset("SELECT * FROM Customers", RecordsetType::Snapshot)
                  ->GetText(field::NASeq),
              "x");
}

}  // namespace
}  // namespace ledgerwick::sqlite
