#include "hostkit/rowsets/row_store.h"

#include <algorithm>
#include <cstring>

namespace ledgerwick::rowsets {

namespace {

// In front of each packed value.
enum class Mark : char { Null, Int8, Int16, Int32, Int64, Real, Money, Text };

template <class Value>
void put(std::string& packed, Value value) {
    char bytes[sizeof(Value)];
    std::memcpy(bytes, &value, sizeof(Value));
    packed.append(bytes, sizeof(Value));
}

template <class Value>
Value take(const char*& at) {
    Value value;
    std::memcpy(&value, at, sizeof(Value));
    at += sizeof(Value);
    return value;
}

template <class Integer>
bool putWhole(std::string& packed, Mark mark, std::int64_t value) {
    const auto narrow = static_cast<Integer>(value);
    if (narrow != value) return false;
    put(packed, mark);
    put(packed, narrow);
    return true;
}

Cell takeCell(const char*& at) {
    switch (take<Mark>(at)) {
        case Mark::Int8:
            return Cell::ofWhole(take<std::int8_t>(at));
        case Mark::Int16:
            return Cell::ofWhole(take<std::int16_t>(at));
        case Mark::Int32:
            return Cell::ofWhole(take<std::int32_t>(at));
        case Mark::Int64:
            return Cell::ofWhole(take<std::int64_t>(at));
        case Mark::Real:
            return Cell::ofReal(take<double>(at));
        case Mark::Money:
            return Cell::ofMoney(take<std::int64_t>(at));
        case Mark::Text: {
            const auto size = take<std::uint32_t>(at);
            const std::string_view text(at, size);
            at += size;
            return Cell::ofText(text);
        }
        default:
            return {};
    }
}

}  // namespace

void KeptRow::pointToOwnTexts() noexcept {
    const char* at = texts_.data();
    for (Cell& cell : cells_) {
        if (cell.storage != Cell::Storage::Text) continue;
        cell.text = {at, cell.text.size()};
        at += cell.text.size();
    }
}

void RowStore::append(const KeptRow& row) {
    for (const Cell& cell : row.cells()) pack(cell);
    addPacked();
}

void RowStore::addPacked() {
    if (packed_.size() > blockSize - blockUsed_) {
        blocks_.push_back(std::make_unique<char[]>(std::max(blockSize, packed_.size())));
        blockUsed_ = 0;
    }
    char* const start = blocks_.back().get() + blockUsed_;
    std::memcpy(start, packed_.data(), packed_.size());
    blockUsed_ = std::min(blockSize, blockUsed_ + packed_.size());
    starts_.push_back(start);
    packed_.clear();
}

void RowStore::pack(const Cell& cell) {
    switch (cell.storage) {
        case Cell::Storage::Null:
            put(packed_, Mark::Null);
            break;
        case Cell::Storage::Whole:
            if (!putWhole<std::int8_t>(packed_, Mark::Int8, cell.whole) &&
                !putWhole<std::int16_t>(packed_, Mark::Int16, cell.whole) &&
                !putWhole<std::int32_t>(packed_, Mark::Int32, cell.whole)) {
                putWhole<std::int64_t>(packed_, Mark::Int64, cell.whole);
            }
            break;
        case Cell::Storage::Real:
            put(packed_, Mark::Real);
            put(packed_, cell.real);
            break;
        case Cell::Storage::Money:
            put(packed_, Mark::Money);
            put(packed_, cell.whole);
            break;
        case Cell::Storage::Text:
            put(packed_, Mark::Text);
            put(packed_, static_cast<std::uint32_t>(cell.text.size()));
            packed_ += cell.text;
            break;
    }
}

void RowStore::read(std::size_t row, std::vector<Cell>& cells) const {
    const char* at = starts_[row];
    for (Cell& cell : cells) cell = takeCell(at);
}

}  // namespace ledgerwick::rowsets
