// An employment as it comes out of its row, and the two dates that it writes back.
#include "ledgerwick/employment/employment.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ledgerwick/shell/schema.h"
#include "ledgerwick/values/error.h"
#include "tests/support/fake_host.h"
#include "tests/support/rows.h"

namespace ledgerwick {
namespace {

using test::closedPayRow;
using test::CriticalMessage;
using test::employmentRow;
using test::FakeHost;
using test::Row;
using test::Rows;
using testing::ElementsAre;
using testing::IsEmpty;

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
    EXPECT_TRUE(employment.AEContinuation());
    EXPECT_FALSE(employment.Continuation());
    EXPECT_TRUE(employment.Casual());
    EXPECT_FALSE(employment.StartDate().isSet());
}

TEST_F(EmploymentRecord, IsActiveWhenOpenInTheCurrentPayrollYear) {
    struct Case {
        std::int32_t year;
        std::int32_t endDate;
        Variant currentYear;
        bool active;
    };
    const Case cases[] = {
        {17, 0, 17, true},  {17, 0, 17.0, true}, {17, 42489, 17, false},
        {16, 0, 17, false}, {18, 0, 17, false},  {17, 0, Null, false},
    };
    for (const Case& c : cases) {
        host.state->currentYear = c.currentYear;
        Rows rows{employmentRow()
                      .with(field::PRTPayrollYear, c.year)
                      .with(field::PRTEndDateLong, c.endDate)};
        cEmployment fresh;
        fresh.CreateEmployment(rows);
        EXPECT_EQ(fresh.Active(), c.active) << "year " << c.year << ", end " << c.endDate;
        EXPECT_EQ(fresh.EndDate().isSet(), c.endDate != 0);
    }
}

TEST_F(EmploymentRecord, NullStopsTheFillWhereItIsRead) {
    try {
        create(employmentRow().with(field::PRTEndDateLong, Null));
        FAIL() << "a Null end date is read as a number";
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), error_number::invalidUseOfNull);
    }
    EXPECT_EQ(employment.PRTStartDate(), Date::fromYmd(2015, 4, 6));
    EXPECT_EQ(employment.EmpType(), 0);
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

TEST_F(EmploymentRecord, NewEndOfPeriodIsWrittenToTheLastClosedRow) {
    const Date date = Date::fromYmd(2016, 4, 20);
    addPayment(closedPayRow(1));
    employment.NExpEPEDate(Date());
    EXPECT_THAT(host.state->database.executed(), IsEmpty());

    employment.NExpEPEDate(date);
    EXPECT_EQ(employment.NExpEPEDate(), date);
    ASSERT_EQ(host.state->database.executed().size(), 1u);
    EXPECT_THAT(host.state->database.executed().front(), testing::HasSubstr("PRPNExpEPEDate"));
    EXPECT_THAT(host.state->database.executed().front(), testing::EndsWith("PRPID = 101"));
}

TEST_F(EmploymentRecord, DateThatCannotBeWrittenIsNotKept) {
    employment.EmpType(PR_ET_Casual);
    addPayment(closedPayRow(1));
    const Date before = employment.NExpPayDate();
    host.state->database.failNextExecute(error_number::databaseError);
    employment.NExpPayDate(before.addDays(1));
    EXPECT_EQ(employment.NExpPayDate(), before);

    host.state->database.failNextExecute(error_number::databaseError);
    employment.NExpEPEDate(before);
    EXPECT_FALSE(employment.NExpEPEDate().isSet());
    EXPECT_THAT(
        host.state->messages,
        ElementsAre(CriticalMessage{"Fernbank Payroll - Error", "Unable to set Next Pay Date!"},
                    CriticalMessage{"Fernbank Payroll - Error", "Unable to set Next EPE Date!"}));
}

}  // namespace
}  // namespace ledgerwick
