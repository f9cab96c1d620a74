#include "hostkit/sqlite/statement.h"

#include <utility>

#include "ledgerwick/values/error.h"

namespace ledgerwick::sqlite {

namespace {

std::string description(sqlite3* database, std::string_view sql) {
    return std::string(sqlite3_errmsg(database)) + " in: " + std::string(sql);
}

}  // namespace

std::int32_t failureOf(sqlite3* database) noexcept {
    constexpr int withoutDetails = 0xff;
    switch (sqlite3_extended_errcode(database) & withoutDetails) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return error_number::writerBusy;
        case SQLITE_READONLY:
        case SQLITE_PERM:
            return error_number::readOnly;
        case SQLITE_FULL:
            return error_number::diskFull;
        case SQLITE_CORRUPT:
            return error_number::damagedFile;
        case SQLITE_NOTADB:
            return error_number::notACompany;
        default:
            return error_number::databaseError;
    }
}

void raiseNotCompiled(sqlite3* database, std::string_view sql) {
    std::int32_t number = failureOf(database);
    if (sqlite3_errcode(database) == SQLITE_ERROR) {
        const std::string_view words = sqlite3_errmsg(database);
        number = words.starts_with("no such table") ? error_number::noSuchTable
                                                    : error_number::statementError;
    }
    raise(number, "Database", description(database, sql));
}

Statement::Statement(sqlite3* database, std::string sql)
    : database_(database), sql_(std::move(sql)) {
    compile();
    describeColumns();
}

Statement::Statement(sqlite3* database, std::string sql, WholeRow columns)
    : database_(database),
      sql_(std::move(sql)),
      fields_(std::move(columns.names)),
      kinds_(std::move(columns.kinds)),
      arriving_(columns.arriving),
      row_(kinds_.size()) {
    place_ = {kinds_.data(), row_.data()};
    compile();
}

void Statement::compile() {
    const char* rest = nullptr;
    const int result =
        sqlite3_prepare_v3(database_, sql_.c_str(), static_cast<int>(sql_.size() + 1),
                           SQLITE_PREPARE_PERSISTENT, &handle_, &rest);
    if (result != SQLITE_OK) raiseNotCompiled(database_, sql_);
    const auto compiled = static_cast<std::size_t>(rest - sql_.c_str());
    if (!handle_ || sql_.find_first_not_of(" ;\t\r\n", compiled) != std::string::npos) {
        sqlite3_finalize(handle_);
        raise(error_number::statementError, "Database", "not one statement: " + sql_);
    }
}

Statement::~Statement() {
    sqlite3_finalize(handle_);
}

int Statement::run() noexcept {
    const int result = sqlite3_step(handle_);
    sqlite3_reset(handle_);
    return result;
}

void Statement::fail() {
    const std::int32_t number = failureOf(database_);
    char* const withValues = showsValues ? sqlite3_expanded_sql(handle_) : nullptr;
    const std::string words = description(database_, withValues ? withValues : sql_);
    sqlite3_free(withValues);
    sqlite3_reset(handle_);
    raise(number, "Database", words);
}

void Statement::moveRowTo(ValueRow& row) {
    row.resize(kinds_.size());
    if (arriving_) {
        row.swap(row_);
        place_.values = row_.data();
        return;
    }
    for (int column = 0; column < columnCount(); ++column) {
        rowsets::take(readColumn(handle_, column), kind(column),
                      row[static_cast<std::size_t>(column)]);
    }
}

void Statement::noticeNewColumns() {
    if (arriving_) return;
    if (sqlite3_stmt_status(handle_, SQLITE_STMTSTATUS_REPREPARE, 0) != preparations_) {
        describeColumns();
    }
}

bool Statement::arrivesWrongly() noexcept {
    return arriving_ && (sqlite3_stmt_status(handle_, SQLITE_STMTSTATUS_SORT, 0) != 0 ||
                         sqlite3_stmt_status(handle_, SQLITE_STMTSTATUS_REPREPARE, 0) != 0);
}

void Statement::describeColumns() {
    preparations_ = sqlite3_stmt_status(handle_, SQLITE_STMTSTATUS_REPREPARE, 0);
    const int count = sqlite3_column_count(handle_);
    std::vector<std::string> names;
    names.reserve(static_cast<std::size_t>(count));
    kinds_.clear();
    for (int column = 0; column < count; ++column) {
        const char* name = sqlite3_column_name(handle_, column);
        const char* type = sqlite3_column_decltype(handle_, column);
        names.emplace_back(name ? name : "");
        kinds_.push_back(type ? rowsets::kindOfDeclaredType(type) : VariantKind::Empty);
    }
    fields_ = FieldIndex(std::move(names));
}

void ReturnToCache::operator()(Statement* statement) const noexcept {
    cache->giveBack(statement);
}

void StatementCache::giveBack(Statement* statement) noexcept {
    if (!statement->kept_) {
        delete statement;
        return;
    }
    statement->reset();
    statement->inUse_ = false;
    statement->lastUse_ = ++clock_;
}

void StatementCache::drop(std::string_view key) noexcept {
    const auto known = statements_.find(key);
    if (known == statements_.end()) return;
    if (known->second->inUse_) {
        known->second->kept_ = false;
        static_cast<void>(known->second.release());  // goes when its user gives it back
    }
    statements_.erase(known);
}

void StatementCache::clear() noexcept {
    for (auto& [key, statement] : statements_) {
        if (!statement->inUse_) continue;
        statement->kept_ = false;
        static_cast<void>(statement.release());  // goes when its user gives it back
    }
    statements_.clear();
}

StatementLease StatementCache::keep(std::string_view key, std::unique_ptr<Statement> statement) {
    if (statements_.size() >= capacity) dropOldest();
    Statement* const kept = statement.get();
    statements_.emplace(key, std::move(statement));
    kept->kept_ = true;
    return lend(kept);
}

StatementLease StatementCache::lend(Statement* statement) noexcept {
    statement->inUse_ = true;
    return StatementLease(statement, ReturnToCache{this});
}

void StatementCache::dropOldest() {
    auto oldest = statements_.end();
    for (auto it = statements_.begin(); it != statements_.end(); ++it) {
        if (it->second->inUse_) continue;
        if (oldest == statements_.end() || it->second->lastUse_ < oldest->second->lastUse_) {
            oldest = it;
        }
    }
    if (oldest != statements_.end()) statements_.erase(oldest);
}

}  // namespace ledgerwick::sqlite
