#include "hostkit/postgres/server_rows.h"

#include <utility>

#include "ledgerwick/values/error.h"

namespace ledgerwick::postgres {

using rowsets::Cell;
using rowsets::EditedRow;
using rowsets::RowKey;

namespace {

// A row of the set: what came from the server under what the set has written.
struct RowInMemory {
    const std::vector<Cell>& cells;

    int columnCount() const noexcept { return static_cast<int>(cells.size()); }
    Cell cell(int column) const { return cells[static_cast<std::size_t>(column)]; }
};

bool isWhole(VariantKind kind) noexcept {
    return kind == VariantKind::Int32 || kind == VariantKind::Int16;
}

}  // namespace

ServerRows::ServerRows(std::shared_ptr<Connection> connection,
                       std::shared_ptr<rowsets::KeyedFields> fields, Rows rows, Facts facts)
    : KeyedRows(std::move(fields)),
      connection_(std::move(connection)),
      table_(ownTable(this->fields().table)),
      rows_(std::move(rows)),
      facts_(std::move(facts)) {
    connection_->addReader(*this);
}

ServerRows::~ServerRows() {
    connection_->removeReader(*this);
}

std::vector<RowKey> ServerRows::keys() {
    std::size_t columns = 1;
    for (const int column : fields().rowColumn) columns += column >= 0 ? 1 : 0;
    std::vector<Cell> cells(columns);
    std::vector<RowKey> found;
    for (std::size_t place = 0; place < rows_.size(); ++place) {
        rows_.read(place, cells);
        RowKey key = cells.back().whole;
        if (!hasKey()) {
            key = static_cast<RowKey>(places_.size());
            places_.emplace_back(cells.back().text);
        }
        placeOf_.emplace(key, place);
        found.push_back(key);
    }
    return found;
}

Variant ServerRows::toFieldValue(const Variant& value, VariantKind kind, std::string_view source) {
    return rowsets::toFieldValue(value, kind, source);
}

void ServerRows::afterWrite() {
    stale_ = true;
    written_.clear();
    forget();
}

bool ServerRows::fetch(RowKey key, rowsets::KeptRow& row) {
    const auto place = placeOf_.find(key);
    const auto written = written_.find(key);
    if (stale_ && written == written_.end()) return fetchAgain(key, row);
    std::size_t columns = 1;
    for (const int column : fields().rowColumn) columns += column >= 0 ? 1 : 0;
    std::vector<Cell> cells(columns);
    if (place != placeOf_.end()) rows_.read(place->second, cells);
    if (written != written_.end()) {
        for (std::size_t field = 0; field < fields().rowColumn.size(); ++field) {
            const int at = fields().rowColumn[field];
            const auto column = static_cast<std::size_t>(fields().tableColumn[field]);
            if (at < 0 || !written->second.touched[column]) continue;
            cells[static_cast<std::size_t>(at)] = cellOf(written->second.values[column]);
        }
    }
    row.copy(RowInMemory{cells});
    return true;
}

// Fetches a row by its key, the fields that are read only.
bool ServerRows::fetchAgain(RowKey key, rowsets::KeptRow& row) {
    connection_->storeKept(table_->bit);
    std::string names;
    for (std::size_t field = 0; field < fields().rowColumn.size(); ++field) {
        if (fields().rowColumn[field] < 0) continue;
        const auto column = static_cast<std::size_t>(fields().tableColumn[field]);
        names += table_->server[column].quoted + ", ";
    }
    Parameters parameters;
    std::string condition = "ctid = $1::text::tid";
    if (hasKey()) {
        condition = table_->quotedKey() + " = $1";
        parameters.add(Cell::ofWhole(key), type_id::int8, "key");
    } else {
        parameters.addText(places_[static_cast<std::size_t>(key)], type_id::text);
    }
    const Result found =
        connection_->read(connection_->ownStatement("SELECT " + names + "NULL FROM " +
                                                    table_->quoted + " WHERE " + condition),
                          std::move(parameters));
    if (PQntuples(found.get()) == 0) return false;
    std::vector<Cell> cells;
    cells.reserve(static_cast<std::size_t>(PQnfields(found.get())));
    for (int column = 0; column < PQnfields(found.get()); ++column) {
        cells.push_back(cellIn(found.get(), 0, column));
    }
    row.copy(RowInMemory{cells});
    return true;
}

// ---- writing ------------------------------------------------------------------------------------

Facts ServerRows::factsOf(const EditedRow& row) const {
    Facts facts;
    for (std::size_t i = 0; i < row.size(); ++i) {
        if (!row.isTouched(i) || !isWhole(table_->columns[i].kind)) continue;
        if (!row.value(i).isNull()) facts.emplace_back(static_cast<int>(i), row.value(i).toInt64());
    }
    return facts;
}

Image ServerRows::imageOf(RowKey key, const EditedRow& row, bool isNew) const {
    Image image;
    image.key = key;
    image.isNew = isNew;
    image.values.resize(row.size());
    image.touched.assign(row.size(), isNew);
    for (std::size_t i = 0; i < row.size(); ++i) {
        if (row.isTouched(i)) {
            image.values[i] = row.value(i);
            image.touched[i] = true;
        } else if (isNew) {
            image.values[i] = table_->columns[i].defaultValue;
        }
    }
    if (isNew) image.values[static_cast<std::size_t>(table_->key)] = key;
    return image;
}

void ServerRows::remember(RowKey key, const EditedRow& row, bool isNew) {
    Image image = imageOf(key, row, isNew && hasKey());
    Written& written = written_[key];
    if (written.values.empty()) {
        written = {std::move(image.values), std::move(image.touched)};
        return;
    }
    for (std::size_t i = 0; i < image.touched.size(); ++i) {
        if (!image.touched[i]) continue;
        written.values[i] = std::move(image.values[i]);
        written.touched[i] = true;
    }
}

RowKey ServerRows::insert(const EditedRow& row) {
    Facts facts = factsOf(row);
    if (!hasKey() || !connection_->keepsWrites()) {
        const RowKey key = insertNow(row);
        connection_->forgetAhead(table_, facts);
        if (hasKey()) remember(key, row, true);
        return key;
    }
    const auto keyColumn = static_cast<std::size_t>(table_->key);
    const RowKey key =
        row.isTouched(keyColumn) ? row.value(keyColumn).toInt64() : connection_->nextKey(table_);
    facts.emplace_back(table_->key, key);
    connection_->keep(table_, imageOf(key, row, true), facts);
    connection_->wroteTo(table_->bit, this);
    remember(key, row, true);
    return key;
}

bool ServerRows::update(RowKey& key, const EditedRow& row) {
    Facts facts = facts_;
    for (const auto& fact : factsOf(row)) facts.push_back(fact);
    const bool movesKey = hasKey() && row.isTouched(static_cast<std::size_t>(table_->key));
    if (!hasKey() || movesKey || !connection_->keepsWrites()) {
        connection_->storeKept(table_->bit);
        if (!updateNow(key, row)) return false;
        connection_->forgetAhead(table_, facts);
        if (movesKey) {
            const RowKey moved = row.value(static_cast<std::size_t>(table_->key)).toInt64();
            if (const auto place = placeOf_.find(key); place != placeOf_.end()) {
                placeOf_[moved] = place->second;
            }
            if (auto before = written_.extract(key)) {
                before.key() = moved;
                written_.insert(std::move(before));
            }
            key = moved;
        }
    } else {
        facts.emplace_back(table_->key, key);
        connection_->keep(table_, imageOf(key, row, false), facts);
        connection_->wroteTo(table_->bit, this);
    }
    if (!stale_ || written_.count(key) != 0) remember(key, row, false);
    forget();
    return true;
}

Parameters ServerRows::touchedParameters(const EditedRow& row) const {
    Parameters parameters;
    for (std::size_t i = 0; i < row.size(); ++i) {
        if (!row.isTouched(i)) continue;
        parameters.add(cellOf(row.value(i)), table_->server[i].sentAs, table_->columns[i].name);
    }
    return parameters;
}

RowKey ServerRows::insertNow(const EditedRow& row) {
    connection_->storeKept(table_->bit);
    std::string names;
    std::string values;
    int parameter = 0;
    for (std::size_t i = 0; i < row.size(); ++i) {
        if (!row.isTouched(i)) continue;
        names += (names.empty() ? "" : ", ") + table_->server[i].quoted;
        values += (values.empty() ? "$" : ", $") + std::to_string(++parameter);
    }
    const std::string what =
        names.empty() ? " DEFAULT VALUES" : " (" + names + ") VALUES (" + values + ")";
    const Result inserted = connection_->write(
        connection_->ownStatement("INSERT INTO " + table_->quoted + what + " RETURNING " +
                                  (hasKey() ? table_->quotedKey() : "ctid::text")),
        touchedParameters(row), table_->bit, this);
    const Cell key = cellIn(inserted.get(), 0, 0);
    if (hasKey()) return key.whole;
    places_.emplace_back(key.text);
    stale_ = true;
    return static_cast<RowKey>(places_.size() - 1);
}

bool ServerRows::updateNow(RowKey key, const EditedRow& row) {
    std::string assignments;
    int parameter = 0;
    for (std::size_t i = 0; i < row.size(); ++i) {
        if (!row.isTouched(i)) continue;
        assignments += (assignments.empty() ? "" : ", ") + table_->server[i].quoted + " = $" +
                       std::to_string(++parameter);
    }
    Parameters parameters = touchedParameters(row);
    const std::string mark = "$" + std::to_string(++parameter);
    std::string condition = "ctid = " + mark + "::text::tid RETURNING ctid::text";
    if (hasKey()) {
        condition = table_->quotedKey() + " = " + mark + " RETURNING " + table_->quotedKey();
        parameters.add(Cell::ofWhole(key), type_id::int8, "key");
    } else {
        parameters.addText(places_[static_cast<std::size_t>(key)], type_id::text);
    }
    const Result updated =
        connection_->write(connection_->ownStatement("UPDATE " + table_->quoted + " SET " +
                                                     assignments + " WHERE " + condition),
                           std::move(parameters), table_->bit, this);
    if (PQntuples(updated.get()) == 0) return false;
    if (!hasKey()) places_[static_cast<std::size_t>(key)] = cellIn(updated.get(), 0, 0).text;
    return true;
}

}  // namespace ledgerwick::postgres
