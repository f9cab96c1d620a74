// Reports on a real database: where the figures come from, and that they move nothing.
#include <gtest/gtest.h>

#include "ledgerwick/autoenrol/auto_enrol_status.h"
#include "tests/support/company.h"

namespace ledgerwick::test {
namespace {

// What the load and the fold leave on an employee.
std::vector<Variant> stateOf(cEmployee& employee) {
    std::vector<Variant> state{
        employee.Active(), employee.Casual(), employee.MostRecentEmploymentPRTID(),
        employee.PreviousEmploymentPRTID(), employee.CurEmployment()->PRTID()};
    for (const auto& e : employee.Employments()) {
        // clang-format off
        state.insert(state.end(), {
            e->PRTID(), e->Active(), e->Continuation(), e->StartDate(), e->NExpPayDate(),
            e->LExpPayDate(), e->NExpEPEDate(), e->LastEPEDate(), e->FirstEPEDate(), e->NExpPRP(),
            e->LExpPRP(), e->LastWeekNo(), e->LastMonthNo(), e->LastPayDate(), e->LastPayFreq(),
            e->PaymentsExist(), e->LastUD_PRPID(), e->FirstPRPID(), e->LastRTISet(), e->LastRTI(),
            e->SMPCurStatus(), e->SMPConsecutiveWeeks(), e->SPPConsecutiveWeeks(),
            e->ShPPConsecutiveDays(), e->SLCurStatus(), e->SLLastKnownPlan(), e->PGLWasDeducted()});
        // clang-format on
    }
    return state;
}

// A regular employee of two payroll years, on a run of statutory pay and with an open row.
class AutoEnrolReport : public testing::Test {
  protected:
    AutoEnrolReport() {
        const std::string inRun =
            "PRPMaternityHighWeeks = 1, PRPASPPDays = 2, PRPStudentLoan = 1, PRPWorksNo = 'W7'";
        company.employee(7).withoutEmployment().employment(16).started("2015-04-06");
        company.employee(7).closed(weeks(50, 52)).pay(inRun);
        company.employee(7).employment(17).closed(weeks(1, 3)).pay(inRun);
        company.employee(7).open(week(4)).pay("PRPWorksNo = 'W8'");
        company.load();
    }
    Variant nextAssessDate(bool closed) {
        return company.payroll()
            .GetAEStatus(day("2017-04-05"), 17, closed)
            .Fields("NextAssessDate");
    }

    Company company;
};

TEST_F(AutoEnrolReport, MovesNoPayrollState) {
    const auto before = stateOf(company.at(7));
    for (const bool closed : {true, false, true}) {
        company.payroll().GetAEStatus(day("2017-04-05"), 17, closed);
        EXPECT_EQ(stateOf(company.at(7)), before);
    }
    company.payroll().C_ActiveEmployees(true);
    EXPECT_EQ(stateOf(company.at(7)), before);
    EXPECT_EQ(company.current(7).SMPConsecutiveWeeks(), 3);

    std::shared_ptr<PaymentsOfYear> payments;
    EXPECT_TRUE(company.at(7).GetEmploymentByIndex("70")->GetPayrollYearPayments(16, payments));
    EXPECT_EQ(payments->Count(), 3);
}

TEST_F(AutoEnrolReport, ShowsRowsClosedLaterOnceTheEmployeeIsLoadedAgain) {
    const Date third = datesOf(PFREQ_1Weekly, 17, 3).payDate;
    const Date fourth = datesOf(PFREQ_1Weekly, 17, 4).payDate;
    EXPECT_TRUE(nextAssessDate(true) == third);
    EXPECT_TRUE(nextAssessDate(false) == fourth);
    company.payroll().C_UpdatePayPeriod(7, fourth);
    EXPECT_TRUE(nextAssessDate(true) == third);
    company.list().ReLoadEmployee(7);
    EXPECT_TRUE(nextAssessDate(true) == fourth);
    EXPECT_TRUE(nextAssessDate(false) == Date());
}

// Two regular workers, a casual and a leaver.
class WorkerTables : public testing::Test {
  protected:
    WorkerTables() {
        company.employee(7).named("zoe").customer("NASeq = '1234', NACountry = 'Wales'");
        company.employee(7).details(
            "PREPensionOptInDate = #1/1/1961#, PREPensionOptOutDate = #5/2/2016#,"
            " PREPenWorkplaceEEDeductFlat = 4, PREPenWorkplaceERDeductFlat = 5");
        company.employee(7).inScheme(3, false);
        company.employee(8).named("Ann").customer("NASeq = '1234'");
        company.employee(8).closed(week(1)).pay("PRPPenWorkplaceSchemeID = 4");
        company.employee(9).casual();
        company.employee(10).left("2016-04-20");
        company.load();
    }
    ResultTable status(std::int32_t naid) {
        return company.payroll().GetAEStatus(day("2017-04-05"), 17, true, naid);
    }

    Company company;
};

TEST_F(WorkerTables, TellTheStatusOfRegularActiveWorkersInTheOrderOfTheList) {
    for (const std::int32_t naid : {9, 10, 11}) {
        EXPECT_EQ(status(naid).RecordCount(), 0);
        EXPECT_EQ(status(naid).FieldCount(), 21);
    }
    EXPECT_EQ(status(0).RecordCount(), 2);
    const ResultTable ann = status(-1);
    EXPECT_TRUE(ann.Fields("Name") == "Ann") << "stands on the row stored last";
    EXPECT_TRUE(ann.Fields("Scheme").isEmpty()) << "there is no scheme 4";
    const ResultTable zoe = status(7);
    EXPECT_TRUE(zoe.Fields("OptInDate") == Date());
    EXPECT_TRUE(zoe.Fields("OptOutDate") == day("2016-05-02"));
    EXPECT_TRUE(zoe.Fields("EnrolledDate").isEmpty());
    for (const char* text : {"StaffNo", "Scheme", "FirstAssessCategory", "PrevAssessCategory"}) {
        EXPECT_TRUE(zoe.Fields(text) == "") << text;
    }
    EXPECT_TRUE(zoe.Fields("FirstAssessDate") == Date());
}

TEST_F(WorkerTables, ListThemByTheStartOfTheSequenceAndTheName) {
    ResultTable table = company.payroll().C_ActiveEmployees(true);
    EXPECT_EQ(table.RecordCount(), 2);
    EXPECT_TRUE(table.Fields("NABusNameSort") == "123Ann");
    table.MoveNext();
    EXPECT_TRUE(table.Fields("NABusNameSort") == "123zoe");
    EXPECT_TRUE(table.Fields("PenEEDeductFlat") == Currency::fromWhole(4));
    EXPECT_TRUE(table.Fields("PenERDeductFlat") == Currency::fromWhole(5));
    EXPECT_TRUE(table.Fields("Country") == "Wales");
}

}  // namespace
}  // namespace ledgerwick::test
