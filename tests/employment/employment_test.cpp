// An employment as it comes out of its row, and the two dates that it writes back.
#include "ledgerwick/employment/employment.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ledgerwick/records/schema.h"
#include "tests/support/errors.h"
#include "tests/support/fake_host.h"
#include "tests/support/rows.h"

namespace ledgerwick {
namespace {

using test::closedPayRow;
using test::CriticalMessage;
using test::employmentRow;
using test::FakeHost;
using test::raisedBy;
using test::Row;
using test::Rows;
using testing::ElementsAre;

class EmploymentRecord : public testing::Test {
  protected:
    void create(const Row& row) {
        Rows rows{row};
        rows.allowOnly(cEmployment::employmentFields());
        employment.CreateEmployment(rows);
    }
    void addPayment(const Row& row) {
        Rows rows{row};
        employment.AddPayment(rows);
    }

    FakeHost host{17};
    cEmployment employment;
};

TEST_F(EmploymentRecord, IsFilledFromItsRow) {
    create(employmentRow()
               .with(field::PRTPYEmployCount, 2)
               .with(field::PRTEndDateLong, 42489)
               .with(field::PRTAEStatus, "Entitled worker")
               .with(field::PRTContinuation, true)
               .with(field::PRTType, 2));
    EXPECT_EQ(employment.PRTID(), 70);
    EXPECT_EQ(employment.PayrollYear(), 17);
    EXPECT_EQ(employment.EmployCount(), 2);
    EXPECT_EQ(employment.PRTStartDate(), Date::fromYmd(2015, 4, 6));
    EXPECT_EQ(employment.EndDate(), Date::fromYmd(2016, 4, 29));
    EXPECT_EQ(employment.AEStatusStart(), "Entitled worker");
    EXPECT_EQ(employment.AEStatusCur(), "Entitled worker");
    EXPECT_TRUE(employment.AEContinuation() && !employment.Continuation());
    EXPECT_TRUE(employment.Casual());
    EXPECT_FALSE(employment.StartDate().isSet());

    cEmployment stopped;
    Rows rows{employmentRow().with(field::PRTEndDateLong, Null)};
    EXPECT_EQ(raisedBy([&] { stopped.CreateEmployment(rows); }), error_number::invalidUseOfNull);
    EXPECT_TRUE(stopped.PRTStartDate().isSet());
    EXPECT_EQ(stopped.EmpType(), 0);
}

TEST_F(EmploymentRecord, IsActiveWhenOpenInTheCurrentPayrollYear) {
    struct Case {
        std::int32_t year;
        std::int32_t endDate;
        Variant currentYear;
        bool active;
    };
    const Case cases[] = {{17, 0, 17, true},  {17, 0, 17.0, true}, {17, 42489, 17, false},
                          {16, 0, 17, false}, {18, 0, 17, false},  {17, 0, Null, false}};
    for (const Case& c : cases) {
        host.state->currentYear = c.currentYear;
        employment = cEmployment();
        create(employmentRow()
                   .with(field::PRTPayrollYear, c.year)
                   .with(field::PRTEndDateLong, c.endDate));
        EXPECT_EQ(employment.Active(), c.active) << "year " << c.year << ", end " << c.endDate;
    }
}

TEST_F(EmploymentRecord, IsVoidWhenItEndedWithoutACalculatedRow) {
    create(employmentRow());
    EXPECT_FALSE(employment.IsVoid());
    employment.EndDate(Date::fromYmd(2016, 5, 1));
    EXPECT_TRUE(employment.IsVoid());
    addPayment(closedPayRow(1).with(field::PRPCalculationUsed, 0));
    EXPECT_TRUE(employment.IsVoid());
    addPayment(closedPayRow(2));
    EXPECT_FALSE(employment.IsVoid());
}

TEST_F(EmploymentRecord, NewDatesAreWrittenToTheLastClosedRowOrNotKept) {
    const Date date = Date::fromYmd(2016, 4, 20);
    employment.EmpType(PR_ET_Casual);
    addPayment(closedPayRow(1));
    const Date before = employment.NExpPayDate();
    host.state->database.failNextExecute(error_number::databaseError);
    employment.NExpPayDate(date);
    EXPECT_EQ(employment.NExpPayDate(), before);
    host.state->database.failNextExecute(error_number::databaseError);
    employment.NExpEPEDate(date);
    EXPECT_FALSE(employment.NExpEPEDate().isSet());
    EXPECT_THAT(
        host.state->messages,
        ElementsAre(CriticalMessage{"Fernbank Payroll - Error", "Unable to set Next Pay Date!"},
                    CriticalMessage{"Fernbank Payroll - Error", "Unable to set Next EPE Date!"}));

    employment.NExpEPEDate(Date());  // it holds that already
    EXPECT_EQ(host.state->database.executed().size(), 2u);
    employment.NExpEPEDate(date);
    EXPECT_EQ(employment.NExpEPEDate(), date);
    EXPECT_THAT(host.state->database.executed().back(), testing::HasSubstr("PRPNExpEPEDate"));
    EXPECT_THAT(host.state->database.executed().back(), testing::EndsWith("PRPID = 101"));
}

}  // namespace
}  // namespace ledgerwick
