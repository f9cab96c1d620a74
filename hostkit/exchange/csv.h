// Files of comma-separated values: reading them line by line, writing them, and the guard that
// keeps a spreadsheet from taking a text for a formula.
#pragma once

#include <cstddef>
#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hostkit/export.h"

namespace ledgerwick::exchange {

// A fault in the form of a file: a quote that is never closed, say.
struct CsvFault {
    // Line of the file, from 1.
    std::size_t line;
    // What is wrong.
    std::string reason;
};

// The rows of a file. Fields are parted by commas, rows by line ends of any kind; a field in double
// quotes may hold commas, line ends and doubled quotes. A byte order mark in front and empty lines
// are passed over.
class LEDGERWICK_HOSTKIT_API CsvReader {
  public:
    // Takes a row and the number of the line on which it began, from 1.
    using RowTaker = std::function<void(std::size_t line, const std::vector<std::string>& fields)>;

    // Reads the whole of `in` and gives each row to `take`. Returns the fault that ended the
    // reading, if one did.
    static std::optional<CsvFault> read(std::istream& in, const RowTaker& take);
};

// Writes rows. A field is quoted when it holds a comma, a quote, a line end, a blank at either end
// or a byte order mark in front, and when it is empty and alone; lines end with a line feed.
class LEDGERWICK_HOSTKIT_API CsvWriter {
  public:
    // Writes to `out`, which must outlive it.
    explicit CsvWriter(std::ostream& out) : out_(out) {}
    // Writes one row.
    void row(const std::vector<std::string>& fields);

  private:
    std::ostream& out_;
};

// A text made harmless for a spreadsheet: an apostrophe is put in front of one that begins with
// "=", "+", "-", "@", "\" or a control character, and in front of one in which an apostrophe stands
// before one of those, so that `unguarded` gives every text back exactly.
LEDGERWICK_HOSTKIT_API std::string guarded(std::string_view text);
// Takes the guard away.
LEDGERWICK_HOSTKIT_API std::string unguarded(std::string_view text);

}  // namespace ledgerwick::exchange
