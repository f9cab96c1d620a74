#include "ledgerwick/shell/payroll_functions.h"

#include <gtest/gtest.h>

#include <memory>

#include "ledgerwick/employee/employee_list.h"
#include "tests/support/expect.h"
#include "tests/support/fake_host.h"

namespace ledgerwick {
namespace {

using test::FakeHost;
using test::raisedBy;

std::shared_ptr<CEmployeeList> listOf(std::int32_t employees) {
    auto list = std::make_shared<CEmployeeList>();
    for (std::int32_t naid = 1; naid <= employees; ++naid) {
        auto employee = std::make_shared<cEmployee>();
        employee->NAID(naid);
        employee->Active(true);
        list->Add(employee, std::to_string(naid));
    }
    return list;
}

TEST(PayrollFunctions, WithoutAListOnlyTheCalendarAnswers) {
    FakeHost host;
    CPayrollFunctions payroll;
    EXPECT_EQ(raisedBy([&] { payroll.C_Count_Employees(); }), error_number::objectNotSet);
    EXPECT_EQ(payroll.C_CalcTaxWeekEndDate(1), test::on(12, 4, 2015));
}

TEST(PayrollFunctions, ShareTheListAndMoveOverToAnother) {
    FakeHost host;
    CPayrollFunctions payroll;
    const auto list = listOf(1);
    payroll.Init(list);
    EXPECT_EQ(payroll.C_Count_Employees(), 1);
    list->Clear();
    EXPECT_EQ(payroll.C_Count_Employees(), 0) << "a reference, not a copy";
    payroll.Init(listOf(3));
    EXPECT_EQ(payroll.C_Count_Employees(), 3);
    payroll.Init(nullptr);
    EXPECT_EQ(raisedBy([&] { payroll.C_Count_Employees(); }), error_number::objectNotSet);
}

}  // namespace
}  // namespace ledgerwick
