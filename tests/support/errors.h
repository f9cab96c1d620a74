// What an operation raises, for expectations: EXPECT_EQ(6, raisedBy([&] { narrowToInt16(40000); })).
#pragma once

#include <cstdint>

#include "ledgerwick/values/error.h"

namespace ledgerwick::test {

// The number of the Error that `operation` raises; 0 when it raises none.
template <class Operation>
std::int32_t raisedBy(Operation&& operation) {
    try {
        operation();
    } catch (const Error& error) {
        return error.Number();
    }
    return 0;
}

}  // namespace ledgerwick::test
