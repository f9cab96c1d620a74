// Rows that a batch writes, kept back until they are stored together.
//
// An insert and the updates of one row are one image. A statement does not see the images of a
// table when an equality of it is met by none of them: rows written for employee 7 are not seen by
// PRPNAID = 8.
#pragma once

#include <cstdint>
#include <map>
#include <span>
#include <unordered_map>
#include <utility>
#include <vector>

#include "hostkit/postgres/speller.h"
#include "hostkit/postgres/tables.h"

namespace ledgerwick::postgres {

// Columns of a row with the whole numbers that they hold.
using Facts = std::vector<std::pair<int, std::int64_t>>;

// A row that waits.
struct Image {
    std::int64_t key = 0;
    bool isNew = false;
    std::vector<Variant> values;  // by column of the table
    std::vector<bool> touched;    // those that are stored; all of a new row
};

// The images of one table.
struct KeptTable {
    TableRef table;
    std::vector<Image> images;
    std::unordered_map<std::int64_t, std::size_t> imageOf;  // by key
    std::int64_t nextKey = 0;                               // of a new row; 0 when it is not known

    // Of each column: the numbers in the images, and how many images have one.
    struct Numbers {
        std::unordered_map<std::int64_t, int> values;
        std::size_t images = 0;
    };
    std::map<int, Numbers> numbers;
};

class KeptWrites {
  public:
    // Keeps an image; one of the same row takes it in. `facts` holds numbers of the row before and
    // after the write.
    void add(const TableRef& table, Image image, const Facts& facts);

    // The tables whose images a statement might see.
    TableSet seenBy(const Spelling& spelling, std::span<const std::int64_t> literals) const;
    TableSet tables() const noexcept;
    std::size_t size() const noexcept { return size_; }
    bool empty() const noexcept { return size_ == 0; }

    // The tables with images, in the order in which they were written first.
    std::vector<KeptTable>& all() noexcept { return tables_; }
    KeptTable& of(const TableRef& table);
    void clear(TableSet tables) noexcept;

  private:
    static bool mightSee(const KeptTable& table, const Spelling& spelling,
                         std::span<const std::int64_t> literals);

    std::vector<KeptTable> tables_;
    std::size_t size_ = 0;
};

// A literal that is no whole number.
inline constexpr std::int64_t noNumber = INT64_MIN;

}  // namespace ledgerwick::postgres
