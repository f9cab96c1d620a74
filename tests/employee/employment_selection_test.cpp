#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "ledgerwick/records/schema.h"
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
cEmployee employed(const std::vector<Employment>& employments) {
    cEmployee employee;
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
    return employee;
}

class LatestEmployment : public testing::Test {
  protected:
    LatestEmployment() { company.list(); }
    Company company;
};

TEST_F(LatestEmployment, IsTheLastAboveItsNeighbourOfThoseNotVoid) {
    struct Case {
        const char* reason;
        std::vector<Employment> employments;
        std::int32_t latest, previous;
    };
    const Case cases[] = {
        {"by year, then by count", {{16, 1}, {16, 2}, {17, 1}}, 3, 2},
        {"void ones do not count", {{16, 1}, {17, 1, true}, {17, 2}, {18, 1, true}}, 3, 1},
        {"each is compared with its neighbour only", {{17, 2}, {16, 1}, {17, 1}}, 3, 1},
        {"none before it", {{17, 1}}, 1, 0},
        {"all are void", {{16, 1, true}, {17, 1, true}}, 0, 0}};
    for (const auto& [reason, employments, latest, previous] : cases) {
        SCOPED_TRACE(reason);
        cEmployee employee = employed(employments);
        EXPECT_EQ(latest, employee.MostRecentEmploymentPRTID());
        EXPECT_EQ(previous, employee.PreviousEmploymentPRTID());
        bool noLatest = false;
        bool noPrevious = false;
        const auto mostRecent = employee.MostRecentEmployment(&noLatest);
        EXPECT_EQ(latest, mostRecent ? mostRecent->PRTID() : 0);
        EXPECT_EQ(latest == 0, noLatest);
        const auto before = employee.PreviousEmployment(&noPrevious);
        EXPECT_EQ(previous, before ? before->PRTID() : 0);
        EXPECT_EQ(previous == 0, noPrevious);
        EXPECT_EQ(latest, employee.CurEmployment()->PRTID());
        EXPECT_EQ(latest == 0 ? 91 : 0, raisedBy([&] { employee.AEOptOutDate(); }));
    }
}

TEST_F(LatestEmployment, RefusesARowTwiceOrWithoutKey) {
    cEmployee employee = employed({{17, 1}});
    for (const char* index : {"2", "01", "", "x"})
        EXPECT_EQ(nullptr, employee.GetEmploymentByIndex(index));
    const auto errorOfRow = [&](const Row& row) {
        Rows rows{row};
        return raisedBy([&] { employee.AddEmployment(rows); });
    };
    EXPECT_EQ(457, errorOfRow(employmentRow().with(field::PRTID, 1)));
    EXPECT_EQ(94, errorOfRow(employmentRow().with(field::PRTID, Null)));
    EXPECT_EQ(1, employee.Employments().Count());
    EXPECT_EQ(94, errorOfRow(employmentRow().with(field::PRTID, 2).with(field::PRTType, Null)));
    EXPECT_EQ(2, employee.Employments().Item("2")->PRTID());  // added, and filled up to the type
}

TEST_F(LatestEmployment, GetsThePayOfItsOwnKeyOnly) {
    cEmployee employee = employed({{17, 1}, {17, 2}});
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
    company.employee(8).casual();
    company.load();
    cEmployee& employee = company.at(7);
    EXPECT_TRUE(employee.Active() && !employee.Casual());
    EXPECT_EQ(71, employee.CurEmployment()->PRTID());
    EXPECT_FALSE(employee.CurEmployment()->NExpPRP().isEmpty());
    EXPECT_TRUE(company.at(8).Active() && company.at(8).Casual());
    EXPECT_TRUE(company.current(8).NExpPRP().isEmpty());

    employee.MostRecentEmployment()->Active(false);
    employee.UpdateFlags();
    EXPECT_TRUE(employee.Active());  // no further check takes it back
    EXPECT_EQ(71, employee.CurEmployment()->PRTID());
}

TEST(CurrentEmployment, OfOneWhoLeftIsOneBlankRecord) {
    Company company;
    company.employee(7).closed(weeks(1, 2)).left("2016-04-20");
    company.load();
    cEmployee& employee = company.at(7);
    EXPECT_FALSE(employee.Active());
    EXPECT_FALSE(employee.MostRecentEmployment()->NExpPRP().isEmpty());
    EXPECT_EQ(0, employee.CurEmployment()->PRTID());
    EXPECT_EQ(employee.CurEmployment(), employee.CurEmployment());
}

TEST(OptOut, CountsOnlyFromTheStartOfTheLatestEmployment) {
    Company company;
    company.employee(7).started("2016-05-01");
    company.load();
    cEmployee& employee = company.at(7);
    employee.AEOptOutDate(day("2016-05-01"));
    EXPECT_EQ(day("2016-05-01"), employee.AEOptOutDate());
    employee.AEOptOutDate(day("2016-04-30"));
    EXPECT_EQ(Date(), employee.AEOptOutDate());
    employee.MostRecentEmployment()->StartDate(day("2016-04-30"));
    EXPECT_EQ(day("2016-04-30"), employee.AEOptOutDate());  // it was kept all along
}

// ---- the last reported payment ------------------------------------------------------------------

TEST(ReportedPayment, GoesDownTheChainUnlessItIsBroken) {
    struct Case {
        const char* reason;
        const char* change;
        std::array<std::int32_t, 3> weeks;  // of the payment that each employment shows, 0 for none
    };
    const Case cases[] = {
        {"to the active employment", "", {5, 5, 5}},
        {"to one that ended",
         "UPDATE PREmployments SET PRTEndDateLong = 42521 WHERE PRTID = 72",
         {5, 5, 5}},
        // No later one asked for it, and the one in the middle is neither active nor ended.
        {"not past a payment of its own",
         "UPDATE PRPay SET PRPPayrollYear = 17 WHERE PRPWeekNo = 2",
         {5, 0, 2}},
        {"not to open employments of earlier years",
         "UPDATE PREmployments SET PRTPayrollYear = 16, PRTPYEmployCount = 2 WHERE PRTID = 72",
         {5, 0, 0}},
        {"not past a break",
         "UPDATE PREmployments SET PRTEndDateLong = 41500 WHERE PRTID = 70",
         {5, 0, 0}},
        {"nothing to carry", "DELETE FROM PRPay", {0, 0, 0}}};
    for (const auto& [reason, change, weeksShown] : cases) {
        // Three employments of the payroll years 15, 16 and 17, each going on from the one before,
        // and payments of the weeks 2 and 5 in the first.
        Company company;
        Person& person = company.employee(7).row("PRTPayrollYear = 15").started("2012-04-01");
        person.employment(16).started("2012-04-01").employment(17).started("2012-04-01");
        person.closed(week(2)).closed(week(5));
        company.exec("UPDATE PRPay SET PRPPayrollYear = 15").exec(change);
        company.load();
        for (std::int32_t i = 0; i < 3; ++i) {
            const auto employment = company.at(7).GetEmploymentByIndex(std::to_string(70 + i));
            const Variant paid = employment->LastRTI();
            EXPECT_EQ(weeksShown.at(static_cast<std::size_t>(i)),
                      paid.isEmpty() ? 0 : paid.array().at(9).toInt32())
                << reason << ", employment " << i;
        }
    }
}

}  // namespace
}  // namespace ledgerwick::test
