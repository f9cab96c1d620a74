// The load, on a real database: what the rows become, what the host sees, and what survives a
// failure.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ledgerwick/shell/identify.h"
#include "tests/support/company.h"
#include "tests/support/errors.h"

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
    EXPECT_EQ(7, emp.NAID());
    EXPECT_EQ("SMITH", emp.Seq());
    EXPECT_EQ("SMITH", emp.SortSeq());
    EXPECT_EQ("Mr John Paul Smith", emp.Name());
    EXPECT_EQ("ref", emp.UserRef());
    EXPECT_EQ("F", emp.Sex());
    EXPECT_EQ(day("1990-02-01"), emp.DOB());
    EXPECT_EQ("add1", emp.Add1());
    EXPECT_EQ("add2", emp.Add2());
    EXPECT_EQ("village", emp.Village());
    EXPECT_EQ("town", emp.Town());
    EXPECT_EQ("county", emp.County());
    EXPECT_EQ("code", emp.PostCode());
    EXPECT_EQ("country", emp.Country());
    EXPECT_EQ("mail", emp.Email());
    EXPECT_EQ(PFREQ_Monthly, emp.PayFrequency());
    EXPECT_EQ("QQ123456A", emp.NINO());
    EXPECT_EQ("C", emp.NITable());
    EXPECT_EQ("1100L", emp.TaxCode());
    EXPECT_TRUE(emp.Director());
    EXPECT_EQ(3, emp.Group());
    EXPECT_TRUE(emp.HourlyPaid());
    EXPECT_EQ("9.1234", emp.HourlyRate().toText());
    EXPECT_EQ("412.5", emp.PeriodRate().toText());
    EXPECT_EQ(28.5F, emp.HolidayAllowance());
    EXPECT_EQ(day("2016-04-06"), emp.AEJoinedDate());
    EXPECT_EQ(day("2016-04-07"), emp.AEOptInDate());
    EXPECT_EQ(day("2016-04-08"), emp.AEOptOutDate());
    EXPECT_EQ(day("2016-04-09"), emp.AEPostponementDate());
    EXPECT_EQ(4, emp.PenWorkplaceSchemeID());
    EXPECT_EQ(5.0F, emp.PenWorkplaceEEDeductPC());
    EXPECT_EQ("", emp.IID());
    EXPECT_TRUE(company.list().ExistsByNINO(" QQ123456A "));
}

TEST(Load, GoesByNAIDAndHangsPayOnTheEmploymentOfItsRow) {
    Company company;
    company.employee(9).closed(weeks(1, 2));
    company.employee(7).employment(17, 2).closed(weeks(5, 7)).open(week(8));
    company.employee(8);
    CEmployeeList& list = company.load();
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
    company.employee(7).named("Ann Lee").employment(17, 2).closed(weeks(1, 3));
    company.employee(8).named("Bo Day");
    company.load();
    EXPECT_THAT(company.label->captions,
                ElementsAre("Loading Employees......", "Loading Ann Lee......",
                            "Loading Bo Day......", "Loading Payments for Ann Lee",
                            "Checking Figures......", "Figures Checked......"));
    EXPECT_EQ(6, company.label->turns);
}

TEST(LoadCaptions, OfAnEmptyStoreTellOnlyTheSteps) {
    Company company;
    EXPECT_EQ(0, company.load().EmployeeCount());
    EXPECT_THAT(
        company.label->captions,
        ElementsAre("Loading Employees......", "Checking Figures......", "Figures Checked......"));
}

TEST(LoadCaptions, GoToTheLabelKeptBefore) {
    Company company;
    company.employee(7).named("Ann Lee").closed(week(1));
    CEmployeeList& list = company.load();

    list.Clear();
    company.label->captions.clear();
    list.LoadEmployees();
    EXPECT_EQ(5U, company.label->captions.size());

    list.Clear();
    company.label->captions.clear();
    list.LoadEmployees(std::make_shared<CEmployeeList>());  // no label
    EXPECT_EQ(5U, company.label->captions.size());

    company.label->captions.clear();
    list.ReLoadEmployee(7);
    EXPECT_THAT(company.label->captions,
                ElementsAre("Loading Ann Lee......", "Loading Payments for Ann Lee",
                            "Checking Figures......", "Figures Checked......"));
}

TEST(LoadCaptions, GoNowhereWithoutALabel) {
    Company company;
    company.employee(7).closed(week(1));
    EXPECT_FALSE(company.list().LoadEmployees());
    EXPECT_EQ(1, company.current(7).LastWeekNo());
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
    company.employee(9)
        .started("2015-06-01")
        .left("2015-06-30")
        .employment(17)
        .started("2015-04-06");
    company.load();

    EXPECT_EQ(day("2009-09-01"), employmentOf(company, 70).StartDate());
    EXPECT_EQ(day("2009-09-01"), employmentOf(company, 70).HMRCStartDate());
    EXPECT_EQ(day("2015-04-06"), employmentOf(company, 70).PRTStartDate());
    EXPECT_EQ(day("2015-04-07"), employmentOf(company, 80).StartDate());
    EXPECT_EQ(day("2015-04-07"), employmentOf(company, 80).HMRCStartDate());
    EXPECT_EQ(day("2015-04-06"), employmentOf(company, 91).HMRCStartDate());  // not the first
}

TEST(LoadStartDates, ReadTheEarliestStartAgainAtEachLoad) {
    Company company;
    company.employee(7).started("2015-04-06").originallyJoined("2009-09-01");
    company.load();
    company.employee(8).started("2014-04-06");
    company.list().ReLoadEmployee(7);
    EXPECT_EQ(day("2015-04-06"), employmentOf(company, 70).StartDate());
}

// ---- continuations ------------------------------------------------------------------------------

struct Sequence {
    const char* reason;
    const char* prevEnd;  // null: not ended
    bool prevCasual;
    const char* start;
    bool casual;
    bool storedContinuation;
    bool continuation, aeContinuation, keepsHMRCStart, keepsStart;
};

TEST(LoadContinuations, JoinNeighbouringEmployments) {
    constexpr const char* notEnded = nullptr;
    const Sequence sequences[] = {
        {"the same job goes on", notEnded, false, "2016-04-06", false, false,  //
         true, true, true, true},
        {"casual work goes on", notEnded, true, "2016-04-06", true, false,  //
         true, true, true, true},
        {"regular after casual", notEnded, true, "2016-04-06", false, false,  //
         false, false, false, false},
        {"regular after casual, told to continue", notEnded, true, "2016-04-06", false, true,  //
         false, true, false, true},
        {"a return after 7 days", "2016-03-30", false, "2016-04-06", false, false,  //
         false, true, false, true},
        {"a return after 8 days", "2016-03-29", false, "2016-04-06", false, false,  //
         false, false, false, false},
        {"a return after 8 days, told to continue", "2016-03-29", false, "2016-04-06", false, true,
         false, true, false, true},
        {"a start before the end", "2016-06-30", false, "2016-04-06", false, false,  //
         false, true, false, true},
        {"a return of the other kind", "2016-04-05", true, "2016-04-06", false, false,  //
         false, true, false, true},
        {"7 days and the morning", "2016-03-30", false, "2016-04-06 06:00", false, false,  //
         false, true, false, true},
        {"7 days and the afternoon", "2016-03-30", false, "2016-04-06 18:00", false, false,  //
         false, false, false, false},
    };
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
        EXPECT_EQ(s.continuation, next.Continuation());
        EXPECT_EQ(s.continuation ? 70 : 0, next.ContinuationOfPRTID());
        EXPECT_EQ(s.aeContinuation, next.AEContinuation());
        EXPECT_EQ(s.keepsHMRCStart ? prev.HMRCStartDate() : day(s.start), next.HMRCStartDate());
        EXPECT_EQ(s.keepsStart ? prev.StartDate() : day(s.start), next.StartDate());
        EXPECT_EQ(day(s.start), next.PRTStartDate());
        EXPECT_FALSE(prev.Continuation() || prev.AEContinuation());
    }
}

TEST(LoadContinuations, PassThroughVoidEmployments) {
    Company company;
    company.employee(1).started("2010-01-01");
    company.employee(7)
        .started("2016-04-06")
        .left("2016-04-30")
        .employment(17, 2)
        .started("2016-05-03")
        .left("2016-05-04")
        .employment(17, 3)
        .started("2016-05-11");
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
    list.ReLoadEmployee(8);
    EXPECT_EQ(2, list.EmployeeCount());
    EXPECT_TRUE(company.at(8).Active());

    company.employee(7).withoutEmployment();
    list.ReLoadEmployee(7);
    EXPECT_EQ(1, list.EmployeeCount());
    EXPECT_FALSE(list.ExistsByNAID(7));
    EXPECT_FALSE(list.ExistsByNINO("QQ123456A"));
    list.ReLoadEmployee(99);
    EXPECT_EQ(1, list.EmployeeCount());
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
    EXPECT_EQ(7, list.GetEmployeeByNINO("QQ123456A")->NAID());
    EXPECT_FALSE(company.at(7).NINODuplicated());
}

// ---- how much is asked of the database ----------------------------------------------------------

class CountingDatabase : public Database {
  public:
    explicit CountingDatabase(Database& real) : real_(real) {}
    int opened = 0;

    RecordsetRef OpenRecordset(std::string_view sql, RecordsetType type, FieldList reads) override {
        ++opened;
        return real_.OpenRecordset(sql, type, reads);
    }
    void Execute(std::string_view sql, std::int32_t option) override { real_.Execute(sql, option); }
    std::shared_ptr<QueryDef> CreateQueryDef(std::string_view name, std::string_view sql) override {
        return real_.CreateQueryDef(name, sql);
    }

  private:
    Database& real_;
};

TEST(Load, MakesThreeQueriesForAnyNumberOfEmployees) {
    Company company;
    for (std::int32_t naid = 1; naid <= 20; ++naid) company.employee(naid).closed(weeks(1, 2));
    const auto counting = std::make_shared<CountingDatabase>(company.database());
    company.useDatabase(counting);
    company.list();
    counting->opened = 0;
    company.load();
    EXPECT_EQ(3, counting->opened);
}

// ---- what survives a failure --------------------------------------------------------------------

class FailedLoad : public testing::Test {
  protected:
    // Employees 7, 8 and 9, each with two closed weeks.
    FailedLoad() {
        for (const std::int32_t naid : {7, 8, 9}) company.employee(naid).closed(weeks(1, 2));
    }

    std::int32_t load() {
        return raisedBy([this] { company.load(); });
    }
    // The week up to which the pay of an employee got into the list; -1 for one who is not there.
    std::int32_t weekOf(std::int32_t naid) {
        const auto employee = company.list().GetEmployeeByNAID(naid);
        return employee ? (*employee->Employments().begin())->LastWeekNo() : -1;
    }
    bool flagged(std::int32_t naid) { return company.at(naid).MostRecentEmploymentPRTID() != 0; }

    Company company;
};

TEST_F(FailedLoad, LeavesTheListWhenTheQueryCannotBeOpened) {
    company.load();
    company.exec("DROP TABLE PensionSchemes");
    EXPECT_NE(0, raisedBy([&] { company.list().LoadEmployees(); }));
    EXPECT_EQ(3, company.list().EmployeeCount());
    EXPECT_EQ(2, weekOf(9));
}

TEST_F(FailedLoad, StopsAtAFieldWithoutAValue) {
    company.employee(8).customer("NABusName = Null");
    EXPECT_EQ(94, load());
    EXPECT_EQ("Loading ......", company.label->captions.back());
    EXPECT_EQ(2, company.list().EmployeeCount());
    EXPECT_EQ("Employee 7", company.at(7).BusName());
    EXPECT_EQ(0, weekOf(7));
    EXPECT_FALSE(flagged(7));
    EXPECT_EQ("E8", company.at(8).Seq());    // filled before the name
    EXPECT_EQ("", company.at(8).SortSeq());  // and after it

    company.employee(8).named("Employee 8").details("PRENINO = Null");
    EXPECT_EQ(94, load());
    EXPECT_EQ(PFREQ_1Weekly, company.at(8).PayFrequency());
}

TEST_F(FailedLoad, StopsAtAnEmployeeWithoutAName) {
    company.exec("DELETE FROM Customers WHERE NAID = 8");
    EXPECT_EQ(94, load());
    EXPECT_EQ(1, company.list().EmployeeCount());
    EXPECT_EQ("Employee 7", company.at(7).BusName());
}

TEST_F(FailedLoad, StopsAtAnEmployeeWithoutAnEmployment) {
    company.employee(8).withoutEmployment();
    EXPECT_EQ(94, load());
    EXPECT_EQ(1, company.list().EmployeeCount());  // who stands first, where Nulls sort
    EXPECT_EQ(0, company.at(8).NAID());
}

TEST_F(FailedLoad, StopsWhenNoEmploymentTellsTheEarliestStart) {
    company.exec("DELETE FROM PREmployments");
    EXPECT_EQ(94, load());
    EXPECT_EQ(0, company.list().EmployeeCount());
}

TEST_F(FailedLoad, StopsAtOnceInAListThatWasNotCleared) {
    company.load();
    EXPECT_EQ(457, raisedBy([&] { company.list().LoadEmployees(); }));
    EXPECT_EQ(3, company.list().EmployeeCount());
    EXPECT_EQ(1, company.at(7).Employments().Count());
}

TEST_F(FailedLoad, StopsAtPayOfAnUnknownEmployment) {
    company.exec("UPDATE PRPay SET PRPPYEmployCount = 2 WHERE PRPNAID = 8 AND PRPWeekNo = 2");
    EXPECT_EQ(94, load());
    EXPECT_EQ(2, weekOf(7));
    EXPECT_EQ(1, weekOf(8));
    EXPECT_EQ(0, weekOf(9));
    EXPECT_FALSE(flagged(7));
}

TEST_F(FailedLoad, StopsAtPayOfAnUnknownEmployee) {
    company.exec("UPDATE PRPay SET PRPNAID = 6 WHERE PRPNAID = 8 AND PRPWeekNo = 2");
    EXPECT_EQ(91, load());
    EXPECT_EQ("Loading Employee 9......", company.label->captions.back());
    EXPECT_EQ(3, company.list().EmployeeCount());
    EXPECT_EQ(0, weekOf(7));

    company.list().Clear();
    CEmployeeList withoutLabel;
    EXPECT_EQ(91, raisedBy([&] { withoutLabel.LoadEmployees(); }));
}

TEST_F(FailedLoad, KeepsTheFlagsUpToTheEmployeeWhoFailed) {
    company.employee(8).details("PREPayFrequency = 0");
    EXPECT_EQ(9909, load());
    EXPECT_TRUE(flagged(7));
    EXPECT_TRUE(company.at(8).Active());
    EXPECT_FALSE(flagged(9));
}

TEST_F(FailedLoad, NeedsTheListToBeHandedOver) {
    Identify identify;
    company.list();
    identify.SetEmployeeList(nullptr);
    EXPECT_EQ(91, load());
    EXPECT_EQ(2, weekOf(9));
    EXPECT_FALSE(flagged(8));
}

}  // namespace
}  // namespace ledgerwick::test
