#include "hostkit/sqlite/functions.h"

#include <exception>

#include "hostkit/sqlite/statement.h"
#include "hostkit/sqlite/values.h"
#include "ledgerwick/values/format.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick::sqlite {

namespace {

void format(sqlite3_context* context, int, sqlite3_value** arguments) {
    const Cell value = readCell(arguments[0]);
    const Cell picture = readCell(arguments[1]);
    if (value.storage == Cell::Storage::Null || picture.storage != Cell::Storage::Text) return;
    try {
        const std::string text = Format(rowsets::asStored(value), picture.text);
        sqlite3_result_text64(context, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
    } catch (const std::exception& e) {
        sqlite3_result_error(context, e.what(), -1);
    }
}

void number(sqlite3_context* context, int, sqlite3_value** arguments) {
    const Cell value = readCell(arguments[0]);
    if (value.storage == Cell::Storage::Text) {
        if (const auto read = parseNumber(value.text)) {
            sqlite3_result_double(context, *read);
            return;
        }
    }
    sqlite3_result_value(context, arguments[0]);
}

using Function = void (*)(sqlite3_context*, int, sqlite3_value**);

void add(sqlite3* database, const char* name, int arguments, Function function) {
    constexpr int flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
    if (sqlite3_create_function_v2(database, name, arguments, flags, nullptr, function, nullptr,
                                   nullptr, nullptr) != SQLITE_OK) {
        raiseDatabaseError(database, name);
    }
}

}  // namespace

void addFunctions(sqlite3* database) {
    add(database, "Format", 2, format);
    add(database, "ledgerwick_number", 1, number);
}

}  // namespace ledgerwick::sqlite
