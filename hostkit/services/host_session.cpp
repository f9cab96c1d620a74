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

HostSession::HostSession(std::shared_ptr<Database> database, Date today, HostSettings settings)
    : database_((requireCompany(*database), std::move(database))),
      parameters_(std::make_shared<KitParameters>(database_)) {
    const std::string programPath = settings.programPath;
    state_ = std::make_shared<KitHostState>(database_, parameters_, today, std::move(settings));
    global_ = std::make_shared<KitGlobal>(programPath);
    programFunctions_ = std::make_shared<KitProgramFunctions>(parameters_);
    fileFunctions_ = std::make_shared<KitFileFunctions>(programPath);
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
    return DLLGlobal::references().g == state_;
}

void HostSession::putInForce() {
    identify_->SetCallerGlobal(global_);
    identify_->Setg(state_);
    identify_->Setpf(programFunctions_);
    identify_->Setfp(fileFunctions_);
    identify_->SetEmployeeList(list_);
}

}  // namespace ledgerwick
