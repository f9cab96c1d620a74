#include "ledgerwick/host/class_factory.h"

#include "ledgerwick/autoenrol/ae_letter_detail.h"
#include "ledgerwick/autoenrol/auto_enrol_status.h"
#include "ledgerwick/employee/employee.h"
#include "ledgerwick/employee/employee_list.h"
#include "ledgerwick/employment/employment.h"
#include "ledgerwick/employment/payment.h"
#include "ledgerwick/host/enums.h"
#include "ledgerwick/host/identify.h"
#include "ledgerwick/host/payroll_functions.h"
#include "ledgerwick/orders/ds_item.h"
#include "ledgerwick/orders/order_line.h"
#include "ledgerwick/values/error.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick {
namespace {

constexpr std::string_view libraryName = "Ledgerwick.";

struct CreatableClass {
    std::string_view name;
    ObjectRef (*create)();
};

template <class Class>
ObjectRef make() {
    return std::make_shared<Class>();
}

constexpr CreatableClass creatableClasses[] = {
    {"CEmployeeList", &make<CEmployeeList>},
    {"cEmployee", &make<cEmployee>},
    {"cEmployment", &make<cEmployment>},
    {"CPayment", &make<CPayment>},
    {"CPayrollFunctions", &make<CPayrollFunctions>},
    {"CImportedEarnings", &make<CImportedEarnings>},
    {"cDSItem", &make<cDSItem>},
    {"CAutoEnrolStatus", &make<CAutoEnrolStatus>},
    {"CAELetterDetail", &make<CAELetterDetail>},
    {"Identify", &make<Identify>},
    {"Enum_Declarations_B_Only", &make<Enum_Declarations_B_Only>},
};

const CreatableClass* find(std::string_view className) noexcept {
    if (!equalsIgnoringCase(className.substr(0, libraryName.size()), libraryName)) return nullptr;
    className.remove_prefix(libraryName.size());
    for (const auto& candidate : creatableClasses) {
        if (equalsIgnoringCase(candidate.name, className)) return &candidate;
    }
    return nullptr;
}

}  // namespace

ObjectRef CreateObject(std::string_view className) {
    const auto* found = find(className);
    if (!found) raise(error_number::cannotCreateObject, "CreateObject", className);
    return found->create();
}

}  // namespace ledgerwick

int DllRegisterServer() {
    return 0;
}
int DllUnregisterServer() {
    return 0;
}

int DllGetClassObject(const char* className, void** object) {
    constexpr int failed = -1;
    if (!className || !object) return failed;
    try {
        *object = new ledgerwick::ObjectRef(ledgerwick::CreateObject(className));
        return 0;
    } catch (...) {
        return failed;
    }
}

int DllCanUnloadNow() {
    return 1;
}
