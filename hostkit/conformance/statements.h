// Every statement that the library sends to its database, with what it must give on a small company.
//
// The record access suite runs them all against a layer; `ledgerwick statements` prints them; a test
// runs every operation of the library and holds what it sends against this list.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "hostkit/export.h"
#include "ledgerwick/records/record_access.h"

namespace ledgerwick::conformance {

// How a statement is sent.
enum class Sent : std::uint8_t {
    Snapshot,  // `OpenRecordset` or a query, type 4
    Dynaset,   // the same, type 2
    Execute,   // `Execute`
};

// A field as the suite reads it: 'i' a whole number, 'n' a number, 'd' a date, 't' a text.
struct Shown {
    FieldName field;
    char as;
};

// A statement of the library.
struct Statement {
    std::string_view operation;  // who sends it
    Sent sent;                   // how
    std::string_view sql;        // with values of the small company
    // For `Execute`, a query that shows what it did; else empty.
    std::string_view check;
    std::vector<Shown> shown;   // which fields of the rows are compared
    std::string_view expected;  // "7 Null; 8 1": the rows, in order
    std::string_view table{};   // the temporary table that it needs, which a layer may lack
};

// All statements, in the order of a year's work.
LEDGERWICK_HOSTKIT_API const std::vector<Statement>& statements();

// What the small company consists of: statements that add its rows to empty tables.
LEDGERWICK_HOSTKIT_API std::span<const std::string_view> smallCompany();

// The statement with its literals taken out and its blanks drawn together, by which two that differ in
// their values only are the same.
LEDGERWICK_HOSTKIT_API std::string shapeOf(std::string_view sql);

}  // namespace ledgerwick::conformance
