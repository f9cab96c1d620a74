#include <dlfcn.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "hostkit/sqlite/database.h"
#include "ledgerwick/host/host.h"
#include "ledgerwick/records/schema.h"
#include "tests/support/failing_database.h"

namespace ledgerwick {
namespace {

std::shared_ptr<sqlite::SqliteDatabase> openedDatabase;
std::unique_ptr<test::FailingDatabase> layer;  // over it, while there is one

Database& currentDatabase() {
    return layer ? static_cast<Database&>(*layer) : *openedDatabase;
}

// The library file is loaded as the component does it.
class Fernbank : public testing::Test {
  protected:
    Fernbank() {
        openedDatabase = sqlite::SqliteDatabase::open(":memory:");
        openedDatabase->createSchema();
    }
    ~Fernbank() override {
        layer.reset();
        openedDatabase.reset();
    }

    static std::unique_ptr<Object> create(const char* className) {
        void* const library = dlopen(FERNBANK_FILE, RTLD_NOW | RTLD_LOCAL);
        if (!library) throw std::runtime_error(dlerror());
        using EntryPoint = Object*(const char*, Database& (*)());
        const auto entryPoint =
            reinterpret_cast<EntryPoint*>(dlsym(library, "FernbankCreateObject"));
        return std::unique_ptr<Object>(entryPoint(className, &currentDatabase));
    }
};

TEST_F(Fernbank, MakesOneClassThatTellsWhetherATemporaryTableExists) {
    EXPECT_EQ(create("dao_ado_functions"), nullptr);
    const auto object = create("DAO_ADO_Functions");
    auto& access = dynamic_cast<DataAccess&>(*object);
    EXPECT_FALSE(access.TempTableExists("PRPayImport"));
    openedDatabase->createPayImportTable();
    EXPECT_TRUE(access.TempTableExists("PRPayImport"));
    EXPECT_FALSE(access.TempTableExists("PRPayImport] WHERE [x"));
}

// A database that failed was taken for one without the table, and imported pay was left out.
TEST_F(Fernbank, AsksAnotherLayerByAStatementAndTakesNoFailureForAnAnswer) {
    const auto object = create("DAO_ADO_Functions");
    auto& access = dynamic_cast<DataAccess&>(*object);
    layer = std::make_unique<test::FailingDatabase>(*openedDatabase);
    EXPECT_FALSE(access.TempTableExists("PRPayImport"));
    openedDatabase->createPayImportTable();
    EXPECT_TRUE(access.TempTableExists("PRPayImport"));
    layer->failAt(test::Operation::Open, 1);
    EXPECT_THROW(access.TempTableExists("PRPayImport"), Error);
}

TEST_F(Fernbank, FillsWhatWouldBeNullAndLeavesTheRest) {
    layer = std::make_unique<test::FailingDatabase>(*openedDatabase);
    const auto object = create("DAO_ADO_Functions");
    RecordsetRef rs = currentDatabase().OpenRecordset(
        "SELECT * FROM PREmploymentsAddInfo WHERE PRTAID = -1", RecordsetType::Dynaset);
    rs->AddNew();
    rs->Value(field::PRTAPRTID, Variant(std::int32_t{7}));
    rs->Value(field::PRTADecDate, Variant(Null));
    rs->Value(field::PRTAText, Variant());
    rs->Value(field::PRTADied, Variant(Null));
    rs->Value(field::PRTAPEmpGross, Variant(Null));
    rs->Value(field::PRTAPEmpTaxCode, Variant("1000L"));
    dynamic_cast<DataAccess&>(*object).NoNullRecordLine(rs);
    rs->Update();
    rs->Bookmark(rs->LastModified());
    EXPECT_EQ(rs->GetInt32(field::PRTAPRTID), 7);
    EXPECT_EQ(rs->GetDate(field::PRTADecDate), Date());
    EXPECT_EQ(rs->GetText(field::PRTAText), "");
    EXPECT_FALSE(rs->GetBoolean(field::PRTADied));
    EXPECT_EQ(rs->GetCurrency(field::PRTAPEmpGross), Currency());
    EXPECT_EQ(rs->GetText(field::PRTAPEmpTaxCode), "1000L");
}

}  // namespace
}  // namespace ledgerwick
