#include "capi/session.h"

#include <algorithm>
#include <cstring>

#include "capi/table.h"
#include "hostkit/all_stores.h"
#include "hostkit/history/as_of.h"
#include "hostkit/office/company.h"
#include "hostkit/store/open.h"
#include "hostkit/store/upgrade.h"
#include "ledgerwick/values/utf8.h"
#include "ledgerwick/version.h"

namespace ledgerwick::c {

namespace {

constexpr std::string_view opening = "ledgerwick_session_open";
constexpr std::string_view transaction = "ledgerwick_transaction";
constexpr std::string_view creating = "ledgerwick_company_create";
constexpr std::string_view upgrading = "ledgerwick_company_upgrade";

// The caller's options, of which an older program knows fewer.
ledgerwick_options optionsIn(const ledgerwick_options* options) {
    ledgerwick_options known{};
    if (!options) return known;
    if (options->size < sizeof options->size || options->size > sizeof known) {
        raise(LEDGERWICK_INVALID_CALL, opening, "the size of the options is not known");
    }
    std::memcpy(&known, options, options->size);
    return known;
}

store::OpenOptions openOptions(const ledgerwick_options& options) {
    const bool isKnown = options.durability >= LEDGERWICK_EACH_UPDATE &&
                         options.durability <= LEDGERWICK_RELAXED && options.busy_timeout >= 0;
    if (!isKnown) raise(LEDGERWICK_INVALID_CALL, opening, "durability or busy_timeout");
    store::OpenOptions open;
    open.durability = static_cast<store::Durability>(options.durability);
    if (options.busy_timeout > 0) {
        open.busyTimeout = std::chrono::milliseconds(options.busy_timeout);
    }
    open.readOnly = flagIn(options.read_only, opening) || options.as_of != 0;
    return open;
}

HostSettings settings(const ledgerwick_options& options) {
    HostSettings host;
    host.programPath = textIn(options.program_path, opening, host.programPath);
    host.pcId = textIn(options.workstation, opening, host.pcId);
    host.programName = textIn(options.program_name, opening, host.programName);
    return host;
}

void create(const std::string& path, std::int32_t taxYear) {
    if (taxYear < firstTaxYear || taxYear > lastTaxYear) {
        raise(LEDGERWICK_INVALID_CALL, creating, "tax year " + std::to_string(taxYear));
    }
    if (path.empty() || path == ":memory:") {
        raise(LEDGERWICK_INVALID_CALL, creating, "the path is no file's");
    }
    registerStores();
    if (store::exists(path)) {
        throw Error(LEDGERWICK_FILE_EXISTS, std::string(creating), "File already exists: " + path);
    }
    const auto company = store::create(path);
    try {
        company->inTransaction([&] { office::layDownSettings(*company, taxYear); });
    } catch (...) {
        store::remove(path);
        throw;
    }
}

std::shared_ptr<store::CompanyStore> openExisting(const std::string& path,
                                                  const store::OpenOptions& options) {
    registerStores();
    if (!store::exists(path)) raise(LEDGERWICK_NO_SUCH_FILE, opening, path);
    try {
        auto company = store::open(path, options);
        requireCompany(*company);
        return company;
    } catch (const Error& failure) {
        if (failure.Number() != LEDGERWICK_NOT_A_COMPANY) throw;
        throw Error(LEDGERWICK_NOT_A_COMPANY, std::string(opening),
                    path + " holds no company; ledgerwick_company_create makes one");
    }
}

}  // namespace

Session::Session(const std::string& path, Date today, const store::OpenOptions& options,
                 HostSettings settings, Date asOf)
    : database_(openExisting(path, options)) {
    if (asOf.isSet()) history::showAsOf(*database_, asOf);
    settings.messages = [this](const std::string&, const std::string& text) { message_ = text; };
    host_ = std::make_unique<HostSession>(database_, today, std::move(settings));
}

void Session::beginTransaction() {
    if (transaction_) raise(LEDGERWICK_INVALID_CALL, transaction, "one has begun already");
    transaction_ = std::make_unique<store::CompanyStore::Transaction>(*database_);
}

void Session::endTransaction(bool keep) {
    if (!transaction_) raise(LEDGERWICK_INVALID_CALL, transaction, "none has begun");
    auto ending = std::move(transaction_);
    try {
        if (keep) return ending->keep();
    } catch (...) {
        ending.reset();
        followDatabase();
        throw;
    }
    ending.reset();
    followDatabase();
}

// What is in memory follows what was taken back.
void Session::followDatabase() {
    host_->parameters().Reload();
    host_->state().ReloadYearEnds();
    if (loaded_) load();
}

void Session::load() {
    loaded_ = false;
    office::loadEmployed(*host_);
    loaded_ = true;
}

void Session::reload(std::int32_t naid) {
    list().ReLoadEmployee(naid);
    loaded_ = true;
}

std::shared_ptr<cEmployee> Session::employee(std::int32_t naid) {
    auto employee = list().GetEmployeeByNAID(naid);
    if (!employee) {
        throw Error(LEDGERWICK_NULL, "ledgerwick_session",
                    "There is no employee " + std::to_string(naid));
    }
    return employee;
}

Session& sessionIn(Token token) {
    auto& session = objectOf<Session>(handleOf<ledgerwick_session>(token), "session");
    session.host().putInForce();
    return session;
}

Session& loadedIn(const ledgerwick_session* handle) {
    Session& session = sessionIn(handle);
    if (!session.isLoaded()) {
        throw Error(LEDGERWICK_NOT_LOADED, "ledgerwick_session",
                    "Nothing is loaded; call ledgerwick_load first");
    }
    return session;
}

}  // namespace ledgerwick::c

using namespace ledgerwick::c;

const char* ledgerwick_version(void) {
    return LEDGERWICK_VERSION_TEXT;
}

std::int32_t ledgerwick_abi(void) {
    return LEDGERWICK_C_ABI;
}

std::int32_t ledgerwick_company_create(const char* path, std::int32_t tax_year,
                                       ledgerwick_error* error) {
    return call(error, [&] { create(textIn(path, creating), tax_year); });
}

std::int32_t ledgerwick_company_upgrade(const char* path, ledgerwick_table** out,
                                        ledgerwick_error* error) {
    return call(error, [&] {
        needHandle(out, upgrading);
        const std::string name = textIn(path, upgrading);
        ledgerwick::registerStores();
        if (!ledgerwick::store::exists(name)) {
            ledgerwick::raise(LEDGERWICK_NO_SUCH_FILE, upgrading, name);
        }
        const auto done = ledgerwick::store::upgrade(name);
        auto table = std::make_unique<ledgerwick::c::Table>(
            std::vector<std::string>{"from_version", "to_version", "copy"});
        table->add({done.from, done.to, done.copy});
        giveHandle(out, std::move(table));
    });
}

std::int32_t ledgerwick_session_open(const char* path, ledgerwick_date today,
                                     const ledgerwick_options* options,
                                     ledgerwick_session** session, ledgerwick_error* error) {
    return call(error, [&] {
        needHandle(session, opening);
        const ledgerwick_options known = optionsIn(options);
        giveHandle(session, std::make_unique<Session>(
                                textIn(path, opening), dateNeeded(today, opening),
                                openOptions(known), settings(known), dateIn(known.as_of, opening)));
    });
}

std::int32_t ledgerwick_session_close(ledgerwick_session* session, ledgerwick_error* error) {
    return call(error, [&] { close<Session>(session, "session"); });
}

std::int32_t ledgerwick_transaction_begin(ledgerwick_session* session, ledgerwick_error* error) {
    return call(error, [&] { sessionIn(session).beginTransaction(); });
}

std::int32_t ledgerwick_transaction_end(ledgerwick_session* session, std::int32_t keep,
                                        ledgerwick_error* error) {
    return call(error, [&] { sessionIn(session).endTransaction(flagIn(keep, transaction)); });
}

std::int32_t ledgerwick_set_today(ledgerwick_session* session, ledgerwick_date today,
                                  ledgerwick_error* error) {
    return call(error, [&] {
        sessionIn(session).host().state().g_dtmToday(dateNeeded(today, "ledgerwick_set_today"));
    });
}

std::int32_t ledgerwick_load(ledgerwick_session* session, ledgerwick_error* error) {
    return call(error, [&] { sessionIn(session).load(); });
}

std::int32_t ledgerwick_reload(ledgerwick_session* session, std::int32_t naid,
                               ledgerwick_error* error) {
    return call(error, [&] { sessionIn(session).reload(naid); });
}

std::int32_t ledgerwick_payroll_year(ledgerwick_session* session, std::int32_t* year,
                                     ledgerwick_error* error) {
    return call(error, [&] {
        sessionIn(session);
        give(year, ledgerwick::DLLGlobal::currentPayrollYear());
    });
}

std::int32_t ledgerwick_get_parameter(ledgerwick_session* session, const char* name,
                                      const char** value, ledgerwick_error* error) {
    return call(error, [&] {
        Session& here = sessionIn(session);
        const auto found =
            here.host().parameters().Get(textIn(name, "ledgerwick_get_parameter")).toText();
        const char* const text = here.keepText(ledgerwick::soundUtf8(found));
        give(value, text);
    });
}

std::int32_t ledgerwick_set_parameter(ledgerwick_session* session, const char* name,
                                      const char* value, ledgerwick_error* error) {
    return call(error, [&] {
        constexpr std::string_view here = "ledgerwick_set_parameter";
        sessionIn(session).host().parameters().Set(textIn(name, here), textIn(value, here));
    });
}
