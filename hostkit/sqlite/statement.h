// A prepared statement, and the store of prepared statements that are used again.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "hostkit/sqlite/tables.h"
#include "hostkit/sqlite/values.h"

namespace ledgerwick::sqlite {

struct KeyedPlan;

// The number of the failure that the database has met last, by what to do about it.
std::int32_t failureOf(sqlite3* database) noexcept;

// Throws that failure, with the database's own words and the statement.
// Errors: 3075 for a statement that does not compile, 3078 when a table of it is not there, else
//         `failureOf`.
[[noreturn]] void raiseNotCompiled(sqlite3* database, std::string_view sql);

// One row of a statement, each value of its column's kind.
using ValueRow = std::vector<Variant>;

// Such a row as a source of cells.
struct ValueSource {
    const ValueRow& row;
    int columnCount() const noexcept { return static_cast<int>(row.size()); }
    Cell cell(int column) const noexcept {
        return rowsets::toCell(row[static_cast<std::size_t>(column)]);
    }
};

// A row to be filled.
struct ArrivingRow {
    const VariantKind* kinds;
    Variant* values;
};

// The columns of a statement whose rows arrive whole, as the arguments of the function
// `ledgerwick_row` (functions.h): one call of the database for a row and not one for each value.
struct WholeRow {
    std::vector<std::string> names;
    std::vector<VariantKind> kinds;
    ArrivingRow** arriving;  // where that function finds the row to fill
};

// A set of tables, one bit each; beyond 64 tables two share a bit.
using TableSet = std::uint64_t;

class Statement {
  public:
    // Errors: 3075.
    Statement(sqlite3* database, std::string sql);
    Statement(sqlite3* database, std::string sql, WholeRow columns);
    ~Statement();
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    // Goes to the next row. At the end the statement lets go of the database.
    // Errors: 3146.
    bool step() {
        if (arriving_) *arriving_ = &place_;
        const int result = sqlite3_step(handle_);
        if (result == SQLITE_ROW) return true;
        if (result != SQLITE_DONE) fail();
        sqlite3_reset(handle_);
        return false;
    }
    // Runs a statement without rows and gives the database's result code.
    int run() noexcept;
    // Throws the failure of `run`; the statement is shown with its values when the host asked so.
    [[noreturn]] void fail();
    void reset() noexcept { sqlite3_reset(handle_); }

    Cell cell(int column) const noexcept {
        return arriving_ ? rowsets::toCell(row_[static_cast<std::size_t>(column)])
                         : readColumn(handle_, column);
    }
    // The current row when it has arrived whole, or a null pointer.
    const Variant* row() const noexcept { return arriving_ ? row_.data() : nullptr; }
    // Puts the current row into `row`, where it outlives the next step.
    void moveRowTo(ValueRow& row);
    int columnCount() const noexcept { return static_cast<int>(kinds_.size()); }
    VariantKind kind(int column) const noexcept { return kinds_[static_cast<std::size_t>(column)]; }
    FieldIndex& fields() noexcept { return fields_; }
    // To be called on the first row: another connection may have changed the tables since.
    void noticeNewColumns();
    // Whether what arrives is not the row that the statement stands on, as of the first row: the
    // database sorts the rows after it has called the function, or the tables have changed.
    bool arrivesWrongly() noexcept;

    sqlite3_stmt* handle() const noexcept { return handle_; }
    const std::string& sql() const noexcept { return sql_; }

    bool showsValues = false;  // in the text of a failure
    TableSet reads = 0;
    TableSet writes = 0;
    std::shared_ptr<KeyedPlan> plan;  // of the keys of an updatable set

  private:
    friend class StatementCache;

    void compile();
    void describeColumns();

    sqlite3* database_;
    std::string sql_;
    sqlite3_stmt* handle_ = nullptr;
    FieldIndex fields_;
    std::vector<VariantKind> kinds_;
    int preparations_ = 0;
    ArrivingRow** arriving_ = nullptr;  // of a statement whose rows arrive whole
    ArrivingRow place_{};               // is `row_`
    ValueRow row_;

    bool kept_ = false;  // by the cache
    bool inUse_ = false;
    std::uint64_t lastUse_ = 0;
};

class StatementCache;

struct ReturnToCache {
    StatementCache* cache = nullptr;
    void operator()(Statement* statement) const noexcept;
};

// A statement in use. Its end resets the statement and gives it back.
using StatementLease = std::unique_ptr<Statement, ReturnToCache>;

// Prepared statements by key, the least recently used of them dropped first.
class StatementCache {
  public:
    // The statement under `key`, or one that `make` makes. While a statement is in use, another one
    // under its key is made for that use only.
    template <class Make>
    StatementLease acquire(std::string_view key, Make&& make) {
        const auto known = statements_.find(key);
        if (known == statements_.end()) return keep(key, make());
        if (known->second->inUse_) return lend(make().release());
        return lend(known->second.get());
    }
    // One that is not kept.
    StatementLease lend(std::unique_ptr<Statement> statement) { return lend(statement.release()); }

    // Drops the statement under `key`, which is in use: a new one is made at the next call.
    void drop(std::string_view key) noexcept;
    void giveBack(Statement* statement) noexcept;
    // Drops all of them; those in use go when they are given back.
    void clear() noexcept;

  private:
    static constexpr std::size_t capacity = 128;

    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view key) const noexcept {
            return std::hash<std::string_view>()(key);
        }
    };

    StatementLease keep(std::string_view key, std::unique_ptr<Statement> statement);
    StatementLease lend(Statement* statement) noexcept;
    void dropOldest();

    std::unordered_map<std::string, std::unique_ptr<Statement>, Hash, std::equal_to<>> statements_;
    std::uint64_t clock_ = 0;
};

}  // namespace ledgerwick::sqlite
