#include "hostkit/sqlite/store_kind.h"

#include <filesystem>
#include <system_error>

#include "hostkit/sqlite/database.h"
#include "hostkit/store/open.h"

namespace ledgerwick::sqlite {

namespace {

class Files final : public store::StoreKind {
  public:
    std::string_view scheme() const noexcept override { return {}; }

    bool exists(const std::string& name) const override {
        std::error_code unknown;
        const auto status = std::filesystem::status(name, unknown);
        return std::filesystem::exists(status) && !std::filesystem::is_directory(status);
    }

    std::shared_ptr<store::CompanyStore> open(const std::string& name,
                                              const store::OpenOptions& options) const override {
        return SqliteDatabase::open(name, options);
    }

    void remove(const std::string& name) const noexcept override {
        std::error_code ignored;
        for (const char* ending : {"", "-wal", "-shm"}) {
            std::filesystem::remove(name + ending, ignored);
        }
    }
};

}  // namespace

void registerStore() {
    store::registerKind(std::make_shared<Files>());
}

}  // namespace ledgerwick::sqlite

// Called by a kit that loads this library by its name.
extern "C" LEDGERWICK_SQLITE_API void LedgerwickRegisterStore() {
    ledgerwick::sqlite::registerStore();
}
