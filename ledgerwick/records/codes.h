// What single values of a field mean, where more than one place must know it.
#pragma once

#include <cstdint>

namespace ledgerwick::code {

// `OrdStatus` of an order line. A status in between is checked and open.
inline constexpr std::int16_t uncheckedOrder = 1;  // counted only as a warning
inline constexpr std::int16_t closedOrder = 5;     // no earnings any more

// `PRPCalculationUsed` of a pay row. A number above 0 is a set of calculations.
inline constexpr std::int32_t startingRow = 0;  // the row from which an employment counts; no pay
inline constexpr std::int32_t fillerRow = -1;   // stands for a period that was skipped

// `PRPStatus` of a pay row from which on it counts as reported.
inline constexpr std::int32_t reportedStatus = 3;

}  // namespace ledgerwick::code
