#include "hostkit/conformance/record_access_conformance.h"
#include "hostkit/store/open.h"
#include "tests/support/postgres_server.h"

namespace ledgerwick::conformance {
namespace {

template <store::Durability durability>
struct ServerLayer {
    Database& database() { return *open_; }

    test::ServerCompany company_;
    std::shared_ptr<store::CompanyStore> open_ =
        store::create(company_.address(), {.durability = durability});
};

using ServerLayers = testing::Types<ServerLayer<store::Durability::EachUpdate>,
                                    ServerLayer<store::Durability::Batched>>;
INSTANTIATE_TYPED_TEST_SUITE_P(Postgres, RecordAccess, ServerLayers);

}  // namespace
}  // namespace ledgerwick::conformance
