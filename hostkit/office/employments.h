// How an employment begins and ends, as a pay office goes about it.
#pragma once

#include <cstdint>
#include <string>

#include "hostkit/export.h"
#include "hostkit/services/host_session.h"
#include "ledgerwick/ledgerwick.h"

namespace ledgerwick::office {

// An employment to be written, with what its first pay row is to start from.
struct NewEmployment {
    std::int32_t naid = 0;      // the employee
    Date start;                 // first day
    bool casual = false;        // paid from time to time only
    bool continuation = false;  // for auto-enrolment it carries on the employment before
    std::string aeStatus;       // auto-enrolment status at the start
    Date firstPay;              // else the next pay date of those paid as often
    Date firstPeriodEnd;        // likewise
    Variant addInfo;            // as `PR_EmploymentsAddInfo_Add` takes it; Empty for none
};

// Whether the employee has an employment of this year that has not ended.
LEDGERWICK_HOSTKIT_API bool isEmployed(HostSession& session, std::int32_t naid);

// Adds an employment of the current payroll year to an employee who has payroll details, and for a
// regular one the starting row from which its pay periods are counted; the employee is then loaded
// again. To be done in one transaction.
// Errors: 3021 for an employee without details, 5 for one who is employed; those of
//         `C_CreateNewEmploymentRecord` and `C_CreateStartingPayRecord`.
LEDGERWICK_HOSTKIT_API std::shared_ptr<cEmployment> addEmployment(HostSession& session,
                                                                  const NewEmployment& details);

// Ends the most recent employment of an employee with that day, and loads the employee again.
// Errors: 91 for an employee who is not in the list or has no employment, 5 for an employment that
//         has ended or begins later.
LEDGERWICK_HOSTKIT_API void endEmployment(HostSession& session, std::int32_t naid, Date lastDay);

}  // namespace ledgerwick::office
