// A day in the past against a company that was built no further.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "hostkit/history/as_of.h"
#include "hostkit/history/figures.h"
#include "tests/support/company.h"

namespace ledgerwick::history {
namespace {

using namespace ledgerwick::test;

// How far a company is built.
enum class Stage { LastYear, EarlySummer, Autumn };

// People whose figures move with every row: statutory pay that begins and ends, loans, a change of
// frequency, somebody who leaves and comes back, and somebody new.
void build(Company& company, Stage stage) {
    company.year(stage == Stage::LastYear ? 16 : 17);
    for (const std::int32_t naid : {7, 8}) company.employee(naid).originallyJoined("2014-01-06");
    company.employee(7).weekly().withoutEmployment().employment(16).closed(weeks(50, 51));
    company.employee(7).pay("PRPMaternityHighWeeks = 1, PRPAEStatus = 'E'").closed(week(52));
    company.employee(8).monthly().withoutEmployment().employment(16).closed(month(12));
    company.employee(8).pay("PRPStudentLoan = 2, PRPPostgradLoan = True");
    if (stage == Stage::LastYear) return;
    company.employee(7).employment(17).closed(weeks(1, 2)).pay("PRPMaternityHighWeeks = 1");
    company.employee(8).employment(17).closed(month(1));
    company.employee(9).weekly().started("2016-04-11").closed(weeks(1, 4));
    if (stage == Stage::EarlySummer) return;
    company.employee(7).closed(weeks(6, 20)).pay("PRPAEStatus = 'N'");
    company.employee(8).weekly().closed(weeks(20, 22)).pay("PRPStudentLoan = 1").open(week(23));
    company.employee(9).left("2016-06-30");
    company.employee(9).employment(17, 2).started("2016-08-01").closed(week(20));
    company.employee(10).monthly().started("2016-09-01").closed(month(6));
}

// Everything that a load tells of the employees in the list.
std::string stateOf(Company& company) {
    std::string text;
    for (const auto& employee : company.list().Employees()) {
        text += std::to_string(employee->NAID()) + (employee->Active() ? " active" : "") + "\n";
        for (const auto& [employment, figures] : figuresOf(*employee)) {
            text += std::to_string(employment->PRTID()) + " " + employment->StartDate().toIso() +
                    " " + employment->EndDate().toText() + (employment->Active() ? " active" : "");
            for (const Figure& figure : figures) {
                text += "\n  " + std::string(figure.name) + " " +
                        (figure.value.isEmpty() ? "" : figure.value.toText()) + " by " +
                        std::to_string(figure.source.prpid) + " of " +
                        figure.source.payDate.toText();
            }
            text += "\n";
        }
    }
    return text;
}

TEST(AsOf, IsTheStateOfACompanyBuiltNoFurther) {
    struct Case {
        Stage stage;
        const char* day;
    };
    for (const auto& [stage, on] :
         {Case{Stage::LastYear, "2016-04-05"}, Case{Stage::EarlySummer, "2016-05-10"},
          Case{Stage::Autumn, "2016-10-01"}}) {
        Company past;
        build(past, stage);
        past.load();
        const std::string expected = stateOf(past);

        Company today;
        build(today, Stage::Autumn);
        showAsOf(today.database(), day(on));
        // Those who had not begun have no employment, at which a load of all would stop.
        for (const auto& employee : past.list().Employees()) {
            today.list().ReLoadEmployee(employee->NAID());
        }
        EXPECT_EQ(stateOf(today), expected) << on;
        today.list().ReLoadEmployee(10);
        EXPECT_EQ(today.list().ExistsByNAID(10), stage == Stage::Autumn) << on;
    }
}

TEST(AsOf, TheLastDayOfAnEmploymentShowsItEnded) {
    for (const bool last : {false, true}) {
        Company company;
        company.employee(9).weekly().closed(weeks(1, 2)).left("2016-06-30");
        showAsOf(company.database(), day(last ? "2016-06-30" : "2016-06-29"));
        company.load();
        EXPECT_EQ(company.at(9).GetEmploymentByIndex("90")->EndDate(),
                  last ? day("2016-06-30") : Date());
    }
}

TEST(AsOf, NamesTheRowBehindEachFigure) {
    Company company;
    company.employee(7).weekly().closed(week(1)).pay("PRPStudentLoan = 2");            // row 1
    company.employee(7).closed(week(2)).pay("PRPMaternityHighWeeks = 1");              // row 2
    company.employee(7).closed(week(3)).pay("PRPMaternityHighWeeks = 2");              // row 3
    company.employee(7).closed(week(4)).pay("PRPCalculationUsed = 0, PRPStatus = 0");  // row 4
    company.load();
    const auto figures = figuresOf(company.at(7)).at(0).figures;
    const auto rowOf = [&](std::string_view name) {
        for (const Figure& figure : figures) {
            if (figure.name == name) return figure.source.prpid;
        }
        return -1;
    };
    EXPECT_EQ(rowOf("last_week"), 4);
    EXPECT_EQ(rowOf("first_row"), 1);
    EXPECT_EQ(rowOf("maternity_weeks"), 3);
    EXPECT_EQ(rowOf("student_loan"), 2);  // the first row without one
    EXPECT_EQ(rowOf("student_loan_known"), 1);
    EXPECT_EQ(rowOf("last_reported_pay"), 3);
    EXPECT_EQ(rowOf("last_month"), 0);  // no monthly row
}

}  // namespace
}  // namespace ledgerwick::history
