// The seven references through which all code of the library reaches its host.
//
// Each host thread has one set. They are empty until `Identify` fills them, no class owns them, and
// destroying an object leaves them as they are.
#pragma once

#include <memory>

#include "ledgerwick/export.h"
#include "ledgerwick/host/host.h"

namespace ledgerwick {

class CEmployeeList;

namespace DLLGlobal {

// The object that each reference holds, for use.
// Errors: 91 while the reference is empty, 438 when the object held does not offer the members, with
//         the reference's name as the source.

LEDGERWICK_API HostGlobal& CallerGlobal();  // the host's global object
LEDGERWICK_API HostState& g();              // the host's global state
LEDGERWICK_API FileFunctions& fp();         // the host's file functions
LEDGERWICK_API DataAccess& DAO_ADO();       // the data-access object
LEDGERWICK_API ProgramFunctions& pf();      // the host's program functions
// The list that holds all employees; defined in employee/employee_list.cpp.
LEDGERWICK_API CEmployeeList& EmployeeList();

// What the references hold, empty or not; held only, for a host that asks.
struct References {
    ObjectRef CallerGlobal;  // the host's global object
    ObjectRef g;             // the host's global state
    ObjectRef fp;            // the host's file functions
    ObjectRef DAO_ADO;       // the data-access object
    ObjectRef ARFuncs;       // the host's report functions
    ObjectRef pf;            // the host's program functions
    ObjectRef EmployeeList;  // the list that holds all employees
};
// The references of this thread.
LEDGERWICK_API const References& references();

// The current payroll year, `PRCFCurrentYear` of the control record, read afresh.
LEDGERWICK_API std::int32_t currentPayrollYear();

}  // namespace DLLGlobal
}  // namespace ledgerwick
