#include "hostkit/postgres/store.h"

#include <utility>

#include "hostkit/postgres/companies.h"
#include "hostkit/postgres/connection.h"

namespace ledgerwick::postgres {

namespace {

class PostgresQueryDef final : public QueryDef {
  public:
    PostgresQueryDef(std::shared_ptr<Connection> connection, std::string_view sql)
        : connection_(std::move(connection)), sql_(sql) {}

    RecordsetRef OpenRecordset(RecordsetType type, FieldList reads) override {
        return connection_->open(sql_, type, reads);
    }

  private:
    std::shared_ptr<Connection> connection_;
    std::string sql_;
};

}  // namespace

std::shared_ptr<PostgresStore> PostgresStore::open(const std::string& name,
                                                   const store::OpenOptions& options) {
    const Target target = parseTarget(name);
    if (!options.readOnly && !companyExists(target)) createCompany(target);
    return std::make_shared<PostgresStore>(std::make_shared<Connection>(target, name, options));
}

PostgresStore::PostgresStore(std::shared_ptr<Connection> connection)
    : connection_(std::move(connection)) {}

PostgresStore::~PostgresStore() = default;

std::uint64_t PostgresStore::trips() const noexcept {
    return connection_->trips();
}

const std::string& PostgresStore::name() const noexcept {
    return connection_->name();
}

void PostgresStore::createSchema() {
    connection_->createSchema();
}

bool PostgresStore::tableExists(std::string_view name) {
    return connection_->tableExists(name);
}

std::vector<store::FieldDescription> PostgresStore::fieldsOf(std::string_view table) {
    std::vector<store::FieldDescription> fields;
    const TableRef found = connection_->table(table);
    if (!found) return fields;
    for (std::size_t i = 0; i < found->columns.size(); ++i) {
        fields.push_back(
            {found->columns[i].name, found->columns[i].kind, static_cast<int>(i) == found->key});
    }
    return fields;
}

void PostgresStore::narrow(std::string_view table, std::string_view columns,
                           std::string_view condition) {
    connection_->narrow(table, columns, condition);
}

void PostgresStore::exec(const std::string& script) {
    connection_->exec(script);
}

void PostgresStore::define(const std::string& statements) {
    connection_->define(statements);
}

RecordsetRef PostgresStore::OpenRecordset(std::string_view sql, RecordsetType type,
                                          FieldList reads) {
    return connection_->open(sql, type, reads);
}

void PostgresStore::Execute(std::string_view sql, std::int32_t) {
    connection_->execute(sql);
}

std::shared_ptr<QueryDef> PostgresStore::CreateQueryDef(std::string_view, std::string_view sql) {
    return std::make_shared<PostgresQueryDef>(connection_, sql);
}

void PostgresStore::BeginBatch() {
    connection_->beginBatch();
}
void PostgresStore::EndBatch() {
    connection_->endBatch();
}
void PostgresStore::Announce(std::span<const std::int32_t> keys) {
    connection_->announce(keys);
}

bool PostgresStore::beginTransaction() {
    return connection_->beginTransaction();
}
void PostgresStore::commit(bool outermost) {
    connection_->commit(outermost);
}
void PostgresStore::rollBack(bool outermost) noexcept {
    connection_->rollBack(outermost);
}

}  // namespace ledgerwick::postgres
