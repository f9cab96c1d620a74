#include "hostkit/sqlite/values.h"

#include "ledgerwick/values/error.h"

namespace ledgerwick::sqlite {

namespace {

// Money out of range stays the number that is stored, so that only its reader fails.
void takeOther(const Cell& cell, VariantKind kind, Variant& into) {
    try {
        rowsets::take(cell, kind, into);
    } catch (const Error&) {
        rowsets::take(cell, VariantKind::Empty, into);
    }
}

}  // namespace

void takeArguments(int count, sqlite3_value** arguments, const VariantKind* kinds, Variant* into) {
    for (int i = 0; i < count; ++i) {
        sqlite3_value* const value = arguments[i];
        if (sqlite3_value_type(value) != SQLITE_INTEGER) {
            takeOther(readCell(value), kinds[i], into[i]);
            continue;
        }
        // The two kinds that most fields have, without a call.
        const std::int64_t whole = sqlite3_value_int64(value);
        const auto narrow = static_cast<std::int32_t>(whole);
        if (kinds[i] == VariantKind::Int32 && narrow == whole) {
            into[i].assign(narrow);
        } else if (kinds[i] == VariantKind::Double) {
            into[i].assign(static_cast<double>(whole));
        } else {
            rowsets::takeWhole(whole, kinds[i], into[i]);
        }
    }
}

void bind(sqlite3_stmt* statement, int parameter, const Cell& cell, bool copyText) {
    switch (cell.storage) {
        case Cell::Storage::Null:
            sqlite3_bind_null(statement, parameter);
            break;
        case Cell::Storage::Whole:
            sqlite3_bind_int64(statement, parameter, cell.whole);
            break;
        case Cell::Storage::Real:
            sqlite3_bind_double(statement, parameter, cell.real);
            break;
        case Cell::Storage::Money:
            sqlite3_bind_double(statement, parameter, Currency::fromTicks(cell.whole).toDouble());
            break;
        case Cell::Storage::Text:
            sqlite3_bind_text64(statement, parameter, cell.text.data() ? cell.text.data() : "",
                                cell.text.size(), copyText ? SQLITE_TRANSIENT : SQLITE_STATIC,
                                SQLITE_UTF8);
            break;
    }
}

}  // namespace ledgerwick::sqlite
