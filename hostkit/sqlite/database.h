// The kit's record access layer: a company in an SQLite file.
//
//   auto database = sqlite::SqliteDatabase::open("company.db");
//   database->createSchema();
//   auto rs = database->OpenRecordset("SELECT * FROM PRPay WHERE PRPNAID = 7",
//                                     RecordsetType::Snapshot);
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "hostkit/export.h"
#include "ledgerwick/records/record_access.h"

namespace ledgerwick::sqlite {

class Connection;

// What a power cut can take. A crash of the process alone takes nothing that `Update` or `Execute`
// reported stored, except the batch that was running.
enum class Durability : std::uint8_t {
    EachUpdate,  // nothing that was reported stored
    Batched,     // the public operation that was running; a batch is stored when it ends
    Relaxed,     // the last operations before the cut; the file stays whole
};

// How a file is opened.
struct OpenOptions {
    Durability durability = Durability::EachUpdate;  // what a power cut may take
    std::chrono::milliseconds busyTimeout{5000};     // how long a write waits for another process
    bool readOnly = false;                           // nothing is written to the file
};

// An open file. For one thread; another thread opens its own. Recordsets keep the file open.
// Errors of all members: 3075 for a statement that does not compile and 3146 for every failure of
// the database, source "Database", with the database's words and the statement.
class LEDGERWICK_HOSTKIT_API SqliteDatabase final : public Database {
  public:
    // Opens a file, and makes it when it does not exist; ":memory:" is a database in memory.
    // Errors: 3146 with the path.
    static std::shared_ptr<SqliteDatabase> open(const std::string& path,
                                                const OpenOptions& options = {});
    ~SqliteDatabase() override;

    const std::string& path() const noexcept;  // the file's name as it was given

    // Lays down the tables of schema.sql and their indexes, where they are missing.
    void createSchema();
    // Lays down an empty `PRPayImport`: for this connection alone, or kept in the file so that a
    // later process finds it. `dropPayImportTable` removes either.
    void createPayImportTable(bool kept = false);
    // Removes `PRPayImport`; nothing when there is none.
    void dropPayImportTable();
    // Lays down an empty `TEMP_PR_LAST_WEEK_NOS` of this workstation, for this connection alone.
    void createLastWeekNosTable(std::string_view pcId);
    // Whether there is a table of that name, temporary or not.
    bool tableExists(std::string_view name);

    // Runs statements of SQLite's own, separated by ";". They are not translated.
    void exec(const std::string& script);
    // Runs `work` in a transaction: all of its writes are stored, or none when it throws. One
    // inside another is a part of it that can fail on its own.
    template <class Work>
    void inTransaction(Work&& work) {
        const bool outermost = beginTransaction();
        try {
            work();
            commit(outermost);
        } catch (...) {
            rollBack(outermost);
            throw;
        }
    }

    // Runs `work` in a transaction and takes all of its writes back, whether it throws or not. Until
    // then they stay in memory: the file is not written and its readers are not held up, while
    // another writer waits.
    template <class Work>
    void rehearse(Work&& work) {
        const Rehearsal rehearsal(*this);
        work();
    }

    RecordsetRef OpenRecordset(std::string_view sql, RecordsetType type,
                               FieldList reads = {}) override;
    void Execute(std::string_view sql, std::int32_t option) override;
    std::shared_ptr<QueryDef> CreateQueryDef(std::string_view name, std::string_view sql) override;
    // With `Durability::EachUpdate` a batch is nothing: each row is stored on its own.
    void BeginBatch() override;
    // Stores what the batch wrote.
    void EndBatch() override;

    // For the layer's own use.
    explicit SqliteDatabase(std::shared_ptr<Connection> connection);

  private:
    class LEDGERWICK_HOSTKIT_API Rehearsal {
      public:
        explicit Rehearsal(SqliteDatabase& database);
        ~Rehearsal();
        Rehearsal(const Rehearsal&) = delete;
        Rehearsal& operator=(const Rehearsal&) = delete;

      private:
        SqliteDatabase& database_;
        bool outermost_;
    };

    bool beginTransaction();
    void commit(bool outermost);
    void rollBack(bool outermost) noexcept;

    std::shared_ptr<Connection> connection_;
};

}  // namespace ledgerwick::sqlite
