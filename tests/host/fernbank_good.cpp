#include <memory>
#include <string_view>

#include "ledgerwick/host/fernbank.h"
#include "ledgerwick/host/host.h"

namespace {

using namespace ledgerwick;

// Needs an open database to tell whether a table exists.
struct DataAccessOfTest : DataAccess {
    explicit DataAccessOfTest(Database& (*source)()) : openDatabase(source) {}
    bool TempTableExists(std::string_view) override {
        openDatabase();
        return true;
    }
    Database& (*openDatabase)();
};

}  // namespace

extern "C" __attribute__((visibility("default"))) ledgerwick::Object* FernbankCreateObject(
    const char* className, ledgerwick::Database& (*openDatabase)()) {
    if (std::string_view(className) != "DAO_ADO_Functions") return nullptr;
    return std::make_unique<DataAccessOfTest>(openDatabase).release();
}
