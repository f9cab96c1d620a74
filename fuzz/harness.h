// What every harness shares: one file, one entry point, laws that must hold for any input.
//
//   void fuzzOne(Input input) { ... CHECK(read == written, "read back"); }
//
// A law that does not hold ends the program, which libFuzzer reports with the input. The same file
// is linked with replay.cpp, so that the tests run the corpus and the past finds with any compiler.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>

#include "ledgerwick/values/error.h"

namespace ledgerwick::fuzz {

// The bytes of an input, taken from the front. A corpus is readable: choices are its first
// characters, texts are lines.
class Input {
  public:
    Input(const std::uint8_t* data, std::size_t size)
        : rest_(reinterpret_cast<const char*>(data), size) {}

    // A choice out of `count`, by one character: '0' is the first.
    std::size_t choice(std::size_t count) {
        if (rest_.empty()) return 0;
        const auto first = static_cast<unsigned char>(rest_.front());
        rest_.remove_prefix(1);
        return static_cast<unsigned char>(first - '0') % count;
    }
    // Up to the next line feed, which is passed over.
    std::string line() {
        const std::size_t end = std::min(rest_.find('\n'), rest_.size());
        std::string text(rest_.substr(0, end));
        rest_.remove_prefix(std::min(end + 1, rest_.size()));
        return text;
    }
    // A value of any bits, or of fewer when the input ends.
    template <class Value>
    Value bits() {
        Value value{};
        const std::size_t size = std::min(sizeof value, rest_.size());
        if (size > 0) std::memcpy(&value, rest_.data(), size);
        rest_.remove_prefix(size);
        return value;
    }
    std::string rest() { return std::string(std::exchange(rest_, {})); }
    bool atEnd() const noexcept { return rest_.empty(); }

  private:
    std::string_view rest_;
};

// Of each harness.
void fuzzOne(Input input);

[[noreturn]] inline void broken(const char* law, const std::string& what, const char* file,
                                int line) {
    std::fprintf(stderr, "%s:%d: does not hold: %s\n  %s\n", file, line, law, what.c_str());
    std::abort();
}

// What `operation` raises: 0 for nothing.
template <class Operation>
std::int32_t raisedBy(Operation&& operation) {
    try {
        operation();
    } catch (const Error& error) {
        return error.Number();
    }
    return 0;
}

}  // namespace ledgerwick::fuzz

#define CHECK(law, what) \
    ((law) ? void() : ::ledgerwick::fuzz::broken(#law, (what), __FILE__, __LINE__))
