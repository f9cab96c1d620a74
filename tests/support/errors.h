// What an operation raises, for expectations.
//
//   EXPECT_EQ(6, raisedBy([&] { narrowToInt16(40000); }));
//   EXPECT_EQ(errorOf([&] { payroll.C_CalcTaxWeek_Month(day, 3); }),
//             (Told{9909, "C_CalcTaxWeek", "Invalid Pay Period (3)."}));
#pragma once

#include <cstdint>
#include <ostream>
#include <string>

#include "ledgerwick/values/error.h"

namespace ledgerwick::test {

// What an error tells. An empty description stands for any.
struct Told {
    std::int32_t number = 0;
    std::string source{};
    std::string description{};

    friend bool operator==(const Told& a, const Told& b) {
        return a.number == b.number && a.source == b.source &&
               (a.description.empty() || b.description.empty() || a.description == b.description);
    }
};

inline void PrintTo(const Told& told, std::ostream* out) {
    if (told.number == 0) {
        *out << "no error";
    } else {
        *out << told.number << " in " << told.source << ": " << told.description;
    }
}

// The Error that `operation` raises; number 0 when it raises none.
template <class Operation>
Told errorOf(Operation&& operation) {
    try {
        operation();
    } catch (const Error& error) {
        return {error.Number(), error.Source(), error.Description()};
    }
    return {};
}

template <class Operation>
std::int32_t raisedBy(Operation&& operation) {
    return errorOf(operation).number;
}

}  // namespace ledgerwick::test
