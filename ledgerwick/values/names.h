// The English names of the calendar.
#pragma once

#include <array>
#include <string_view>

namespace ledgerwick {

inline constexpr std::array<std::string_view, 12> monthNames = {
    "January", "February", "March",     "April",   "May",      "June",
    "July",    "August",   "September", "October", "November", "December"};

inline constexpr std::array<std::string_view, 7> weekdayNames = {
    "Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};

}  // namespace ledgerwick
