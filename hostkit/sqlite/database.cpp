#include "hostkit/sqlite/database.h"

#include <filesystem>
#include <utility>

#include "hostkit/dialect/lexer.h"
#include "hostkit/sqlite/backup.h"
#include "hostkit/sqlite/connection.h"
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

std::shared_ptr<SqliteDatabase> SqliteDatabase::open(const std::string& path,
                                                     const store::OpenOptions& options) {
    return std::make_shared<SqliteDatabase>(std::make_shared<Connection>(path, options));
}

SqliteDatabase::SqliteDatabase(std::shared_ptr<Connection> connection)
    : connection_(std::move(connection)) {}

SqliteDatabase::~SqliteDatabase() = default;

const std::string& SqliteDatabase::name() const noexcept {
    return connection_->path();
}

void SqliteDatabase::createSchema() {
    connection_->writeAhead();
    connection_->exec(schemaSql);
}

bool SqliteDatabase::tableExists(std::string_view name) {
    return connection_->tableExists(name);
}

std::vector<store::FieldDescription> SqliteDatabase::fieldsOf(std::string_view table) {
    const TableRef known = connection_->table(table);
    std::vector<store::FieldDescription> fields;
    if (!known) return fields;
    fields.reserve(known->columns.size());
    for (const TableColumn& column : known->columns) fields.push_back({column.name, column.kind});
    if (known->key >= 0) fields[static_cast<std::size_t>(known->key)].isKey = true;
    return fields;
}

// A view of the connection's own hides the table of the same name.
void SqliteDatabase::narrow(std::string_view table, std::string_view columns,
                            std::string_view condition) {
    const std::string name = dialect::quotedName(table);
    std::string view = "CREATE TEMP VIEW " + name + " AS SELECT ";
    view += columns;
    view += " FROM main." + name + " WHERE ";
    view += condition;
    connection_->execute(view);
}

std::string SqliteDatabase::keepCopy(std::string_view mark) {
    const std::string first = name() + '.' + std::string(mark);
    std::string copy = first;
    for (int number = 2; std::filesystem::exists(copy); ++number) {
        copy = first + '-' + std::to_string(number);
    }
    copyFile(name(), copy);
    return copy;
}

void SqliteDatabase::exec(const std::string& script) {
    connection_->exec(script);
}

void SqliteDatabase::define(const std::string& statements) {
    connection_->exec(statements);
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
std::int64_t SqliteDatabase::DataVersion() {
    return connection_->dataVersion();
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

// Pages that do not fit into the cache would be written to the log before the end.
bool SqliteDatabase::beginRehearsal() {
    connection_->exec("PRAGMA cache_spill = OFF");
    return beginTransaction();
}

void SqliteDatabase::endRehearsal(bool outermost) noexcept {
    rollBack(outermost);
    try {
        connection_->exec("PRAGMA cache_spill = ON");
    } catch (const Error&) {  // the cache then stays as it is
    }
}

}  // namespace ledgerwick::sqlite
