// The wire to the server: statements go out together and their results come back in one trip.
//
//   Trip trip(link);
//   trip.add("BEGIN");
//   trip.add(statement, parameters);
//   trip.run();                       // one round trip
//   trip.result(1);
//
// The link is always in libpq's pipeline mode, except while rows are copied in.
#pragma once

#include <libpq-fe.h>

#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "hostkit/postgres/target.h"
#include "hostkit/postgres/wire.h"
#include "hostkit/store/company_store.h"

namespace ledgerwick::postgres {

struct FreeResult {
    void operator()(PGresult* result) const noexcept { PQclear(result); }
};
using Result = std::unique_ptr<PGresult, FreeResult>;

// The bytes of a value in a result, and whether it is Null.
inline std::string_view bytesIn(const PGresult* result, int row, int column) noexcept {
    return {PQgetvalue(result, row, column),
            static_cast<std::size_t>(PQgetlength(result, row, column))};
}
inline rowsets::Cell cellIn(const PGresult* result, int row, int column) {
    if (PQgetisnull(result, row, column) != 0) return {};
    return decode(PQftype(result, column), PQfmod(result, column), bytesIn(result, row, column));
}

// What the server, or the loss of it, answered.
struct Failure {
    std::string state;  // five characters; empty for a lost connection
    std::string words;
    bool lost = false;
};

// Raises the failure of a statement.
// Errors: 3075 for a statement that the server does not understand, 3218 when somebody else was
//         writing, 3151 when the connection is lost, else 3146.
[[noreturn]] void raiseFailure(const Failure& failure, std::string_view sql);

// The values of the parameters of a statement.
class Parameters {
  public:
    void add(const rowsets::Cell& cell, TypeId type, std::string_view source);
    void addBytes(std::string_view bytes, TypeId type);  // in the form of the type
    void addText(std::string_view text, TypeId type = type_id::unknown);
    void addNull(TypeId type);

    const std::vector<TypeId>& types() const noexcept { return types_; }
    int count() const noexcept { return static_cast<int>(types_.size()); }

  private:
    friend class Link;
    static constexpr std::size_t null = static_cast<std::size_t>(-1);

    void end(std::size_t start, TypeId type, int format);

    std::string bytes_;
    std::vector<TypeId> types_;
    std::vector<std::size_t> starts_;
    std::vector<int> lengths_;
    std::vector<int> formats_;
};

// A statement that the server keeps prepared from its first use on.
struct Statement {
    std::string sql;
    std::vector<TypeId> types;
    std::string name;            // empty: sent whole each time
    std::uint64_t prepared = 0;  // the connection that knows it; 0 for none
};

class Link {
  public:
    // Errors: 3151 when there is no way to the server, with its words and never a password.
    Link(Target target, const store::OpenOptions& options);

    const Target& target() const noexcept { return target_; }
    PGconn* handle() const noexcept { return connection_.get(); }
    bool isLost() const noexcept;
    // Whether the server has a transaction open, as far as its last answer says.
    bool inTransaction() const noexcept;
    // Connects anew. What was prepared is prepared again.
    void reconnect();
    // Round trips since the link was made.
    std::uint64_t trips() const noexcept { return trips_; }

    // A new name for a statement.
    std::string nextName() { return "lw" + std::to_string(++names_); }

    // Sends one statement; its results come after `sync`. Returns how many results it gives.
    int send(Statement& statement, const Parameters& parameters);
    // Ends what was sent: the server works it off, and the first failure skips the rest.
    void sync();
    // The next result of the statement that is being read; null at its end.
    Result next();

    // Runs a script of the server's own statements outside the pipeline.
    void script(const std::string& sql);
    // Copies rows in: `sql` is a COPY .. FROM STDIN in binary form, `rows` the rows without the
    // frame around them. Returns a failure instead of raising it.
    bool copyIn(const std::string& sql, const std::string& rows, Failure& failure);
    // The words of the failed result, or of the connection.
    Failure failureOf(const PGresult* result) const;

    void markPrepared(Statement& statement) const noexcept { statement.prepared = epoch_; }

  private:
    struct Close {
        void operator()(PGconn* connection) const noexcept { PQfinish(connection); }
    };
    using ConnectionPtr = std::unique_ptr<PGconn, Close>;

    ConnectionPtr connect(const std::string& password) const;
    void leavePipeline();
    void enterPipeline();
    [[noreturn]] void raiseLost() const;

    Target target_;
    std::vector<std::pair<std::string, std::string>> settings_;  // with what the store pins
    ConnectionPtr connection_;
    std::uint64_t epoch_ = 0;
    std::uint64_t trips_ = 0;
    std::uint64_t names_ = 0;
};

// Statements that go out together.
class Trip {
  public:
    explicit Trip(Link& link) : link_(link) {}

    // Returns the place of the statement in the trip. `statement` must outlive the trip.
    std::size_t add(Statement& statement, Parameters parameters = {});
    std::size_t add(std::string sql);
    bool empty() const noexcept { return steps_.empty(); }

    // Sends all and reads all results. The first failure skips the statements after it.
    // Returns whether all went well; `failure` and `failedStep` say what did not.
    bool run();
    // As `run`, but leaves the results of the last statement to be read row by row, unless it or
    // one before it fails at once. They are followed by the end of the trip: `finish`.
    bool runStreaming();

    const Failure& failure() const noexcept { return failure_; }
    std::size_t failedStep() const noexcept { return failedStep_; }
    const std::string& failedSql() const { return steps_[failedStep_].statement->sql; }
    [[noreturn]] void raise() const { raiseFailure(failure_, failedSql()); }

    const PGresult* result(std::size_t step) const { return steps_[step].result.get(); }
    Result takeResult(std::size_t step) { return std::move(steps_[step].result); }

  private:
    struct Step {
        Statement* statement;
        Parameters parameters;
        int results = 0;
        Result result;
    };

    bool sendAll();
    void readStep(std::size_t step);
    void fail(std::size_t step, const PGresult* result);
    void readSync();

    Link& link_;
    std::deque<Statement> own_;
    std::vector<Step> steps_;
    bool failed_ = false;
    std::size_t failedStep_ = 0;
    Failure failure_;
};

}  // namespace ledgerwick::postgres
