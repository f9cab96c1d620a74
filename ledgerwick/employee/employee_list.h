// The list of all employees: the root of everything that the library holds in memory.
//
//   auto list = std::make_shared<CEmployeeList>();
//   identify->SetEmployeeList(list);
//   list->LoadEmployees(label);
//   if (auto emp = list->GetEmployeeByNAID(7)) show(emp->Name());
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "ledgerwick/employee/employee.h"
#include "ledgerwick/export.h"
#include "ledgerwick/shell/host.h"
#include "ledgerwick/shell/identify.h"
#include "ledgerwick/shell/record_access.h"
#include "ledgerwick/values/collection.h"
#include "ledgerwick/values/dictionary.h"

namespace ledgerwick {

// Owns its employees in the order of the load; the key of an employee is its NAID as a decimal
// string. Look-ups never fail: `Exists...` answer False and `Get...` an empty reference, for
// whatever argument. A load that fails leaves the list as far as it came; `Clear` and a new load is
// the way back. Objects taken from the list before a reload no longer reflect the store.
class LEDGERWICK_API CEmployeeList : public Object {
  public:
    std::string_view TypeName() const noexcept override { return "CEmployeeList"; }
    Variant identifyClass() { return identify_.get(); }

    // The live collection, not a copy.
    Collection<std::shared_ptr<cEmployee>>& Employees() noexcept { return employees_; }

    bool LoadEmployees(const ObjectRef& lblProgress = nullptr);
    bool ReLoadEmployee(std::int32_t lNAID);
    void Add(const std::shared_ptr<cEmployee>& newItem, const Variant& key = {},
             const Variant& Before = {}, const Variant& After = {});
    std::shared_ptr<cEmployee> GetEmployeeByIndex(const Variant& Index);
    std::shared_ptr<cEmployee> GetEmployeeByNAID(std::int32_t NAID);
    std::shared_ptr<cEmployee> GetEmployeeByNINO(const std::string& NINO);
    std::int32_t EmployeeCount() const noexcept { return employees_.Count(); }
    bool ExistsByIndex(const Variant& Index);
    bool ExistsByIID(const Variant& IID);
    bool ExistsByNAID(std::int32_t NAID);
    bool ExistsByNINO(const std::string& NINO);
    void Clear();
    std::shared_ptr<cEmployee> CreateEmployee(Recordset& rsEmp);

    // imported/
    Variant LoadImportedPay();

  private:
    void LoadFromRecordset(std::int32_t lNAID, RecordsetRef rs);
    void LoadEmployeeRows(Recordset& rs);
    void RemoveEmployee(std::int32_t lNAID);
    void UpdateEmployeeFlags(std::int32_t lNAID);
    void LoadPayments(std::int32_t lNAID, std::int32_t lPayrollYear);
    bool ItemExists(const Variant& Index);

    Collection<std::shared_ptr<cEmployee>> employees_;
    IdentifyHolder identify_;
};

}  // namespace ledgerwick
