// An open database and what its recordsets share: the prepared statements, what is known of the
// tables, and who reads what.
#pragma once

#include <sqlite3.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "hostkit/dialect/lexer.h"
#include "hostkit/sqlite/statement.h"
#include "hostkit/sqlite/tables.h"
#include "hostkit/sqlite/writer_right.h"
#include "hostkit/store/company_store.h"

namespace ledgerwick::sqlite {

// A recordset that depends on the present content of some tables.
class OpenReader {
  public:
    virtual TableSet tablesRead() const noexcept = 0;
    // Called before this connection writes to one of these tables.
    virtual void beforeWrite() = 0;

  protected:
    ~OpenReader() = default;
};

class Connection : public std::enable_shared_from_this<Connection> {
  public:
    Connection(const std::string& path, const store::OpenOptions& options);
    Connection(const std::string& path, const store::OpenOptions& options, bool isNew);
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    const std::string& path() const noexcept { return path_; }

    RecordsetRef open(std::string_view sql, RecordsetType type, FieldList reads);
    void execute(std::string_view sql);
    void exec(const std::string& script);
    // Turns to write-ahead logging, unless a transaction is under way.
    void writeAhead();
    // Looks at the database and not at what is known of it: another process may have dropped one.
    bool tableExists(std::string_view name);
    // A null pointer when there is no such table or view.
    TableRef table(std::string_view name) { return tables_.find(name); }

    // The statement under the key, made from `sql()` if it is not there.
    template <class Sql>
    StatementLease statement(std::string_view key, Sql&& sql) {
        return cache_.acquire(key, [&] { return prepare(sql()); });
    }
    // Runs a statement that writes.
    void write(Statement& statement);
    std::int64_t lastRowId() const noexcept { return sqlite3_last_insert_rowid(database_); }
    int changedRows() const noexcept { return sqlite3_changes(database_); }

    void addReader(OpenReader& reader) { readers_.push_back(&reader); }
    void removeReader(OpenReader& reader) noexcept;

    // Takes the right to write, before anything is read. Where rows are not stored one by one the
    // batch is a transaction from here on.
    void beginBatch();
    void endBatch();
    // The number of commits by other connections, as SQLite counts them from here.
    std::int64_t dataVersion();
    // Returns whether it is the outermost one.
    bool beginTransaction();
    void commit(bool outermost);
    void rollBack(bool outermost) noexcept;

    // Holds what a reader sees, also while its statement is run again from the start.
    class HeldSnapshot {
      public:
        explicit HeldSnapshot(Connection& connection);
        ~HeldSnapshot();
        HeldSnapshot(const HeldSnapshot&) = delete;
        HeldSnapshot& operator=(const HeldSnapshot&) = delete;

      private:
        sqlite3* database_ = nullptr;  // null when a transaction holds it already
    };

  private:
    static int authorize(void* connection, int action, const char* detail1, const char* detail2,
                         const char* database, const char* trigger) noexcept;
    std::unique_ptr<Statement> prepare(std::string sql);
    std::unique_ptr<Statement> prepare(std::string sql, WholeRow columns);
    std::unique_ptr<Statement> prepareSelect(RecordsetType type, FieldList reads);
    std::unique_ptr<Statement> prepareWholeRows(FieldList reads);
    std::unique_ptr<Statement> prepareByColumn(FieldList reads);
    // The statement at hand with its literals, from the cache if it may be kept.
    template <class Make>
    StatementLease bound(std::string_view key, Make&& make);
    // A statement of the database's own, which defines tables or the like.
    void define(const std::string& sql);
    void startAfresh();
    void makeKey(RecordsetType type, FieldList reads);
    TableSet tableBit(std::string_view table);
    void tellReaders(TableSet written);
    void beginBatchTransaction();
    void configure(const store::OpenOptions& options, bool isNew);
    void runScript(const char* script);
    int tryWrite(Statement& statement);
    void run(const char* sql);

    std::string path_;
    ArrivingRow* arriving_ = nullptr;  // the row that `ledgerwick_row` fills
    sqlite3* database_ = nullptr;
    Tables tables_;
    StatementCache cache_;
    std::vector<OpenReader*> readers_;

    dialect::LiftedStatement lifted_;  // the statement at hand
    std::string key_;

    TableSet readsSeen_ = 0, writesSeen_ = 0;  // by the authorizer, while a statement is prepared
    std::vector<std::string> tableNames_;      // the place gives the bit

    store::Durability durability_ = store::Durability::EachUpdate;
    bool valuesInErrors_ = false;
    bool readOnly_ = false;
    WriterRight right_;
    std::int64_t versionInside_ = 0;  // of a transaction of our own, once it was asked for
    int batches_ = 0;
    bool batchOpen_ = false;  // a batch has begun a transaction
};

}  // namespace ledgerwick::sqlite
