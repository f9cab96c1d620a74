#include "hostkit/sqlite/functions.h"

#include <exception>
#include <new>

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

void row(sqlite3_context* context, int count, sqlite3_value** values) {
    const ArrivingRow& arriving = **static_cast<ArrivingRow**>(sqlite3_user_data(context));
    try {
        takeArguments(count, values, arriving.kinds, arriving.values);
    } catch (const std::bad_alloc&) {
        sqlite3_result_error_nomem(context);
    }
}

using Function = void (*)(sqlite3_context*, int, sqlite3_value**);

void add(sqlite3* database, const char* name, int arguments, Function function,
         int properties = SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS, void* data = nullptr) {
    const int flags = SQLITE_UTF8 | properties;
    if (sqlite3_create_function_v2(database, name, arguments, flags, data, function, nullptr,
                                   nullptr, nullptr) != SQLITE_OK) {
        raiseNotCompiled(database, name);
    }
}

}  // namespace

void addFunctions(sqlite3* database, ArrivingRow*& arriving) {
    constexpr int anyNumber = -1;
    add(database, "Format", 2, format);
    add(database, "ledgerwick_number", 1, number);
    add(database, "ledgerwick_row", anyNumber, row, SQLITE_DIRECTONLY, &arriving);
}

}  // namespace ledgerwick::sqlite
