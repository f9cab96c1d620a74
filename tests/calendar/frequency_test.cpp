#include "ledgerwick/calendar/frequency.h"

#include <gtest/gtest.h>

#include <utility>

#include "ledgerwick/values/checked.h"
#include "tests/support/expect.h"

namespace ledgerwick {
namespace {

using test::errorOf;
using test::Told;

TEST(PayFrequencies, HaveTheirPayPeriodAndBack) {
    const std::pair<PR_Pay_Freq, std::int16_t> rows[] = {
        {PFREQ_Casual, 0},   {PFREQ_1Weekly, 1},    {PFREQ_2Weekly, 2},   {PFREQ_4Weekly, 4},
        {PFREQ_Monthly, -1}, {PFREQ_Quarterly, 13}, {PFREQ_BiAnnual, 26}, {PFREQ_Annual, 52}};
    for (const auto& [freq, payPeriod] : rows) {
        EXPECT_EQ(PR_Convert_PayFreq_to_PayPeriod(freq), payPeriod);
        EXPECT_EQ(PR_Convert_PayPeriod_to_PayFreq(payPeriod), freq);
    }
    EXPECT_EQ(PR_Convert_PayPeriod_to_PayFreq(-32768), PFREQ_Monthly) << "minus any tax month";
}

TEST(PayFrequencies, OthersAreRefusedEitherWay) {
    for (const int freq : {-1, 12, 53}) {
        EXPECT_EQ(errorOf([&] { PR_Convert_PayFreq_to_PayPeriod(static_cast<PR_Pay_Freq>(freq)); }),
                  (Told{9910, "PR_Convert_PayFreq_to_PayPeriod",
                        "Invalid Pay Freq (" + std::to_string(freq) + ")."}));
    }
    for (const int payPeriod : {3, 53}) {
        EXPECT_EQ(errorOf([&] { PR_Convert_PayPeriod_to_PayFreq(narrowToInt16(payPeriod)); }),
                  (Told{9911, "PR_Convert_PayPeriod_to_PayFreq",
                        "Invalid Pay Period (" + std::to_string(payPeriod) + ")."}));
    }
}

}  // namespace
}  // namespace ledgerwick
