// An open company and what its recordsets share: the wire, the statements that came before, the
// batch and what it keeps back.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "hostkit/dialect/lexer.h"
#include "hostkit/postgres/kept_writes.h"
#include "hostkit/postgres/link.h"
#include "hostkit/postgres/rows.h"
#include "hostkit/postgres/speller.h"
#include "hostkit/postgres/tables.h"

namespace ledgerwick::postgres {

// A recordset that depends on the present content of some tables, or on the wire.
class OpenReader {
  public:
    virtual TableSet tablesRead() const noexcept = 0;
    // This connection has written to one of these tables.
    virtual void afterWrite() = 0;
    // Something else needs the wire.
    virtual void leaveWire() {}

  protected:
    ~OpenReader() = default;
};

// Rows that were asked for ahead, for many values of one equality.
struct RowsAhead {
    std::size_t equality = 0;           // of the spelling's equalities
    std::vector<std::string> literals;  // all of the statement's, as they were sent
    std::unordered_map<std::int32_t, Rows> rowsOf;
};

// A statement that came before: its spelling, and what is prepared of it.
struct Query {
    Spelling spelling;
    Statement statement;
    std::shared_ptr<Columns> columns;  // known after the first run
    std::vector<std::string> lastLiterals;
    Statement many;  // asks for many values at once
    std::unique_ptr<RowsAhead> ahead;
    std::uint64_t lastUse = 0;
};
using QueryRef = std::shared_ptr<Query>;

class Connection : public std::enable_shared_from_this<Connection> {
  public:
    Connection(Target target, std::string name, const store::OpenOptions& options);
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    const std::string& name() const noexcept { return name_; }
    const Target& target() const noexcept { return link_.target(); }
    std::uint64_t trips() const noexcept { return link_.trips(); }

    RecordsetRef open(std::string_view sql, RecordsetType type, FieldList reads);
    void execute(std::string_view sql);
    // Statements of the server's own, and some written as in schema.sql.
    void exec(const std::string& script);
    void define(const std::string& statements);
    void createSchema();
    void narrow(std::string_view table, std::string_view columns, std::string_view condition);
    bool tableExists(std::string_view name);
    TableRef table(std::string_view name) { return ownTable(tables_.find(name)); }

    void beginBatch();
    void endBatch();
    bool beginTransaction();
    void commit(bool outermost);
    void rollBack(bool outermost) noexcept;
    void announce(std::span<const std::int32_t> keys);
    std::int64_t dataVersion();

    // ---- for the recordsets

    void addReader(OpenReader& reader) { readers_.push_back(&reader); }
    void removeReader(OpenReader& reader) noexcept;
    void wroteTo(TableSet tables, const OpenReader* writer);

    // Whether writes of rows are kept back.
    bool keepsWrites() const noexcept;
    // Keeps a row back; many of them are stored.
    void keep(const TableRef& table, Image image, const Facts& facts);
    // Stores what is kept back of these tables.
    void storeKept(TableSet tables);
    // The number of the next row of a table; it is given once.
    std::int64_t nextKey(const TableRef& table);
    // Runs one statement that writes; its result.
    Result write(Statement& statement, Parameters parameters, TableSet written,
                 const OpenReader* writer);
    // Runs one statement that reads.
    Result read(Statement& statement, Parameters parameters);
    // The statement under a text of the store's own.
    Statement& ownStatement(const std::string& sql);
    // Forgets rows asked for ahead that a write may have changed.
    void forgetAhead(const TableRef& table, const Facts& facts);

    // The wire, for a set whose rows still come.
    Link& link() noexcept { return link_; }
    void takeWire(OpenReader* reader) noexcept { onWire_ = reader; }
    void leaveWire();
    [[noreturn]] void fail(const Failure& failure, std::string_view sql);

  private:
    struct Literals {
        Parameters parameters;
        std::vector<std::string> texts;  // distinguishes them
    };

    QueryRef find(RecordsetType type, FieldList reads);
    Literals literals(const Spelling& spelling) const;
    void makeKey(RecordsetType type, FieldList reads);
    void dropOldest();
    void refreshTables();

    RecordsetRef openRows(const QueryRef& query, RecordsetType type, Literals literals);
    RecordsetRef setOf(const QueryRef& query, Rows rows);
    bool takeAhead(const QueryRef& query, const Literals& literals, Rows& rows);
    bool askAhead(const QueryRef& query, const Literals& literals, std::size_t place);
    std::vector<std::int32_t> keysFrom(const Query& query, std::size_t place) const;
    void addAhead(Trip& trip, Query& query, const std::vector<std::int32_t>& keys);
    void dealOut(Query& query, const std::vector<std::int32_t>& keys, const PGresult* result);
    std::vector<std::string> pictures(const Query& query) const;

    void storeImages(const Table& table, std::span<const Image> images);

    void beginOnServer();
    void addBegin(Trip& trip);
    void takeVersion(const PGresult* result);
    void endOnServer(bool keep);
    void runOrFail(Trip& trip);
    void recover() noexcept;
    void loseBatch();
    void requireBatch() const;
    bool wasStored();
    void letGo() noexcept;
    void forgetAllAhead(TableSet tables) noexcept;
    Facts factsOf(const Spelling& spelling) const;

    std::string name_;
    store::OpenOptions options_;
    Link link_;
    Tables tables_;
    bool hasWriter_ = false;

    dialect::LiftedStatement lifted_;  // the statement at hand
    std::string key_;
    std::unordered_map<std::string, QueryRef> queries_;
    std::unordered_map<std::string, Statement> ownStatements_;
    std::uint64_t clock_ = 0;
    std::vector<std::string> spent_;  // names of prepared statements that nobody uses any more

    std::vector<OpenReader*> readers_;
    OpenReader* onWire_ = nullptr;

    int batches_ = 0;
    int transactions_ = 0;
    bool open_ = false;   // a transaction is open on the server
    bool wrote_ = false;  // and something was stored in it
    bool lost_ = false;   // it was, and the connection is lost
    std::int64_t token_ = 0;
    std::int64_t version_ = 0;  // with this transaction's own step
    std::int64_t ownSteps_ = 0;
    KeptWrites kept_;

    std::vector<std::int32_t> announced_;
    std::unordered_map<std::int32_t, std::size_t> placeOf_;
};

}  // namespace ledgerwick::postgres
