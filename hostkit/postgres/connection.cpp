#include "hostkit/postgres/connection.h"

#include <algorithm>
#include <random>

#include "hostkit/postgres/reader.h"
#include "hostkit/postgres/schema.h"
#include "hostkit/postgres/server_rows.h"
#include "ledgerwick/values/error.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick::postgres {

using rowsets::Cell;

namespace {

constexpr std::size_t mostQueries = 128;
// For so many keys a batch asks at once, and keeps so many rows back.
constexpr std::size_t keysAhead = 500;
constexpr std::size_t mostKept = 1000;

// Takes the right to write: who updates the row works alone until the transaction ends.
const char* const lockSql =
    "UPDATE LedgerwickWriter SET Version = Version + 1, "
    "Tokens = (array_prepend($1::int8, Tokens))[1:16] WHERE Id = 1 RETURNING Version";
const char* const savepointSql = "SAVEPOINT lw";
const char* const moveSavepointSql = "RELEASE SAVEPOINT lw";
const char* const backSql = "ROLLBACK TO SAVEPOINT lw";

std::int64_t newToken() {
    static thread_local std::mt19937_64 numbers{std::random_device{}()};
    return static_cast<std::int64_t>(numbers());
}

Parameters tokenParameter(std::int64_t token) {
    Parameters parameters;
    parameters.add(Cell::ofWhole(token), type_id::int8, "token");
    return parameters;
}

bool isPicture(const Spelling& spelling, std::size_t literal) {
    return std::any_of(spelling.formats.begin(), spelling.formats.end(),
                       [&](const auto& format) { return format.second == literal; });
}

std::shared_ptr<Columns> columnsOf(const Spelling& spelling, const PGresult* result) {
    auto columns = std::make_shared<Columns>();
    std::vector<std::string> names;
    const int count = PQnfields(result);
    columns->pictures.assign(static_cast<std::size_t>(count), -1);
    for (const auto& [column, literal] : spelling.formats) {
        if (column < count) {
            columns->pictures[static_cast<std::size_t>(column)] = static_cast<int>(literal);
        }
    }
    for (int column = 0; column < count; ++column) {
        std::string name = PQfname(result, column);
        const auto alias =
            std::find_if(spelling.aliases.begin(), spelling.aliases.end(),
                         [&](const std::string& known) { return lowerCase(known) == name; });
        names.push_back(alias != spelling.aliases.end() ? *alias : spelled(name));
        columns->types.emplace_back(PQftype(result, column), PQfmod(result, column));
        const bool formatted = columns->pictures[static_cast<std::size_t>(column)] >= 0;
        columns->kinds.push_back(formatted
                                     ? VariantKind::Text
                                     : kindOf(PQftype(result, column), PQfmod(result, column)));
    }
    columns->fields = rowsets::FieldIndex(std::move(names));
    return columns;
}

}  // namespace

Connection::Connection(Target target, std::string name, const store::OpenOptions& options)
    : name_(std::move(name)),
      options_(options),
      link_(std::move(target), options),
      tables_([this](const std::string& sql, const std::string* parameter) {
          Parameters parameters;
          if (parameter) parameters.addText(*parameter, type_id::text);
          Statement once{sql, {}, {}, 0};
          return read(parameter ? ownStatement(sql) : once, std::move(parameters));
      }) {
    lifted_.keepBooleans();
    refreshTables();
}

Connection::~Connection() = default;

void Connection::refreshTables() {
    tables_.forget();
    queries_.clear();
    hasWriter_ = !options_.readOnly && tableExists("LedgerwickWriter");
}

// ---- failures -----------------------------------------------------------------------------------

void Connection::fail(const Failure& failure, std::string_view sql) {
    if (failure.lost) loseBatch();
    recover();
    raiseFailure(failure, sql);
}

// After a failure within a transaction, goes back to what was stored before it.
void Connection::recover() noexcept {
    try {
        if (link_.isLost() || !link_.inTransaction()) return;
        if (!open_) {
            Trip trip(link_);
            trip.add("ROLLBACK");
            trip.run();
            return;
        }
        Trip trip(link_);
        trip.add(backSql);
        if (!trip.run()) letGo();
    } catch (const std::exception&) {  // the failure before is the one that is raised
    }
}

void Connection::letGo() noexcept {
    open_ = wrote_ = false;
    kept_.clear(everyTable);
    announced_.clear();
    placeOf_.clear();
}

// The server takes back what it has not committed, so that nothing of the batch is stored.
void Connection::loseBatch() {
    lost_ = open_ || lost_;
    letGo();
    for (auto& [key, query] : queries_) query->ahead.reset();
}

void Connection::requireBatch() const {
    if (!lost_) return;
    raise(error_number::connectionLost, "Database",
          "the connection to the server was lost in the middle of a batch: nothing of the batch is "
          "stored; load again");
}

void Connection::runOrFail(Trip& trip) {
    leaveWire();
    requireBatch();
    if (trip.run()) return;
    // An idle connection may have died long ago: nothing was asked of it yet.
    if (trip.failure().lost && !open_) {
        loseBatch();
        link_.reconnect();
        if (trip.run()) return;
    }
    fail(trip.failure(), trip.failedSql());
}

// ---- statements ---------------------------------------------------------------------------------

// A picture may stand nowhere in the statement, so that the server cannot work out what it is.
Connection::Literals Connection::literals(const Spelling& spelling) const {
    Literals values;
    for (std::size_t i = 0; i < lifted_.literalCount(); ++i) {
        const Cell literal = lifted_.literal(i);
        switch (literal.storage) {
            case Cell::Storage::Text:
                values.parameters.addText(
                    literal.text, isPicture(spelling, i) ? type_id::text : type_id::unknown);
                values.texts.emplace_back(literal.text);
                break;
            default: {
                const TypeId type = lifted_.isDate(i)                         ? type_id::timestamp
                                    : literal.storage == Cell::Storage::Whole ? type_id::int8
                                                                              : type_id::float8;
                values.parameters.add(literal, type, "literal");
                values.texts.push_back(rowsets::asStored(literal).toText("literal"));
            }
        }
    }
    return values;
}

// The shape, the types of its literals, then what else decides how it is spelled.
void Connection::makeKey(RecordsetType type, FieldList reads) {
    key_ = lifted_.shape();
    key_ += '\0';
    for (std::size_t i = 0; i < lifted_.literalCount(); ++i) {
        key_ += static_cast<char>('0' + static_cast<int>(lifted_.literal(i).storage) +
                                  (lifted_.isDate(i) ? 16 : 0));
    }
    key_ += type == RecordsetType::Dynaset ? '\x02' : '\x01';
    for (const FieldName& name : reads) {
        key_ += name.text();
        key_ += '\0';
    }
}

QueryRef Connection::find(RecordsetType type, FieldList reads) {
    makeKey(type, reads);
    const auto known = queries_.find(key_);
    if (known != queries_.end()) {
        known->second->lastUse = ++clock_;
        return known->second;
    }
    auto query = std::make_shared<Query>();
    query->spelling = spell(lifted_.shape(), reads, type == RecordsetType::Dynaset, tables_);
    query->statement.sql = query->spelling.sql;
    if (!lifted_.comesAgain()) return query;
    query->statement.name = link_.nextName();
    query->lastUse = ++clock_;
    if (queries_.size() >= mostQueries) dropOldest();
    queries_.emplace(key_, query);
    return query;
}

void Connection::dropOldest() {
    const auto oldest = std::min_element(
        queries_.begin(), queries_.end(),
        [](const auto& a, const auto& b) { return a.second->lastUse < b.second->lastUse; });
    if (oldest->second->statement.prepared != 0) {
        spent_.push_back(oldest->second->statement.name);
    }
    queries_.erase(oldest);
}

Statement& Connection::ownStatement(const std::string& sql) {
    const auto known = ownStatements_.find(sql);
    if (known != ownStatements_.end()) return known->second;
    return ownStatements_.emplace(sql, Statement{sql, {}, link_.nextName(), 0}).first->second;
}

bool Connection::tableExists(std::string_view name) {
    Parameters parameters;
    parameters.addText(lowerCase(name), type_id::text);
    const Result found = read(ownStatement("SELECT to_regclass(quote_ident($1)) IS NOT NULL"),
                              std::move(parameters));
    return cellIn(found.get(), 0, 0).whole != 0;
}

Result Connection::read(Statement& statement, Parameters parameters) {
    Trip trip(link_);
    for (const std::string& name : std::exchange(spent_, {})) trip.add("DEALLOCATE " + name);
    const std::size_t step = trip.add(statement, std::move(parameters));
    runOrFail(trip);
    return trip.takeResult(step);
}

Result Connection::write(Statement& statement, Parameters parameters, TableSet written,
                         const OpenReader* writer) {
    leaveWire();
    requireBatch();
    Trip trip(link_);
    const bool alone = !open_ && hasWriter_;
    if (alone) addBegin(trip);
    const std::size_t step = trip.add(statement, std::move(parameters));
    const bool commits = alone || (open_ && transactions_ == 0 &&
                                   options_.durability == store::Durability::EachUpdate);
    if (commits) {
        trip.add("COMMIT");
    } else if (open_) {
        trip.add(moveSavepointSql);
        trip.add(savepointSql);
    }
    const bool sound = trip.run();
    if (!sound && trip.failure().lost && commits) {
        // Stored or not, the mark says so; what is not stored is written again.
        const bool inBatch = open_;
        lost_ = false;
        if (wasStored()) {
            ++ownSteps_;
        } else if (inBatch) {
            open_ = true;
            fail(trip.failure(), statement.sql);
        } else if (!trip.run()) {
            fail(trip.failure(), trip.failedSql());
        }
    } else if (!sound) {
        fail(trip.failure(), trip.failedSql());
    }
    if (commits) {
        if (sound) ++ownSteps_;
        if (open_) {
            open_ = false;
            beginOnServer();
        }
    } else {
        wrote_ = true;
    }
    wroteTo(written, writer);
    return trip.takeResult(step);
}

void Connection::execute(std::string_view sql) {
    lifted_.lift(sql);
    if (!lifted_.isQuery()) return define(lifted_.shape());
    const QueryRef query = find(RecordsetType::Snapshot, {});
    Literals values = literals(query->spelling);
    storeKept(kept_.tables() & query->spelling.tables);
    const Facts facts = factsOf(query->spelling);
    const Result result =
        write(query->statement, std::move(values.parameters), query->spelling.written, nullptr);
    if (PQresultStatus(result.get()) == PGRES_TUPLES_OK) {
        raise(error_number::statementError, "Database", "rows to open in: " + std::string(sql));
    }
    if (facts.empty()) {
        forgetAllAhead(query->spelling.written);
    } else {
        forgetAhead(query->spelling.equalities.front().table, facts);
    }
}

// The numbers that the equalities of the statement at hand ask for.
Facts Connection::factsOf(const Spelling& spelling) const {
    Facts facts;
    for (const Equality& equality : spelling.equalities) {
        const Cell literal = lifted_.literal(equality.literal);
        if (literal.storage == Cell::Storage::Whole) {
            facts.emplace_back(equality.column, literal.whole);
        }
    }
    return facts;
}

void Connection::forgetAllAhead(TableSet tables) noexcept {
    for (auto& [key, query] : queries_) {
        if ((query->spelling.tables & tables) != 0) query->ahead.reset();
    }
}

void Connection::exec(const std::string& script) {
    storeKept(everyTable);
    leaveWire();
    requireBatch();
    link_.script(script);
    wrote_ = wrote_ || open_;
    wroteTo(everyTable, nullptr);
    refreshTables();
}

void Connection::define(const std::string& statements) {
    exec(definitionsFor(statements));
}

void Connection::createSchema() {
    exec(functionsSql + definitionsFor(schemaSql) + ";" + writerSql);
}

// ---- opening ------------------------------------------------------------------------------------

RecordsetRef Connection::open(std::string_view sql, RecordsetType type, FieldList reads) {
    lifted_.lift(sql);
    requireBatch();
    const QueryRef query = find(type, reads);
    Literals values = literals(query->spelling);
    if (!kept_.empty()) {
        std::vector<std::int64_t> numbers;
        for (std::size_t i = 0; i < lifted_.literalCount(); ++i) {
            const Cell literal = lifted_.literal(i);
            numbers.push_back(literal.storage == Cell::Storage::Whole ? literal.whole : noNumber);
        }
        storeKept(kept_.seenBy(query->spelling, numbers));
    }
    Rows rows;
    if (takeAhead(query, values, rows)) return setOf(query, std::move(rows));
    return openRows(query, type, std::move(values));
}

std::vector<std::string> Connection::pictures(const Query& query) const {
    std::vector<std::string> texts;
    if (query.spelling.formats.empty()) return texts;
    for (std::size_t i = 0; i < lifted_.literalCount(); ++i) {
        texts.emplace_back(lifted_.literal(i).text);
    }
    return texts;
}

RecordsetRef Connection::setOf(const QueryRef& query, Rows rows) {
    if (query->spelling.keyed) {
        auto fetched = std::make_unique<ServerRows>(
            shared_from_this(), std::make_shared<rowsets::KeyedFields>(*query->spelling.keyed),
            std::move(rows), factsOf(query->spelling));
        auto keys = fetched->keys();
        return std::make_shared<rowsets::KeyedSet>(std::move(fetched), std::move(keys));
    }
    return std::make_shared<Reader>(shared_from_this(), query->columns, pictures(*query),
                                    std::move(rows));
}

// Rows come one by one. Those of a set that is only read, outside a transaction, stay on the wire
// beyond the first few; all others are drawn at once.
RecordsetRef Connection::openRows(const QueryRef& query, RecordsetType type, Literals values) {
    leaveWire();
    const bool streams = type == RecordsetType::Snapshot && !open_;
    const auto start = [&](Trip& trip) {
        for (const std::string& name : std::exchange(spent_, {})) trip.add("DEALLOCATE " + name);
        trip.add(query->statement, values.parameters);
        return trip.runStreaming();
    };
    for (int attempt = 0;; ++attempt) {
        Trip trip(link_);
        bool sound = start(trip);
        Failure failure = trip.failure();
        IncomingRows incoming(link_);
        if (sound) sound = incoming.start(failure);
        if (!sound) {
            if (failure.lost && !open_ && attempt == 0) {
                loseBatch();
                link_.reconnect();
                continue;
            }
            fail(failure, query->statement.sql);
        }
        if (!query->columns) query->columns = columnsOf(query->spelling, incoming.header());
        if (query->columns->count() == 0) {
            incoming.drain();
            raise(error_number::statementError, "Database",
                  "no rows to open in: " + query->statement.sql);
        }
        auto store = std::make_shared<rowsets::RowStore>();
        std::size_t left = streams ? Reader::rowsAtOnce : SIZE_MAX;
        while (incoming.row() && left > 0) {
            store->append(ResultRow{*query->columns, incoming.row()});
            if (!incoming.next(failure)) fail(failure, query->statement.sql);
            --left;
        }
        Rows rows{store, {}, false};
        if (!incoming.row()) return setOf(query, std::move(rows));
        auto reader = std::make_shared<Reader>(shared_from_this(), query->columns, pictures(*query),
                                               std::move(rows));
        reader->continueFrom(std::move(incoming), query->statement.sql);
        return reader;
    }
}

void Connection::leaveWire() {
    if (OpenReader* const reader = std::exchange(onWire_, nullptr)) reader->leaveWire();
}

void Connection::removeReader(OpenReader& reader) noexcept {
    const auto found = std::find(readers_.rbegin(), readers_.rend(), &reader);
    if (found == readers_.rend()) return;
    *found = readers_.back();
    readers_.pop_back();
}

void Connection::wroteTo(TableSet tables, const OpenReader* writer) {
    for (OpenReader* const reader : readers_) {
        if (reader != writer && (reader->tablesRead() & tables) != 0) reader->afterWrite();
    }
}

// ---- rows asked for ahead -----------------------------------------------------------------------

void Connection::announce(std::span<const std::int32_t> keys) {
    announced_.assign(keys.begin(), keys.end());
    placeOf_.clear();
    for (std::size_t i = 0; i < announced_.size(); ++i) placeOf_.emplace(announced_[i], i);
    for (auto& [key, query] : queries_) query->ahead.reset();
}

// Gives the rows of a statement that asks for an announced key, if they were asked for before, and
// else asks for those of the next keys too.
bool Connection::takeAhead(const QueryRef& query, const Literals& values, Rows& rows) {
    if (!open_ || announced_.empty() || !query->spelling.rowByRow) return false;
    const auto& equalities = query->spelling.equalities;
    const auto placeOf = [&](std::size_t equality) {
        const Cell literal = lifted_.literal(equalities[equality].literal);
        const auto place = literal.storage == Cell::Storage::Whole
                               ? placeOf_.find(static_cast<std::int32_t>(literal.whole))
                               : placeOf_.end();
        return place == placeOf_.end() ? announced_.size() : place->second;
    };
    // The equality whose literal moves from one statement to the next, and at first the first one.
    std::size_t moving = equalities.size();
    for (std::size_t i = equalities.size(); i-- > 0;) {
        if (placeOf(i) == announced_.size()) continue;
        const std::size_t literal = equalities[i].literal;
        const bool moved =
            !query->lastLiterals.empty() && query->lastLiterals[literal] != values.texts[literal];
        if (moved || query->lastLiterals.empty()) moving = i;
    }
    query->lastLiterals = values.texts;
    if (moving == equalities.size()) return false;
    const std::size_t literal = equalities[moving].literal;
    RowsAhead* ahead = query->ahead.get();
    const auto sameOthers = [&] {
        for (std::size_t i = 0; i < values.texts.size(); ++i) {
            if (i != literal && ahead->literals[i] != values.texts[i]) return false;
        }
        return true;
    };
    if (!ahead || ahead->equality != moving || !sameOthers()) {
        query->ahead = std::make_unique<RowsAhead>();
        ahead = query->ahead.get();
        ahead->equality = moving;
        ahead->literals = values.texts;
        query->many = {spellForMany(query->spelling, equalities[moving]), {}, link_.nextName(), 0};
    }
    if (query->many.sql.empty()) return false;
    const std::size_t place = placeOf(moving);
    const std::int32_t key = announced_[place];
    if (ahead->rowsOf.find(key) == ahead->rowsOf.end() && !askAhead(query, values, place)) {
        return false;
    }
    rows = ahead->rowsOf.at(key);
    return true;
}

std::vector<std::int32_t> Connection::keysFrom(const Query& query, std::size_t place) const {
    std::vector<std::int32_t> keys;
    const std::size_t end = std::min(place + keysAhead, announced_.size());
    for (std::size_t i = place; i < end; ++i) {
        if (query.ahead->rowsOf.find(announced_[i]) == query.ahead->rowsOf.end()) {
            keys.push_back(announced_[i]);
        }
    }
    return keys;
}

void Connection::addAhead(Trip& trip, Query& query, const std::vector<std::int32_t>& keys) {
    const std::size_t many = query.spelling.equalities[query.ahead->equality].literal;
    ArrayBytes array(type_id::int4);
    for (const std::int32_t key : keys) array.add(Cell::ofWhole(key), "key");
    Parameters parameters;
    for (std::size_t i = 0; i < query.ahead->literals.size(); ++i) {
        if (i == many) {
            parameters.addBytes(array.take(), arrayOf(type_id::int4));
        } else {
            parameters.addText(query.ahead->literals[i], query.statement.types[i]);
        }
    }
    trip.add(query.many, std::move(parameters));
}

// Other statements that have come to the end of what they asked for go out with it.
bool Connection::askAhead(const QueryRef& query, const Literals& values, std::size_t place) {
    query->statement.types = values.parameters.types();
    std::vector<std::pair<Query*, std::vector<std::int32_t>>> asked;
    asked.emplace_back(query.get(), keysFrom(*query, place));
    if (asked.front().second.size() < 2) return false;
    for (auto& [key, other] : queries_) {
        if (other == query || !other->ahead || other->ahead->rowsOf.empty()) continue;
        if (other->ahead->rowsOf.count(announced_[place]) != 0) continue;
        asked.emplace_back(other.get(), keysFrom(*other, place));
    }
    Trip trip(link_);
    for (auto& [other, keys] : asked) addAhead(trip, *other, keys);
    runOrFail(trip);
    for (std::size_t i = 0; i < asked.size(); ++i) {
        dealOut(*asked[i].first, asked[i].second, trip.result(i));
    }
    return true;
}

// The last column says whose each row is.
void Connection::dealOut(Query& query, const std::vector<std::int32_t>& keys,
                         const PGresult* result) {
    if (!query.columns) {
        query.columns = columnsOf(query.spelling, result);
        query.columns->kinds.pop_back();
        query.columns->types.pop_back();
        query.columns->pictures.pop_back();
    }
    auto store = std::make_shared<rowsets::RowStore>();
    for (const std::int32_t key : keys) query.ahead->rowsOf[key] = {store, {}, true};
    const int last = PQnfields(result) - 1;
    for (int row = 0; row < PQntuples(result); ++row) {
        const auto key = static_cast<std::int32_t>(cellIn(result, row, last).whole);
        query.ahead->rowsOf[key].places.push_back(static_cast<std::uint32_t>(row));
        store->append(ResultRow{*query.columns, result, row});
    }
}

// What was asked for ahead is forgotten where a write may have changed it.
void Connection::forgetAhead(const TableRef& table, const Facts& facts) {
    if (announced_.empty()) return;
    for (auto& [key, query] : queries_) {
        if (!query->ahead || (query->spelling.tables & table->bit) == 0) continue;
        const Equality& equality = query->spelling.equalities[query->ahead->equality];
        bool found = false;
        for (const auto& [column, number] : facts) {
            if (column != equality.column || equality.table->name != table->name) continue;
            query->ahead->rowsOf.erase(static_cast<std::int32_t>(number));
            found = true;
        }
        if (!found) query->ahead->rowsOf.clear();
    }
}

// ---- kept writes --------------------------------------------------------------------------------

bool Connection::keepsWrites() const noexcept {
    return open_ && (transactions_ > 0 || options_.durability != store::Durability::EachUpdate);
}

std::int64_t Connection::nextKey(const TableRef& table) {
    KeptTable& kept = kept_.of(table);
    if (kept.nextKey == 0) {
        const Result next = read(ownStatement("SELECT COALESCE(max(" + table->quotedKey() +
                                              "), 0)::int8 + 1 FROM " + table->quoted),
                                 {});
        kept_.of(table).nextKey = cellIn(next.get(), 0, 0).whole;
    }
    return kept_.of(table).nextKey++;
}

namespace {

std::string copySql(const Table& table) {
    std::string names;
    for (const ServerColumn& column : table.server) {
        names += (names.empty() ? "" : ", ") + column.quoted;
    }
    return "COPY " + table.quoted + " (" + names + ") FROM STDIN (FORMAT binary)";
}

void appendRow(const Table& table, const Image& image, std::string& rows) {
    putInt16(rows, static_cast<std::int16_t>(table.columns.size()));
    std::string value;
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        const Cell cell = cellOf(image.values[i]);
        if (cell.storage == Cell::Storage::Null) {
            putInt32(rows, -1);
            continue;
        }
        value.clear();
        encode(cell, table.server[i].sentAs, value, table.columns[i].name);
        putInt32(rows, static_cast<std::int32_t>(value.size()));
        rows += value;
    }
}

// One statement that updates the rows of all images with the same touched columns.
std::string updateSql(const Table& table, const std::vector<bool>& touched) {
    std::string assignments;
    std::string arrays = "$1";
    std::string names = "k";
    int parameter = 1;
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        if (!touched[i]) continue;
        const std::string& name = table.server[i].quoted;
        if (!assignments.empty()) assignments += ", ";
        assignments.append(name).append(" = v.").append(name);
        arrays += ", $" + std::to_string(++parameter);
        names += ", " + name;
    }
    return "UPDATE " + table.quoted + " AS t SET " + assignments + " FROM unnest(" + arrays +
           ") AS v(" + names + ") WHERE t." + table.quotedKey() + " = v.k";
}

Parameters updateParameters(const Table& table, const std::vector<const Image*>& images) {
    Parameters parameters;
    const auto addColumn = [&](TypeId type, std::string_view source, const auto& valueOf) {
        ArrayBytes array(type);
        for (const Image* image : images) array.add(valueOf(*image), source);
        parameters.addBytes(array.take(), arrayOf(type));
    };
    addColumn(type_id::int8, "key", [](const Image& image) { return Cell::ofWhole(image.key); });
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        if (!images.front()->touched[i]) continue;
        addColumn(table.server[i].sentAs, table.columns[i].name,
                  [i](const Image& image) { return cellOf(image.values[i]); });
    }
    return parameters;
}

}  // namespace

void Connection::keep(const TableRef& table, Image image, const Facts& facts) {
    kept_.add(table, std::move(image), facts);
    forgetAhead(table, facts);
    if (kept_.size() >= mostKept) storeKept(everyTable);
}

void Connection::storeKept(TableSet tables) {
    if (tables == 0 || kept_.empty()) return;
    leaveWire();
    requireBatch();
    for (std::size_t at = 0; at < kept_.all().size(); ++at) {
        KeptTable kept = kept_.all()[at];
        if (kept.images.empty() || (kept.table->bit & tables) == 0) continue;
        kept_.clear(kept.table->bit);
        try {
            storeImages(*kept.table, kept.images);
        } catch (const Error&) {
            if (lost_ || !open_ || kept.images.size() == 1) throw;
            // The row that fails raises, those before it stay, and those after it are given up.
            for (const Image& image : kept.images) storeImages(*kept.table, {&image, 1});
        }
        wrote_ = true;
    }
}

void Connection::storeImages(const Table& table, std::span<const Image> images) {
    std::string rows;
    std::map<std::vector<bool>, std::vector<const Image*>> updates;
    for (const Image& image : images) {
        if (image.isNew) {
            appendRow(table, image, rows);
        } else {
            updates[image.touched].push_back(&image);
        }
    }
    Failure failure;
    if (!rows.empty() && !link_.copyIn(copySql(table), rows, failure)) {
        fail(failure, copySql(table));
    }
    Trip trip(link_);
    for (const auto& [touched, of] : updates) {
        trip.add(ownStatement(updateSql(table, touched)), updateParameters(table, of));
    }
    trip.add(moveSavepointSql);
    trip.add(savepointSql);
    runOrFail(trip);
    std::size_t step = 0;
    for (const auto& [touched, of] : updates) {
        const std::string changed = PQcmdTuples(trip.takeResult(step++).get());
        if (changed != std::to_string(of.size())) {
            raise(error_number::noCurrentRecord, "Recordset", "a row is no longer in the table");
        }
    }
}

// ---- batches and transactions -------------------------------------------------------------------

void Connection::addBegin(Trip& trip) {
    token_ = newToken();
    trip.add("BEGIN");
    if (hasWriter_) trip.add(ownStatement(lockSql), tokenParameter(token_));
}

void Connection::beginOnServer() {
    Trip trip(link_);
    addBegin(trip);
    trip.add(savepointSql);
    runOrFail(trip);
    open_ = true;
    wrote_ = false;
    if (hasWriter_) version_ = cellIn(trip.result(1), 0, 0).whole;
}

// Whether the transaction with the present mark was stored, asked of the server anew. The answer
// waits for the writer, who may be that very transaction.
bool Connection::wasStored() {
    link_.reconnect();
    Trip trip(link_);
    trip.add("BEGIN");
    trip.add("UPDATE LedgerwickWriter SET Version = Version WHERE Id = 1");
    const std::size_t asked =
        trip.add(ownStatement("SELECT $1::int8 = ANY (Tokens) FROM LedgerwickWriter WHERE Id = 1"),
                 tokenParameter(token_));
    trip.add("ROLLBACK");
    if (!trip.run()) trip.raise();
    return cellIn(trip.result(asked), 0, 0).whole != 0;
}

void Connection::endOnServer(bool keep) {
    leaveWire();
    if (lost_) {
        lost_ = false;
        letGo();
        raise(error_number::connectionLost, "Database",
              "the connection to the server was lost: nothing of the batch is stored; load again");
    }
    if (!open_) return;
    const bool commits = keep && wrote_;
    Trip trip(link_);
    trip.add(commits ? "COMMIT" : "ROLLBACK");
    const bool sound = trip.run();
    letGo();
    if (sound) {
        ownSteps_ += commits ? 1 : 0;
        return;
    }
    if (!trip.failure().lost) fail(trip.failure(), trip.failedSql());
    if (!commits) return link_.reconnect();
    if (!hasWriter_ || !wasStored()) {
        raise(error_number::connectionLost, "Database",
              "the connection to the server was lost: nothing of the batch is stored; load again");
    }
    ++ownSteps_;
}

void Connection::beginBatch() {
    if (batches_ == 0 && transactions_ == 0) beginOnServer();
    ++batches_;
}

void Connection::endBatch() {
    if (batches_ == 0 || --batches_ != 0) return;
    if (transactions_ > 0) return storeKept(everyTable);
    try {
        storeKept(everyTable);
    } catch (...) {
        try {
            endOnServer(true);
        } catch (const Error&) {  // the first failure is the one that is raised
        }
        throw;
    }
    endOnServer(true);
}

bool Connection::beginTransaction() {
    if (batches_ == 0 && transactions_ == 0) {
        beginOnServer();
        ++transactions_;
        return true;
    }
    storeKept(everyTable);
    Trip trip(link_);
    trip.add("SAVEPOINT inner_transaction");
    trip.add(savepointSql);
    runOrFail(trip);
    ++transactions_;
    return false;
}

void Connection::commit(bool outermost) {
    storeKept(everyTable);
    if (outermost) {
        --transactions_;
        return endOnServer(true);
    }
    Trip trip(link_);
    trip.add("RELEASE SAVEPOINT inner_transaction");
    runOrFail(trip);
    --transactions_;
}

void Connection::rollBack(bool outermost) noexcept {
    try {
        kept_.clear(everyTable);
        for (auto& [key, query] : queries_) query->ahead.reset();
        if (outermost) {
            transactions_ = 0;
            endOnServer(false);
        } else if (!lost_) {
            --transactions_;
            leaveWire();
            Trip trip(link_);
            trip.add("ROLLBACK TO SAVEPOINT inner_transaction");
            trip.add("RELEASE SAVEPOINT inner_transaction");
            trip.run();
        }
        wroteTo(everyTable, nullptr);
        refreshTables();
    } catch (const std::exception&) {  // the server takes back what is left open
    }
}

std::int64_t Connection::dataVersion() {
    if (!hasWriter_) return 0;
    if (open_) return version_ - 1 - ownSteps_;
    const Result now = read(ownStatement("SELECT Version FROM LedgerwickWriter WHERE Id = 1"), {});
    return cellIn(now.get(), 0, 0).whole - ownSteps_;
}

// A view has no parameters: its literals stand in it as the server writes them.
void Connection::narrow(std::string_view table, std::string_view columns,
                        std::string_view condition) {
    lifted_.lift("SELECT " + std::string(columns) + " FROM " + std::string(table) + " WHERE " +
                 std::string(condition));
    const std::string sql = spell(lifted_.shape(), {}, false, tables_).sql;
    std::string view = "CREATE TEMP VIEW " + dialect::quotedName(lowerCase(table)) + " AS ";
    for (std::size_t at = 0; at < sql.size();) {
        if (sql[at] != '$') {
            view += sql[at++];
            continue;
        }
        std::size_t number = 0;
        for (++at; at < sql.size() && sql[at] >= '0' && sql[at] <= '9'; ++at) {
            number = number * 10 + static_cast<std::size_t>(sql[at] - '0');
        }
        const Cell literal = lifted_.literal(number - 1);
        if (lifted_.isDate(number - 1)) {
            view += "timestamp '" +
                    rowsets::toVariant(literal, VariantKind::Date).toDate("").toIso() + "'";
        } else if (literal.storage == Cell::Storage::Text) {
            view += "'" + replaceAll(literal.text, "'", "''") + "'";
        } else {
            view += rowsets::asStored(literal).toText("");
        }
    }
    exec(view);
}

}  // namespace ledgerwick::postgres
