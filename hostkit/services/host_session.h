// Everything that an embedding needs, in one object.
//
//   HostSession session("company.db", Date::fromYmd(2016, 4, 29));
//   session.list().LoadEmployees();
//   Date due = session.payroll().C_Next_Expected_Pay_Date();
#pragma once

#include <memory>
#include <string>
#include <thread>

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
// force on a thread. `list` and `payroll` put their session in force; a reference that they gave
// earlier, used while another session is in force, does not open, close or fill a run. The end of a
// session puts the one before it in force again.
//
// A session belongs to the thread that made it. To move it, let go of it there (`letGo`), then use
// it on the other thread.
class LEDGERWICK_HOSTKIT_API HostSession {
  public:
    // Opens the company of that name, as `store::open` does.
    // Errors: 53 when there is none; those of the database.
    HostSession(const std::string& company, Date today, HostSettings settings = {});
    // Takes a database that is open already, of the kit or of the host.
    // `services` are the host's own, each alone.
    HostSession(std::shared_ptr<Database> database, Date today, HostSettings settings = {},
                const HostServices& services = {});
    // In a forked child the database is left as it is: it belongs to the process that opened it.
    ~HostSession();
    HostSession(const HostSession&) = delete;
    HostSession& operator=(const HostSession&) = delete;

    // Links the library on this thread to this session.
    // Errors: 5 on a thread that the session does not belong to, and in a forked child.
    void putInForce();
    // Whether the library on this thread is linked to this session.
    bool isInForce() const;
    // Takes the session out of force on this thread, so that the next thread to use it has it.
    // Errors: as `putInForce`.
    void letGo();

    // The employees, empty until `LoadEmployees`.
    // Errors: as `putInForce`.
    CEmployeeList& list();
    // The functions, on that list.
    // Errors: as `putInForce`.
    CPayrollFunctions& payroll();
    Database& database() noexcept { return *database_; }  // the database given or opened
    // The kit's state, which the library reads as `g` unless the host brought its own.
    KitHostState& state() noexcept { return *state_; }
    // The company's system parameters.
    KitParameters& parameters() noexcept { return *parameters_; }

  private:
    struct Services;  // what the references of a thread are filled with

    void requireOwnThread() const;

    std::shared_ptr<Database> database_;
    std::shared_ptr<KitParameters> parameters_;
    std::shared_ptr<KitHostState> state_;
    std::shared_ptr<Services> services_;
    std::shared_ptr<CPayrollFunctions> payroll_;
    std::thread::id owner_;  // no thread's after `letGo`
    int process_ = 0;        // which one of a chain of forks
};

}  // namespace ledgerwick
