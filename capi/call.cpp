#include "capi/call.h"

#include <cstring>
#include <exception>
#include <new>

#include "hostkit/audit/explain.h"
#include "ledgerwick/calendar/frequency.h"
#include "ledgerwick/values/utf8.h"

namespace ledgerwick::c {

namespace {

template <std::size_t Size>
void copyText(char (&place)[Size], std::string_view text) noexcept {
    const std::string_view cut = cutToBytes(text, Size - 1);
    std::memcpy(place, cut.data(), cut.size());
    place[cut.size()] = '\0';
}

// A database adds the statement at which it failed, which is nothing for people.
std::string_view withoutStatement(const Error& failure) {
    const std::string_view text = failure.Description();
    return failure.Source() == "Database" ? text.substr(0, text.find(" in: ")) : text;
}

std::int32_t tell(ledgerwick_error* error, std::int32_t number, std::string_view source,
                  std::string_view description) noexcept {
    if (number == LEDGERWICK_OK) number = LEDGERWICK_INTERNAL;
    if (error) {
        error->number = number;
        copyText(error->source, source);
        copyText(error->description, description);
    }
    return number;
}

}  // namespace

RowAtHand& rowAtHand() noexcept {
    thread_local RowAtHand row;
    return row;
}

void succeeded(ledgerwick_error* error) noexcept {
    if (!error) return;
    error->number = LEDGERWICK_OK;
    error->source[0] = error->description[0] = '\0';
}

std::int32_t failed(ledgerwick_error* error) noexcept {
    try {
        throw;
    } catch (const Error& failure) {
        try {
            const Error told = audit::explained(failure);
            return tell(error, told.Number(), soundUtf8(told.Source()),
                        soundUtf8(withoutStatement(told)));
        } catch (...) {
            return tell(error, failure.Number(), {}, {});
        }
    } catch (const std::bad_alloc&) {
        return tell(error, LEDGERWICK_OUT_OF_MEMORY, "ledgerwick", "Out of memory");
    } catch (const std::exception& failure) {
        return tell(error, LEDGERWICK_INTERNAL, "ledgerwick", failure.what());
    } catch (...) {
        return tell(error, LEDGERWICK_INTERNAL, "ledgerwick", "Unknown failure");
    }
}

std::string textIn(const char* text, std::string_view what) {
    if (!text) raise(LEDGERWICK_NULL, what, "the text is NULL");
    if (!isUtf8(text)) {
        throw Error(LEDGERWICK_NOT_UTF8, std::string(what), "The text is not UTF-8");
    }
    return text;
}

std::string textIn(const char* text, std::string_view what, std::string_view otherwise) {
    return text ? textIn(text, what) : std::string(otherwise);
}

Date dateIn(ledgerwick_date date, std::string_view what) {
    if (date == 0) return {};
    const int year = date / 10000;
    const int month = date / 100 % 100;
    const int day = date % 100;
    constexpr int firstYear = 100;  // of the library's dates
    constexpr int lastYear = 9999;
    if (date > 0 && year >= firstYear && year <= lastYear && month >= 1 && month <= 12) {
        const Date read = Date::fromYmd(year, month, day);
        if (day >= 1 && read.day() == day) return read;
    }
    raise(LEDGERWICK_TYPE_MISMATCH, what, std::to_string(date) + " is not a date (YYYYMMDD)");
}

Date dateNeeded(ledgerwick_date date, std::string_view what) {
    if (date == 0) raise(LEDGERWICK_TYPE_MISMATCH, what, "the date is not set");
    return dateIn(date, what);
}

ledgerwick_date dateOut(Date date) {
    if (!date.isSet()) return 0;
    const auto [year, month, day] = date.ymd();
    return year * 10000 + month * 100 + day;
}

bool flagIn(std::int32_t flag, std::string_view what) {
    if (flag == 0 || flag == 1) return flag == 1;
    raise(LEDGERWICK_INVALID_CALL, what, "a flag is 0 or 1, not " + std::to_string(flag));
}

PR_Pay_Freq frequencyIn(std::int32_t frequency, bool choice) {
    if (calendar::findFrequency(frequency) || (choice && frequency == LEDGERWICK_ALL)) {
        return static_cast<PR_Pay_Freq>(frequency);
    }
    constexpr std::int32_t invalidPayFrequency = 9910;
    throw Error(invalidPayFrequency, "ledgerwick_c",
                "Invalid Pay Freq (" + std::to_string(frequency) + ").");
}

}  // namespace ledgerwick::c

std::int32_t ledgerwick_error_row(const char** table, std::int64_t* key, const char** field,
                                  ledgerwick_error* error) {
    const ledgerwick::c::RowAtHand& row = ledgerwick::c::rowAtHand();
    ledgerwick::c::give(table, row.table.empty() ? nullptr : row.table.c_str());
    ledgerwick::c::give(key, row.key);
    ledgerwick::c::give(field, row.field.empty() ? nullptr : row.field.c_str());
    ledgerwick::c::succeeded(error);
    return LEDGERWICK_OK;
}
