#include "ledgerwick/calendar/frequency.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "ledgerwick/values/checked.h"
#include "tests/support/expect.h"
#include "tests/support/fake_host.h"

namespace ledgerwick {
namespace {

using test::CriticalMessage;
using test::errorOf;
using test::FakeHost;
using test::on;
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

TEST(LookAheadDates, AreStoredByTheirStatements) {
    FakeHost host;
    EXPECT_TRUE(PR_SetNExpPayDate(205, on(29, 4, 2016)));
    EXPECT_TRUE(PR_SetNExpEPEDate(-3, on(5, 4, 2016)));
    EXPECT_EQ(
        host.state->database.executed(),
        (std::vector<std::string>{"UPDATE PRPAY SET PRPNExpPayDate = #4/29/2016# WHERE PRPID = 205",
                                  "UPDATE PRPAY SET PRPNExpEPEDate = #4/5/2016#WHERE PRPID = -3"}));
}

TEST(LookAheadDates, AFailureIsShownAndToldAsFalse) {
    FakeHost host;
    host.state->database.failNextExecute(error_number::databaseError);
    EXPECT_FALSE(PR_SetNExpPayDate(205, on(29, 4, 2016)));
    Identify().Setpf(nullptr);
    EXPECT_FALSE(PR_SetNExpEPEDate(205, on(29, 4, 2016))) << "a failure of the host too";
    EXPECT_EQ(host.state->messages,
              (std::vector<CriticalMessage>{
                  {"Fernbank Payroll - Error", "Unable to set Next Pay Date!"},
                  {"Fernbank Payroll - Error", "Unable to set Next EPE Date!"}}));
    Identify().Setg(nullptr);
    EXPECT_EQ(errorOf([] { PR_SetNExpPayDate(205, on(29, 4, 2016)); }),
              (Told{error_number::objectNotSet, "g"}))
        << "with nobody to show the message";
}

}  // namespace
}  // namespace ledgerwick
