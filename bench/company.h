// A company of weekly employees, created for the measurements.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <string>

namespace bench {

// Lays the kit's schema into a fresh file at `path` and fills it with `employees` people and 51
// closed weekly rows each, in payroll year 17 (6 April 2016 to 5 April 2017). Week 52 is due on
// `dueDate`. Of more than one employment, those of the years before have four closed rows each.
void layDownCompany(const std::string& path, std::int32_t employees, std::int32_t employments = 1);

// The pay date of week 52, 4 April 2017, as a count of days.
inline constexpr std::int32_t dueDate = 42829;
inline constexpr std::int32_t payrollYear = 17;
inline constexpr std::int32_t closedWeeks = 51;

// A connection as the kit opens it: no mutex, write-ahead mode, synchronous NORMAL.
sqlite3* openBare(const std::string& path);

}  // namespace bench
