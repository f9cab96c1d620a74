#include "ledgerwick/values/result_table.h"

#include <algorithm>
#include <utility>

#include "ledgerwick/values/error.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick {
namespace {

constexpr std::string_view source = "ResultTable";

bool isText(FieldType type) noexcept {
    return type == FieldType::Text || type == FieldType::FixedText;
}

Variant cutToWidth(std::string_view text, std::int32_t width) {
    if (width <= 0) return Variant(text);
    return Variant(firstCharacters(text, static_cast<std::size_t>(width)));
}

Variant converted(const Variant& value, const ResultTable::FieldInfo& field) {
    switch (field.type) {
        case FieldType::Int16:
            return value.toInt16(source);
        case FieldType::Int32:
            return value.toInt32(source);
        case FieldType::Int64:
            return value.toInt64(source);
        case FieldType::Boolean:
            return value.toBoolean(source);
        case FieldType::Single:
            return value.toSingle(source);
        case FieldType::Double:
            return value.toDouble(source);
        case FieldType::Currency:
            return value.toCurrency(source);
        case FieldType::Date:
            return value.toDate(source);
        case FieldType::Text:
        case FieldType::FixedText:
            break;
    }
    if (value.kind() == VariantKind::Text) return cutToWidth(value.textView(), field.size);
    return cutToWidth(value.toText(source), field.size);
}

template <class T>
int ordering(T a, T b) noexcept {
    return a < b ? -1 : b < a ? 1 : 0;
}

// Below, equal or above, for two values of one field.
int compareCells(const Variant& a, const Variant& b) {
    if (a.isEmpty() || b.isEmpty()) return ordering(!a.isEmpty(), !b.isEmpty());
    switch (a.kind()) {
        case VariantKind::Text:
            return compareIgnoringCase(a.textView(), b.textView());
        case VariantKind::Int64:
            return ordering(a.toInt64(), b.toInt64());
        case VariantKind::Currency:
            return ordering(a.toCurrency(), b.toCurrency());
        default:
            return ordering(a.toDouble(), b.toDouble());
    }
}

// Removes the last word of `text` when it is `word`.
bool takeLastWord(std::string_view& text, std::string_view word) noexcept {
    if (text.size() <= word.size()) return false;
    const std::size_t start = text.size() - word.size();
    if (text[start - 1] != ' ' || !equalsIgnoringCase(text.substr(start), word)) return false;
    text = trimRight(text.substr(0, start));
    return true;
}

}  // namespace

void ResultTable::Append(std::string_view name, FieldType type, std::int32_t size) {
    if (open_) raise(error_number::invalidCall, source, "fields are appended before Open");
    for (const auto& field : fields_) {
        if (equalsIgnoringCase(field.name, name)) raise(error_number::duplicateKey, source, name);
    }
    fields_.push_back({std::string(name), type, isText(type) ? size : 0});
}

void ResultTable::Open() {
    open_ = true;
}

void ResultTable::AddNew() {
    if (!open_) raise(error_number::objectClosed, source);
    pending_.assign(fields_.size(), Variant());
    adding_ = true;
}

void ResultTable::Update() {
    if (!adding_) raise(error_number::updateWithoutEdit, source);
    auto place = rows_.end();
    if (!sortKeys_.empty()) {
        place = std::upper_bound(rows_.begin(), rows_.end(), pending_,
                                 [this](const Row& a, const Row& b) { return lessRow(a, b); });
    }
    position_ = static_cast<std::int32_t>(place - rows_.begin());
    rows_.insert(place, std::move(pending_));
    adding_ = false;
}

const Variant& ResultTable::Fields(std::string_view name) const {
    const std::size_t field = indexOf(name);
    return rowInHand()[field];
}

void ResultTable::Fields(std::string_view name, const Variant& value) {
    const std::size_t field = indexOf(name);
    rowInHand()[field] = converted(value, fields_[field]);
}

void ResultTable::Sort(std::string_view order) {
    std::vector<SortKey> keys;
    for (auto rest = trim(order); !rest.empty();) {
        const std::size_t comma = std::min(rest.find(','), rest.size());
        auto name = trim(rest.substr(0, comma));
        const bool descending = takeLastWord(name, "DESC");
        if (!descending) takeLastWord(name, "ASC");
        keys.push_back({indexOf(name), descending});
        rest.remove_prefix(std::min(comma + 1, rest.size()));
    }
    sortKeys_ = std::move(keys);
    std::stable_sort(rows_.begin(), rows_.end(),
                     [this](const Row& a, const Row& b) { return lessRow(a, b); });
    adding_ = false;
    position_ = rows_.empty() ? -1 : 0;
}

std::int32_t ResultTable::RecordCount() const noexcept {
    return static_cast<std::int32_t>(rows_.size());
}

std::int32_t ResultTable::FieldCount() const noexcept {
    return static_cast<std::int32_t>(fields_.size());
}

const ResultTable::FieldInfo& ResultTable::Field(std::int32_t position) const {
    if (position < 0 || position >= FieldCount()) raise(error_number::noSuchItem, source);
    return fields_[static_cast<std::size_t>(position)];
}

bool ResultTable::Bof() const noexcept {
    return position_ < 0;
}
bool ResultTable::Eof() const noexcept {
    return rows_.empty() || position_ >= RecordCount();
}

std::int32_t ResultTable::AbsolutePosition() const noexcept {
    return Eof() ? -1 : position_;
}

void ResultTable::MoveFirst() {
    adding_ = false;
    if (rows_.empty()) raise(error_number::noCurrentRecord, source);
    position_ = 0;
}

void ResultTable::MoveLast() {
    adding_ = false;
    if (rows_.empty()) raise(error_number::noCurrentRecord, source);
    position_ = RecordCount() - 1;
}

void ResultTable::MoveNext() {
    adding_ = false;
    if (Eof()) raise(error_number::noCurrentRecord, source);
    ++position_;
}

void ResultTable::MovePrevious() {
    adding_ = false;
    if (Bof()) raise(error_number::noCurrentRecord, source);
    --position_;
}

std::size_t ResultTable::indexOf(std::string_view name) const {
    for (std::size_t i = 0; i < fields_.size(); ++i) {
        if (equalsIgnoringCase(fields_[i].name, name)) return i;
    }
    raise(error_number::noSuchItem, source, name);
}

bool ResultTable::lessRow(const Row& a, const Row& b) const {
    for (const SortKey& key : sortKeys_) {
        const int order = compareCells(a[key.field], b[key.field]);
        if (order != 0) return key.descending ? order > 0 : order < 0;
    }
    return false;
}

ResultTable::Row& ResultTable::rowInHand() {
    if (adding_) return pending_;
    if (Bof() || Eof()) raise(error_number::noCurrentRecord, source);
    return rows_[static_cast<std::size_t>(position_)];
}

const ResultTable::Row& ResultTable::rowInHand() const {
    if (adding_) return pending_;
    if (Bof() || Eof()) raise(error_number::noCurrentRecord, source);
    return rows_[static_cast<std::size_t>(position_)];
}

}  // namespace ledgerwick
