// The load, on a real database: what the rows become, what the host sees, and what survives a
// failure.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ledgerwick/host/identify.h"
#include "tests/support/company.h"
#include "tests/support/errors.h"
#include "tests/support/failing_database.h"

namespace ledgerwick::test {
namespace {

using testing::ElementsAre;
using Captions = std::vector<std::string>;

cEmployment& employmentOf(Company& company, std::int32_t prtid) {
    return *company.at(prtid / 10).GetEmploymentByIndex(std::to_string(prtid));
}

// ---- what an employee is filled with ------------------------------------------------------------

TEST(Load, FillsEachPropertyFromItsOwnField) {
    Company company;
    company.scheme(4, "Works scheme", 5, 3);
    company.employee(7)
        .named("Mr John Paul Smith")
        .customer(R"(NASeq = 'SMITH', NAUserRef = 'ref', NAAdd1 = ' add1 ', NAAdd2 = 'add2',
                     NAVillage = 'village', NATown = 'town', NACounty = 'county',
                     NAPostCode = 'code', NACountry = 'country', NAEMailADD = 'mail')")
        .details(R"(PRESex = 'F', PREDoB = #2/1/1990#, PRENINO = ' QQ123456A ', PRENITable = 'C',
                    PRETaxCode = '1100L', PREDirector = True, PREGroup = 3, PREHourlyPaid = True,
                    PREStdHourlyRate = 9.1234, PREStdPeriodRate = 412.5, PREHDays = 28.5)")
        .details(R"(PREPensionJoinedDate = #4/6/2016#, PREPensionOptInDate = #4/7/2016#,
                    PREPensionOptOutDate = #4/8/2016#, PREPensionPostponementDate = #4/9/2016#)")
        .monthly()
        .inScheme(4);
    company.load();

    cEmployee& emp = company.at(7);
    const std::vector<std::string> loaded{emp.Seq(),
                                          emp.SortSeq(),
                                          emp.Name(),
                                          emp.UserRef(),
                                          emp.Sex(),
                                          emp.Add1(),
                                          emp.Add2(),
                                          emp.Village(),
                                          emp.Town(),
                                          emp.County(),
                                          emp.PostCode(),
                                          emp.Country(),
                                          emp.Email(),
                                          emp.NINO(),
                                          emp.NITable(),
                                          emp.TaxCode(),
                                          emp.HourlyRate().toText(),
                                          emp.PeriodRate().toText(),
                                          emp.IID()};
    EXPECT_THAT(loaded, ElementsAre("SMITH", "SMITH", "Mr John Paul Smith", "ref", "F", "add1",
                                    "add2", "village", "town", "county", "code", "country", "mail",
                                    "QQ123456A", "C", "1100L", "9.1234", "412.5", ""));
    EXPECT_EQ(day("1990-02-01"), emp.DOB());
    EXPECT_EQ(day("2016-04-06"), emp.AEJoinedDate());
    EXPECT_EQ(day("2016-04-07"), emp.AEOptInDate());
    EXPECT_EQ(day("2016-04-08"), emp.AEOptOutDate());
    EXPECT_EQ(day("2016-04-09"), emp.AEPostponementDate());
    EXPECT_EQ(PFREQ_Monthly, emp.PayFrequency());
    EXPECT_TRUE(emp.Director() && emp.HourlyPaid());
    EXPECT_EQ(3, emp.Group());
    EXPECT_EQ(28.5F, emp.HolidayAllowance());
    EXPECT_EQ(5.0F, emp.PenWorkplaceEEDeductPC());
    EXPECT_TRUE(company.list().ExistsByNINO(" QQ123456A "));
}

TEST(Load, GoesByNAIDAndHangsPayOnTheEmploymentOfItsRowInThreeQueries) {
    Company company;
    const auto counting = std::make_shared<FailingDatabase>(company.database());
    company.useDatabase(counting);
    company.employee(9).closed(weeks(1, 2));
    company.employee(7).employment(17, 2).closed(weeks(5, 7)).open(week(8));
    company.employee(8);
    company.list();
    counting->failAt(Operation::Open, 0);
    CEmployeeList& list = company.load();
    EXPECT_EQ(3, counting->count(Operation::Open));
    EXPECT_EQ(7, list.GetEmployeeByIndex(1)->NAID());
    EXPECT_EQ(9, list.GetEmployeeByIndex(3)->NAID());
    EXPECT_EQ(0, employmentOf(company, 70).LastWeekNo());
    EXPECT_EQ(7, employmentOf(company, 71).LastWeekNo());
    EXPECT_EQ(0, employmentOf(company, 80).LastWeekNo());
    EXPECT_EQ(2, employmentOf(company, 90).LastWeekNo());
}

// ---- captions -----------------------------------------------------------------------------------

TEST(LoadCaptions, ComeOncePerEmployeeEachWithATurnOfTheHost) {
    Company company;
    EXPECT_EQ(0, company.load().EmployeeCount());
    EXPECT_THAT(
        company.label->captions,
        ElementsAre("Loading Employees......", "Checking Figures......", "Figures Checked......"));

    company.employee(7).named("Ann Lee").employment(17, 2).closed(weeks(1, 3));
    company.employee(8).named("Bo Day");
    company.label->captions.clear();
    company.load();
    const Captions all{"Loading Employees......", "Loading Ann Lee......",
                       "Loading Bo Day......",    "Loading Payments for Ann Lee",
                       "Checking Figures......",  "Figures Checked......"};
    EXPECT_EQ(all, company.label->captions);
    EXPECT_EQ(3 + 6, company.label->turns);

    // Without a label that is one, they go to the one kept before.
    for (const ObjectRef& other : {ObjectRef(), ObjectRef(std::make_shared<CEmployeeList>())}) {
        company.label->captions.clear();
        company.list().Clear();
        company.list().LoadEmployees(other);
        EXPECT_EQ(all, company.label->captions);
    }
    company.label->captions.clear();
    company.list().ReLoadEmployee(7);
    EXPECT_THAT(company.label->captions,
                ElementsAre("Loading Ann Lee......", "Loading Payments for Ann Lee",
                            "Checking Figures......", "Figures Checked......"));
}

TEST(LoadCaptions, GoNowhereWithoutALabel) {
    Company company;
    company.employee(7).closed(week(1));
    EXPECT_FALSE(company.list().LoadEmployees());
    EXPECT_FALSE(company.list().ReLoadEmployee(7));
    EXPECT_EQ(1, company.current(7).LastWeekNo());
}

// A label in name only.
struct NotALabel : Object {
    std::string_view TypeName() const noexcept override { return "Label"; }
};

TEST(LoadCaptions, NeedALabelThatCanShowThem) {
    Company company;
    EXPECT_EQ(438, raisedBy([&] { company.list().LoadEmployees(std::make_shared<NotALabel>()); }));
}

// ---- start dates --------------------------------------------------------------------------------

TEST(LoadStartDates, OfTheEarliestEmploymentsComeFromTheOriginalJoining) {
    Company company;
    company.employee(7).started("2015-04-06").originallyJoined("2009-09-01");
    company.employee(8).started("2015-04-07").originallyJoined("2009-09-01");
    company.employee(9).started("2015-06-01").left("2015-06-30");
    company.employee(9).employment(17).started("2015-04-06");
    company.load();
    EXPECT_EQ(day("2009-09-01"), employmentOf(company, 70).StartDate());
    EXPECT_EQ(day("2009-09-01"), employmentOf(company, 70).HMRCStartDate());
    EXPECT_EQ(day("2015-04-06"), employmentOf(company, 70).PRTStartDate());
    EXPECT_EQ(day("2015-04-07"), employmentOf(company, 80).StartDate());
    EXPECT_EQ(day("2015-04-07"), employmentOf(company, 80).HMRCStartDate());
    EXPECT_EQ(day("2015-04-06"), employmentOf(company, 91).HMRCStartDate());  // not the first

    company.employee(8).started("2014-04-06");
    company.list().ReLoadEmployee(7);  // reads the earliest start again
    EXPECT_EQ(day("2015-04-06"), employmentOf(company, 70).StartDate());
}

// ---- continuations ------------------------------------------------------------------------------

TEST(LoadContinuations, JoinNeighbouringEmployments) {
    enum Joined { Apart, ForAutoEnrolment, Whole };
    constexpr const char* notEnded = nullptr;
    struct Sequence {
        const char* reason;
        const char* prevEnd;
        bool prevCasual;
        const char* start;
        bool casual;
        bool storedContinuation;
        Joined joined;
    };
    const Sequence sequences[] = {
        {"the job goes on", notEnded, false, "2016-04-06", false, false, Whole},
        {"casual work goes on", notEnded, true, "2016-04-06", true, false, Whole},
        {"regular after casual", notEnded, true, "2016-04-06", false, false, Apart},
        {"the same, told to", notEnded, true, "2016-04-06", false, true, ForAutoEnrolment},
        {"after 7 days", "2016-03-30", false, "2016-04-06", false, false, ForAutoEnrolment},
        {"after 8 days", "2016-03-29", false, "2016-04-06", false, false, Apart},
        {"after 8 days, told to", "2016-03-29", false, "2016-04-06", false, true, ForAutoEnrolment},
        {"before the end", "2016-06-30", false, "2016-04-06", false, false, ForAutoEnrolment},
        {"as the other kind", "2016-04-05", true, "2016-04-06", false, false, ForAutoEnrolment},
        {"7 days to noon", "2016-03-30", false, "2016-04-06 06:00", false, false, ForAutoEnrolment},
        {"7 days and more", "2016-03-30", false, "2016-04-06 18:00", false, false, Apart}};
    for (const Sequence& s : sequences) {
        SCOPED_TRACE(s.reason);
        Company company;
        company.employee(1).started("2010-01-01");
        Person& person = company.employee(7);
        if (s.prevCasual) person.casual();
        person.started("2015-05-01").row("PRTPayrollYear = 16");
        if (s.prevEnd != notEnded) person.left(s.prevEnd);
        person.employment(17).started(s.start).weekly();
        if (s.casual) person.casual();
        if (s.storedContinuation) person.row("PRTContinuation = True");
        company.load();

        const cEmployment& prev = employmentOf(company, 70);
        const cEmployment& next = employmentOf(company, 71);
        EXPECT_EQ(s.joined == Whole, next.Continuation());
        EXPECT_EQ(s.joined == Whole ? 70 : 0, next.ContinuationOfPRTID());
        EXPECT_EQ(s.joined == Whole ? prev.HMRCStartDate() : day(s.start), next.HMRCStartDate());
        EXPECT_EQ(s.joined != Apart, next.AEContinuation());
        EXPECT_EQ(s.joined != Apart ? prev.StartDate() : day(s.start), next.StartDate());
        EXPECT_EQ(day(s.start), next.PRTStartDate());
        EXPECT_FALSE(prev.Continuation() || prev.AEContinuation());
    }
}

TEST(LoadContinuations, PassThroughVoidEmployments) {
    Company company;
    company.employee(1).started("2010-01-01");
    Person& person = company.employee(7).started("2016-04-06").left("2016-04-30");
    person.employment(17, 2).started("2016-05-03").left("2016-05-04");
    person.employment(17, 3).started("2016-05-11");
    company.load();
    EXPECT_TRUE(employmentOf(company, 71).IsVoid());
    EXPECT_EQ(day("2016-04-06"), employmentOf(company, 72).StartDate());
    EXPECT_EQ(day("2016-05-11"), employmentOf(company, 72).HMRCStartDate());
}

// ---- one employee again -------------------------------------------------------------------------

TEST(ReLoad, ReplacesOneEmployeeAtTheEndOfTheList) {
    Company company;
    company.employee(7).nino("QQ123456A").closed(weeks(1, 2));
    company.employee(8).nino("QQ123456B").closed(weeks(1, 2));
    CEmployeeList& list = company.load();
    const auto held = list.GetEmployeeByNAID(7);
    const auto other = list.GetEmployeeByNAID(8);

    company.employee(7).closed(week(3));
    EXPECT_FALSE(list.ReLoadEmployee(7));
    EXPECT_EQ(2, list.EmployeeCount());
    EXPECT_EQ(other, list.GetEmployeeByIndex(1));
    EXPECT_NE(held, list.GetEmployeeByIndex(2));
    EXPECT_EQ(list.GetEmployeeByIndex(2), list.GetEmployeeByNINO("QQ123456A"));
    EXPECT_EQ(3, company.current(7).LastWeekNo());
    EXPECT_TRUE(company.at(7).Active());
    EXPECT_EQ(2, held->CurEmployment()->LastWeekNo());
}

TEST(ReLoad, LoadsAnEmployeeWhoIsNewAndDropsOneWithoutEmployment) {
    Company company;
    company.employee(7).nino("QQ123456A");
    CEmployeeList& list = company.load();
    company.employee(8);
    company.employee(7).withoutEmployment();
    for (const std::int32_t naid : {8, 7, 99}) list.ReLoadEmployee(naid);
    EXPECT_EQ(1, list.EmployeeCount());
    EXPECT_TRUE(company.at(8).Active());
    EXPECT_FALSE(list.ExistsByNINO("QQ123456A"));
}

TEST(ReLoad, LeavesTheNumberWithTheEmployeeWhoHadItFirst) {
    Company company;
    company.employee(7).nino("QQ123456A");
    company.employee(8).nino("QQ123456A");
    CEmployeeList& list = company.load();
    company.employee(8).nino("QQ123456B");
    list.ReLoadEmployee(8);
    EXPECT_EQ(7, list.GetEmployeeByNINO("QQ123456A")->NAID());
    EXPECT_TRUE(company.at(7).NINODuplicated());  // the mark is not taken back
    EXPECT_FALSE(company.at(8).NINODuplicated());
    list.ReLoadEmployee(7);
    EXPECT_FALSE(company.at(7).NINODuplicated());
}

// ---- what survives a failure --------------------------------------------------------------------

// Employees 7, 8 and 9, each with two closed weeks.
struct ThreeEmployees : Company {
    ThreeEmployees() {
        for (const std::int32_t naid : {7, 8, 9}) employee(naid).closed(weeks(1, 2));
    }
    // What the list holds of them: "none", "blank" without employment, or the week up to which the
    // pay got in, with a star when the flags are set.
    std::string survivors() {
        std::string text;
        for (const std::int32_t naid : {7, 8, 9}) {
            const auto held = list().GetEmployeeByNAID(naid);
            if (!held || held->Employments().Count() == 0) {
                text += held ? "blank " : "none ";
            } else {
                text += std::to_string((*held->Employments().begin())->LastWeekNo());
                text += held->MostRecentEmploymentPRTID() != 0 ? "* " : " ";
            }
        }
        return text;
    }
};

TEST(FailedLoad, KeepsWhatWasLoadedBefore) {
    struct Case {
        const char* reason;
        const char* damage;
        std::int32_t error;
        const char* survivors;
        const char* lastCaption;
    };
    const Case cases[] = {
        {"no name", "UPDATE Customers SET NABusName = Null WHERE NAID = 8", 94, "0 0 none ",
         "Loading ......"},
        {"no customer", "DELETE FROM Customers WHERE NAID = 8", 94, "0 none none ",
         "Loading ......"},
        {"no employment: stands first, where Nulls sort",
         "DELETE FROM PREmployments WHERE PRTNAID = 8", 94, "none blank none ",
         "Loading Employee 8......"},
        {"no employment at all", "DELETE FROM PREmployments", 94, "none none none ",
         "Loading Employee 7......"},
        {"pay of an unknown employment",
         "UPDATE PRPay SET PRPPYEmployCount = 2 WHERE PRPNAID = 8 AND PRPWeekNo = 2", 94, "2 1 0 ",
         "Loading Payments for Employee 8"},
        {"pay of an unknown employee",
         "UPDATE PRPay SET PRPNAID = 6 WHERE PRPNAID = 8 AND PRPWeekNo = 2", 91, "0 0 0 ",
         "Loading Employee 9......"},
        {"no pay frequency", "UPDATE PREmployeeDetails SET PREPayFrequency = 0 WHERE PRENAID = 8",
         9909, "2* 2* 2 ", "Checking Figures......"}};
    for (const auto& [reason, damage, error, survivors, lastCaption] : cases) {
        ThreeEmployees company;
        company.exec(damage);
        EXPECT_EQ(error, raisedBy([&] { company.load(); })) << reason;
        EXPECT_EQ(survivors, company.survivors()) << reason;
        EXPECT_EQ(lastCaption, company.label->captions.back()) << reason;
    }
}

TEST(FailedLoad, FillsTheEmployeeUpToTheFieldWithoutAValue) {
    ThreeEmployees company;
    company.employee(8).customer("NABusName = Null");
    EXPECT_EQ(94, raisedBy([&] { company.load(); }));
    EXPECT_EQ("E8", company.at(8).Seq());    // before the name
    EXPECT_EQ("", company.at(8).SortSeq());  // and after it
}

TEST(FailedLoad, LeavesAListThatWasNotClearedOrCannotBeQueried) {
    ThreeEmployees company;
    company.load();
    EXPECT_EQ(457, raisedBy([&] { company.list().LoadEmployees(); }));
    company.exec("DROP TABLE PensionSchemes");
    EXPECT_NE(0, raisedBy([&] { company.list().LoadEmployees(); }));
    EXPECT_EQ("2* 2* 2* ", company.survivors());
    EXPECT_EQ(1, company.at(7).Employments().Count());
}

TEST(FailedLoad, NeedsTheListToBeHandedOver) {
    ThreeEmployees company;
    company.list();
    Identify().SetEmployeeList(nullptr);
    EXPECT_EQ(91, raisedBy([&] { company.load(); }));
    EXPECT_EQ("2* 2 2 ", company.survivors());
}

}  // namespace
}  // namespace ledgerwick::test
