#include "hostkit/postgres/link.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

#include "ledgerwick/values/error.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick::postgres {

namespace {

// Longer than any work between two statements of a batch, so that only a dead office is let go.
constexpr const char* idleInTransaction = "600000";

std::string trimmed(const char* words) {
    return std::string(trim(words ? words : ""));
}

// A value in the list of startup options, where blanks part the options.
std::string escaped(std::string_view value) {
    std::string text;
    for (const char c : value) {
        if (c == ' ' || c == '\\') text += '\\';
        text += c;
    }
    return text;
}

std::string optionsFor(const Target& target, const store::OpenOptions& options) {
    const std::vector<std::pair<std::string, std::string>> pinned{
        {"search_path", target.company.empty() ? "lw_ext" : target.company + ",lw_ext"},
        {"TimeZone", "UTC"},
        {"DateStyle", "ISO"},
        {"standard_conforming_strings", "on"},
        {"extra_float_digits", "3"},
        {"lock_timeout", std::to_string(std::max<std::int64_t>(1, options.busyTimeout.count()))},
        {"idle_in_transaction_session_timeout", idleInTransaction},
        {"synchronous_commit", options.durability == store::Durability::Relaxed ? "off" : "on"},
        {"default_transaction_read_only", options.readOnly ? "on" : "off"},
        {"citus.propagate_set_commands", "local"},
    };
    std::string text(target.setting("options"));
    for (const auto& [name, value] : pinned) text += " -c " + name + "=" + escaped(value);
    return text;
}

// The numbers of failures by the beginning of the server's code; a longer one stands first.
std::int32_t numberOf(std::string_view state) {
    static constexpr std::pair<std::string_view, std::int32_t> numbers[]{
        {"42P01", error_number::noSuchTable}, {"42", error_number::statementError},
        {"55P03", error_number::writerBusy},  {"57014", error_number::writerBusy},
        {"40001", error_number::writerBusy},  {"40P01", error_number::writerBusy},
        {"25006", error_number::readOnly},    {"53100", error_number::diskFull},
        {"XX001", error_number::damagedFile}, {"XX002", error_number::damagedFile},
    };
    for (const auto& [beginning, number] : numbers) {
        if (state.starts_with(beginning)) return number;
    }
    return error_number::databaseError;
}

}  // namespace

void raiseFailure(const Failure& failure, std::string_view sql) {
    const std::string in = sql.empty() ? std::string() : " in: " + std::string(sql);
    if (failure.lost) {
        raise(error_number::connectionLost, "Database", failure.words + in);
    }
    raise(numberOf(failure.state), "Database", failure.words + " (" + failure.state + ")" + in);
}

// ---- parameters ---------------------------------------------------------------------------------

void Parameters::end(std::size_t start, TypeId type, int format) {
    types_.push_back(type);
    starts_.push_back(start);
    lengths_.push_back(start == null ? 0 : static_cast<int>(bytes_.size() - start));
    formats_.push_back(format);
    if (format == 0) bytes_ += '\0';
}

void Parameters::add(const rowsets::Cell& cell, TypeId type, std::string_view source) {
    if (cell.storage == rowsets::Cell::Storage::Null) return addNull(type);
    const std::size_t start = bytes_.size();
    encode(cell, type, bytes_, source);
    end(start, type, type == type_id::unknown ? 0 : 1);
}

void Parameters::addBytes(std::string_view bytes, TypeId type) {
    const std::size_t start = bytes_.size();
    bytes_ += bytes;
    end(start, type, 1);
}

void Parameters::addText(std::string_view text, TypeId type) {
    const std::size_t start = bytes_.size();
    bytes_ += text;
    end(start, type, 0);
}

void Parameters::addNull(TypeId type) {
    end(null, type, 1);
}

// ---- link ---------------------------------------------------------------------------------------

Link::Link(Target target, const store::OpenOptions& options)
    : target_(std::move(target)), settings_(target_.settings) {
    std::erase_if(settings_, [](const auto& setting) { return setting.first == "options"; });
    settings_.emplace_back("options", optionsFor(target_, options));
    settings_.emplace_back("client_encoding", "UTF8");
    settings_.emplace_back("fallback_application_name", "ledgerwick");
    reconnect();
}

Link::ConnectionPtr Link::connect(const std::string& password) const {
    std::vector<const char*> keywords;
    std::vector<const char*> values;
    for (const auto& [keyword, value] : settings_) {
        keywords.push_back(keyword.c_str());
        values.push_back(value.c_str());
    }
    if (!password.empty()) {
        keywords.push_back("password");
        values.push_back(password.c_str());
    }
    keywords.push_back(nullptr);
    values.push_back(nullptr);
    return ConnectionPtr(PQconnectdbParams(keywords.data(), values.data(), 0));
}

void Link::reconnect() {
    connection_.reset();
    connection_ = connect({});
    const PasswordSource source = passwordSource();
    if (PQstatus(handle()) != CONNECTION_OK && source && PQconnectionNeedsPassword(handle()) != 0) {
        const std::string password = source(PQuser(handle()), PQhost(handle()));
        if (!password.empty()) connection_ = connect(password);
    }
    if (PQstatus(handle()) != CONNECTION_OK) {
        Failure failure;
        failure.lost = true;
        failure.words = target_.shown + ": " + trimmed(PQerrorMessage(handle()));
        raiseFailure(failure, {});
    }
    PQsetNoticeProcessor(
        handle(), [](void*, const char*) {}, nullptr);
    ++epoch_;
    enterPipeline();
}

bool Link::isLost() const noexcept {
    return !connection_ || PQstatus(handle()) != CONNECTION_OK;
}

bool Link::inTransaction() const noexcept {
    const auto status = PQtransactionStatus(handle());
    return status == PQTRANS_INTRANS || status == PQTRANS_INERROR;
}

void Link::enterPipeline() {
    if (PQenterPipelineMode(handle()) != 1) raiseLost();
}

void Link::leavePipeline() {
    if (PQexitPipelineMode(handle()) != 1) raiseLost();
}

void Link::raiseLost() const {
    raiseFailure(failureOf(nullptr), {});
}

Failure Link::failureOf(const PGresult* result) const {
    Failure failure;
    if (const char* state = result ? PQresultErrorField(result, PG_DIAG_SQLSTATE) : nullptr) {
        failure.state = state;
        failure.words = trimmed(PQresultErrorField(result, PG_DIAG_MESSAGE_PRIMARY));
        if (const char* detail = PQresultErrorField(result, PG_DIAG_MESSAGE_DETAIL)) {
            failure.words += ". " + trimmed(detail);
        }
    } else {
        failure.words = trimmed(result ? PQresultErrorMessage(result) : PQerrorMessage(handle()));
        if (failure.words.empty()) failure.words = "the connection to the server is lost";
    }
    // The server ends a connection with an answer of class 57P when it stops.
    failure.lost = isLost() || failure.state.substr(0, 2) == "08" ||
                   (failure.state.substr(0, 3) == "57P") || failure.state.empty();
    return failure;
}

int Link::send(Statement& statement, const Parameters& parameters) {
    int results = 1;
    const bool named = !statement.name.empty();
    if (named && statement.prepared != epoch_) {
        const std::vector<TypeId>& types = parameters.types();
        if (PQsendPrepare(handle(), statement.name.c_str(), statement.sql.c_str(),
                          static_cast<int>(types.size()), types.data()) != 1) {
            raiseLost();
        }
        results = 2;
    }
    const std::size_t count = parameters.types_.size();
    std::vector<const char*> values(count);
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t start = parameters.starts_[i];
        values[i] = start == Parameters::null ? nullptr : parameters.bytes_.data() + start;
    }
    const int sent =
        named ? PQsendQueryPrepared(handle(), statement.name.c_str(), parameters.count(),
                                    values.data(), parameters.lengths_.data(),
                                    parameters.formats_.data(), 1)
              : PQsendQueryParams(handle(), statement.sql.c_str(), parameters.count(),
                                  parameters.types_.data(), values.data(),
                                  parameters.lengths_.data(), parameters.formats_.data(), 1);
    if (sent != 1) raiseLost();
    return results;
}

void Link::sync() {
    if (PQpipelineSync(handle()) != 1) raiseLost();
    ++trips_;
}

Result Link::next() {
    return Result(PQgetResult(handle()));
}

void Link::script(const std::string& sql) {
    leavePipeline();
    ++trips_;
    const Result result(PQexec(handle(), sql.c_str()));
    const auto status = PQresultStatus(result.get());
    const bool sound =
        status == PGRES_COMMAND_OK || status == PGRES_TUPLES_OK || status == PGRES_EMPTY_QUERY;
    const Failure failure = sound ? Failure{} : failureOf(result.get());
    if (!isLost()) enterPipeline();
    if (!sound) raiseFailure(failure, sql);
}

bool Link::copyIn(const std::string& sql, const std::string& rows, Failure& failure) {
    static const std::string header("PGCOPY\n\377\r\n\0\0\0\0\0\0\0\0\0", 19);
    static const std::string trailer("\377\377", 2);
    leavePipeline();
    trips_ += 2;
    Result result(PQexec(handle(), sql.c_str()));
    if (PQresultStatus(result.get()) == PGRES_COPY_IN) {
        for (const std::string* part : {&header, &rows, &trailer}) {
            PQputCopyData(handle(), part->data(), static_cast<int>(part->size()));
        }
        PQputCopyEnd(handle(), nullptr);
        result.reset(PQgetResult(handle()));
        while (const Result more{PQgetResult(handle())}) {
        }
    }
    const bool sound = PQresultStatus(result.get()) == PGRES_COMMAND_OK;
    if (!sound) failure = failureOf(result.get());
    if (!isLost()) enterPipeline();
    return sound;
}

// ---- trip ---------------------------------------------------------------------------------------

std::size_t Trip::add(Statement& statement, Parameters parameters) {
    steps_.push_back({&statement, std::move(parameters), 0, nullptr});
    return steps_.size() - 1;
}

std::size_t Trip::add(std::string sql) {
    own_.push_back({std::move(sql), {}, {}, 0});
    return add(own_.back());
}

bool Trip::sendAll() {
    try {
        for (Step& step : steps_) step.results = link_.send(*step.statement, step.parameters);
        link_.sync();
        return true;
    } catch (const Error& error) {
        failed_ = true;
        failure_.lost = true;
        failure_.words = error.Description();
        return false;
    }
}

void Trip::fail(std::size_t step, const PGresult* result) {
    if (failed_) return;
    failed_ = true;
    failedStep_ = step;
    failure_ = link_.failureOf(result);
}

// The results of a statement: of its preparation, if it was prepared here, and of its run.
void Trip::readStep(std::size_t place) {
    Step& step = steps_[place];
    for (int i = 0; i < step.results; ++i) {
        Result result = link_.next();
        const auto status = PQresultStatus(result.get());
        if (!result || status == PGRES_FATAL_ERROR) {
            fail(place, result.get());
            if (link_.isLost()) return;
        } else if (status != PGRES_PIPELINE_ABORTED && step.results == 2 && i == 0) {
            link_.markPrepared(*step.statement);
        }
        while (result) {
            step.result = std::move(result);
            result = link_.next();
        }
    }
}

void Trip::readSync() {
    while (!link_.isLost()) {
        const Result result = link_.next();
        if (PQresultStatus(result.get()) == PGRES_PIPELINE_SYNC) return;
    }
}

bool Trip::run() {
    if (!sendAll()) return false;
    for (std::size_t i = 0; i < steps_.size() && !link_.isLost(); ++i) readStep(i);
    readSync();
    if (link_.isLost() && !failed_) fail(steps_.size() - 1, nullptr);
    return !failed_;
}

bool Trip::runStreaming() {
    if (!sendAll()) return false;
    for (std::size_t i = 0; i + 1 < steps_.size() && !link_.isLost(); ++i) readStep(i);
    Step& last = steps_.back();
    if (!failed_ && last.results == 2) {
        const Result prepared = link_.next();
        if (PQresultStatus(prepared.get()) == PGRES_COMMAND_OK) {
            link_.markPrepared(*last.statement);
        } else {
            fail(steps_.size() - 1, prepared.get());
        }
        if (!link_.isLost()) link_.next();
        last.results = 1;
    }
    if (failed_) {
        if (!link_.isLost()) readStep(steps_.size() - 1);
        readSync();
        return false;
    }
    PQsetSingleRowMode(link_.handle());
    return true;
}

}  // namespace ledgerwick::postgres
