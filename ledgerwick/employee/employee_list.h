// The list of all employees: the root of everything that the library holds in memory.
//
//   auto list = std::make_shared<CEmployeeList>();
//   identify->SetEmployeeList(list);
//   list->LoadEmployees(label);
//   if (auto emp = list->GetEmployeeByNAID(7)) show(emp->Name());
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <variant>
#include <vector>

#include "ledgerwick/employee/employee.h"
#include "ledgerwick/export.h"
#include "ledgerwick/host/host.h"
#include "ledgerwick/host/identify.h"
#include "ledgerwick/records/record_access.h"
#include "ledgerwick/values/collection.h"

namespace ledgerwick {

// Owns its employees in the order of the load; the key of an employee is its NAID as a decimal
// string. Look-ups never fail: `Exists...` answer False and `Get...` an empty reference, for
// whatever argument. A load that fails leaves what it had loaded; call `Clear` and load
// again. Objects taken from the list before a reload no longer reflect the store.
class LEDGERWICK_API CEmployeeList : public Object {
  public:
    std::string_view TypeName() const noexcept override { return "CEmployeeList"; }
    // A Variant holding the `Identify` of this object, made at the first read.
    Variant identifyClass() { return identify_.get(); }

    // The live collection, not a copy. A full load fills it in ascending NAID; a reloaded employee
    // stands last.
    Collection<std::shared_ptr<cEmployee>>& Employees() noexcept { return employees_; }

    // Adds all employees of the store with their employments and pay, and works out their flags.
    // Always False. Clear a list that was filled before.
    // Shape:  `lblProgress` is a `Label`, kept for later loads; any other object, or none,
    //         leaves the label kept before. Without a label the captions go nowhere.
    // Errors: those of the database; 94 for a Null where a value is read, 457 for a list that was
    //         not cleared, 3265 for a pay row of an unknown employment and 91 for one of an unknown
    //         employee. The list keeps what was loaded by then: employees in order, then pay rows,
    //         then flags.
    bool LoadEmployees(const ObjectRef& lblProgress = nullptr);
    // Replaces one employee from the store, at the end of the list. Always False. An employee
    // without employments is only removed.
    // Errors: as LoadEmployees; the old object has then left the list, and the same call made again
    //         loads the employee whole.
    bool ReLoadEmployee(std::int32_t lNAID);

    // Puts an object of the host's into the collection and removes the one that had its key. Look-ups
    // by NAID or number do not find it.
    // Shape:  `key` is a text, or Empty for none; `Before` and `After` are a key or a position.
    // Errors: 91 for an empty reference; 13 for a key of another kind, 3265 or 9 for a neighbour
    //         that is not there, 5 when both are given: what stood under the key is then gone.
    void Add(const std::shared_ptr<cEmployee>& newItem, const Variant& key = {},
             const Variant& Before = {}, const Variant& After = {});

    // Shape:  a text is a key, a number a position from 1.
    std::shared_ptr<cEmployee> GetEmployeeByIndex(const Variant& Index);
    // The employee of that number, or an empty reference.
    std::shared_ptr<cEmployee> GetEmployeeByNAID(std::int32_t NAID);
    // Shape:  the number exactly as the store holds it. Of employees that share it, the first.
    std::shared_ptr<cEmployee> GetEmployeeByNINO(const std::string& NINO);
    // The number of employees.
    std::int32_t EmployeeCount() const noexcept { return employees_.Count(); }
    // Whether there is an employee of that key or position.
    bool ExistsByIndex(const Variant& Index);
    // Whether there is an employee of that host identifier.
    bool ExistsByIID(const Variant& IID);
    // Whether there is an employee of that number.
    bool ExistsByNAID(std::int32_t NAID);
    // Whether there is an employee of that National Insurance number.
    bool ExistsByNINO(const std::string& NINO);
    // Empties the list. The label stays.
    void Clear();

    // ---- the age of the list (list_age.cpp) ----

    // Which of these employees another connection has changed since they were loaded: their
    // employments, frequency or group, or the last closed pay row of the current employment. Who is
    // not in the list counts as changed by being employed now. The others need no further look until
    // somebody writes again.
    // Shape:  in the order given; nothing is compared, and nobody found, while nobody else has
    //         written, or the database cannot tell.
    // Errors: those of the database and of reading a field.
    std::vector<std::int32_t> ChangedSinceLoad(std::span<const std::int32_t> naids);
    // The same of the whole list, and of those who have an employment but are not in a list that
    // was loaded whole.
    std::vector<std::int32_t> ChangedSinceLoad();
    // Adds a new employee from the NAID and the number of the current row, with none of its
    // properties set. Employees that share a number are marked `NINODuplicated`.
    // Errors: 94 for a row without NAID, 457 for an employee that is in the list already.
    std::shared_ptr<cEmployee> CreateEmployee(Recordset& rsEmp);

    // imported_pay_load.cpp
    Variant LoadImportedPay();

  private:
    using IIDKey = std::variant<double, std::string>;  // numeric texts are kept as numbers

    // load.cpp
    void LoadFromRecordset(std::int32_t lNAID, RecordsetRef rs);
    void LoadEmployeeRows(Recordset& rs);
    void RemoveEmployee(std::int32_t lNAID);
    void UpdateEmployeeFlags(std::int32_t lNAID);
    void LoadPayments(std::int32_t lNAID, std::int32_t lPayrollYear);
    bool ItemExists(const Variant& Index);

    std::int64_t versionOf(std::int32_t naid) const;
    bool isAsLoaded(std::int32_t naid);
    void addNewcomers(std::vector<std::int32_t>& naids);

    void showProgress(std::string_view caption);
    // Whether nobody but a load has put employees into the list, so that each stands under its key.
    bool holdsOwnEmployeesOnly() const noexcept {
        return !hostAdded_ && naidIndex_.size() == static_cast<std::size_t>(employees_.Count());
    }
    const std::shared_ptr<cEmployee>* itemAt(const Variant& index) const noexcept;

    Collection<std::shared_ptr<cEmployee>> employees_;
    // The indexes lead to keys of the collection, which are NAIDs, and may outlive the employee.
    std::unordered_set<std::int32_t> naidIndex_;
    std::unordered_map<std::string, std::int32_t> ninoIndex_;
    std::unordered_map<IIDKey, std::int32_t> iidIndex_;  // nothing fills it
    std::vector<std::int32_t> unfilled_;  // whose rows a load has begun and not come to the end of
    bool hostAdded_ = false;              // since the list was last empty
    // What the database's `DataVersion` was before all were loaded, or last found unchanged, and
    // the later one of some; 0 while it is not known.
    std::int64_t version_ = 0;
    std::unordered_map<std::int32_t, std::int64_t> laterVersions_;
    std::shared_ptr<Label> label_;
    Date minStart_;  // the earliest employment start in the store, as of the last load
    IdentifyHolder identify_;
};

}  // namespace ledgerwick
