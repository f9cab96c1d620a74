#include "hostkit/sqlite/snapshot.h"

#include <utility>

#include "ledgerwick/values/checked.h"
#include "ledgerwick/values/error.h"

namespace ledgerwick::sqlite {

SnapshotReader::SnapshotReader(std::shared_ptr<Connection> connection, StatementLease statement,
                               bool hasRow)
    : connection_(std::move(connection)), statement_(std::move(statement)), ended_(!hasRow) {
    statement_->noticeNewColumns();
    connection_->addReader(*this);
    if (ended_) return;
    // One row ahead: a set of one row holds nothing in the database from the start.
    try {
        stepStatement();
    } catch (...) {
        connection_->removeReader(*this);
        throw;
    }
    onKept_ = true;
    onStatement_ = false;
    values_ = kept_.data();
}

SnapshotReader::~SnapshotReader() {
    Close();
}

void SnapshotReader::Close() {
    if (!statement_) return;
    connection_->removeReader(*this);
    statement_.reset();
    store_.reset();
    cells_ = nullptr;
    values_ = nullptr;
    onStatement_ = false;
}

// Leaves the statement's row for the next one.
void SnapshotReader::stepStatement() {
    if (keeping_) {
        statement_->moveRowTo(kept_);
        keptRow_ = true;
        if (!steppedBack_ && reached_ >= rowsKeptAtFirst) keeping_ = keptRow_ = false;
    }
    ended_ = !statement_->step();
    ++reached_;
    standOnStatement();
}

void SnapshotReader::standOnStatement() {
    onStatement_ = !ended_;
    values_ = onStatement_ ? statement_->row() : nullptr;
}

// Goes to a row in memory, or after the last one.
void SnapshotReader::stand(std::int64_t row) {
    reached_ = row;
    const auto place = static_cast<std::size_t>(row);
    cells_ = nullptr;
    if (place >= store_->size()) return;
    row_.resize(fieldCount());
    store_->read(place, row_);
    cells_ = row_.data();
}

void SnapshotReader::keepAllRows() {
    requireOpen();
    if (store_) return;
    const std::int64_t row = position();
    auto store = std::make_unique<rowsets::RowStore>();
    if (ended_ && reached_ <= 1 && (keptRow_ || reached_ == 0)) {
        if (keptRow_) store->append(ValueSource{kept_});
    } else {
        const Connection::HeldSnapshot held(*connection_);
        statement_->reset();
        while (statement_->step()) store->append(*statement_);
    }
    store_ = std::move(store);
    onStatement_ = onKept_ = false;
    values_ = nullptr;
    stand(row);
}

std::int32_t SnapshotReader::RecordCount() {
    requireOpen();
    if (store_) return narrowToInt32(static_cast<std::int64_t>(store_->size()));
    return narrowToInt32(ended_ ? reached_ : reached_ + 1);
}

bool SnapshotReader::Eof() {
    if (!hasRow()) requireOpen();
    return !hasRow();
}

std::int32_t SnapshotReader::AbsolutePosition() {
    requireOpen();
    return hasRow() ? narrowToInt32(position()) : -1;
}

void SnapshotReader::MoveFirst() {
    requireOpen();
    if (RecordCount() == 0) refuseRead();
    while (!store_ && position() == 1 && keptRow_) MovePrevious();
    if (position() == 0) return;
    keepAllRows();
    stand(0);
}

void SnapshotReader::MoveLast() {
    requireOpen();
    if (RecordCount() == 0) refuseRead();
    if (ended_ && !store_ && keptRow_) {
        if (!onKept_) MovePrevious();
        return;
    }
    keepAllRows();
    stand(static_cast<std::int64_t>(store_->size()) - 1);
}

void SnapshotReader::MoveNext() {
    if (onStatement_) {
        stepStatement();
        return;
    }
    if (!hasRow()) {
        requireOpen();
        refuseRead();
    }
    if (store_) {
        stand(reached_ + 1);
        return;
    }
    onKept_ = false;
    standOnStatement();
}

void SnapshotReader::MovePrevious() {
    requireOpen();
    if (position() == 0) refuseRead();
    if (!store_ && !onKept_ && keptRow_) {
        steppedBack_ = keeping_ = true;
        onKept_ = true;
        onStatement_ = false;
        values_ = kept_.data();
        return;
    }
    keepAllRows();
    stand(reached_ - 1);
}

void SnapshotReader::Value(const FieldName&, const Variant&) {
    refuseWrite();
}
void SnapshotReader::AddNew() {
    refuseWrite();
}
void SnapshotReader::Edit() {
    refuseWrite();
}
void SnapshotReader::Update() {
    refuseWrite();
}
ledgerwick::Bookmark SnapshotReader::LastModified() {
    refuseWrite();
}

void SnapshotReader::Values(FieldList names, std::span<Variant> values) {
    if (!statement_) refuseClosed();
    FieldIndex& fields = statement_->fields();
    const Variant* const row = values_;
    Variant* into = values.data();
    for (const FieldName& name : names) {
        const int column = fields.find(name);
        if (column == FieldIndex::none) refuseField(name);
        if (row) {
            *into++ = row[column];
        } else {
            rowsets::take(cellIn(column), statement_->kind(column), *into++);
        }
    }
}

ledgerwick::Bookmark SnapshotReader::Bookmark() {
    const std::int32_t row = AbsolutePosition();
    if (row < 0) refuseRead();
    return row;
}

void SnapshotReader::Bookmark(const ledgerwick::Bookmark& place) {
    requireOpen();
    const std::int32_t row = place.toInt32("Bookmark");
    if (row == position() && hasRow()) return;
    keepAllRows();
    if (row < 0 || row >= RecordCount()) refuseRead();
    stand(row);
}

std::size_t SnapshotReader::fieldCount() const {
    requireOpen();
    return static_cast<std::size_t>(statement_->columnCount());
}

std::string_view SnapshotReader::fieldName(std::size_t field) const {
    return statement_->fields().names()[requireField(field)];
}

VariantKind SnapshotReader::fieldKind(std::size_t field) const {
    return statement_->kind(static_cast<int>(requireField(field)));
}

std::size_t SnapshotReader::requireField(std::size_t field) const {
    if (field >= fieldCount()) raise(error_number::subscriptOutOfRange, "Recordset");
    return field;
}

void SnapshotReader::requireOpen() const {
    if (!statement_) refuseClosed();
}

void SnapshotReader::refuseClosed() {
    raise(error_number::objectClosed, "Recordset");
}

void SnapshotReader::refuseField(const FieldName& name) {
    raise(error_number::noSuchItem, "Recordset", name.text());
}

void SnapshotReader::refuseRead() {
    raise(error_number::noCurrentRecord, "Recordset");
}

void SnapshotReader::refuseWrite() {
    raise(error_number::readOnly, "Recordset");
}

}  // namespace ledgerwick::sqlite
