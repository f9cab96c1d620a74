#include "hostkit/sqlite/keyed_set.h"

#include <algorithm>
#include <utility>

#include "ledgerwick/values/checked.h"
#include "ledgerwick/values/error.h"

namespace ledgerwick::sqlite {

namespace {

constexpr std::size_t bitsInWord = 64;

}  // namespace

KeyedSet::KeyedSet(std::shared_ptr<Connection> connection, StatementLease keys)
    : connection_(std::move(connection)), plan_(keys->plan), tables_(keys->reads) {
    while (keys->step()) keys_.push_back(keys->cell(0).whole);
    connection_->addReader(*this);
}

KeyedSet::~KeyedSet() {
    Close();
}

void KeyedSet::Close() {
    if (!plan_) return;
    connection_->removeReader(*this);
    plan_.reset();
    keys_.clear();
    edit_ = EditMode::None;
}

std::int32_t KeyedSet::RecordCount() {
    requireOpen();
    return narrowToInt32(static_cast<std::int64_t>(keys_.size()));
}

bool KeyedSet::Eof() {
    requireOpen();
    return !hasRow();
}

std::int32_t KeyedSet::AbsolutePosition() {
    requireOpen();
    return hasRow() ? narrowToInt32(static_cast<std::int64_t>(at_)) : -1;
}

void KeyedSet::MoveFirst() {
    requireOpen();
    if (keys_.empty()) requireRow();
    goTo(0);
}

void KeyedSet::MoveLast() {
    requireOpen();
    if (keys_.empty()) requireRow();
    goTo(keys_.size() - 1);
}

void KeyedSet::MoveNext() {
    requireRow();
    goTo(at_ + 1);
}

void KeyedSet::MovePrevious() {
    requireOpen();
    if (at_ == 0) raise(error_number::noCurrentRecord, "Recordset");
    goTo(at_ - 1);
}

// A row in edit is given up, as if it had never been touched.
void KeyedSet::goTo(std::size_t place) {
    edit_ = EditMode::None;
    at_ = place;
    rowFetched_ = false;
}

Cell KeyedSet::cell(const FieldName& name) {
    return cellOf(fieldOf(name));
}

VariantKind KeyedSet::kindOf(const FieldName& name) {
    return column(fieldOf(name)).kind;
}

Cell KeyedSet::cellOf(std::size_t field) {
    if (inEdit() && isTouched(tableColumn(field))) return toCell(written_[tableColumn(field)]);
    const int rowColumn = plan_->rowColumn[field];
    if (rowColumn < 0) {
        raise(error_number::noSuchItem, "Recordset",
              column(field).name + ", which the set was opened without");
    }
    if (edit_ == EditMode::AddNew) return toCell(column(field).defaultValue);
    fetchRow();
    return row_.cells()[static_cast<std::size_t>(rowColumn)];
}

void KeyedSet::fetchRow() {
    if (rowFetched_) return;
    requireRow();
    const StatementLease row = connection_->statement(plan_->rowSql, [&] { return plan_->rowSql; });
    bind(row->handle(), 1, Cell::ofWhole(keys_[at_]), false);
    if (!row->step()) {
        raise(error_number::noCurrentRecord, "Recordset", "the row is no longer in the table");
    }
    row_.copy(*row);
    rowFetched_ = true;
}

void KeyedSet::AddNew() {
    requireOpen();
    startEdit(EditMode::AddNew);
}

void KeyedSet::Edit() {
    requireRow();
    startEdit(EditMode::Edit);
}

void KeyedSet::startEdit(EditMode mode) {
    const std::size_t columns = plan_->table->columns.size();
    written_.resize(columns);
    touched_.assign((columns + bitsInWord - 1) / bitsInWord, 0);
    edit_ = mode;
}

void KeyedSet::Value(const FieldName& name, const Variant& value) {
    const std::size_t field = fieldOf(name);
    if (!inEdit()) raise(error_number::updateWithoutEdit, "Recordset", name.text());
    const std::size_t place = tableColumn(field);
    written_[place] = toFieldValue(value, column(field).kind, name.text());
    touched_[place / bitsInWord] |= std::uint64_t{1} << (place % bitsInWord);
}

bool KeyedSet::isTouched(std::size_t tableColumn) const {
    return (touched_[tableColumn / bitsInWord] >> (tableColumn % bitsInWord)) & 1;
}

void KeyedSet::Update() {
    requireOpen();
    if (!inEdit()) raise(error_number::updateWithoutEdit, "Recordset");
    if (edit_ == EditMode::AddNew) {
        insertRow();
    } else {
        updateRow();
    }
    edit_ = EditMode::None;
}

// Statements that write are kept by the table and the set of fields.
std::string KeyedSet::writeKey() const {
    std::string key(edit_ == EditMode::AddNew ? "\x03" : "\x04");
    key += plan_->table->name;
    key += '\0';
    key.append(reinterpret_cast<const char*>(touched_.data()),
               touched_.size() * sizeof(std::uint64_t));
    return key;
}

void KeyedSet::insertRow() {
    const StatementLease insert =
        connection_->statement(writeKey(), [this] { return insertSql(); });
    bindTouched(*insert);
    connection_->write(*insert);
    const bool behindLast = at_ == keys_.size();
    keys_.push_back(connection_->lastRowId());
    lastModified_ = static_cast<std::int64_t>(keys_.size()) - 1;
    if (behindLast) at_ = keys_.size();
}

void KeyedSet::updateRow() {
    lastModified_ = static_cast<std::int64_t>(at_);
    if (std::all_of(touched_.begin(), touched_.end(), [](auto word) { return word == 0; })) return;
    const StatementLease update =
        connection_->statement(writeKey(), [this] { return updateSql(); });
    const int keyParameter = bindTouched(*update);
    bind(update->handle(), keyParameter, Cell::ofWhole(keys_[at_]), false);
    connection_->write(*update);
    if (connection_->changedRows() == 0) {
        raise(error_number::noCurrentRecord, "Recordset", "the row is no longer in the table");
    }
    const int key = plan_->table->key;
    if (key >= 0 && isTouched(static_cast<std::size_t>(key))) {
        keys_[at_] = written_[static_cast<std::size_t>(key)].toInt64();
    }
}

// Binds the touched fields in the order of the table, and gives the parameter behind them.
int KeyedSet::bindTouched(Statement& statement) const {
    int parameter = 1;
    for (std::size_t i = 0; i < written_.size(); ++i) {
        if (isTouched(i)) bind(statement.handle(), parameter++, toCell(written_[i]), false);
    }
    return parameter;
}

std::string KeyedSet::insertSql() const {
    std::string names;
    std::string values;
    for (std::size_t i = 0; i < written_.size(); ++i) {
        if (!isTouched(i)) continue;
        names += (names.empty() ? "" : ", ") + quotedName(plan_->table->columns[i].name);
        values += values.empty() ? "?" : ", ?";
    }
    const std::string into = "INSERT INTO " + quotedName(plan_->table->name);
    if (names.empty()) return into + " DEFAULT VALUES";
    return into + " (" + names + ") VALUES (" + values + ")";
}

std::string KeyedSet::updateSql() const {
    std::string assignments;
    for (std::size_t i = 0; i < written_.size(); ++i) {
        if (!isTouched(i)) continue;
        assignments +=
            (assignments.empty() ? "" : ", ") + quotedName(plan_->table->columns[i].name);
        assignments += " = ?";
    }
    return "UPDATE " + quotedName(plan_->table->name) + " SET " + assignments + " WHERE rowid = ?";
}

ledgerwick::Bookmark KeyedSet::LastModified() {
    requireOpen();
    if (lastModified_ == none) raise(error_number::noCurrentRecord, "Recordset");
    return narrowToInt32(lastModified_);
}

ledgerwick::Bookmark KeyedSet::Bookmark() {
    requireRow();
    return AbsolutePosition();
}

void KeyedSet::Bookmark(const ledgerwick::Bookmark& place) {
    requireOpen();
    const auto wanted = static_cast<std::size_t>(place.toInt32("Bookmark"));
    if (wanted >= keys_.size()) raise(error_number::noCurrentRecord, "Recordset");
    goTo(wanted);
}

std::size_t KeyedSet::fieldCount() const {
    requireOpen();
    return plan_->tableColumn.size();
}

std::string_view KeyedSet::fieldName(std::size_t field) const {
    return column(requireField(field)).name;
}

VariantKind KeyedSet::fieldKind(std::size_t field) const {
    return column(requireField(field)).kind;
}

bool KeyedSet::isKey(std::size_t field) const {
    return plan_->tableColumn[requireField(field)] == plan_->table->key;
}

bool KeyedSet::wouldBeNull(std::size_t field) {
    requireField(field);
    if (!inEdit()) return false;
    const std::size_t place = tableColumn(field);
    if (isTouched(place)) return written_[place].isNull();
    if (edit_ == EditMode::AddNew) return column(field).defaultValue.isNull();
    return plan_->rowColumn[field] >= 0 && cellOf(field).storage == Cell::Storage::Null;
}

std::size_t KeyedSet::fieldOf(const FieldName& name) {
    requireOpen();
    const int field = plan_->fields.find(name);
    if (field == FieldIndex::none) raise(error_number::noSuchItem, "Recordset", name.text());
    return static_cast<std::size_t>(field);
}

std::size_t KeyedSet::tableColumn(std::size_t field) const {
    return static_cast<std::size_t>(plan_->tableColumn[field]);
}

const TableColumn& KeyedSet::column(std::size_t field) const {
    return plan_->table->columns[tableColumn(field)];
}

void KeyedSet::requireOpen() const {
    if (!plan_) raise(error_number::objectClosed, "Recordset");
}

void KeyedSet::requireRow() const {
    requireOpen();
    if (!hasRow()) raise(error_number::noCurrentRecord, "Recordset");
}

std::size_t KeyedSet::requireField(std::size_t field) const {
    if (field >= fieldCount()) raise(error_number::subscriptOutOfRange, "Recordset");
    return field;
}

}  // namespace ledgerwick::sqlite
