// The kit's record access layer: a company in an SQLite file.
//
//   auto database = sqlite::SqliteDatabase::open("company.db");
//   database->createSchema();
//   auto rs = database->OpenRecordset("SELECT * FROM PRPay WHERE PRPNAID = 7",
//                                     RecordsetType::Snapshot);
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "hostkit/sqlite/export.h"
#include "hostkit/store/company_store.h"

namespace ledgerwick::sqlite {

class Connection;

// An open file. For one thread; another thread opens its own. Recordsets keep the file open.
// Errors of all members, source "Database", with the database's words and the statement: 3075 for a
// statement that does not compile, 3078 for a table that is not there, 3218 while another connection
// writes, 3027 for a file that cannot be written, 3026 for a full disk, 3049 for a damaged file, 3343
// for a file that is no database, and 3146 for every other failure.
class LEDGERWICK_SQLITE_API SqliteDatabase final : public store::CompanyStore {
  public:
    // Opens a file, and makes it when it does not exist; ":memory:" is a database in memory. A file
    // that holds no company is left as it is until something is written to it.
    // Errors: those of the members, with the path.
    static std::shared_ptr<SqliteDatabase> open(const std::string& path,
                                                const store::OpenOptions& options = {});
    ~SqliteDatabase() override;

    const std::string& name() const noexcept override;  // the path as it was given

    void createSchema() override;
    bool tableExists(std::string_view name) override;
    std::vector<store::FieldDescription> fieldsOf(std::string_view table) override;
    void narrow(std::string_view table, std::string_view columns,
                std::string_view condition) override;
    // A file beside this one: "company.db.version-0", with "-2" after it when that is there already.
    std::string keepCopy(std::string_view mark) override;
    void exec(const std::string& script) override;

    RecordsetRef OpenRecordset(std::string_view sql, RecordsetType type,
                               FieldList reads = {}) override;
    void Execute(std::string_view sql, std::int32_t option) override;
    std::shared_ptr<QueryDef> CreateQueryDef(std::string_view name, std::string_view sql) override;
    // Takes the right to write. With `Durability::EachUpdate` each row is still stored on its own.
    // Errors: 3218 when another connection has it for longer than the busy timeout.
    void BeginBatch() override;
    // Stores what the batch wrote.
    void EndBatch() override;
    // Moves when another connection, of this process or another, has committed.
    std::int64_t DataVersion() override;

    // For the layer's own use.
    explicit SqliteDatabase(std::shared_ptr<Connection> connection);

  protected:
    void define(const std::string& statements) override;
    bool beginTransaction() override;
    // Stores the writes.
    void commit(bool outermost) override;
    // Takes the writes back.
    void rollBack(bool outermost) noexcept override;
    // The file is not written in a rehearsal.
    bool beginRehearsal() override;
    // Takes the writes back.
    void endRehearsal(bool outermost) noexcept override;

  private:
    std::shared_ptr<Connection> connection_;
};

}  // namespace ledgerwick::sqlite
