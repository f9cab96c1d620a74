#include "ledgerwick/employee/employee_list.h"

#include "ledgerwick/employee/decimal_key.h"
#include "ledgerwick/host/dll_global.h"
#include "ledgerwick/records/schema.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick {

// ---- look-up ------------------------------------------------------------------------------------

// Every look-up asks this first. Whatever goes wrong means that the item is not there.
const std::shared_ptr<cEmployee>* CEmployeeList::itemAt(const Variant& index) const noexcept {
    if (index.kind() == VariantKind::Text) return employees_.Find(index.textView());
    try {
        return &employees_.Item(index.toInt32());
    } catch (...) {
        return nullptr;
    }
}

bool CEmployeeList::ItemExists(const Variant& Index) {
    return itemAt(Index) != nullptr;
}

bool CEmployeeList::ExistsByIndex(const Variant& Index) {
    return ItemExists(Index);
}

std::shared_ptr<cEmployee> CEmployeeList::GetEmployeeByIndex(const Variant& Index) {
    const auto* item = itemAt(Index);
    return item == nullptr ? nullptr : *item;
}

bool CEmployeeList::ExistsByNAID(std::int32_t NAID) {
    return naidIndex_.contains(NAID) && employees_.Find(DecimalKey(NAID)) != nullptr;
}

std::shared_ptr<cEmployee> CEmployeeList::GetEmployeeByNAID(std::int32_t NAID) {
    if (!naidIndex_.contains(NAID)) return nullptr;
    const auto* employee = employees_.Find(DecimalKey(NAID));
    return employee == nullptr ? nullptr : *employee;
}

bool CEmployeeList::ExistsByNINO(const std::string& NINO) {
    const auto found = ninoIndex_.find(NINO);
    return found != ninoIndex_.end() && employees_.Find(DecimalKey(found->second)) != nullptr;
}

std::shared_ptr<cEmployee> CEmployeeList::GetEmployeeByNINO(const std::string& NINO) {
    const auto found = ninoIndex_.find(NINO);
    if (found == ninoIndex_.end()) return nullptr;
    const auto* employee = employees_.Find(DecimalKey(found->second));
    return employee == nullptr ? nullptr : *employee;
}

bool CEmployeeList::ExistsByIID(const Variant& IID) {
    IIDKey key;
    if (IID.isNumeric()) {
        key = IID.toDouble();
    } else if (IID.kind() == VariantKind::Text) {
        key = std::string(IID.textView());
    } else {
        return false;
    }
    const auto found = iidIndex_.find(key);
    return found != iidIndex_.end() && employees_.Find(DecimalKey(found->second)) != nullptr;
}

// ---- change -------------------------------------------------------------------------------------

namespace {

// Where a new item goes, from the two optional neighbours: a key, or a position.
Placement placementOf(const Variant& before, const Variant& after) {
    Placement where;
    const auto take = [](const Variant& neighbour, std::string_view& key, std::int32_t& position) {
        if (neighbour.isEmpty()) return;
        if (neighbour.kind() == VariantKind::Text) {
            key = neighbour.textView();
        } else {
            position = neighbour.toInt32("CEmployeeList.Add");
        }
    };
    take(before, where.before, where.beforePosition);
    take(after, where.after, where.afterPosition);
    return where;
}

}  // namespace

void CEmployeeList::Add(const std::shared_ptr<cEmployee>& newItem, const Variant& key,
                        const Variant& Before, const Variant& After) {
    if (!newItem) raise(error_number::objectNotSet, "CEmployeeList.Add");
    hostAdded_ = true;
    const bool keyed = key.kind() == VariantKind::Text;
    if (ExistsByIndex(key)) {
        if (keyed) {
            employees_.Remove(key.textView());
        } else {
            employees_.Remove(key.toInt32());
        }
    }
    if (!keyed && !key.isEmpty()) raise(error_number::typeMismatch, "CEmployeeList.Add");
    employees_.Add(newItem, keyed ? key.textView() : std::string_view(),
                   placementOf(Before, After));
}

std::shared_ptr<cEmployee> CEmployeeList::CreateEmployee(Recordset& rsEmp) {
    const std::int32_t naid = rsEmp.GetInt32(field::NAID);
    auto employee = std::make_shared<cEmployee>();
    employees_.Add(employee, DecimalKey(naid));
    if (!naidIndex_.insert(naid).second)
        raise(error_number::duplicateKey, "CEmployeeList.CreateEmployee");

    // A missing number is an error later, where it is read into its property.
    if (rsEmp.IsNull(field::PRENINO)) return employee;
    const std::string nino(rsEmp.GetText(field::PRENINO));
    if (trim(nino).empty()) return employee;
    if (const auto first = GetEmployeeByNINO(nino)) {
        employee->NINODuplicated(true);
        first->NINODuplicated(true);
    } else if (!ninoIndex_.emplace(nino, naid).second) {
        raise(error_number::duplicateKey, "CEmployeeList.CreateEmployee");
    }
    return employee;
}

void CEmployeeList::RemoveEmployee(std::int32_t lNAID) {
    const DecimalKey key(lNAID);
    const auto* item = employees_.Find(key);
    if (item == nullptr) return;

    const cEmployee& employee = used(*item, "CEmployeeList.RemoveEmployee");
    naidIndex_.erase(lNAID);
    // An employee whose load failed may not have its number yet.
    if (std::erase(unfilled_, lNAID) != 0) {
        std::erase_if(ninoIndex_, [lNAID](const auto& entry) { return entry.second == lNAID; });
    }
    // An entry that leads to another employee stays.
    const auto removeEntry = [lNAID](auto& index, const std::string& entry) {
        const auto found = index.find(entry);
        if (found != index.end() && found->second == lNAID) index.erase(found);
    };
    if (!employee.NINO().empty()) removeEntry(ninoIndex_, employee.NINO());
    if (!employee.IID().empty()) removeEntry(iidIndex_, employee.IID());
    employees_.Remove(key);
}

void CEmployeeList::Clear() {
    employees_.Clear();
    iidIndex_.clear();
    naidIndex_.clear();
    ninoIndex_.clear();
    unfilled_.clear();
    hostAdded_ = false;
    version_ = 0;
    laterVersions_.clear();
}

CEmployeeList& DLLGlobal::EmployeeList() {
    Object* const held = references().EmployeeList.get();
    auto* const list = dynamic_cast<CEmployeeList*>(held);
    if (list) return *list;
    raise(held ? error_number::noSuchMember : error_number::objectNotSet, "EmployeeList");
}

}  // namespace ledgerwick
