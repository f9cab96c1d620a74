#include "capi/table.h"

#include <algorithm>

#include "capi/columns.h"
#include "ledgerwick/values/text.h"
#include "ledgerwick/values/utf8.h"

namespace ledgerwick::c {

namespace {

constexpr std::string_view here = "ledgerwick_table";

Table& tableIn(const ledgerwick_table* handle) {
    return objectOf<Table>(handle, "table");
}

}  // namespace

const Variant& Table::cell(std::int64_t row, std::int32_t column) const {
    const auto width = static_cast<std::int32_t>(columns_.size());
    if (row < 0 || row >= rows() || column < 0 || column >= width) {
        raise(LEDGERWICK_OUT_OF_RANGE, here,
              "row " + std::to_string(row) + ", column " + std::to_string(column));
    }
    return cells_[static_cast<std::size_t>(row * width + column)];
}

const char* Table::keepText(std::string text, std::size_t* length) {
    text_ = std::move(text);
    give(length, text_.size());
    return text_.c_str();
}

void Table::fill(std::int64_t row, ledgerwick_cell* cells, std::int32_t count) {
    if (static_cast<std::size_t>(count) != columns_.size()) {
        raise(LEDGERWICK_OUT_OF_RANGE, here, std::to_string(count) + " cells");
    }
    rowTexts_.assign(columns_.size(), {});
    for (std::int32_t column = 0; column < count; ++column) {
        const Variant& value = cell(row, column);
        ledgerwick_cell& out = cells[column];
        out = {kindOf(value), 0, 0, nullptr, 0};
        if (out.kind == LEDGERWICK_TEXT) {
            std::string& text = rowTexts_[static_cast<std::size_t>(column)];
            text = textOf(value);
            out.text = text.c_str();
            out.length = text.size();
        } else if (out.kind == LEDGERWICK_DOUBLE) {
            out.number = doubleOf(value, here);
        } else if (out.kind == LEDGERWICK_MONEY) {
            out.integer = value.toCurrency(here).ticks();
        } else if (out.kind == LEDGERWICK_DATE) {
            out.integer = dateOf(value, here);
        } else if (!value.isNull()) {
            out.integer = integerOf(value, here);
        }
    }
}

std::vector<std::string> chosenNames(const char* wanted, std::span<const std::string> known) {
    if (!wanted) return {known.begin(), known.end()};
    std::vector<std::string> names;
    const std::string all = textIn(wanted, here);
    for (std::size_t at = 0; at <= all.size();) {
        const std::size_t end = std::min(all.find(',', at), all.size());
        const std::string name(trim(std::string_view(all).substr(at, end - at)));
        const auto found = std::find_if(known.begin(), known.end(), [&](const std::string& each) {
            return equalsIgnoringCase(each, name);
        });
        if (found == known.end()) raise(LEDGERWICK_NO_SUCH_NAME, here, "column \"" + name + "\"");
        names.push_back(*found);
        at = end + 1;
    }
    return names;
}

std::unique_ptr<Table> tableOf(ResultTable& result) {
    std::vector<std::string> names;
    names.reserve(static_cast<std::size_t>(result.FieldCount()));
    for (std::int32_t i = 0; i < result.FieldCount(); ++i) names.push_back(result.Field(i).name);
    auto table = std::make_unique<Table>(names);
    if (result.RecordCount() == 0) return table;
    for (result.MoveFirst(); !result.Eof(); result.MoveNext()) {
        for (const std::string& name : names) table->addCell(result.Fields(name));
    }
    return table;
}

std::int32_t kindOf(VariantKind kind) {
    switch (kind) {
        case VariantKind::Null:
            return LEDGERWICK_NO_VALUE;
        case VariantKind::Boolean:
            return LEDGERWICK_BOOLEAN;
        case VariantKind::Int16:
        case VariantKind::Int32:
        case VariantKind::Int64:
            return LEDGERWICK_INTEGER;
        case VariantKind::Single:
        case VariantKind::Double:
            return LEDGERWICK_DOUBLE;
        case VariantKind::Currency:
            return LEDGERWICK_MONEY;
        case VariantKind::Date:
            return LEDGERWICK_DATE;
        case VariantKind::Text:
            return LEDGERWICK_TEXT;
        default:
            return LEDGERWICK_EMPTY;
    }
}

std::int64_t integerOf(const Variant& value, std::string_view what) {
    if (value.kind() == VariantKind::Boolean) return value.toBoolean() ? 1 : 0;
    return value.toInt64(what);
}

double doubleOf(const Variant& value, std::string_view what) {
    if (value.kind() != VariantKind::Single) return value.toDouble(what);
    return parseNumber(value.toText(what)).value_or(value.toDouble(what));
}

ledgerwick_date dateOf(const Variant& value, std::string_view what) {
    return dateOut(value.toDate(what));
}

std::string textOf(const Variant& value) {
    if (value.isNull()) return {};
    if (value.kind() != VariantKind::Date) return soundUtf8(value.toText());
    const Date date = value.toDate();
    return date.isSet() ? date.toIso() : std::string();
}

}  // namespace ledgerwick::c

using namespace ledgerwick::c;

std::int32_t ledgerwick_table_close(ledgerwick_table* table, ledgerwick_error* error) {
    return call(error, [&] { close<Table>(table, "table"); });
}

std::int32_t ledgerwick_table_size(ledgerwick_table* table, std::int64_t* rows,
                                   std::int32_t* columns, ledgerwick_error* error) {
    return call(error, [&] {
        const Table& all = tableIn(table);
        give(rows, all.rows());
        give(columns, all.columns().size());
    });
}

std::int32_t ledgerwick_table_name(ledgerwick_table* table, std::int32_t column, const char** name,
                                   ledgerwick_error* error) {
    return call(error, [&] {
        const auto& columns = tableIn(table).columns();
        if (column < 0 || static_cast<std::size_t>(column) >= columns.size()) {
            ledgerwick::raise(LEDGERWICK_OUT_OF_RANGE, here, "column " + std::to_string(column));
        }
        give(name, columns[static_cast<std::size_t>(column)].c_str());
    });
}

std::int32_t ledgerwick_table_find(ledgerwick_table* table, const char* name, std::int32_t* column,
                                   ledgerwick_error* error) {
    return call(error, [&] {
        const auto& columns = tableIn(table).columns();
        const std::string wanted = textIn(name, here);
        for (std::size_t i = 0; i < columns.size(); ++i) {
            if (ledgerwick::equalsIgnoringCase(columns[i], wanted)) return give(column, i);
        }
        ledgerwick::raise(LEDGERWICK_NO_SUCH_NAME, here, wanted);
    });
}

std::int32_t ledgerwick_table_kind(ledgerwick_table* table, std::int64_t row, std::int32_t column,
                                   std::int32_t* kind, ledgerwick_error* error) {
    return call(error, [&] { give(kind, kindOf(tableIn(table).cell(row, column))); });
}

std::int32_t ledgerwick_table_integer(ledgerwick_table* table, std::int64_t row,
                                      std::int32_t column, std::int64_t* value,
                                      ledgerwick_error* error) {
    return call(error, [&] { give(value, integerOf(tableIn(table).cell(row, column), here)); });
}

std::int32_t ledgerwick_table_double(ledgerwick_table* table, std::int64_t row, std::int32_t column,
                                     double* value, ledgerwick_error* error) {
    return call(error, [&] { give(value, doubleOf(tableIn(table).cell(row, column), here)); });
}

std::int32_t ledgerwick_table_money(ledgerwick_table* table, std::int64_t row, std::int32_t column,
                                    ledgerwick_money* value, ledgerwick_error* error) {
    return call(error,
                [&] { give(value, tableIn(table).cell(row, column).toCurrency(here).ticks()); });
}

std::int32_t ledgerwick_table_date(ledgerwick_table* table, std::int64_t row, std::int32_t column,
                                   ledgerwick_date* value, ledgerwick_error* error) {
    return call(error, [&] { give(value, dateOf(tableIn(table).cell(row, column), here)); });
}

std::int32_t ledgerwick_table_text(ledgerwick_table* table, std::int64_t row, std::int32_t column,
                                   const char** value, std::size_t* length,
                                   ledgerwick_error* error) {
    return call(error, [&] {
        Table& all = tableIn(table);
        const char* const text = all.keepText(textOf(all.cell(row, column)), length);
        give(value, text);
    });
}

std::int32_t ledgerwick_table_row(ledgerwick_table* table, std::int64_t row, ledgerwick_cell* cells,
                                  std::int32_t count, ledgerwick_error* error) {
    return call(error, [&] {
        if (!cells) ledgerwick::raise(LEDGERWICK_NULL, here, "there is no place for the cells");
        tableIn(table).fill(row, cells, count);
    });
}
