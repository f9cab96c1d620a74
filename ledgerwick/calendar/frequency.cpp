#include "ledgerwick/calendar/frequency.h"

#include <algorithm>
#include <string>

#include "ledgerwick/values/error.h"

namespace ledgerwick {
namespace {

constexpr std::int16_t monthlyPeriod = -1;

// clang-format off
constexpr calendar::Frequency table[] = {
//   code             period         weeks months hours ahead  name
    {PFREQ_1Weekly,   1,              1,   0,      1,  false, "weekly"},
    {PFREQ_2Weekly,   2,              2,   0,      2,  false, "fortnightly"},
    {PFREQ_4Weekly,   4,              4,   0,      4,  false, "four-weekly"},
    {PFREQ_Monthly,   monthlyPeriod,  0,   1,      4,  true,  "monthly"},
    {PFREQ_Quarterly, 13,            13,   3,     13,  true,  "quarterly"},
    {PFREQ_BiAnnual,  26,            26,   6,     26,  true,  "half-yearly"},
    {PFREQ_Annual,    52,            52,  12,     52,  true,  "yearly"},
    {PFREQ_Casual,    0,              0,   0,      0,  false, "casual"},
};
// clang-format on

template <class Member>
const calendar::Frequency* find(Member member, std::int32_t value) noexcept {
    const auto* const found = std::ranges::find(table, value, member);
    return found == std::end(table) ? nullptr : found;
}

Error invalid(std::int32_t number, const char* source, std::string_view what, std::int16_t code) {
    return {number, source,
            "Invalid Pay " + std::string(what) + " (" + std::to_string(code) + ")."};
}

}  // namespace

std::int16_t PR_Convert_PayFreq_to_PayPeriod(PR_Pay_Freq iFreq) {
    return calendar::frequencyOf(iFreq).payPeriod;
}

PR_Pay_Freq PR_Convert_PayPeriod_to_PayFreq(std::int16_t iPeriod) {
    if (const auto* const found = calendar::findByPayPeriod(iPeriod)) return found->code;
    throw invalid(9911, "PR_Convert_PayPeriod_to_PayFreq", "Period", iPeriod);
}

namespace calendar {

std::span<const Frequency> frequencies() noexcept {
    return table;
}

const Frequency& frequencyOf(PR_Pay_Freq code) {
    if (const auto* const found = findFrequency(code)) return *found;
    throw invalid(9910, "PR_Convert_PayFreq_to_PayPeriod", "Freq", code);
}

const Frequency* findFrequency(std::int32_t code) noexcept {
    return find(&Frequency::code, code);
}

const Frequency* findByPayPeriod(std::int32_t payPeriod) noexcept {
    return find(&Frequency::payPeriod, payPeriod < 0 ? monthlyPeriod : payPeriod);
}

}  // namespace calendar
}  // namespace ledgerwick
