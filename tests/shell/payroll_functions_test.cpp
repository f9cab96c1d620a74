#include "ledgerwick/shell/payroll_functions.h"

#include <gtest/gtest.h>

#include <memory>

#include "ledgerwick/employee/employee_list.h"
#include "tests/support/errors.h"

namespace ledgerwick {
namespace {

using test::raisedBy;

std::shared_ptr<CEmployeeList> listOf(std::int32_t employees) {
    auto list = std::make_shared<CEmployeeList>();
    for (; employees > 0; --employees) {
        auto employee = std::make_shared<cEmployee>();
        employee->Active(true);
        list->Add(employee, std::to_string(employees));
    }
    return list;
}

TEST(PayrollFunctions, ShareTheListAndMoveOverToAnother) {
    CPayrollFunctions payroll;
    const auto countRaises = [&] { return raisedBy([&] { payroll.C_Count_Employees(); }); };
    EXPECT_EQ(countRaises(), error_number::objectNotSet);
    const auto list = listOf(1);
    payroll.Init(list);
    EXPECT_EQ(payroll.C_Count_Employees(), 1);
    list->Clear();
    EXPECT_EQ(payroll.C_Count_Employees(), 0) << "a reference, not a copy";
    payroll.Init(listOf(3));
    EXPECT_EQ(payroll.C_Count_Employees(), 3);
    payroll.Init(nullptr);
    EXPECT_EQ(countRaises(), error_number::objectNotSet);
}

}  // namespace
}  // namespace ledgerwick
