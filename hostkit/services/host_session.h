// Everything that an embedding needs, in one object.
//
//   HostSession session("company.db", Date::fromYmd(2016, 4, 29));
//   session.list().LoadEmployees();
//   Date due = session.payroll().C_Next_Expected_Pay_Date();
#pragma once

#include <memory>
#include <string>

#include "hostkit/export.h"
#include "hostkit/services/host_state.h"
#include "hostkit/services/parameters.h"
#include "ledgerwick/employee/employee_list.h"
#include "ledgerwick/host/host.h"
#include "ledgerwick/host/identify.h"
#include "ledgerwick/host/payroll_functions.h"

namespace ledgerwick {

// Refuses a database that holds no company.
// Errors: 3343 when it has no control record's table.
LEDGERWICK_HOSTKIT_API void requireCompany(Database& database);

// What a host brings in the place of a service of the kit's; one that is empty is the kit's own. A
// host that only adds to a service derives from the kit's (KitProgramFunctions ...) or passes on to it.
struct HostServices {
    std::shared_ptr<HostState> state;                    // what the library reads as `g`
    std::shared_ptr<HostGlobal> global;                  // the caller's global
    std::shared_ptr<ProgramFunctions> programFunctions;  // `pf`, parameters among them
    std::shared_ptr<FileFunctions> fileFunctions;        // `fp`
};

// Opens a database and links the library to it in the order that it asks for: the `Identify`, the
// services, the list, the functions. Loading is left to the host, who may want a label for it.
//
// The library keeps one set of references for each thread, so that one session at a time is in
// force on a thread: the one made last, or the one that was put in force since. Its end clears the
// references that are still its own.
class LEDGERWICK_HOSTKIT_API HostSession {
  public:
    // Opens the company of that name, as `store::open` does.
    // Errors: 53 when there is none; those of the database.
    HostSession(const std::string& company, Date today, HostSettings settings = {});
    // Takes a database that is open already, of the kit or of the host.
    // `services` are the host's own, each alone.
    HostSession(std::shared_ptr<Database> database, Date today, HostSettings settings = {},
                const HostServices& services = {});
    ~HostSession();
    HostSession(const HostSession&) = delete;
    HostSession& operator=(const HostSession&) = delete;

    // Links the library to this session again after another one was in force on this thread.
    void putInForce();
    // Whether the library on this thread is linked to this session.
    bool isInForce() const;

    CEmployeeList& list() noexcept { return *list_; }  // the employees, empty until `LoadEmployees`
    CPayrollFunctions& payroll() noexcept { return *payroll_; }  // the functions, on that list
    Database& database() noexcept { return *database_; }         // the database given or opened
    // The kit's state, which the library reads as `g` unless the host brought its own.
    KitHostState& state() noexcept { return *state_; }
    // The company's system parameters.
    KitParameters& parameters() noexcept { return *parameters_; }

  private:
    std::shared_ptr<Database> database_;
    std::shared_ptr<KitParameters> parameters_;
    std::shared_ptr<KitHostState> state_;
    ObjectRef g_;
    ObjectRef global_;
    ObjectRef programFunctions_;
    ObjectRef fileFunctions_;
    std::shared_ptr<Identify> identify_;
    std::shared_ptr<CEmployeeList> list_;
    std::shared_ptr<CPayrollFunctions> payroll_;
};

}  // namespace ledgerwick
