#include "hostkit/sqlite/sqlite_rows.h"

#include <utility>

#include "hostkit/dialect/lexer.h"
#include "ledgerwick/values/error.h"

namespace ledgerwick::sqlite {

namespace {

using dialect::quotedName;
using rowsets::EditedRow;
using rowsets::RowKey;

// Binds the touched fields in the order of the table, and gives the parameter after them.
int bindTouched(Statement& statement, const EditedRow& row) {
    int parameter = 1;
    for (std::size_t i = 0; i < row.size(); ++i) {
        if (!row.isTouched(i)) continue;
        bind(statement.handle(), parameter++, rowsets::toCell(row.value(i)), false);
    }
    return parameter;
}

}  // namespace

SqliteRows::SqliteRows(std::shared_ptr<Connection> connection, std::shared_ptr<KeyedPlan> plan,
                       TableSet tables)
    : KeyedRows(plan), connection_(std::move(connection)), plan_(std::move(plan)), tables_(tables) {
    connection_->addReader(*this);
}

SqliteRows::~SqliteRows() {
    connection_->removeReader(*this);
}

Variant SqliteRows::toFieldValue(const Variant& value, VariantKind kind, std::string_view source) {
    Variant stored = rowsets::toFieldValue(value, kind, source);
    if (stored.kind() == VariantKind::Currency) {
        const Currency money = stored.toCurrency();
        if (Currency::fromDouble(money.toDouble()) != money) {
            raise(error_number::overflow, source,
                  money.toText() + " cannot be stored to four decimals");
        }
    }
    return stored;
}

bool SqliteRows::fetch(RowKey key, rowsets::KeptRow& row) {
    const StatementLease found =
        connection_->statement(plan_->rowSql, [this] { return plan_->rowSql; });
    bind(found->handle(), 1, Cell::ofWhole(key), false);
    if (!found->step()) return false;
    row.copy(*found);
    return true;
}

RowKey SqliteRows::insert(const EditedRow& row) {
    const StatementLease insert =
        connection_->statement(writeKey('\x03', row), [&] { return insertSql(row); });
    bindTouched(*insert, row);
    connection_->write(*insert);
    return connection_->lastRowId();
}

bool SqliteRows::update(RowKey& key, const EditedRow& row) {
    const StatementLease update =
        connection_->statement(writeKey('\x04', row), [&] { return updateSql(row); });
    bind(update->handle(), bindTouched(*update, row), Cell::ofWhole(key), false);
    connection_->write(*update);
    if (connection_->changedRows() == 0) return false;
    if (plan_->table->key >= 0) {
        const auto column = static_cast<std::size_t>(plan_->table->key);
        if (row.isTouched(column)) key = row.value(column).toInt64();
    }
    return true;
}

std::string SqliteRows::writeKey(char verb, const EditedRow& row) const {
    std::string key(1, verb);
    key += plan_->table->name;
    key += '\0';
    key += row.touchedBytes();
    return key;
}

std::string SqliteRows::insertSql(const EditedRow& row) const {
    std::string names;
    std::string values;
    for (std::size_t i = 0; i < row.size(); ++i) {
        if (!row.isTouched(i)) continue;
        names += (names.empty() ? "" : ", ") + quotedName(plan_->table->columns[i].name);
        values += values.empty() ? "?" : ", ?";
    }
    const std::string into = "INSERT INTO " + quotedName(plan_->table->name);
    if (names.empty()) return into + " DEFAULT VALUES";
    return into + " (" + names + ") VALUES (" + values + ")";
}

std::string SqliteRows::updateSql(const EditedRow& row) const {
    std::string assignments;
    for (std::size_t i = 0; i < row.size(); ++i) {
        if (!row.isTouched(i)) continue;
        assignments +=
            (assignments.empty() ? "" : ", ") + quotedName(plan_->table->columns[i].name);
        assignments += " = ?";
    }
    return "UPDATE " + quotedName(plan_->table->name) + " SET " + assignments + " WHERE rowid = ?";
}

}  // namespace ledgerwick::sqlite
