#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ledgerwick/records/schema.h"
#include "tests/support/company.h"
#include "tests/support/errors.h"

namespace ledgerwick::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Scheme 3 has deductions of type 2, scheme 4 of type 1. Employee 7 is in scheme 3 by its rates, 8
// by rates of her own, 9 in scheme 4. Every pay row carries the visited mark.
class SchemeMaintenance : public testing::Test {
  protected:
    SchemeMaintenance() {
        company.scheme(3, "Oak", 4, 5, 2).scheme(4, "Ash", 1, 1, 1);
        company.employee(7).inScheme(3).employment(16).open(week(52)).pay(visitedIn(3));
        company.employee(7).employment(17).closed(week(1)).pay(visitedIn(3));
        company.employee(7).open(week(2)).pay(visitedIn(3)).open(week(3)).pay(visitedIn(0));
        company.employee(8).inScheme(3, false).open(week(1)).pay(visitedIn(3));
        company.employee(8).details("PREPenWorkplaceEEDeductPerC = 2.5");
        company.employee(9).inScheme(4).open(week(1)).pay(visitedIn(4));
        company.load();
    }

    static std::string visitedIn(int scheme) {
        return "PRPHasBeenVisited = True, PRPPenWorkplaceSchemeID = " + std::to_string(scheme);
    }
    // The rows whose mark was withdrawn: employee and week.
    std::vector<std::pair<int, int>> withdrawn() {
        const auto rows = company.database().OpenRecordset(
            "SELECT PRPNAID, PRPWeekNo FROM PRPay WHERE PRPHasBeenVisited = False ORDER BY PRPID",
            RecordsetType::Snapshot);
        std::vector<std::pair<int, int>> found;
        for (; !rows->Eof(); rows->MoveNext()) {
            found.emplace_back(rows->GetInt32(field::PRPNAID), rows->GetInt32(field::PRPWeekNo));
        }
        return found;
    }

    Company company;
};

TEST_F(SchemeMaintenance, WithdrawsMarksAndBringsTheSchemesEmployeesUpToDate) {
    company.exec("UPDATE PensionSchemes SET PSDefEE = PSDefEE + 2, PSDefER = PSDefER + 2");
    EXPECT_TRUE(company.payroll().C_PenWorkplaceSchemeUpdate(5).isEmpty()) << "nobody is in it";
    EXPECT_THAT(withdrawn(), IsEmpty());
    EXPECT_TRUE(company.payroll().C_PenWorkplaceSchemeUpdate(3).isEmpty());
    EXPECT_THAT(withdrawn(), ElementsAre(std::pair{7, 2}, std::pair{8, 1}));
    EXPECT_EQ(company.at(7).PenWorkplaceEEDeductPC(), 6.0F);
    EXPECT_EQ(company.at(7).PenWorkplaceERDeductPC(), 7.0F);
    EXPECT_EQ(company.at(8).PenWorkplaceEEDeductPC(), 2.5F);
    EXPECT_EQ(company.at(9).PenWorkplaceEEDeductPC(), 1.0F);
}

TEST_F(SchemeMaintenance, StopsAtAnEmployeeWhoIsNotInTheList) {
    company.employee(6).inScheme(3);
    EXPECT_EQ(raisedBy([&] { company.payroll().C_PenWorkplaceSchemeUpdate(3); }),
              error_number::objectNotSet);
    EXPECT_EQ(withdrawn().size(), 2U) << "the withdrawn marks stay withdrawn";
}

TEST_F(SchemeMaintenance, ActsOnAReEnrolmentDateOfTheCurrentYearOnly) {
    company.payroll().C_ReEnrolDateChanged(day("2016-04-05"), day("2017-04-06"));
    EXPECT_THAT(withdrawn(), IsEmpty());

    const std::pair<const char*, const char*> dates[] = {
        {"2016-04-06", "2017-04-06"}, {"2016-04-05", "2017-04-05"}, {"2016-05-01", "2016-06-01"}};
    for (const auto& [from, to] : dates) {
        company.exec("UPDATE PRPay SET PRPHasBeenVisited = -1");
        company.payroll().C_ReEnrolDateChanged(day(from), day(to));
        EXPECT_THAT(withdrawn(), ElementsAre(std::pair{7, 2}, std::pair{8, 1})) << from;
    }
}

}  // namespace
}  // namespace ledgerwick::test
