// The faults of a company's database, found without stopping at the first one.
//
//   HostSession session(database, today);           // nothing is loaded
//   for (const auto& finding : audit::auditCompany(session.list(), session.payroll())) show(finding);
//
// A fault of the store stops `LoadEmployees` with an error and leaves the list as far as it came. An
// audit goes on behind it, tries the opening of each employee's next period without writing it,
// and also tells what no error tells: gaps, periods paid twice, rows that
// no closing will find.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "hostkit/export.h"
#include "ledgerwick/employee/employee_list.h"
#include "ledgerwick/host/payroll_functions.h"

namespace ledgerwick::audit {

// What a fault does.
enum class Severity : std::uint8_t {
    Stops,    // a load or a pay run stops with an error
    Figures,  // everything runs, and a figure is wrong or a row is passed over
    Note,     // may be meant so
};

// A kind of fault, and what to do about it.
struct Kind {
    std::string_view name;    // "gap"
    Severity severity;        // how bad it is
    std::string_view advice;  // what to do
};

// Every kind that there is.
LEDGERWICK_HOSTKIT_API const std::vector<Kind>& kinds();

// One fault of the database.
struct Finding {
    const Kind* kind;        // what kind of fault
    std::string table;       // where it stands
    std::string key;         // of the row
    std::int32_t naid = 0;   // the employee, as far as one can be told
    std::string name;        // the employee's name
    std::string what;        // the fault in a sentence
    std::int32_t error = 0;  // with which a load stops here, 0 when it does not
};

// All faults of the database that the library is linked to, the severest first, and as they were
// found within a severity. Nothing is written.
// Shape:  `list` is the list that was given to `Identify`; it is emptied before and afterwards.
// Errors: none of the store's own: what cannot be read is a finding.
LEDGERWICK_HOSTKIT_API std::vector<Finding> auditCompany(CEmployeeList& list,
                                                         CPayrollFunctions& payroll);

}  // namespace ledgerwick::audit
