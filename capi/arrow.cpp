#include "capi/arrow.h"

#include <cerrno>
#include <cstring>

#include "capi/call.h"
#include "ledgerwick/values/error.h"

namespace ledgerwick::c {

namespace {

constexpr std::string_view here = "ledgerwick_arrow";
constexpr std::int64_t unixEpoch = 25569;  // 1 January 1970, counted from 30 December 1899

// How a kind of cell is laid out; bytes of a text's offset for a text.
struct Layout {
    std::int32_t kind;
    const char* format;
    std::size_t width;  // bytes of a value; 0 for a bit, and for nothing at all
};
constexpr Layout layouts[] = {
    {LEDGERWICK_EMPTY, "n", 0},       {LEDGERWICK_BOOLEAN, "b", 0}, {LEDGERWICK_INTEGER, "l", 8},
    {LEDGERWICK_DOUBLE, "g", 8},      {LEDGERWICK_DATE, "tdD", 4},  {LEDGERWICK_TEXT, "U", 0},
    {LEDGERWICK_MONEY, "d:19,4", 16}, {LEDGERWICK_MIXED, "U", 0},
};
const Layout& layoutOf(std::int32_t kind) {
    for (const Layout& each : layouts) {
        if (each.kind == kind) return each;
    }
    raise(LEDGERWICK_INTERNAL, here, "kind " + std::to_string(kind));
}
std::size_t widthOf(const std::string& format) {
    for (const Layout& each : layouts) {
        if (format == each.format) return each.width;
    }
    return 0;
}

std::size_t bitBytes(std::int64_t rows) {
    return static_cast<std::size_t>((rows + 7) / 8);
}
void setBit(unsigned char* bits, std::int64_t place) {
    bits[place / 8] = static_cast<unsigned char>(bits[place / 8] | 1U << (place % 8));
}
bool bitAt(const unsigned char* bits, std::int64_t place) {
    return (bits[place / 8] >> (place % 8) & 1U) != 0;
}

void putWhole(unsigned char* place, std::int64_t value) {
    std::memcpy(place, &value, sizeof value);
}
// A date that is not set holds no value.
bool holdsValue(const Variant& cell) {
    if (cell.isNull() || cell.isEmpty()) return false;
    return cell.kind() != VariantKind::Date || cell.toDate(here).isSet();
}

void putCell(const Layout& layout, const Variant& cell, unsigned char* place) {
    switch (layout.kind) {
        case LEDGERWICK_INTEGER:
            return putWhole(place, cell.toInt64(here));
        case LEDGERWICK_DOUBLE: {
            const double value = doubleOf(cell, here);
            std::memcpy(place, &value, sizeof value);
            return;
        }
        case LEDGERWICK_MONEY: {
            const std::int64_t ticks = cell.toCurrency(here).ticks();
            putWhole(place, ticks);
            return putWhole(place + sizeof ticks, ticks < 0 ? -1 : 0);
        }
        default: {
            const auto day = static_cast<std::int32_t>(cell.toDate(here).dayNumber() - unixEpoch);
            std::memcpy(place, &day, sizeof day);
        }
    }
}

ArrowColumn columnOf(const Table& table, std::int32_t place) {
    const Layout& layout = layoutOf(kindOfColumn(table, place));
    const std::int64_t rows = table.rows();
    ArrowColumn column;
    column.name = table.columns()[static_cast<std::size_t>(place)];
    column.format = layout.format;
    column.valid.assign(bitBytes(rows), 0);
    const bool isText = column.format == "U";
    if (isText) column.offsets.assign(1, 0);
    if (layout.kind == LEDGERWICK_BOOLEAN) column.data.assign(bitBytes(rows), 0);
    if (layout.width > 0) column.data.assign(layout.width * static_cast<std::size_t>(rows), 0);
    for (std::int64_t row = 0; row < rows; ++row) {
        const Variant& cell = table.cell(row, place);
        if (!holdsValue(cell)) {
            ++column.nulls;
        } else {
            setBit(column.valid.data(), row);
            if (isText) {
                const std::string text = textOf(cell);
                column.data.insert(column.data.end(), text.begin(), text.end());
            } else if (layout.kind == LEDGERWICK_BOOLEAN) {
                if (cell.toBoolean(here)) setBit(column.data.data(), row);
            } else if (layout.width > 0) {
                putCell(layout, cell,
                        column.data.data() + layout.width * static_cast<std::size_t>(row));
            }
        }
        if (isText) column.offsets.push_back(static_cast<std::int64_t>(column.data.size()));
    }
    return column;
}

// ---- the structures that are handed out: what they point to lives as long as they do ------------

struct SchemaParts {
    std::vector<ArrowColumn> columns;  // names and formats alone
    std::vector<ArrowSchema> children;
    std::vector<ArrowSchema*> pointers;
};
void releaseSchema(ArrowSchema* schema) {
    for (std::int64_t i = 0; i < schema->n_children; ++i) {
        ArrowSchema* const child = schema->children[i];
        if (child->release) child->release(child);
    }
    delete static_cast<SchemaParts*>(schema->private_data);
    schema->release = nullptr;
}
void releaseSchemaChild(ArrowSchema* schema) {
    schema->release = nullptr;
}

void giveSchema(const ArrowColumns& all, ArrowSchema* out) {
    auto parts = std::make_unique<SchemaParts>();
    for (const ArrowColumn& column : all.columns) {
        parts->columns.push_back({column.name, column.format, 0, {}, {}, {}});
    }
    for (const ArrowColumn& column : parts->columns) {
        ArrowSchema child{};
        child.format = column.format.c_str();
        child.name = column.name.c_str();
        child.flags = ARROW_FLAG_NULLABLE;
        child.release = releaseSchemaChild;
        parts->children.push_back(child);
    }
    for (ArrowSchema& child : parts->children) parts->pointers.push_back(&child);
    *out = {};
    out->format = "+s";
    out->name = "";
    out->n_children = static_cast<std::int64_t>(parts->pointers.size());
    out->children = parts->pointers.data();
    out->release = releaseSchema;
    out->private_data = parts.release();
}

struct ArrayParts {
    std::shared_ptr<const ArrowColumns> all;
    const void* valid = nullptr;
    std::vector<ArrowArray> children;
    std::vector<ArrowArray*> pointers;
};
// A child may be moved out of its parent, and then outlives it.
struct ChildParts {
    std::shared_ptr<const ArrowColumns> all;
    const void* buffers[3] = {};
};
void releaseArray(ArrowArray* array) {
    for (std::int64_t i = 0; i < array->n_children; ++i) {
        ArrowArray* const child = array->children[i];
        if (child->release) child->release(child);
    }
    delete static_cast<ArrayParts*>(array->private_data);
    array->release = nullptr;
}
void releaseChild(ArrowArray* array) {
    delete static_cast<ChildParts*>(array->private_data);
    array->release = nullptr;
}

void giveChild(const std::shared_ptr<const ArrowColumns>& all, const ArrowColumn& column,
               std::int64_t first, std::int64_t rows, ArrowArray& out) {
    auto parts = std::make_unique<ChildParts>();
    parts->all = all;
    const bool isNothing = column.format == "n";
    const bool isText = column.format == "U";
    parts->buffers[0] = column.nulls > 0 ? column.valid.data() : nullptr;
    static constexpr unsigned char none[8] = {};
    const void* const data = column.data.empty() ? none : column.data.data();
    parts->buffers[1] = isText ? static_cast<const void*>(column.offsets.data()) : data;
    parts->buffers[2] = data;
    out = {};
    out.length = rows;
    out.offset = first;
    out.null_count = isNothing ? rows : column.nulls == 0 ? 0 : -1;
    out.n_buffers = isNothing ? 0 : isText ? 3 : 2;
    out.buffers = parts->buffers;
    out.release = releaseChild;
    out.private_data = parts.release();
}

void giveArray(std::shared_ptr<const ArrowColumns> all, std::int64_t first, std::int64_t rows,
               ArrowArray* out) {
    auto parts = std::make_unique<ArrayParts>();
    parts->children.resize(all->columns.size());
    try {
        for (std::size_t i = 0; i < parts->children.size(); ++i) {
            giveChild(all, all->columns[i], first, rows, parts->children[i]);
            parts->pointers.push_back(&parts->children[i]);
        }
    } catch (...) {
        for (ArrowArray& child : parts->children) {
            if (child.release) child.release(&child);
        }
        throw;
    }
    parts->all = std::move(all);
    *out = {};
    out->length = rows;
    out->n_buffers = 1;
    out->buffers = &parts->valid;
    out->n_children = static_cast<std::int64_t>(parts->pointers.size());
    out->children = parts->pointers.data();
    out->release = releaseArray;
    out->private_data = parts.release();
}

// A stream of one batch.
struct Stream {
    std::shared_ptr<const ArrowColumns> all;
    std::int64_t first = 0;
    std::int64_t rows = 0;
    bool given = false;
};
template <class Work>
int answer(Work&& work) noexcept {
    try {
        work();
        return 0;
    } catch (...) {
        return ENOMEM;
    }
}
Stream& streamOf(ArrowArrayStream* stream) {
    return *static_cast<Stream*>(stream->private_data);
}
int schemaOfStream(ArrowArrayStream* stream, ArrowSchema* out) {
    return answer([&] { giveSchema(*streamOf(stream).all, out); });
}
int nextOfStream(ArrowArrayStream* stream, ArrowArray* out) {
    return answer([&] {
        Stream& parts = streamOf(stream);
        *out = {};
        if (!parts.given) giveArray(parts.all, parts.first, parts.rows, out);
        parts.given = true;
    });
}
const char* errorOfStream(ArrowArrayStream*) {
    return nullptr;
}
void releaseStream(ArrowArrayStream* stream) {
    delete &streamOf(stream);
    stream->release = nullptr;
}

}  // namespace

std::int32_t kindOfColumn(const Table& table, std::int32_t column) {
    std::int32_t found = table.declaredKind(column);
    for (std::int64_t row = 0; row < table.rows(); ++row) {
        const Variant& cell = table.cell(row, column);
        const std::int32_t kind = cell.isNull() ? std::int32_t{LEDGERWICK_EMPTY} : kindOf(cell);
        if (kind == found || kind == LEDGERWICK_EMPTY) continue;
        if (kind == LEDGERWICK_INTEGER && found == LEDGERWICK_DOUBLE) continue;
        const bool isWider = kind == LEDGERWICK_DOUBLE && found == LEDGERWICK_INTEGER;
        if (found != LEDGERWICK_EMPTY && !isWider) return LEDGERWICK_MIXED;
        found = kind;
    }
    return found;
}

std::shared_ptr<const ArrowColumns> arrowColumns(const Table& table) {
    auto all = std::make_shared<ArrowColumns>();
    all->rows = table.rows();
    for (std::size_t i = 0; i < table.columns().size(); ++i) {
        all->columns.push_back(columnOf(table, static_cast<std::int32_t>(i)));
    }
    return all;
}

std::shared_ptr<const ArrowColumns> arrowRows(const ArrowColumns& all, std::int64_t first,
                                              std::int64_t step, std::int64_t rows) {
    auto some = std::make_shared<ArrowColumns>();
    some->rows = rows;
    for (const ArrowColumn& from : all.columns) {
        ArrowColumn to{from.name, from.format, 0, {}, {}, {}};
        const std::size_t width = widthOf(from.format);
        to.valid.assign(bitBytes(rows), 0);
        if (from.format == "b") to.data.assign(bitBytes(rows), 0);
        if (from.format == "U") to.offsets.assign(1, 0);
        for (std::int64_t i = 0; i < rows; ++i) {
            const std::int64_t row = first + i * step;
            const auto place = static_cast<std::size_t>(row);
            bitAt(from.valid.data(), row) ? setBit(to.valid.data(), i)
                                          : static_cast<void>(++to.nulls);
            if (from.format == "b" && bitAt(from.data.data(), row)) setBit(to.data.data(), i);
            const auto take = [&](std::size_t begin, std::size_t end) {
                to.data.insert(to.data.end(), from.data.data() + begin, from.data.data() + end);
            };
            if (width > 0) take(width * place, width * (place + 1));
            if (from.format == "U") {
                take(static_cast<std::size_t>(from.offsets[place]),
                     static_cast<std::size_t>(from.offsets[place + 1]));
                to.offsets.push_back(static_cast<std::int64_t>(to.data.size()));
            }
        }
        some->columns.push_back(std::move(to));
    }
    return some;
}

}  // namespace ledgerwick::c

using namespace ledgerwick::c;

std::int32_t ledgerwick_table_column_kind(ledgerwick_table* table, std::int32_t column,
                                          std::int32_t* kind, ledgerwick_error* error) {
    return call(error, [&] {
        const Table& all = objectOf<Table>(table, "table");
        if (column < 0 || static_cast<std::size_t>(column) >= all.columns().size()) {
            ledgerwick::raise(LEDGERWICK_OUT_OF_RANGE, "ledgerwick_table",
                              "column " + std::to_string(column));
        }
        give(kind, kindOfColumn(all, column));
    });
}

std::int32_t ledgerwick_table_arrow(ledgerwick_table* table, struct ArrowSchema* schema,
                                    struct ArrowArray* array, ledgerwick_error* error) {
    return call(error, [&] {
        if (!array) ledgerwick::raise(LEDGERWICK_NULL, here, "there is no place for the array");
        const auto all = arrowColumns(objectOf<Table>(table, "table"));
        ArrowSchema made{};
        if (schema) giveSchema(*all, &made);
        try {
            giveArray(all, 0, all->rows, array);
        } catch (...) {
            if (schema) made.release(&made);
            throw;
        }
        if (schema) *schema = made;
    });
}

std::int32_t ledgerwick_arrow_stream(const struct ArrowArray* array, std::int64_t first,
                                     std::int64_t step, std::int64_t rows,
                                     struct ArrowArrayStream* stream, ledgerwick_error* error) {
    return call(error, [&] {
        if (!array || !stream) {
            ledgerwick::raise(LEDGERWICK_NULL, here, "the array or the stream is NULL");
        }
        if (array->release != releaseArray) {
            ledgerwick::raise(LEDGERWICK_INVALID_CALL, here,
                              "the array was released, or is no table's");
        }
        const auto& all = static_cast<const ArrayParts*>(array->private_data)->all;
        const auto isRow = [&](std::int64_t row) { return row >= 0 && row < all->rows; };
        const bool isEmpty = rows == 0;
        const bool isFar = step > all->rows || step < -all->rows;
        if (rows < 0 || rows > all->rows || (rows > 1 && isFar) ||
            (!isEmpty && !(isRow(first) && isRow(first + (rows - 1) * step)))) {
            ledgerwick::raise(LEDGERWICK_OUT_OF_RANGE, here, "rows outside the table");
        }
        auto parts = std::make_unique<Stream>();
        const bool isWhole = step == 1 && !isEmpty;
        parts->all = isWhole ? all : arrowRows(*all, first, step, rows);
        parts->first = isWhole ? first : 0;
        parts->rows = rows;
        *stream = {schemaOfStream, nextOfStream, errorOfStream, releaseStream, parts.release()};
    });
}
