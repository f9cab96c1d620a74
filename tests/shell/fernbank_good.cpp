#include <memory>
#include <string_view>

#include "ledgerwick/shell/fernbank.h"
#include "ledgerwick/shell/host.h"

namespace {

using namespace ledgerwick;

// Knows the tables whose names are not empty, and needs an open database to say so.
class DataAccessOfTest : public DataAccess {
  public:
    explicit DataAccessOfTest(Database& (*openDatabase)()) : openDatabase_(openDatabase) {}
    bool TempTableExists(std::string_view name) override {
        openDatabase_();
        return !name.empty();
    }

  private:
    Database& (*openDatabase_)();
};

}  // namespace

extern "C" __attribute__((visibility("default"))) ledgerwick::Object* FernbankCreateObject(
    const char* className, ledgerwick::Database& (*openDatabase)()) {
    if (std::string_view(className) != "DAO_ADO_Functions") return nullptr;
    return std::make_unique<DataAccessOfTest>(openDatabase).release();
}
