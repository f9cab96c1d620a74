#include "hostkit/sqlite/connection.h"

#include <algorithm>
#include <filesystem>
#include <limits>
#include <utility>

#include "hostkit/sqlite/functions.h"
#include "hostkit/sqlite/snapshot.h"
#include "hostkit/sqlite/speller.h"
#include "hostkit/sqlite/sqlite_rows.h"
#include "ledgerwick/values/error.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick::sqlite {

namespace {

sqlite3* openFile(const std::string& path, bool readOnly) {
    sqlite3* database = nullptr;
    const int access = readOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
    if (sqlite3_open_v2(path.c_str(), &database, access | SQLITE_OPEN_NOMUTEX, nullptr) ==
        SQLITE_OK) {
        return database;
    }
    const std::int32_t number = failureOf(database);
    const std::string words = sqlite3_errmsg(database);
    sqlite3_close(database);
    raise(number, "Database", words + ": " + path);
}

}  // namespace

Connection::Connection(const std::string& path, const store::OpenOptions& options)
    : Connection(path, options, !std::filesystem::exists(path)) {}

Connection::Connection(const std::string& path, const store::OpenOptions& options, bool isNew)
    : path_(path),
      database_(openFile(path, options.readOnly)),
      tables_(database_),
      durability_(options.durability),
      valuesInErrors_(options.valuesInErrors),
      readOnly_(options.readOnly) {
    try {
        configure(options, isNew);
    } catch (const Error& error) {
        cache_.clear();
        sqlite3_close_v2(database_);
        if (error.Number() != error_number::notACompany) throw;
        raise(error_number::notACompany, "Database", path + " is no database");
    }
}

Connection::~Connection() {
    cache_.clear();
    sqlite3_close_v2(database_);
}

void Connection::configure(const store::OpenOptions& options, bool isNew) {
    sqlite3_extended_result_codes(database_, 1);
    const auto timeout =
        std::min<std::int64_t>(options.busyTimeout.count(), std::numeric_limits<int>::max());
    sqlite3_busy_timeout(database_, static_cast<int>(timeout));
    // A misspelt name in double quotes is an error and not a text.
    sqlite3_db_config(database_, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    addFunctions(database_, arriving_);
    // A file that is no company's is left as it is, to the byte.
    if (!options.readOnly && (isNew || tableExists("PRControl"))) {
        writeAhead();
    } else {
        sqlite3_db_config(database_, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
    }
    runScript(durability_ == store::Durability::Relaxed ? "PRAGMA synchronous = NORMAL"
                                                        : "PRAGMA synchronous = FULL");
    runScript("PRAGMA cache_size = -8192");
    if (!options.readOnly) right_.attach(database_, std::chrono::milliseconds(timeout));
    sqlite3_set_authorizer(database_, &Connection::authorize, this);
}

int Connection::authorize(void* connection, int action, const char* detail1, const char*,
                          const char*, const char*) noexcept {
    auto& self = *static_cast<Connection*>(connection);
    if (action == SQLITE_READ) {
        self.readsSeen_ |= self.tableBit(detail1);
    } else if (action == SQLITE_INSERT || action == SQLITE_UPDATE || action == SQLITE_DELETE) {
        self.writesSeen_ |= self.tableBit(detail1);
    }
    return SQLITE_OK;
}

TableSet Connection::tableBit(std::string_view table) {
    std::size_t place = 0;
    while (place < tableNames_.size() && !equalsIgnoringCase(tableNames_[place], table)) ++place;
    if (place == tableNames_.size()) tableNames_.emplace_back(table);
    return TableSet{1} << (place % 64);
}

std::unique_ptr<Statement> Connection::prepare(std::string sql) {
    readsSeen_ = writesSeen_ = 0;
    auto statement = std::make_unique<Statement>(database_, std::move(sql));
    statement->showsValues = valuesInErrors_;
    statement->reads = readsSeen_;
    statement->writes = writesSeen_;
    return statement;
}

std::unique_ptr<Statement> Connection::prepare(std::string sql, WholeRow columns) {
    readsSeen_ = writesSeen_ = 0;
    auto statement = std::make_unique<Statement>(database_, std::move(sql), std::move(columns));
    statement->reads = readsSeen_;
    return statement;
}

template <class Make>
StatementLease Connection::bound(std::string_view key, Make&& make) {
    StatementLease statement =
        lifted_.comesAgain() ? cache_.acquire(key, make) : cache_.lend(make());
    for (std::size_t i = 0; i < lifted_.literalCount(); ++i) {
        bind(statement->handle(), static_cast<int>(i) + 1, lifted_.literal(i), true);
    }
    return statement;
}

RecordsetRef Connection::open(std::string_view sql, RecordsetType type, FieldList reads) {
    lifted_.lift(sql);
    makeKey(type, reads);
    StatementLease statement = bound(key_, [&] { return prepareSelect(type, reads); });
    if (statement->plan) {
        std::vector<rowsets::RowKey> keys;
        while (statement->step()) keys.push_back(statement->cell(0).whole);
        return std::make_shared<rowsets::KeyedSet>(
            std::make_unique<SqliteRows>(shared_from_this(), statement->plan, statement->reads),
            std::move(keys));
    }
    bool hasRow = statement->step();
    if (statement->arrivesWrongly()) {
        cache_.drop(key_);
        tables_.forget();
        statement = bound(key_, [&] { return prepareByColumn(reads); });
        hasRow = statement->step();
    }
    auto rows = std::make_shared<SnapshotReader>(shared_from_this(), std::move(statement), hasRow);
    if (type == RecordsetType::Dynaset) rows->keepAllRows();
    return rows;
}

// The shape, then what else decides how the statement is translated.
void Connection::makeKey(RecordsetType type, FieldList reads) {
    key_ = lifted_.shape();
    key_ += type == RecordsetType::Dynaset ? '\x02' : '\x01';
    for (const FieldName& name : reads) {
        const std::uint16_t id = name.id();
        key_ += static_cast<char>(id >> 8);
        key_ += static_cast<char>(id & 0xff);
        if (id == 0) {
            key_ += name.text();
            key_ += '\0';
        }
    }
}

std::unique_ptr<Statement> Connection::prepareSelect(RecordsetType type, FieldList reads) {
    const std::string& shape = lifted_.shape();
    if (type == RecordsetType::Dynaset) {
        KeyedTranslation keyed = translateKeyed(shape, reads, tables_);
        if (keyed.plan) {
            auto statement = prepare(std::move(keyed.keysSql));
            statement->plan = std::move(keyed.plan);
            return statement;
        }
    }
    if (auto statement = prepareWholeRows(reads)) return statement;
    return prepareByColumn(reads);
}

// A null pointer when the rows cannot arrive whole. Of a name that fits several columns the database
// takes the first one that a statement gives, and here it gives none: that is such a case too.
std::unique_ptr<Statement> Connection::prepareWholeRows(FieldList reads) {
    RowTranslation row = translateRow(lifted_.shape(), reads, tables_);
    if (row.names.empty()) return nullptr;
    try {
        return prepare(std::move(row.sql),
                       {std::move(row.names), std::move(row.kinds), &arriving_});
    } catch (const Error&) {
        return nullptr;
    }
}

std::unique_ptr<Statement> Connection::prepareByColumn(FieldList reads) {
    auto statement = prepare(translate(lifted_.shape(), reads, tables_));
    if (statement->columnCount() == 0) {
        raise(error_number::statementError, "Database", "no rows to open in: " + statement->sql());
    }
    return statement;
}

void Connection::execute(std::string_view sql) {
    lifted_.lift(sql);
    const std::string& shape = lifted_.shape();
    if (!lifted_.isQuery()) {
        define(shape);
        return;
    }
    const auto make = [&] { return prepare(translate(shape, {}, tables_)); };
    const StatementLease run = bound(shape, make);
    if (run->columnCount() != 0) {
        raise(error_number::statementError, "Database", "rows to open in: " + run->sql());
    }
    write(*run);
}

void Connection::write(Statement& statement) {
    tellReaders(statement.writes);
    const HeldRight right(right_);
    beginBatchTransaction();
    if (tryWrite(statement) != SQLITE_DONE) statement.fail();
}

// A reader that began before another process wrote holds up this connection's writes. Such readers
// are given rows of their own, and the write is tried once more.
int Connection::tryWrite(Statement& statement) {
    const int result = statement.run();
    if (result != SQLITE_BUSY_SNAPSHOT) return result;
    tellReaders(~TableSet{0});
    return statement.run();
}

void Connection::tellReaders(TableSet written) {
    if (readers_.empty()) return;
    const std::vector<OpenReader*> open = readers_;
    for (OpenReader* reader : open) {
        if (reader->tablesRead() & written) reader->beforeWrite();
    }
}

void Connection::removeReader(OpenReader& reader) noexcept {
    const auto found = std::find(readers_.rbegin(), readers_.rend(), &reader);
    if (found == readers_.rend()) return;
    *found = readers_.back();
    readers_.pop_back();
}

void Connection::define(const std::string& sql) {
    const HeldRight right(right_);
    startAfresh();
    const std::unique_ptr<Statement> statement = prepare(sql);
    const int result = statement->run();
    if (result != SQLITE_DONE && result != SQLITE_ROW) statement->fail();
}

void Connection::exec(const std::string& script) {
    const HeldRight right(right_);
    startAfresh();
    runScript(script.c_str());
}

void Connection::startAfresh() {
    tellReaders(~TableSet{0});
    beginBatchTransaction();
    tables_.forget();
    cache_.clear();
}

void Connection::writeAhead() {
    if (sqlite3_get_autocommit(database_) == 0) return;
    runScript("PRAGMA journal_mode = WAL");
    sqlite3_db_config(database_, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 0, nullptr);
}

bool Connection::tableExists(std::string_view name) {
    static constexpr const char* sql = R"sql(
        SELECT 1 FROM sqlite_temp_schema
        WHERE type IN ('table', 'view') AND name = ?1 COLLATE NOCASE
        UNION ALL
        SELECT 1 FROM sqlite_schema
        WHERE type IN ('table', 'view') AND name = ?1 COLLATE NOCASE)sql";
    const StatementLease found = statement(sql, [] { return sql; });
    bind(found->handle(), 1, Cell::ofText(name), true);
    return found->step();
}

void Connection::runScript(const char* script) {
    char* words = nullptr;
    if (sqlite3_exec(database_, script, nullptr, nullptr, &words) == SQLITE_OK) return;
    std::string description = words ? words : sqlite3_errmsg(database_);
    sqlite3_free(words);
    if (valuesInErrors_) description.append(" in: ").append(script);
    raise(failureOf(database_), "Database", description);
}

void Connection::beginBatchTransaction() {
    if (batches_ == 0 || durability_ == store::Durability::EachUpdate) return;
    if (sqlite3_get_autocommit(database_) == 0) return;
    run("BEGIN IMMEDIATE");
    batchOpen_ = true;
}

void Connection::beginBatch() {
    if (batches_ == 0) {
        right_.acquire();
        versionInside_ = 0;
    }
    ++batches_;
    if (batches_ != 1 || readOnly_) return;
    try {
        beginBatchTransaction();
    } catch (...) {
        batches_ = 0;
        right_.release();
        throw;
    }
}

void Connection::endBatch() {
    if (batches_ == 0 || --batches_ != 0) return;
    const HeldRight untilStored(right_);
    right_.release();
    // A failure that the database answers with a roll-back leaves nothing to store.
    if (!std::exchange(batchOpen_, false) || sqlite3_get_autocommit(database_) != 0) return;
    try {
        run("COMMIT");
    } catch (...) {
        sqlite3_exec(database_, "ROLLBACK", nullptr, nullptr, nullptr);
        throw;
    }
}

bool Connection::beginTransaction() {
    const bool outermost = sqlite3_get_autocommit(database_) != 0;
    if (!outermost) {
        run("SAVEPOINT inner_transaction");
        return false;
    }
    right_.acquire();
    versionInside_ = 0;
    try {
        run("BEGIN IMMEDIATE");
    } catch (...) {
        right_.release();
        throw;
    }
    return true;
}

void Connection::commit(bool outermost) {
    run(outermost ? "COMMIT" : "RELEASE inner_transaction");
    if (outermost) right_.release();
}

void Connection::rollBack(bool outermost) noexcept {
    sqlite3_exec(
        database_,
        outermost ? "ROLLBACK" : "ROLLBACK TO inner_transaction; RELEASE inner_transaction",
        nullptr, nullptr, nullptr);
    if (outermost) right_.release();
}

std::int64_t Connection::dataVersion() {
    // Nobody else writes while this connection has begun to.
    const bool fixed = right_.isHeld() && sqlite3_get_autocommit(database_) == 0;
    if (fixed && versionInside_ != 0) return versionInside_;
    static constexpr const char* sql = "PRAGMA data_version";
    const StatementLease version = statement(sql, [] { return sql; });
    const std::int64_t now = version->step() ? version->cell(0).whole : 0;
    versionInside_ = fixed ? now : 0;
    return now;
}

void Connection::run(const char* sql) {
    const StatementLease kept = statement(sql, [sql] { return sql; });
    if (tryWrite(*kept) != SQLITE_DONE) kept->fail();
}

Connection::HeldSnapshot::HeldSnapshot(Connection& connection) {
    if (sqlite3_get_autocommit(connection.database_) == 0) return;
    connection.runScript("BEGIN");
    database_ = connection.database_;
}

Connection::HeldSnapshot::~HeldSnapshot() {
    if (database_) sqlite3_exec(database_, "COMMIT", nullptr, nullptr, nullptr);
}

}  // namespace ledgerwick::sqlite
