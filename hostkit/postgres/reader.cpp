#include "hostkit/postgres/reader.h"

#include <utility>

#include "ledgerwick/values/checked.h"
#include "ledgerwick/values/error.h"
#include "ledgerwick/values/format.h"

namespace ledgerwick::postgres {

using rowsets::Cell;

namespace {

[[noreturn]] void refuseRead(std::string_view why = {}) {
    raise(error_number::noCurrentRecord, "Recordset", why);
}
[[noreturn]] void refuseWrite() {
    raise(error_number::readOnly, "Recordset");
}

}  // namespace

Reader::Reader(std::shared_ptr<Connection> connection, std::shared_ptr<Columns> columns,
               std::vector<std::string> pictures, Rows rows)
    : connection_(std::move(connection)),
      columns_(std::move(columns)),
      pictures_(std::move(pictures)),
      rows_(std::move(rows)) {
    formatted_.resize(pictures_.empty() ? 0 : fieldCount());
    stand(0);
}

Reader::~Reader() {
    Close();
}

void Reader::continueFrom(IncomingRows incoming, std::string sql) {
    incoming_.emplace(std::move(incoming));
    sql_ = std::move(sql);
    reached_ = inMemory();
    connection_->takeWire(this);
}

void Reader::Close() {
    if (!columns_) return;
    if (incoming_) {
        connection_->takeWire(nullptr);
        incoming_->drain();
        incoming_.reset();
    }
    columns_.reset();
    rows_ = {};
    rest_.reset();
    before_.reset();
    cells_ = nullptr;
    wireRow_ = nullptr;
}

// Something else needs the wire: what is left comes into memory, the row before with it.
void Reader::leaveWire() {
    drawRest();
}

void Reader::drawRest() {
    if (!incoming_) return;
    connection_->takeWire(nullptr);
    rest_ = std::make_shared<rowsets::RowStore>();
    restFrom_ = reached_;
    if (before_) {
        rest_->append(ResultRow{*columns_, before_.get()});
        --restFrom_;
    }
    Failure failure;
    while (incoming_->row()) {
        rest_->append(ResultRow{*columns_, incoming_->row()});
        if (incoming_->next(failure)) continue;
        incoming_.reset();
        connection_->fail(failure, sql_);
    }
    incoming_.reset();
    before_.reset();
    wireRow_ = nullptr;
    stand(at_);
}

// Goes to a row, or after the last one.
void Reader::stand(std::int64_t row) {
    at_ = row;
    cells_ = nullptr;
    wireRow_ = nullptr;
    if (row < inMemory()) {
        row_.resize(fieldCount());
        rows_.read(static_cast<std::size_t>(row), row_);
        cells_ = row_.data();
    } else if (rest_) {
        if (row < restFrom_) {
            refuseRead("this far back the set has to be opened again: " + sql_);
        }
        const auto place = static_cast<std::size_t>(row - restFrom_);
        if (place >= rest_->size()) return;
        row_.resize(fieldCount());
        rest_->read(place, row_);
        cells_ = row_.data();
    } else if (incoming_) {
        while (reached_ < row && incoming_->row()) stepWire();
        if (row == reached_) {
            wireRow_ = incoming_ ? incoming_->row() : nullptr;
        } else if (row == reached_ - 1 && before_) {
            wireRow_ = before_.get();
        } else {
            refuseRead("this far back the set has to be opened again: " + sql_);
        }
    }
}

void Reader::stepWire() {
    before_ = incoming_->takeRow();
    ++reached_;
    Failure failure;
    const bool sound = incoming_->next(failure);
    if (incoming_->row()) return;
    connection_->takeWire(nullptr);
    if (!sound) {
        incoming_.reset();
        connection_->fail(failure, sql_);
    }
}

std::int32_t Reader::RecordCount() {
    requireOpen();
    if (rest_) return narrowToInt32(restFrom_ + static_cast<std::int64_t>(rest_->size()));
    if (!incoming_) return narrowToInt32(inMemory());
    return narrowToInt32(reached_ + (incoming_->row() ? 1 : 0));
}

bool Reader::Eof() {
    if (!hasRow()) requireOpen();
    return !hasRow();
}

std::int32_t Reader::AbsolutePosition() {
    requireOpen();
    return hasRow() ? narrowToInt32(at_) : -1;
}

void Reader::MoveFirst() {
    requireOpen();
    if (inMemory() == 0) refuseRead();
    stand(0);
}

void Reader::MoveLast() {
    requireOpen();
    if (inMemory() == 0) refuseRead();
    if (incoming_ && incoming_->row()) drawRest();
    stand(RecordCount() - 1);
}

void Reader::MoveNext() {
    if (!hasRow()) {
        requireOpen();
        refuseRead();
    }
    stand(at_ + 1);
}

void Reader::MovePrevious() {
    requireOpen();
    if (at_ == 0) refuseRead();
    stand(at_ - 1);
}

std::size_t Reader::columnOf(const FieldName& name) {
    requireOpen();
    const int column = columns_->fields.find(name);
    if (column == rowsets::FieldIndex::none || column >= columns_->count()) {
        raise(error_number::noSuchItem, "Recordset", name.text());
    }
    return static_cast<std::size_t>(column);
}

Cell Reader::cell(const FieldName& name) {
    const std::size_t column = columnOf(name);
    Cell value;
    if (cells_) {
        value = cells_[column];
    } else if (wireRow_) {
        value = ResultRow{*columns_, wireRow_}.cell(static_cast<int>(column));
    } else {
        refuseRead();
    }
    const int picture = columns_->pictures[column];
    if (picture < 0 || value.storage == Cell::Storage::Null) return value;
    formatted_[column] =
        Format(rowsets::asStored(value), pictures_[static_cast<std::size_t>(picture)]);
    return Cell::ofText(formatted_[column]);
}

void Reader::Value(const FieldName&, const Variant&) {
    refuseWrite();
}
void Reader::AddNew() {
    refuseWrite();
}
void Reader::Edit() {
    refuseWrite();
}
void Reader::Update() {
    refuseWrite();
}
ledgerwick::Bookmark Reader::LastModified() {
    refuseWrite();
}

ledgerwick::Bookmark Reader::Bookmark() {
    const std::int32_t row = AbsolutePosition();
    if (row < 0) refuseRead();
    return row;
}

void Reader::Bookmark(const ledgerwick::Bookmark& place) {
    requireOpen();
    const std::int32_t row = place.toInt32("Bookmark");
    if (row == at_ && hasRow()) return;
    if (row >= inMemory()) drawRest();
    if (row < 0 || row >= RecordCount()) refuseRead();
    stand(row);
}

std::size_t Reader::fieldCount() const {
    requireOpen();
    return static_cast<std::size_t>(columns_->count());
}

std::string_view Reader::fieldName(std::size_t field) const {
    if (field >= fieldCount()) raise(error_number::subscriptOutOfRange, "Recordset");
    return columns_->fields.names()[field];
}

VariantKind Reader::fieldKind(std::size_t field) const {
    if (field >= fieldCount()) raise(error_number::subscriptOutOfRange, "Recordset");
    return columns_->kinds[field];
}

void Reader::requireOpen() const {
    if (!columns_) raise(error_number::objectClosed, "Recordset");
}

}  // namespace ledgerwick::postgres
