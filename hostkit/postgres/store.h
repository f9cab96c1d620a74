// A company on a PostgreSQL server: one schema of a database.
//
//   auto company = postgres::PostgresStore::open("postgresql:///offices?company=shop");
//   company->createSchema();
//   auto rs = company->OpenRecordset("SELECT * FROM PRPay WHERE PRPNAID = 7",
//                                    RecordsetType::Snapshot);
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "hostkit/postgres/export.h"
#include "hostkit/store/company_store.h"

namespace ledgerwick::postgres {

class Connection;

// An open company. For one thread; another thread opens its own. Recordsets keep it open.
// Errors of all members: 3075 for a statement that the server does not understand, 3218 when
// somebody else was writing for longer than the time given, 3151 when the connection is lost, and
// 3146 for every other failure of the server; source "Database", with the server's words, its code
// and the statement.
class LEDGERWICK_POSTGRES_API PostgresStore final : public store::CompanyStore {
  public:
    // Opens a company, and makes an empty one where there is none.
    // Errors: 5 for a name that is none, or that holds a password.
    static std::shared_ptr<PostgresStore> open(const std::string& name,
                                               const store::OpenOptions& options = {});
    ~PostgresStore() override;

    // Round trips to the server since the company was opened.
    std::uint64_t trips() const noexcept;

    const std::string& name() const noexcept override;
    void createSchema() override;
    bool tableExists(std::string_view name) override;
    std::vector<store::FieldDescription> fieldsOf(std::string_view table) override;
    void narrow(std::string_view table, std::string_view columns,
                std::string_view condition) override;
    void exec(const std::string& script) override;

    RecordsetRef OpenRecordset(std::string_view sql, RecordsetType type,
                               FieldList reads = {}) override;
    void Execute(std::string_view sql, std::int32_t option) override;
    std::shared_ptr<QueryDef> CreateQueryDef(std::string_view name, std::string_view sql) override;
    // Takes the right to write, before the first read.
    // Errors: 3218 when somebody else has it for longer than the time given.
    void BeginBatch() override;
    // Stores what the batch wrote.
    void EndBatch() override;
    void Announce(std::span<const std::int32_t> keys) override;

    // For the layer's own use.
    explicit PostgresStore(std::shared_ptr<Connection> connection);

  protected:
    void define(const std::string& statements) override;
    bool beginTransaction() override;
    // Stores the writes.
    void commit(bool outermost) override;
    // Takes the writes back.
    void rollBack(bool outermost) noexcept override;

  private:
    std::shared_ptr<Connection> connection_;
};

}  // namespace ledgerwick::postgres
