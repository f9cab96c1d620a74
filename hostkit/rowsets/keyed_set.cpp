#include "hostkit/rowsets/keyed_set.h"

#include <algorithm>
#include <utility>

#include "ledgerwick/values/checked.h"
#include "ledgerwick/values/error.h"

namespace ledgerwick::rowsets {

namespace {

Variant blankOf(VariantKind kind) {
    switch (kind) {
        case VariantKind::Boolean:
            return false;
        case VariantKind::Date:
            return Date();
        case VariantKind::Text:
        case VariantKind::Empty:
            return "";
        default:
            return std::int16_t{0};
    }
}

}  // namespace

KeyedFields keyedFields(TableRef table, const std::vector<int>& columns, FieldList reads) {
    KeyedFields keyed;
    std::vector<std::string> names;
    int read = 0;
    for (const int column : columns) {
        names.push_back(table->columns[static_cast<std::size_t>(column)].name);
        keyed.rowColumn.push_back(isRead(reads, names.back()) ? read++ : -1);
    }
    keyed.table = std::move(table);
    keyed.tableColumn = columns;
    keyed.fields = FieldIndex(std::move(names));
    return keyed;
}

void EditedRow::start(std::size_t columns) {
    written_.resize(columns);
    touched_.assign((columns + bitsInWord - 1) / bitsInWord, 0);
}

void EditedRow::write(std::size_t column, Variant value) {
    written_[column] = std::move(value);
    touched_[column / bitsInWord] |= std::uint64_t{1} << (column % bitsInWord);
}

bool EditedRow::isUntouched() const noexcept {
    return std::all_of(touched_.begin(), touched_.end(), [](auto word) { return word == 0; });
}

std::string_view EditedRow::touchedBytes() const noexcept {
    return {reinterpret_cast<const char*>(touched_.data()),
            touched_.size() * sizeof(std::uint64_t)};
}

KeyedRows::~KeyedRows() = default;

void KeyedRows::keep(RowKey key) {
    if (!fetch(key, kept_)) {
        raise(error_number::noCurrentRecord, "Recordset", "the row is no longer in the table");
    }
    isKept_ = true;
}

KeyedSet::KeyedSet(std::unique_ptr<KeyedRows> rows, std::vector<RowKey> keys)
    : rows_(std::move(rows)), keys_(std::move(keys)) {}

KeyedSet::~KeyedSet() = default;

void KeyedSet::Close() {
    rows_.reset();
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
    rows_->forget();
}

Cell KeyedSet::cell(const FieldName& name) {
    return cellOf(fieldOf(name));
}

VariantKind KeyedSet::kindOf(const FieldName& name) {
    return column(fieldOf(name)).kind;
}

Cell KeyedSet::cellOf(std::size_t field) {
    if (inEdit() && edited_.isTouched(tableColumn(field))) {
        return toCell(edited_.value(tableColumn(field)));
    }
    const int rowColumn = fields().rowColumn[field];
    if (rowColumn < 0) {
        raise(error_number::noSuchItem, "Recordset",
              column(field).name + ", which the set was opened without");
    }
    if (edit_ == EditMode::AddNew) return toCell(column(field).defaultValue);
    requireRow();
    return rows_->cells(keys_[at_])[static_cast<std::size_t>(rowColumn)];
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
    edited_.start(fields().table->columns.size());
    edit_ = mode;
}

void KeyedSet::Value(const FieldName& name, const Variant& value) {
    const std::size_t field = fieldOf(name);
    if (!inEdit()) raise(error_number::updateWithoutEdit, "Recordset", name.text());
    edited_.write(tableColumn(field), rows_->toFieldValue(value, column(field).kind, name.text()));
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

void KeyedSet::insertRow() {
    const RowKey key = rows_->insert(edited_);
    const bool afterLast = at_ == keys_.size();
    keys_.push_back(key);
    lastModified_ = static_cast<std::int64_t>(keys_.size()) - 1;
    if (afterLast) at_ = keys_.size();
}

void KeyedSet::updateRow() {
    lastModified_ = static_cast<std::int64_t>(at_);
    if (edited_.isUntouched()) return;
    if (!rows_->update(keys_[at_], edited_)) {
        raise(error_number::noCurrentRecord, "Recordset", "the row is no longer in the table");
    }
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
    return fields().tableColumn.size();
}

std::string_view KeyedSet::fieldName(std::size_t field) const {
    return column(requireField(field)).name;
}

VariantKind KeyedSet::fieldKind(std::size_t field) const {
    return column(requireField(field)).kind;
}

bool KeyedSet::isKey(std::size_t field) const {
    return fields().tableColumn[requireField(field)] == fields().table->key;
}

void KeyedSet::FillEmpty() {
    requireOpen();
    if (!inEdit()) raise(error_number::updateWithoutEdit, "Recordset");
    for (std::size_t field = 0; field < fieldCount(); ++field) {
        if (isKey(field) || !wouldBeNull(field)) continue;
        const TableColumn& blank = column(field);
        Value(FieldName(blank.name), blankOf(blank.kind));
    }
}

bool KeyedSet::wouldBeNull(std::size_t field) {
    requireField(field);
    if (!inEdit()) return false;
    const std::size_t place = tableColumn(field);
    if (edited_.isTouched(place)) return edited_.value(place).isNull();
    if (edit_ == EditMode::AddNew) return column(field).defaultValue.isNull();
    return fields().rowColumn[field] >= 0 && cellOf(field).storage == Cell::Storage::Null;
}

std::size_t KeyedSet::fieldOf(const FieldName& name) {
    requireOpen();
    const int field = fields().fields.find(name);
    if (field == FieldIndex::none) raise(error_number::noSuchItem, "Recordset", name.text());
    return static_cast<std::size_t>(field);
}

std::size_t KeyedSet::tableColumn(std::size_t field) const {
    return static_cast<std::size_t>(fields().tableColumn[field]);
}

const TableColumn& KeyedSet::column(std::size_t field) const {
    return fields().table->columns[tableColumn(field)];
}

void KeyedSet::requireOpen() const {
    if (!rows_) raise(error_number::objectClosed, "Recordset");
}

void KeyedSet::requireRow() const {
    requireOpen();
    if (!hasRow()) raise(error_number::noCurrentRecord, "Recordset");
}

std::size_t KeyedSet::requireField(std::size_t field) const {
    if (field >= fieldCount()) raise(error_number::subscriptOutOfRange, "Recordset");
    return field;
}

}  // namespace ledgerwick::rowsets
