// What every command shares: the options in front of it, and the way to a company's session.
#pragma once

#include <functional>
#include <iosfwd>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "app/report.h"
#include "hostkit/explain/words.h"
#include "hostkit/services/host_session.h"
#include "hostkit/store/company_store.h"
#include "ledgerwick/ledgerwick.h"

namespace ledgerwick::app {

// How the program ends.
enum ExitCode : int {
    exitDone = 0,
    exitError = 1,     // the library, the database or a file failed
    exitUsage = 2,     // the command line cannot be understood
    exitBadFile = 3,   // a file to import, or a template, holds a fault
    exitRefused = 4,   // there is no such employee or database, or it is not in a state for this
    exitFindings = 5,  // an audit found something
};

// A command that cannot do what was asked, told in one sentence.
class Refusal : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

struct Context {
    Context(std::ostream& outStream, std::ostream& errStream) : out(outStream), err(errStream) {}

    std::ostream& out;
    std::ostream& err;
    std::optional<Date> fixedToday;  // `--today`
    Format format = Format::Text;
    // `--durability`. A power cut takes no more than the operation that was running and had not
    // reported yet.
    store::Durability durability = store::Durability::Batched;
    std::function<void()> action;  // the command chosen
    ExitCode outcome = exitDone;   // what a command has to tell beside its report

    // The day given, else the day of the system's clock.
    Date today() const;
    void show(const Report& report) const { report.print(out, format); }
};

// A session on the database at `path`, with every employee loaded. `programPath` is the folder of
// the letter templates.
// Errors: Refusal when there is no such file.
std::unique_ptr<HostSession> openCompany(const Context& context, const std::string& path,
                                         const std::string& programPath = {});

// The same for work on an employee who may have no employment yet, at whom a load would stop: only
// those who have one are loaded.
std::unique_ptr<HostSession> openCompanyOfNewcomers(const Context& context,
                                                    const std::string& path);

// The same on a file that is open already, or on a layer over it.
std::unique_ptr<HostSession> loadCompany(const Context& context, std::shared_ptr<Database> database,
                                         const std::string& programPath = {});

// The store of a company.
// Errors: Refusal when there is none.
std::shared_ptr<store::CompanyStore> openFile(const Context& context, const std::string& path);

// A session in which nobody is loaded yet.
std::unique_ptr<HostSession> sessionOn(const Context& context, std::shared_ptr<Database> database,
                                       const std::string& programPath = {});

// The employee of that number.
// Errors: Refusal when the company has none.
std::shared_ptr<cEmployee> employeeOf(HostSession& session, std::int32_t naid);

using explain::counted;
using explain::frequencyName;
using explain::frequencyNames;
using explain::frequencyOf;

}  // namespace ledgerwick::app
