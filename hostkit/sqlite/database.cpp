#include "hostkit/sqlite/database.h"

#include <utility>

#include "hostkit/sqlite/connection.h"
#include "hostkit/sqlite/recordset.h"
#include "hostkit/sqlite/schema_sql.h"
#include "ledgerwick/values/error.h"

namespace ledgerwick::sqlite {

namespace {

class SqliteQueryDef final : public QueryDef {
  public:
    SqliteQueryDef(std::shared_ptr<Connection> connection, std::string_view sql)
        : connection_(std::move(connection)), sql_(sql) {}

    RecordsetRef OpenRecordset(RecordsetType type, FieldList reads) override {
        return connection_->open(sql_, type, reads);
    }

  private:
    std::shared_ptr<Connection> connection_;
    std::string sql_;
};

}  // namespace

SqliteRecordset::~SqliteRecordset() = default;

std::shared_ptr<SqliteDatabase> SqliteDatabase::open(const std::string& path,
                                                     const OpenOptions& options) {
    return std::make_shared<SqliteDatabase>(std::make_shared<Connection>(path, options));
}

SqliteDatabase::SqliteDatabase(std::shared_ptr<Connection> connection)
    : connection_(std::move(connection)) {}

SqliteDatabase::~SqliteDatabase() = default;

const std::string& SqliteDatabase::path() const noexcept {
    return connection_->path();
}

void SqliteDatabase::createSchema() {
    connection_->exec(schemaSql);
}

void SqliteDatabase::createPayImportTable(bool kept) {
    connection_->exec(std::string(kept ? "CREATE TABLE" : "CREATE TEMP TABLE") +
                      " PRPayImport (PRPINAID INTEGER DEFAULT 0, PRPIPay NUMBER DEFAULT 0)");
}

void SqliteDatabase::dropPayImportTable() {
    connection_->exec("DROP TABLE IF EXISTS PRPayImport");
}

void SqliteDatabase::createLastWeekNosTable(std::string_view pcId) {
    connection_->exec("CREATE TEMP TABLE " +
                      quotedName("TEMP_PR_LAST_WEEK_NOS" + std::string(pcId)) +
                      " (TLWWeekNo NUMBER DEFAULT 0, TLWCMonthNo NUMBER DEFAULT 0)");
}

bool SqliteDatabase::tableExists(std::string_view name) {
    return connection_->tableExists(name);
}

void SqliteDatabase::exec(const std::string& script) {
    connection_->exec(script);
}

RecordsetRef SqliteDatabase::OpenRecordset(std::string_view sql, RecordsetType type,
                                           FieldList reads) {
    return connection_->open(sql, type, reads);
}

void SqliteDatabase::Execute(std::string_view sql, std::int32_t) {
    connection_->execute(sql);
}

std::shared_ptr<QueryDef> SqliteDatabase::CreateQueryDef(std::string_view, std::string_view sql) {
    return std::make_shared<SqliteQueryDef>(connection_, sql);
}

void SqliteDatabase::BeginBatch() {
    connection_->beginBatch();
}
void SqliteDatabase::EndBatch() {
    connection_->endBatch();
}

// Pages that do not fit into the cache would be written to the log before the end.
SqliteDatabase::Rehearsal::Rehearsal(SqliteDatabase& database)
    : database_(database),
      outermost_((database.exec("PRAGMA cache_spill = OFF"), database.beginTransaction())) {}

SqliteDatabase::Rehearsal::~Rehearsal() {
    database_.rollBack(outermost_);
    try {
        database_.exec("PRAGMA cache_spill = ON");
    } catch (const Error&) {  // the cache then stays as it is
    }
}

bool SqliteDatabase::beginTransaction() {
    return connection_->beginTransaction();
}
void SqliteDatabase::commit(bool outermost) {
    connection_->commit(outermost);
}
void SqliteDatabase::rollBack(bool outermost) noexcept {
    connection_->rollBack(outermost);
}

}  // namespace ledgerwick::sqlite
