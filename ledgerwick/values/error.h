// How the library reports a failure: a number, a source and a description, thrown as `Error`.
//
//   try { list->LoadEmployees(); }
//   catch (const ledgerwick::Error& e) { log(e.Number(), e.Source(), e.Description()); }
#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>
#include <utility>

#include "ledgerwick/export.h"

namespace ledgerwick {

// The row that an operation had in hand when it failed.
struct ErrorRow {
    std::string table;      // empty when no row was in hand
    std::int32_t key = 0;   // of the row, 0 when it could not be told
    std::int32_t naid = 0;  // the employee, 0 when there is none
};

// The one exception type of the library.
class LEDGERWICK_API Error : public std::exception {
  public:
    // A failure: its number, the operation, and a sentence with the facts.
    Error(std::int32_t number, std::string source, std::string description);
    ~Error() override;

    std::int32_t Number() const noexcept { return number_; }  // which failure it is
    // The operation that failed, or a path of operations joined with "|".
    const std::string& Source() const noexcept { return source_; }
    const std::string& Description() const noexcept { return description_; }  // the sentence

    // The row in hand; number and text say nothing of it.
    const ErrorRow& Row() const noexcept { return row_; }
    // Notes the row in hand, unless an inner operation has.
    void Row(ErrorRow row) noexcept {
        if (row_.table.empty()) row_ = std::move(row);
    }

    // "Error 9909 in AECalcR_PRP: Invalid Pay Period (0)."
    const char* what() const noexcept override { return text_.c_str(); }

  private:
    std::int32_t number_;
    std::string source_;
    std::string description_;
    std::string text_;
    ErrorRow row_;
};

// The numbers of failures that are not a rule of the payroll but of the values themselves. The
// numbers are the classic ones of the hosts that load this library.
namespace error_number {
inline constexpr std::int32_t invalidCall = 5;           // an argument that no call may have
inline constexpr std::int32_t overflow = 6;              // a value does not fit its type
inline constexpr std::int32_t subscriptOutOfRange = 9;   // an index outside its bounds
inline constexpr std::int32_t divisionByZero = 11;       // a division by zero
inline constexpr std::int32_t typeMismatch = 13;         // a value of another type
inline constexpr std::int32_t fileNotFound = 53;         // there is no such file
inline constexpr std::int32_t fileError = 57;            // a file cannot be read or written
inline constexpr std::int32_t fileExists = 58;           // there is a file of that name already
inline constexpr std::int32_t objectNotSet = 91;         // an empty reference was used
inline constexpr std::int32_t invalidUseOfNull = 94;     // a Null where a value must be
inline constexpr std::int32_t cannotCreateObject = 429;  // there is no creatable class of that name
inline constexpr std::int32_t noSuchMember = 438;        // an object lacks the member
inline constexpr std::int32_t duplicateKey = 457;        // the key is there already
inline constexpr std::int32_t updateWithoutEdit = 3020;  // a write without `AddNew` or `Edit`
inline constexpr std::int32_t noCurrentRecord = 3021;    // the set stands on no row
inline constexpr std::int32_t diskFull = 3026;           // no room for what is written
inline constexpr std::int32_t readOnly = 3027;           // the set or the file cannot be written
inline constexpr std::int32_t damagedFile = 3049;        // the file is damaged, or no database
inline constexpr std::int32_t statementError = 3075;     // a statement that cannot be understood
inline constexpr std::int32_t noSuchTable = 3078;        // a statement on a table that is not there
inline constexpr std::int32_t databaseError = 3146;      // the database refused
inline constexpr std::int32_t connectionLost = 3151;     // the database cannot be reached
inline constexpr std::int32_t listOutdated = 3197;  // others changed what an operation rests on
inline constexpr std::int32_t writerBusy = 3218;    // another connection has the right to write
inline constexpr std::int32_t noSuchItem = 3265;    // no field or item of that name
inline constexpr std::int32_t wrongVersion = 3274;  // a company of another version
inline constexpr std::int32_t notACompany = 3343;   // a database without the tables of a company
inline constexpr std::int32_t objectClosed = 3420;  // the set or table is not open
}  // namespace error_number

// Throws the Error with that number. The description is the number's own text, followed by
// ": " and `detail` when there is one.
[[noreturn]] LEDGERWICK_API void raise(std::int32_t number, std::string_view source,
                                       std::string_view detail = {});

}  // namespace ledgerwick
