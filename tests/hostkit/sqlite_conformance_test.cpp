#include "hostkit/conformance/record_access_conformance.h"
#include "hostkit/sqlite/database.h"

namespace ledgerwick::conformance {
namespace {

template <store::Durability durability>
struct SqliteLayer {
    SqliteLayer() { open_->createSchema(); }
    Database& database() { return *open_; }

    std::shared_ptr<sqlite::SqliteDatabase> open_ =
        sqlite::SqliteDatabase::open(":memory:", {.durability = durability});
};

using SqliteLayers = testing::Types<SqliteLayer<store::Durability::EachUpdate>,
                                    SqliteLayer<store::Durability::Batched>>;
INSTANTIATE_TYPED_TEST_SUITE_P(Sqlite, RecordAccess, SqliteLayers);

}  // namespace
}  // namespace ledgerwick::conformance
