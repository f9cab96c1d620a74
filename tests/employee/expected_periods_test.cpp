// The pay reference periods of the last and the next expected pay date.
#include <gtest/gtest.h>

#include "ledgerwick/employment/employment.h"
#include "ledgerwick/records/schema.h"
#include "tests/support/errors.h"
#include "tests/support/memory_host.h"
#include "tests/support/rows.h"

namespace ledgerwick {
namespace {

using test::closedPayRow;
using test::employmentRow;
using test::MemoryHost;
using test::raisedBy;
using test::Rows;
using test::Told;

Variant period(Date first, Date last) {
    VariantArray days(1, 2);
    days.at(1) = first;
    days.at(2) = last;
    return days;
}

// A weekly employee with one employment, paid for weeks 1 and 2 of 2016 and due again on 29 April.
class ExpectedPeriods : public testing::Test {
  protected:
    ExpectedPeriods() {
        Rows row{employmentRow()};
        employment = employee->AddEmployment(row);
        for (Rows pay{closedPayRow(1), closedPayRow(2)}; !pay.Eof(); pay.MoveNext()) {
            employment->AddPayment(pay);
        }
    }

    MemoryHost host;
    std::shared_ptr<cEmployee> employee = host.employee(7, PFREQ_1Weekly);
    std::shared_ptr<cEmployment> employment;

    const Variant lastWeek = period(Date::fromYmd(2016, 4, 20), Date::fromYmd(2016, 4, 26));
    const Variant nextWeek = period(Date::fromYmd(2016, 4, 27), Date::fromYmd(2016, 5, 3));
};

TEST_F(ExpectedPeriods, HoldTheLastAndTheNextExpectedPayDate) {
    EXPECT_TRUE(employment->NExpPRP().isEmpty());
    EXPECT_EQ(raisedBy([&] { employment->LExpPRPStart(); }), error_number::typeMismatch);
    EXPECT_EQ(raisedBy([&] { employment->LExpPRPEnd(); }), error_number::typeMismatch);
    EXPECT_EQ(raisedBy([&] { employment->NExpPRPStart(); }), error_number::typeMismatch);

    employee->UpdateFlags();
    EXPECT_EQ(employment->LExpPRP(), lastWeek);
    EXPECT_EQ(employment->NExpPRP(), nextWeek);
    EXPECT_EQ(employment->LExpPRPStart(), Variant(Date::fromYmd(2016, 4, 20)));
    EXPECT_EQ(employment->LExpPRPEnd(), Variant(Date::fromYmd(2016, 4, 26)));
    EXPECT_EQ(employment->NExpPRPStart(), Variant(Date::fromYmd(2016, 4, 27)));
}

TEST_F(ExpectedPeriods, FollowTheFrequencyOfTheEmployeeAndTheHostsStartDay) {
    host.state->aePRPStartDay = 2;
    employee->UpdateFlags();
    EXPECT_EQ(employment->NExpPRP(), period(Date::fromYmd(2016, 4, 25), Date::fromYmd(2016, 5, 1)));
    employee->PayFrequency(PFREQ_Monthly);
    employment->CalcExpPRP();
    EXPECT_EQ(employment->NExpPRP(), period(Date::fromYmd(2016, 4, 6), Date::fromYmd(2016, 5, 5)));
}

TEST_F(ExpectedPeriods, NewPayDateIsWrittenAndMovesThem) {
    employee->UpdateFlags();
    employment->NExpPayDate(employment->NExpPayDate());
    EXPECT_TRUE(host.database().executed().empty());

    employment->NExpPayDate(Date::fromYmd(2016, 5, 6));
    EXPECT_EQ(
        host.database().executed(),
        std::vector<std::string>{"UPDATE PRPAY SET PRPNExpPayDate = #5/6/2016# WHERE PRPID = 102"});
    EXPECT_EQ(employment->NExpPRPStart(), Variant(Date::fromYmd(2016, 5, 4)));
    EXPECT_EQ(employment->LExpPRP(), lastWeek);
}

TEST_F(ExpectedPeriods, OnlyTheMostRecentEmploymentHasThem) {
    EXPECT_EQ(raisedBy([&] { employment->CalcExpPRP(); }), error_number::objectNotSet);
    Rows row{employmentRow().with(field::PRTID, 71).with(field::PRTPYEmployCount, 2)};
    const auto later = employee->AddEmployment(row);
    employee->UpdateFlags();

    EXPECT_EQ(
        test::errorOf([&] { employment->NExpPayDate(Date::fromYmd(2016, 5, 6)); }),
        (Told{10770, "CalcExpPRP", "Cannot Calc for any employment other than most recent!"}));
    EXPECT_EQ(employment->NExpPayDate(), Date::fromYmd(2016, 5, 6));
    EXPECT_EQ(host.database().executed().size(), 1u);
    EXPECT_TRUE(employment->NExpPRP().isEmpty());

    employment->EmpType(PR_ET_Casual);
    EXPECT_EQ(raisedBy([&] { employment->CalcExpPRP(); }), 0);
}

TEST_F(ExpectedPeriods, FailureLeavesThemAsTheyWere) {
    employee->UpdateFlags();
    employment->LExpPayDate(Date::fromYmd(2016, 7, 1));
    employee->PayFrequency(PFREQ_Casual);
    EXPECT_EQ(raisedBy([&] { employment->CalcExpPRP(); }), 9909);
    host.list().Clear();
    EXPECT_EQ(raisedBy([&] { employment->CalcExpPRP(); }), error_number::objectNotSet);
    EXPECT_EQ(employment->LExpPRP(), lastWeek);
    EXPECT_EQ(employment->NExpPRP(), nextWeek);
}

}  // namespace
}  // namespace ledgerwick
