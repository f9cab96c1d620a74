// Rows held in memory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "hostkit/sqlite/cell.h"
#include "hostkit/sqlite/statement.h"

namespace ledgerwick::sqlite {

// One row, its texts included. The next row uses its memory again.
class KeptRow {
  public:
    void copy(Statement& statement);
    const std::vector<Cell>& cells() const noexcept { return cells_; }

  private:
    std::vector<Cell> cells_;
    std::string texts_;
};

// All rows of a statement, packed: a whole number takes as many bytes as it needs, a text its own
// length.
class RowStore {
  public:
    void append(Statement& statement);
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

}  // namespace ledgerwick::sqlite
