#include "ledgerwick/employment/stored_expected_dates.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/expect.h"
#include "tests/support/fake_host.h"

namespace ledgerwick {
namespace {

using test::CriticalMessage;
using test::errorOf;
using test::FakeHost;
using test::on;
using test::Told;

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
