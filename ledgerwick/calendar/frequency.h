// The pay frequencies: one table, from which everything that depends on a frequency is read.
//
//   calendar::frequencyOf(PFREQ_4Weekly).payPeriod;    // 4
//   calendar::frequencyOf(PFREQ_Quarterly).months;     // 3
//
// A new frequency is a row of the table in frequency.cpp.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "ledgerwick/export.h"
#include "ledgerwick/host/enums.h"

namespace ledgerwick {

// The pay period code of a pay frequency: the number of weeks, -1 for monthly, 0 for casual.
// Errors: 9910, source "PR_Convert_PayFreq_to_PayPeriod", for a frequency outside 0, 1, 2, 3, 4, 13,
//         26, 52.
LEDGERWICK_API std::int16_t PR_Convert_PayFreq_to_PayPeriod(PR_Pay_Freq iFreq);

// The pay frequency of a pay period code; every negative code is monthly.
// Errors: 9911, source "PR_Convert_PayPeriod_to_PayFreq", for any other code than 0, 1, 2, 4, 13, 26,
//         52 and the negatives.
LEDGERWICK_API PR_Pay_Freq PR_Convert_PayPeriod_to_PayFreq(std::int16_t iPeriod);

namespace calendar {

// A pay frequency.
struct Frequency {
    PR_Pay_Freq code;        // what an employee stores
    std::int16_t payPeriod;  // its pay period code; a monthly pay row stores minus the tax month
    std::int16_t weeks;      // from one expected date to the next; 0 for monthly and casual pay
    std::int16_t months;     // tax months in its tax period; 0 when it has weeks or none
    std::int16_t standardWeeks;  // weeks of normal hours in the standard hours of a pay row
    bool looksAhead;             // the closing of a run works out the next expected dates again
    std::string_view name;       // "weekly", for screens and messages

    // Whether its periods are counted in weeks within the tax year.
    constexpr bool isWeeklyType() const noexcept { return weeks != 0 && months == 0; }
};

// All frequencies, from weekly to yearly, then casual.
LEDGERWICK_API std::span<const Frequency> frequencies() noexcept;

// The frequency of a code.
// Errors: 9910, as above.
LEDGERWICK_API const Frequency& frequencyOf(PR_Pay_Freq code);

// The frequency of a code; null for an unknown one.
LEDGERWICK_API const Frequency* findFrequency(std::int32_t code) noexcept;
// The same for a pay period code; every negative one is monthly.
LEDGERWICK_API const Frequency* findByPayPeriod(std::int32_t payPeriod) noexcept;

}  // namespace calendar
}  // namespace ledgerwick
