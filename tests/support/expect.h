// Dates as tests write and print them, and errors as they expect them.
//
//   EXPECT_EQ(taxMonthEnd(2015, 1), on(5, 5, 2015));
#pragma once

#include <ostream>

#include "ledgerwick/values/date.h"
#include "tests/support/errors.h"

namespace ledgerwick {

inline void PrintTo(Date date, std::ostream* out) {
    *out << date.toText();
}

namespace test {

// A date, day first.
inline Date on(int day, int month, int year) {
    return Date::fromYmd(year, month, day);
}

}  // namespace test
}  // namespace ledgerwick
