// A host that stands in memory: as much of `g`, `pf` and `DAO_ADO` as an employment, an employee
// and the list ask for.
//
//   MemoryHost host;                      // linked to the library until it goes
//   auto employee = host.employee(7, PFREQ_1Weekly);
//   auto employment = employee->AddEmployment(...);
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "ledgerwick/employee/employee_list.h"
#include "ledgerwick/shell/host.h"
#include "ledgerwick/shell/identify.h"
#include "tests/support/rows.h"

namespace ledgerwick::test {

// `g` of the memory host; what a test wants otherwise it sets here.
class MemoryState : public HostState {
  public:
    RowsDatabase database;
    Variant currentPayrollYear{17};
    std::int16_t prpStartDay = 0;
    std::string moneyFormat = "#,##0.00";
    std::vector<std::string> criticalMessages;
    Date today;

    Database& DBDll() override { return database; }
    Recordset& g_rsPRControl() override;
    std::int16_t g_iAEPRPStartDay() override { return prpStartDay; }
    Date g_dtmToday() override { return today; }
    std::string g_strProgName() override { return "Accounts"; }
    std::string strCurFormat() override { return moneyFormat; }
    CustomerFunctions& C_customerFunctions() override { return names_; }
    void ShowCriticalMessage(const std::string& caption, const std::string& text) override;

  private:
    // Takes every name for a surname.
    class Names : public CustomerFunctions {
      public:
        void SplitContactName(const std::string& BusName, std::string&, std::string&, std::string&,
                              std::string& Surname, std::string&, std::int32_t&) override;
    };

    Rows control_;
    Names names_;
};

class MemoryHost {
  public:
    MemoryHost();
    ~MemoryHost();
    MemoryHost(const MemoryHost&) = delete;
    MemoryHost& operator=(const MemoryHost&) = delete;

    MemoryState& state() noexcept { return *state_; }
    RowsDatabase& database() noexcept { return state_->database; }
    CEmployeeList& list() noexcept { return *list_; }
    const std::shared_ptr<CEmployeeList>& sharedList() const noexcept { return list_; }

    // From now on the temporary table exists.
    void addTempTable(const std::string& name);

    // A new employee of the list, with nothing set but the two.
    std::shared_ptr<cEmployee> employee(std::int32_t naid, PR_Pay_Freq frequency);

  private:
    class TempTables;

    Identify identify_;
    std::shared_ptr<MemoryState> state_ = std::make_shared<MemoryState>();
    std::shared_ptr<TempTables> tempTables_;
    std::shared_ptr<CEmployeeList> list_ = std::make_shared<CEmployeeList>();
};

}  // namespace ledgerwick::test
