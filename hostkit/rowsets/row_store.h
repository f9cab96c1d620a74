// Rows held in memory.
//
// They come from a row source: anything that stands on a row and has `int columnCount()` and
// `Cell cell(int column)`.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "hostkit/export.h"
#include "hostkit/rowsets/cell.h"

namespace ledgerwick::rowsets {

// One row, its texts included. The next row uses its memory again.
class LEDGERWICK_HOSTKIT_API KeptRow {
  public:
    template <class RowSource>
    void copy(const RowSource& source) {
        const int columns = source.columnCount();
        cells_.resize(static_cast<std::size_t>(columns));
        texts_.clear();
        for (int column = 0; column < columns; ++column) {
            Cell& cell = cells_[static_cast<std::size_t>(column)];
            cell = source.cell(column);
            if (cell.storage == Cell::Storage::Text) texts_ += cell.text;
        }
        pointToOwnTexts();
    }
    const std::vector<Cell>& cells() const noexcept { return cells_; }

  private:
    void pointToOwnTexts() noexcept;

    std::vector<Cell> cells_;
    std::string texts_;
};

// All rows of a set, packed: a whole number takes as many bytes as it needs, a text its own
// length.
class LEDGERWICK_HOSTKIT_API RowStore {
  public:
    template <class RowSource>
    void append(const RowSource& source) {
        const int columns = source.columnCount();
        for (int column = 0; column < columns; ++column) pack(source.cell(column));
        addPacked();
    }
    void append(const KeptRow& row);
    std::size_t size() const noexcept { return starts_.size(); }
    // Texts of the cells stay in the store.
    void read(std::size_t row, std::vector<Cell>& cells) const;

  private:
    static constexpr std::size_t blockSize = std::size_t{1} << 20;

    void pack(const Cell& cell);
    void addPacked();

    std::string packed_;  // the row being appended
    std::vector<std::unique_ptr<char[]>> blocks_;
    std::size_t blockUsed_ = blockSize;
    std::vector<const char*> starts_;
};

}  // namespace ledgerwick::rowsets
