#include <gtest/gtest.h>

#include <vector>

#include "ledgerwick/shell/schema.h"
#include "tests/support/company.h"
#include "tests/support/errors.h"
#include "tests/support/rows.h"

namespace ledgerwick::test {
namespace {

// ---- which is the latest ------------------------------------------------------------------------

struct Employment {
    std::int32_t year;
    std::int32_t count;
    bool isVoid = false;
};

// An employee of casual employments, 1, 2, 3 ... by PRTID, in the order given.
class LatestEmployment : public testing::Test {
  protected:
    void employ(const std::vector<Employment>& employments) {
        std::int32_t prtid = 0;
        for (const Employment& e : employments) {
            Rows row{employmentRow()
                         .with(field::PRTID, ++prtid)
                         .with(field::PRTPayrollYear, e.year)
                         .with(field::PRTPYEmployCount, e.count)
                         .with(field::PRTEndDateLong, e.isVoid ? 42500 : 0)
                         .with(field::PRTType, static_cast<std::int16_t>(PR_ET_Casual))};
            employee.AddEmployment(row);
        }
        employee.UpdateFlags();
    }

    Company company;
    CEmployeeList& linked = company.list();
    cEmployee employee;
};

TEST_F(LatestEmployment, IsTheHighestYearAndCount) {
    employ({{16, 1}, {16, 2}, {17, 1}});
    EXPECT_EQ(3, employee.MostRecentEmploymentPRTID());
    EXPECT_EQ(2, employee.PreviousEmploymentPRTID());
    bool notKnown = false;
    EXPECT_EQ(3, employee.MostRecentEmployment(&notKnown)->PRTID());
    EXPECT_EQ(2, employee.PreviousEmployment(&notKnown)->PRTID());
    EXPECT_FALSE(notKnown);
}

TEST_F(LatestEmployment, PassesOverVoidOnes) {
    employ({{16, 1}, {17, 1, true}, {17, 2}, {18, 1, true}});
    EXPECT_EQ(3, employee.MostRecentEmploymentPRTID());
    EXPECT_EQ(1, employee.PreviousEmploymentPRTID());
}

TEST_F(LatestEmployment, ComparesEachWithItsNeighbourOnly) {
    employ({{17, 2}, {16, 1}, {17, 1}});
    EXPECT_EQ(3, employee.MostRecentEmploymentPRTID());
    EXPECT_EQ(1, employee.PreviousEmploymentPRTID());
}

TEST_F(LatestEmployment, MayHaveNoneBeforeIt) {
    employ({{17, 1}});
    EXPECT_EQ(0, employee.PreviousEmploymentPRTID());
    bool notKnown = false;
    EXPECT_EQ(nullptr, employee.PreviousEmployment(&notKnown));
    EXPECT_TRUE(notKnown);
    EXPECT_EQ(nullptr, employee.PreviousEmployment());
}

TEST_F(LatestEmployment, IsNotKnownWhenAllAreVoid) {
    employ({{16, 1, true}, {17, 1, true}});
    bool notKnown = false;
    EXPECT_EQ(nullptr, employee.MostRecentEmployment(&notKnown));
    EXPECT_TRUE(notKnown);
    EXPECT_FALSE(employee.Active());
    EXPECT_EQ(0, employee.CurEmployment()->PRTID());
    EXPECT_EQ(91, raisedBy([&] { employee.AEOptOutDate(); }));
}

TEST_F(LatestEmployment, IsFoundByItsKey) {
    employ({{17, 1}});
    EXPECT_EQ(1, employee.GetEmploymentByIndex("1")->PRTID());
    for (const char* index : {"2", "01", "", "x"})
        EXPECT_EQ(nullptr, employee.GetEmploymentByIndex(index));
}

TEST_F(LatestEmployment, RefusesARowTwiceOrWithoutKey) {
    employ({{17, 1}});
    Rows again{employmentRow().with(field::PRTID, 1)};
    EXPECT_EQ(457, raisedBy([&] { employee.AddEmployment(again); }));
    Rows keyless{employmentRow().with(field::PRTID, Null)};
    EXPECT_EQ(94, raisedBy([&] { employee.AddEmployment(keyless); }));
    EXPECT_EQ(1, employee.Employments().Count());

    Rows broken{employmentRow().with(field::PRTID, 2).with(field::PRTStartDate, Null)};
    EXPECT_EQ(94, raisedBy([&] { employee.AddEmployment(broken); }));
    EXPECT_EQ(2, employee.Employments().Item("2")->PRTID());  // added, and filled up to the date
}

TEST_F(LatestEmployment, GetsThePayOfItsOwnKeyOnly) {
    employ({{17, 1}, {17, 2}});
    Rows pay{closedPayRow(3).with(field::PRTID, 2), closedPayRow(4).with(field::PRTID, 5),
             closedPayRow(5).with(field::PRTID, Null)};
    employee.AddPayment(pay);
    EXPECT_EQ(0, employee.GetEmploymentByIndex("1")->LastWeekNo());
    EXPECT_EQ(3, employee.GetEmploymentByIndex("2")->LastWeekNo());
    pay.MoveNext();
    EXPECT_EQ(3265, raisedBy([&] { employee.AddPayment(pay); }));
    pay.MoveNext();
    EXPECT_EQ(94, raisedBy([&] { employee.AddPayment(pay); }));
}

// ---- which is in force --------------------------------------------------------------------------

TEST(CurrentEmployment, IsTheLatestWhenThatIsActive) {
    Company company;
    company.employee(7).row("PRTPayrollYear = 16").employment(17).closed(weeks(1, 2));
    company.load();
    cEmployee& employee = company.at(7);
    EXPECT_TRUE(employee.Active());
    EXPECT_FALSE(employee.Casual());
    EXPECT_EQ(employee.MostRecentEmployment(), employee.CurEmployment());
    EXPECT_EQ(71, employee.CurEmployment()->PRTID());
    EXPECT_FALSE(employee.CurEmployment()->NExpPRP().isEmpty());
}

TEST(CurrentEmployment, MakesACasualEmployeeCasual) {
    Company company;
    company.employee(7).casual();
    company.load();
    EXPECT_TRUE(company.at(7).Active());
    EXPECT_TRUE(company.at(7).Casual());
    EXPECT_TRUE(company.current(7).NExpPRP().isEmpty());
}

TEST(CurrentEmployment, OfOneWhoLeftIsOneBlankRecord) {
    Company company;
    company.employee(7).closed(weeks(1, 2)).left("2016-04-20");
    company.load();
    cEmployee& employee = company.at(7);
    EXPECT_FALSE(employee.Active());
    EXPECT_EQ(70, employee.MostRecentEmploymentPRTID());
    EXPECT_FALSE(employee.MostRecentEmployment()->NExpPRP().isEmpty());
    EXPECT_EQ(0, employee.CurEmployment()->PRTID());
    EXPECT_FALSE(employee.CurEmployment()->Active());
    EXPECT_EQ(employee.CurEmployment(), employee.CurEmployment());
}

TEST(CurrentEmployment, IsNotTakenBackByFurtherChecks) {
    Company company;
    company.employee(7).closed(week(1));
    company.load();
    cEmployee& employee = company.at(7);
    employee.MostRecentEmployment()->Active(false);
    employee.UpdateFlags();
    EXPECT_TRUE(employee.Active());
    EXPECT_EQ(70, employee.CurEmployment()->PRTID());
}

TEST(OptOut, CountsOnlyFromTheStartOfTheLatestEmployment) {
    Company company;
    company.employee(7).started("2016-05-01");
    company.load();
    cEmployee& employee = company.at(7);
    EXPECT_EQ(Date(), employee.AEOptOutDate());
    employee.AEOptOutDate(day("2016-05-01"));
    EXPECT_EQ(day("2016-05-01"), employee.AEOptOutDate());
    employee.AEOptOutDate(day("2016-04-30"));
    EXPECT_EQ(Date(), employee.AEOptOutDate());
    employee.MostRecentEmployment()->StartDate(day("2016-04-30"));
    EXPECT_EQ(day("2016-04-30"), employee.AEOptOutDate());  // it was kept all along
}

// ---- the last reported payment ------------------------------------------------------------------

// An employee with employments 70, 71 and 72 of the payroll years 15, 16 and 17; each goes on from
// the one before, and the first has a reported payment of week 5.
class ReportedPayment : public testing::Test {
  protected:
    ReportedPayment() {
        person.row("PRTPayrollYear = 15");
        company.exec("UPDATE PREmployments SET PRTStartDate = 41000");
        person.employment(16).employment(17);
    }
    // Lays down week `week` of the first employment, reported.
    void report(std::int32_t weekNo) {
        company.employee(7).closed(week(weekNo));
        company.exec("UPDATE PRPay SET PRPPayrollYear = 15");
    }
    // The week of the payment that an employment shows, 0 for none.
    std::int32_t weekShown(std::int32_t prtid) {
        const Variant payment =
            company.at(7).GetEmploymentByIndex(std::to_string(prtid))->LastRTI();
        return payment.isEmpty() ? 0 : payment.array().at(9).toInt32();
    }

    Company company;
    Person& person = company.employee(7);
};

TEST_F(ReportedPayment, GoesDownTheChainToActiveEmployments) {
    report(5);
    company.load();
    EXPECT_EQ(5, weekShown(70));
    EXPECT_EQ(5, weekShown(71));
    EXPECT_EQ(5, weekShown(72));
}

TEST_F(ReportedPayment, GivesWayToOneOfTheEmploymentsOwn) {
    report(5);
    person.closed(week(2));
    company.load();
    EXPECT_EQ(5, weekShown(70));
    EXPECT_EQ(0, weekShown(71));  // no later one asked for it: it is neither active nor ended
    EXPECT_EQ(2, weekShown(72));
}

TEST_F(ReportedPayment, DoesNotReachOpenEmploymentsOfEarlierYears) {
    report(5);
    person.row("PRTPayrollYear = 16, PRTPYEmployCount = 2");
    company.load();
    EXPECT_EQ(0, weekShown(71));
    EXPECT_EQ(0, weekShown(72));
}

TEST_F(ReportedPayment, ReachesAnEmploymentThatEnded) {
    report(5);
    person.left("2016-05-31");
    company.load();
    EXPECT_EQ(5, weekShown(72));
}

TEST_F(ReportedPayment, DoesNotCrossABreak) {
    report(5);
    company.exec("UPDATE PREmployments SET PRTEndDateLong = 41500 WHERE PRTID = 70");
    company.load();
    EXPECT_EQ(5, weekShown(70));
    EXPECT_EQ(0, weekShown(71));
    EXPECT_EQ(0, weekShown(72));
}

TEST_F(ReportedPayment, IsNotCarriedWhenThereIsNone) {
    company.load();
    EXPECT_EQ(0, weekShown(72));
}

}  // namespace
}  // namespace ledgerwick::test
