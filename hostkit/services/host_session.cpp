#include "hostkit/services/host_session.h"

#include <utility>

#include "hostkit/services/file_functions.h"
#include "hostkit/services/program_functions.h"
#include "hostkit/store/open.h"
#include "ledgerwick/host/dll_global.h"

namespace ledgerwick {

void requireCompany(Database& database) {
    if (!database.TableExists("PRControl")) {
        raise(error_number::notACompany, "Database", "there is no table PRControl");
    }
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
      parameters_(std::make_shared<KitParameters>(database_)) {
    const std::string programPath = settings.programPath;
    state_ = std::make_shared<KitHostState>(database_, parameters_, today, std::move(settings));
    g_ = either(services.state, state_);
    global_ = either(services.global, std::make_shared<KitGlobal>(programPath));
    programFunctions_ =
        either(services.programFunctions, std::make_shared<KitProgramFunctions>(parameters_));
    fileFunctions_ =
        either(services.fileFunctions, std::make_shared<KitFileFunctions>(programPath));
    list_ = std::make_shared<CEmployeeList>();
    identify_ = std::make_shared<Identify>();
    putInForce();
    payroll_ = std::make_shared<CPayrollFunctions>();
    payroll_->Init(list_);
}

HostSession::~HostSession() {
    if (!isInForce()) return;  // a later session is
    identify_->SetCallerGlobal(nullptr);
    identify_->Setg(nullptr);
    identify_->Setpf(nullptr);
    identify_->Setfp(nullptr);
    identify_->SetEmployeeList(nullptr);
}

bool HostSession::isInForce() const {
    return DLLGlobal::references().g == g_;
}

void HostSession::putInForce() {
    identify_->SetCallerGlobal(global_);
    identify_->Setg(g_);
    identify_->Setpf(programFunctions_);
    identify_->Setfp(fileFunctions_);
    identify_->SetEmployeeList(list_);
}

}  // namespace ledgerwick
