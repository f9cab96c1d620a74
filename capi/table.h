// The rows that a call hands out.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "capi/call.h"
#include "ledgerwick/values/result_table.h"
#include "ledgerwick/values/variant.h"

namespace ledgerwick::c {

class Table : public Held {
  public:
    // `kinds` are those that the columns were declared with, where they are known.
    explicit Table(std::vector<std::string> columns, std::vector<std::int32_t> kinds = {})
        : columns_(std::move(columns)), kinds_(std::move(kinds)) {
        kinds_.resize(columns_.size(), LEDGERWICK_EMPTY);
    }

    // Takes the cells of a further row, one for each column.
    void add(std::initializer_list<Variant> row) { cells_.insert(cells_.end(), row); }
    void addCell(Variant cell) { cells_.push_back(std::move(cell)); }

    const std::vector<std::string>& columns() const noexcept { return columns_; }
    std::int64_t rows() const noexcept {
        return static_cast<std::int64_t>(cells_.size() / columns_.size());
    }
    // The kind that a column was declared with, or LEDGERWICK_EMPTY.
    std::int32_t declaredKind(std::int32_t column) const {
        return kinds_[static_cast<std::size_t>(column)];
    }
    // Errors: 9 outside the table.
    const Variant& cell(std::int64_t row, std::int32_t column) const;
    // Keeps a text for the caller until the next one.
    const char* keepText(std::string text, std::size_t* length);
    // Fills in a row; its texts are kept until the next one.
    // Errors: 9 outside the table, and for another number of cells than of columns.
    void fill(std::int64_t row, ledgerwick_cell* cells, std::int32_t count);

  private:
    std::vector<std::string> columns_;
    std::vector<std::int32_t> kinds_;
    std::vector<Variant> cells_;  // row by row
    std::string text_;
    std::vector<std::string> rowTexts_;
};

// The rows of a result table of the library, with columns named as its fields.
std::unique_ptr<Table> tableOf(ResultTable& result);

// A value as a kind of the interface, and as its texts and dates.
std::int32_t kindOf(VariantKind kind);
inline std::int32_t kindOf(const Variant& value) {
    return kindOf(value.kind());
}
std::int64_t integerOf(const Variant& value, std::string_view what);
// A short float as the decimal that it stands for: 5.1, not 5.099999904632568.
double doubleOf(const Variant& value, std::string_view what);
ledgerwick_date dateOf(const Variant& value, std::string_view what);
std::string textOf(const Variant& value);

}  // namespace ledgerwick::c
