#include "hostkit/postgres/store_kind.h"

#include "hostkit/postgres/companies.h"
#include "hostkit/postgres/store.h"
#include "hostkit/store/open.h"

namespace ledgerwick::postgres {

namespace {

class Servers final : public store::StoreKind {
  public:
    std::string_view scheme() const noexcept override { return "postgresql"; }

    bool exists(const std::string& name) const override { return companyExists(parseTarget(name)); }

    std::shared_ptr<store::CompanyStore> open(const std::string& name,
                                              const store::OpenOptions& options) const override {
        return PostgresStore::open(name, options);
    }

    void remove(const std::string& name) const noexcept override {
        try {
            dropCompany(parseTarget(name));
        } catch (const std::exception&) {  // what cannot be removed stays
        }
    }
};

}  // namespace

void registerStore() {
    store::registerKind(std::make_shared<Servers>());
}

}  // namespace ledgerwick::postgres

// Called by a kit that loads this library by its name.
extern "C" LEDGERWICK_POSTGRES_API void LedgerwickRegisterStore() {
    ledgerwick::postgres::registerStore();
}
