// A table in the layout of the Arrow C data interface: a buffer for each column.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "capi/table.h"

namespace ledgerwick::c {

// The kind of the cells of a column that hold a value; LEDGERWICK_EMPTY without such cells, and
// LEDGERWICK_MIXED for cells of several kinds.
std::int32_t kindOfColumn(const Table& table, std::int32_t column);

// One column as Arrow lays it out.
struct ArrowColumn {
    std::string name;
    std::string format;                 // of the data, as Arrow names it: "l" for whole numbers
    std::int64_t nulls = 0;             // how many cells hold no value
    std::vector<std::uint8_t> valid;    // a bit for each row
    std::vector<unsigned char> data;    // the values, or the bytes of the texts
    std::vector<std::int64_t> offsets;  // of texts: where each begins, and the end of the last
};

// The columns of a table. They change no more and belong to whoever holds them, on any thread.
struct ArrowColumns {
    std::int64_t rows = 0;
    std::vector<ArrowColumn> columns;
};

std::shared_ptr<const ArrowColumns> arrowColumns(const Table& table);
// The rows `first`, `first + step` and so on, `rows` of them.
std::shared_ptr<const ArrowColumns> arrowRows(const ArrowColumns& all, std::int64_t first,
                                              std::int64_t step, std::int64_t rows);

}  // namespace ledgerwick::c
