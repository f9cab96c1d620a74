#include <gtest/gtest.h>

#include "ledgerwick/employee/employee_list.h"
#include "ledgerwick/shell/payroll_functions.h"
#include "ledgerwick/shell/schema.h"
#include "tests/support/errors.h"
#include "tests/support/expect.h"
#include "tests/support/memory_host.h"

namespace ledgerwick::test {
namespace {

// Employees 7 and 8 in the list; the current payroll year is 17.
class SchemeMaintenance : public testing::Test {
  protected:
    SchemeMaintenance() {
        payroll.Init(host.sharedList());
        for (const std::int32_t naid : {7, 8}) {
            host.employee(naid, PFREQ_1Weekly)->PenWorkplaceEEDeductPC(1.0F);
        }
    }

    static Row schemeRow(std::int32_t naid, bool useSchemeRates) {
        return Row{
            {field::PRENAID, naid},
            {field::PREPenWorkplaceSchemeID, 3},
            {field::PREPenWorkplaceUseSchemeRates, useSchemeRates},
            {field::PREPenWorkplaceEEDeductPerC, 6.0F},
            {field::PREPenWorkplaceERDeductPerC, 7.0F},
            {field::PREPenWorkplaceEEDeductFlat, Currency::fromWhole(8)},
            {field::PREPenWorkplaceERDeductFlat, Currency::fromWhole(9)},
            {field::PSID, 3},
            {field::PSDefEE, 4.0F},
            {field::PSDefER, 5.0F},
        };
    }
    float employeeRate(std::int32_t naid) {
        return host.list().GetEmployeeByNAID(naid)->PenWorkplaceEEDeductPC();
    }
    RowsDatabase& database() { return host.database(); }

    MemoryHost host;
    CPayrollFunctions payroll;
};

TEST_F(SchemeMaintenance, BringsTheEmployeesOfTheSchemeUpToDate) {
    database().answer("WHERE PREPenWorkplaceSchemeID = 3",
                      {schemeRow(7, true), schemeRow(8, false)});
    EXPECT_TRUE(payroll.C_PenWorkplaceSchemeUpdate(3).isEmpty());
    EXPECT_EQ(employeeRate(7), 4.0F);
    EXPECT_EQ(employeeRate(8), 6.0F);
    EXPECT_EQ(database().executed().size(), 1U);
}

TEST_F(SchemeMaintenance, ChangesNobodyWhenTheSchemeHasNoEmployee) {
    database().answer("WHERE PREPenWorkplaceSchemeID = 3", {});
    payroll.C_PenWorkplaceSchemeUpdate(3);
    EXPECT_EQ(employeeRate(7), 1.0F);
    EXPECT_EQ(database().executed().size(), 1U);
}

TEST_F(SchemeMaintenance, StopsAtAnEmployeeWhoIsNotInTheList) {
    database().answer("WHERE PREPenWorkplaceSchemeID = 3",
                      {schemeRow(7, true), schemeRow(9, true), schemeRow(8, true)});
    EXPECT_EQ(raisedBy([&] { payroll.C_PenWorkplaceSchemeUpdate(3); }), error_number::objectNotSet);
    EXPECT_EQ(database().executed().size(), 1U) << "the withdrawn marks stay withdrawn";
    EXPECT_EQ(employeeRate(7), 4.0F);
    EXPECT_EQ(employeeRate(8), 1.0F);
}

TEST_F(SchemeMaintenance, ReadsNothingWhenTheMarksCannotBeWithdrawn) {
    database().failNextExecute(3146);
    EXPECT_EQ(raisedBy([&] { payroll.C_PenWorkplaceSchemeUpdate(3); }), 3146);
    EXPECT_TRUE(database().opened().empty());
}

TEST_F(SchemeMaintenance, ActsOnAReEnrolmentDateOfTheCurrentYearOnly) {
    const struct {
        Date from;
        Date to;
        std::size_t statements;
    } cases[] = {
        {on(5, 4, 2016), on(6, 4, 2017), 0},  // the years before and after
        {on(6, 4, 2016), on(6, 4, 2017), 1},
        {on(6, 4, 2017), on(5, 4, 2017), 1},
        {on(1, 5, 2016), on(1, 6, 2016), 1},
    };
    for (const auto& c : cases) {
        const std::size_t before = database().executed().size();
        EXPECT_TRUE(payroll.C_ReEnrolDateChanged(c.from, c.to).isEmpty());
        EXPECT_EQ(database().executed().size() - before, c.statements) << c.from.toText();
    }
}

}  // namespace
}  // namespace ledgerwick::test
