#include "hostkit/services/host_session.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "hostkit/services/file_functions.h"
#include "hostkit/services/process.h"
#include "hostkit/services/program_functions.h"
#include "hostkit/store/open.h"
#include "ledgerwick/host/dll_global.h"
#include "ledgerwick/values/error.h"

namespace ledgerwick {

void requireCompany(Database& database) {
    if (!database.TableExists("PRControl")) {
        raise(error_number::notACompany, "Database", "there is no table PRControl");
    }
}

struct HostSession::Services {
    ObjectRef global;
    ObjectRef state;
    ObjectRef programFunctions;
    ObjectRef fileFunctions;
    std::shared_ptr<CEmployeeList> list = std::make_shared<CEmployeeList>();
    Identify identify;

    bool isInForce() const {
        const auto& held = DLLGlobal::references();
        return held.g == state && (!held.EmployeeList || held.EmployeeList == list);
    }
    void link() { fill(global, state, programFunctions, fileFunctions, list); }
    void unlink() { fill({}, {}, {}, {}, {}); }

    // Makes these the services in force on this thread.
    static void putInForce(const std::shared_ptr<Services>& services);
    // Takes them out of force, and puts those before them in force again.
    static void letGo(const std::shared_ptr<Services>& services);

  private:
    void fill(const ObjectRef& asGlobal, const ObjectRef& asState, const ObjectRef& asProgram,
              const ObjectRef& asFiles, const ObjectRef& asList) {
        identify.SetCallerGlobal(asGlobal);
        identify.Setg(asState);
        identify.Setpf(asProgram);
        identify.Setfp(asFiles);
        identify.SetEmployeeList(asList);
    }
};

namespace {

constinit thread_local bool threadEnded = false;

// The sessions of this thread, the one in force last.
template <class Services>
struct SessionsOfThread {
    std::vector<std::weak_ptr<Services>> all;

    SessionsOfThread() = default;
    SessionsOfThread(const SessionsOfThread&) = delete;
    SessionsOfThread& operator=(const SessionsOfThread&) = delete;
    ~SessionsOfThread() { threadEnded = true; }

    // A null pointer once the thread is at its end, which may come before that of a session.
    static std::vector<std::weak_ptr<Services>>* get() {
        if (threadEnded) return nullptr;
        thread_local SessionsOfThread mine;
        return &mine.all;
    }
    static void remove(const std::shared_ptr<Services>& services) {
        std::erase_if(*get(), [&](const auto& each) {
            const auto held = each.lock();
            return !held || held == services;
        });
    }
};

// Closing a parent's file in a child would take the parent's locks and log with it.
void keepOpen(std::shared_ptr<Database> database) {
    static auto& parents = *new std::vector<std::shared_ptr<Database>>;
    parents.push_back(std::move(database));
}

}  // namespace

void HostSession::Services::putInForce(const std::shared_ptr<Services>& services) {
    auto* const sessions = SessionsOfThread<Services>::get();
    if (!sessions || services->isInForce()) return;
    SessionsOfThread<Services>::remove(services);
    sessions->push_back(services);
    services->link();
}

void HostSession::Services::letGo(const std::shared_ptr<Services>& services) {
    auto* const sessions = SessionsOfThread<Services>::get();
    if (!sessions) return;
    const bool wasInForce = services->isInForce();
    SessionsOfThread<Services>::remove(services);
    if (!wasInForce) return;
    services->unlink();
    if (sessions->empty()) return;
    if (const auto before = sessions->back().lock()) before->link();
}

HostSession::HostSession(const std::string& company, Date today, HostSettings settings)
    : HostSession(store::open(company), today, std::move(settings)) {}

namespace {

ObjectRef either(ObjectRef hosts, ObjectRef kits) {
    return hosts ? std::move(hosts) : std::move(kits);
}

}  // namespace

HostSession::HostSession(std::shared_ptr<Database> database, Date today, HostSettings settings,
                         const HostServices& services)
    : database_((requireCompany(*database), std::move(database))),
      parameters_(std::make_shared<KitParameters>(database_)),
      owner_(std::this_thread::get_id()),
      process_(processNumber()) {
    const std::string programPath = settings.programPath;
    state_ = std::make_shared<KitHostState>(database_, parameters_, today, std::move(settings));
    services_ = std::make_shared<Services>();
    services_->state = either(services.state, state_);
    services_->global = either(services.global, std::make_shared<KitGlobal>(programPath));
    services_->programFunctions =
        either(services.programFunctions, std::make_shared<KitProgramFunctions>(parameters_));
    services_->fileFunctions =
        either(services.fileFunctions, std::make_shared<KitFileFunctions>(programPath));
    putInForce();
    payroll_ = std::make_shared<CPayrollFunctions>();
    payroll_->Init(services_->list);
}

HostSession::~HostSession() {
    if (process_ != processNumber()) keepOpen(database_);
    Services::letGo(services_);
}

bool HostSession::isInForce() const {
    return services_->isInForce();
}

void HostSession::requireOwnThread() const {
    if (process_ != processNumber()) {
        raise(error_number::invalidCall, "HostSession",
              "the session belongs to the process that opened it; a forked child opens its own");
    }
    if (owner_ != std::this_thread::get_id()) {
        raise(error_number::invalidCall, "HostSession",
              "the session belongs to another thread, which has not let go of it (letGo)");
    }
}

void HostSession::putInForce() {
    if (owner_ == std::thread::id()) owner_ = std::this_thread::get_id();
    requireOwnThread();
    Services::putInForce(services_);
}

void HostSession::letGo() {
    requireOwnThread();
    Services::letGo(services_);
    owner_ = std::thread::id();
}

CEmployeeList& HostSession::list() {
    putInForce();
    return *services_->list;
}

CPayrollFunctions& HostSession::payroll() {
    putInForce();
    return *payroll_;
}

}  // namespace ledgerwick
