// A fake host with an employee list, in payroll year 17.
//
//   MemoryHost host;
//   auto employee = host.employee(7, PFREQ_1Weekly);
//   employee->AddEmployment(rows);
#pragma once

#include <cstdint>
#include <memory>

#include "ledgerwick/employee/employee_list.h"
#include "tests/support/fake_host.h"
#include "tests/support/rows.h"

namespace ledgerwick::test {

class MemoryHost : public FakeHost {
  public:
    MemoryHost() : FakeHost(17) { Identify().SetEmployeeList(list_); }

    RowsDatabase& database() noexcept { return state->database; }
    CEmployeeList& list() noexcept { return *list_; }
    const std::shared_ptr<CEmployeeList>& sharedList() const noexcept { return list_; }

    // A new employee of the list, with nothing set but the two.
    std::shared_ptr<cEmployee> employee(std::int32_t naid, PR_Pay_Freq frequency) {
        Rows row{{{field::NAID, naid}, {field::PRENINO, ""}}};
        auto employee = list_->CreateEmployee(row);
        employee->NAID(naid);
        employee->PayFrequency(frequency);
        return employee;
    }

  private:
    std::shared_ptr<CEmployeeList> list_ = std::make_shared<CEmployeeList>();
};

}  // namespace ledgerwick::test
