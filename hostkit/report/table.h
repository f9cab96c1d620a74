// Rows of values with named columns, as a page or a command shows them.
#pragma once

#include <algorithm>
#include <cstddef>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "hostkit/export.h"
#include "ledgerwick/values/variant.h"

namespace ledgerwick::report {

// Rows of values. Column names are small words joined by "_"; a table for people shows blanks.
class LEDGERWICK_HOSTKIT_API Table {
  public:
    // An empty table.
    Table(std::string name, std::vector<std::string> columns);

    // Adds a row.
    void add(std::vector<Variant> row);

    // What people see of a wide or long table; programs always get all of it.
    void showColumns(std::vector<std::string> names) { shownColumns_ = std::move(names); }
    // Shows so many rows.
    void showRows(std::size_t most) { shownRows_ = most; }

    // Its name.
    const std::string& name() const noexcept { return name_; }
    // Its columns.
    const std::vector<std::string>& columns() const noexcept { return columns_; }
    // Its rows.
    const std::vector<std::vector<Variant>>& rows() const noexcept { return rows_; }
    // The columns shown.
    std::vector<std::size_t> shownColumns() const;
    // How many rows are shown.
    std::size_t shownRows() const noexcept { return std::min(shownRows_, rows_.size()); }

  private:
    std::string name_;
    std::vector<std::string> columns_;
    std::vector<std::vector<Variant>> rows_;
    std::vector<std::string> shownColumns_;  // all of them when empty
    std::size_t shownRows_ = std::numeric_limits<std::size_t>::max();
};

// A value as people read it: dates as 2016-04-29, money as 1,234.50, "yes" and "no", and nothing
// for what is not set. Control characters become blanks.
LEDGERWICK_HOSTKIT_API std::string readable(const Variant& value);

}  // namespace ledgerwick::report
