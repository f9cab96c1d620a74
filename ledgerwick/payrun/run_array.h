// The rows of the array in which `C_InputHoursInit` gives an opened run, "1 to 8 by 1 to n": one
// column for each pay period. Row 5 stays empty. Without a period there is one column, and its
// first row is empty.
#pragma once

#include <cstdint>

namespace ledgerwick::run_array {

inline constexpr std::int32_t naid = 1;           // the employee, 32-bit integer
inline constexpr std::int32_t payRecord = 2;      // key of the pay row
inline constexpr std::int32_t firstDay = 3;       // date
inline constexpr std::int32_t lastDay = 4;        // date
inline constexpr std::int32_t importedPay = 6;    // currency, or the text "N" for none
inline constexpr std::int32_t weekNo = 7;         // tax week
inline constexpr std::int32_t paymentPeriod = 8;  // pay period code, or minus the tax month
inline constexpr std::int32_t rows = 8;           // how many there are

}  // namespace ledgerwick::run_array
