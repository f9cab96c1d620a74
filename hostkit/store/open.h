// Companies by name.
//
//   company.db                       a path: the store on files
//   postgresql://server/pay?...      a scheme: the store that is registered for it
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "hostkit/export.h"
#include "hostkit/store/company_store.h"

namespace ledgerwick::store {

// How the companies of one kind of database are reached. A store registers one.
class LEDGERWICK_HOSTKIT_API StoreKind {
  public:
    virtual ~StoreKind();

    // What stands in front of "://" in the names of its companies; empty for plain paths.
    virtual std::string_view scheme() const noexcept = 0;
    // Whether there is a company of that name.
    virtual bool exists(const std::string& name) const = 0;
    // Opens the company, and creates an empty database if there is none.
    virtual std::shared_ptr<CompanyStore> open(const std::string& name,
                                               const OpenOptions& options) const = 0;
    // Removes the company with everything in it.
    virtual void remove(const std::string& name) const noexcept = 0;
};

// From now on `kind` opens the names of its scheme, for every thread.
LEDGERWICK_HOSTKIT_API void registerKind(std::shared_ptr<const StoreKind> kind);

// Whether there is a company of that name.
// Errors: of this and the next four, 3146 when no store opens names of this kind.
LEDGERWICK_HOSTKIT_API bool exists(const std::string& name);
// Opens a company.
// Errors: 53 when there is none, 3274 when its tables are of another version than this kit's
//         (upgrade.h); those of the database.
LEDGERWICK_HOSTKIT_API std::shared_ptr<CompanyStore> open(const std::string& name,
                                                          const OpenOptions& options = {});
// The same, whatever the version of its tables is.
LEDGERWICK_HOSTKIT_API std::shared_ptr<CompanyStore> openOfAnyVersion(
    const std::string& name, const OpenOptions& options = {});
// Creates a company: every table, and no row. ":memory:" is one that lives in memory.
// Errors: 58 when there is one of that name; those of the database, and then nothing is left.
LEDGERWICK_HOSTKIT_API std::shared_ptr<CompanyStore> create(const std::string& name,
                                                            const OpenOptions& options = {});
// Removes a company with everything in it, for one whose creation failed later on.
LEDGERWICK_HOSTKIT_API void remove(const std::string& name);

}  // namespace ledgerwick::store
