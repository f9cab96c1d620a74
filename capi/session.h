// An open company behind a session handle.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "capi/call.h"
#include "hostkit/office/pay_run.h"
#include "hostkit/services/host_session.h"
#include "hostkit/store/company_store.h"

namespace ledgerwick::c {

// The tax years that a call takes, by the calendar year in which they begin.
inline constexpr std::int32_t firstTaxYear = 2001;
inline constexpr std::int32_t lastTaxYear = 9990;

class Session : public Held {
  public:
    Session(const std::string& path, Date today, const store::OpenOptions& options,
            HostSettings settings, Date asOf);

    HostSession& host() noexcept { return *host_; }
    store::CompanyStore& database() noexcept { return *database_; }
    std::shared_ptr<Database> sharedDatabase() const { return database_; }
    CPayrollFunctions& payroll() noexcept { return host_->payroll(); }
    CEmployeeList& list() noexcept { return host_->list(); }

    // Loads all, or one, in place of what was loaded.
    void load();
    void reload(std::int32_t naid);
    bool isLoaded() const noexcept { return loaded_; }
    // A transaction that goes on from call to call.
    // Errors: 5 when one has begun, or has not.
    void beginTransaction();
    void endTransaction(bool keep);

    // Errors: 91 for an unknown employee.
    std::shared_ptr<cEmployee> employee(std::int32_t naid);
    // Runs what the library answers with False and a message instead of an error.
    // Errors: 3146 with the message.
    template <class Work>
    void orMessage(std::string_view source, Work&& work) {
        message_.clear();
        work();
        if (!message_.empty()) raise(error_number::databaseError, source, message_);
    }
    // What was asked before of a table's fields; empty the first time.
    std::vector<std::string>& fieldNames(std::string_view table) { return fields_[table]; }
    // Keeps a text for the caller until the next one.
    const char* keepText(std::string text) {
        text_ = std::move(text);
        return text_.c_str();
    }

  private:
    void followDatabase();

    bool loaded_ = false;
    std::map<std::string_view, std::vector<std::string>> fields_;
    std::string message_;
    std::string text_;
    std::shared_ptr<store::CompanyStore> database_;
    std::unique_ptr<store::CompanyStore::Transaction> transaction_;
    std::unique_ptr<HostSession> host_;
};

// The session of a handle, put in force on this thread.
Session& sessionIn(Token token);
inline Session& sessionIn(const ledgerwick_session* handle) {
    return sessionIn(tokenOf(handle));
}
// The same for a call that needs the employees.
// Errors: 20004 before they are loaded.
Session& loadedIn(const ledgerwick_session* handle);

}  // namespace ledgerwick::c
