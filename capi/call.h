// The frame of every call: what comes in is looked at, what is thrown becomes a number.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "capi/handles.h"
#include "capi/ledgerwick_c.h"
#include "ledgerwick/host/enums.h"
#include "ledgerwick/values/date.h"
#include "ledgerwick/values/error.h"

namespace ledgerwick::c {

// Writes the exception in flight to the error structure, and returns its number.
std::int32_t failed(ledgerwick_error* error) noexcept;
void succeeded(ledgerwick_error* error) noexcept;

// The row that the running call works on, for one who asks after it failed.
struct RowAtHand {
    std::string table{};
    std::int64_t key = 0;
    std::string field{};
};
RowAtHand& rowAtHand() noexcept;

template <class Work>
std::int32_t call(ledgerwick_error* error, Work&& work) noexcept {
    try {
        rowAtHand() = {};
        work();
        succeeded(error);
        return LEDGERWICK_OK;
    } catch (...) {
        return failed(error);
    }
}

// A text of the caller's.
// Errors: 91 for NULL, 20001 for a text that is not UTF-8.
std::string textIn(const char* text, std::string_view what);
// The same with a text that NULL stands for.
std::string textIn(const char* text, std::string_view what, std::string_view otherwise);

// A date of the caller's; 0 is the zero date.
// Errors: 13 for a number that is no date.
Date dateIn(ledgerwick_date date, std::string_view what);
// The same where a date must be given.
Date dateNeeded(ledgerwick_date date, std::string_view what);
ledgerwick_date dateOut(Date date);

// Errors: 5 for what is neither 0 nor 1.
bool flagIn(std::int32_t flag, std::string_view what);
// Errors: 9910 for a number that is no frequency; with `choice` that of everybody is one.
PR_Pay_Freq frequencyIn(std::int32_t frequency, bool choice = false);

template <class T, class Value>
void give(T* out, const Value& value) {
    if (out) *out = static_cast<T>(value);
}

// Hands an object to the caller.
template <class Handle>
void giveHandle(Handle** out, std::unique_ptr<Held> object) {
    *out = handleOf<Handle>(keep(std::move(object)));
}
template <class Handle>
void needHandle(Handle** out, std::string_view what) {
    if (!out) raise(LEDGERWICK_NULL, what, "there is no place for the handle");
}

// The object of a handle.
// Errors: those of `held`, 13 for a handle of another kind.
template <class Object, class Handle>
Object& objectOf(const Handle* handle, std::string_view what) {
    auto* const object = dynamic_cast<Object*>(&held(tokenOf(handle), what));
    if (!object) raise(LEDGERWICK_TYPE_MISMATCH, "ledgerwick_" + std::string(what), "the handle");
    return *object;
}
template <class Object, class Handle>
void close(const Handle* handle, std::string_view what) {
    if (!handle) return;
    objectOf<Object>(handle, what);
    release(tokenOf(handle), what);
}

}  // namespace ledgerwick::c
