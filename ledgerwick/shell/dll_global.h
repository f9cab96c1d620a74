// The seven references through which all code of the library reaches its host.
//
// Each host thread has one set. They are empty until `Identify` fills them, no class owns them, and
// destroying an object leaves them as they are.
#pragma once

#include <memory>

#include "ledgerwick/export.h"
#include "ledgerwick/shell/host.h"

namespace ledgerwick {

class CEmployeeList;

namespace DLLGlobal {

// The object behind a reference, for its use.
// Errors: 91 while the reference is empty, 438 when the object held does not offer the members, with
//         the reference's name as the source.
LEDGERWICK_API HostGlobal& CallerGlobal();
LEDGERWICK_API HostState& g();
LEDGERWICK_API FileFunctions& fp();
LEDGERWICK_API DataAccess& DAO_ADO();
LEDGERWICK_API ProgramFunctions& pf();
LEDGERWICK_API CEmployeeList& EmployeeList();

// What the references hold, empty or not; held only, for a host that asks.
struct References {
    ObjectRef CallerGlobal;
    ObjectRef g;
    ObjectRef fp;
    ObjectRef DAO_ADO;
    ObjectRef ARFuncs;
    ObjectRef pf;
    ObjectRef EmployeeList;
};
LEDGERWICK_API const References& references();

// The current payroll year, `PRCFCurrentYear` of the control record, read afresh.
LEDGERWICK_API std::int32_t currentPayrollYear();

}  // namespace DLLGlobal
}  // namespace ledgerwick
