#include "ledgerwick/shell/dll_global.h"

#include <string_view>
#include <utility>

#include "ledgerwick/employee/employee_list.h"
#include "ledgerwick/shell/module_references.h"
#include "ledgerwick/shell/schema.h"
#include "ledgerwick/values/error.h"

namespace ledgerwick::DLLGlobal {
namespace {

// The references as the interfaces that their users need, so that a use costs no cast. Null when a
// reference is empty, and when its object does not offer the interface.
struct Interfaces {
    HostGlobal* CallerGlobal = nullptr;
    HostState* g = nullptr;
    FileFunctions* fp = nullptr;
    DataAccess* DAO_ADO = nullptr;
    ProgramFunctions* pf = nullptr;
    CEmployeeList* EmployeeList = nullptr;
};
constinit thread_local Interfaces interfaces;

// At the end of a thread the interfaces go before the objects, so that an object which looks for
// another in its destructor finds an empty reference.
struct Held : References {
    Held() = default;
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;
    ~Held() { interfaces = {}; }
};
thread_local Held held;

// The object that was held goes last: its destructor finds the new one in place.
template <class Interface>
void hold(ObjectRef References::*reference, Interface* Interfaces::*interface,
          ObjectRef object) noexcept {
    (held.*reference).swap(object);
    interfaces.*interface = dynamic_cast<Interface*>((held.*reference).get());
}

[[noreturn]] void cannotUse(const ObjectRef& reference, std::string_view name) {
    raise(reference ? error_number::noSuchMember : error_number::objectNotSet, name);
}

}  // namespace

HostGlobal& CallerGlobal() {
    if (!interfaces.CallerGlobal) cannotUse(held.CallerGlobal, "CallerGlobal");
    return *interfaces.CallerGlobal;
}

HostState& g() {
    if (!interfaces.g) cannotUse(held.g, "g");
    return *interfaces.g;
}

FileFunctions& fp() {
    if (!interfaces.fp) cannotUse(held.fp, "fp");
    return *interfaces.fp;
}

DataAccess& DAO_ADO() {
    if (!interfaces.DAO_ADO) cannotUse(held.DAO_ADO, "DAO_ADO");
    return *interfaces.DAO_ADO;
}

ProgramFunctions& pf() {
    if (!interfaces.pf) cannotUse(held.pf, "pf");
    return *interfaces.pf;
}

CEmployeeList& EmployeeList() {
    if (!interfaces.EmployeeList) cannotUse(held.EmployeeList, "EmployeeList");
    return *interfaces.EmployeeList;
}

const References& references() {
    return held;
}

std::int32_t currentPayrollYear() {
    return g().g_rsPRControl().GetInt32(field::PRCFCurrentYear);
}

void holdCallerGlobal(ObjectRef object) {
    hold(&References::CallerGlobal, &Interfaces::CallerGlobal, std::move(object));
}
void holdG(ObjectRef object) {
    hold(&References::g, &Interfaces::g, std::move(object));
}
void holdFp(ObjectRef object) {
    hold(&References::fp, &Interfaces::fp, std::move(object));
}
void holdDAO_ADO(ObjectRef object) {
    hold(&References::DAO_ADO, &Interfaces::DAO_ADO, std::move(object));
}
void holdARFuncs(ObjectRef object) {
    held.ARFuncs.swap(object);
}
void holdPf(ObjectRef object) {
    hold(&References::pf, &Interfaces::pf, std::move(object));
}
void holdEmployeeList(ObjectRef object) {
    hold(&References::EmployeeList, &Interfaces::EmployeeList, std::move(object));
}

}  // namespace ledgerwick::DLLGlobal
