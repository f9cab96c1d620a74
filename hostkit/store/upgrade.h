// The version of a company's tables: which one a company has, and how an older one is brought up to
// date.
//
//   const store::Upgrade done = store::upgrade("company.db");
//   // done.from 0, done.to 1, done.copy "company.db.version-0"
#pragma once

#include <cstdint>
#include <string>

#include "hostkit/export.h"
#include "hostkit/store/company_store.h"

namespace ledgerwick::store {

// The version of the tables that this kit creates and works on.
LEDGERWICK_HOSTKIT_API std::int32_t currentSchemaVersion() noexcept;
// The version of a company's tables; 0 for one that was made before there were versions.
LEDGERWICK_HOSTKIT_API std::int32_t schemaVersion(CompanyStore& company);

// Lets a company of another version not be worked on. A database without the tables of a company
// passes, since it has no version.
// Errors: 3274, which says what to do.
LEDGERWICK_HOSTKIT_API void requireCurrentVersion(CompanyStore& company);

// What an upgrade did.
struct Upgrade {
    std::int32_t from = 0;  // the version that the company had
    std::int32_t to = 0;    // the version that it has now; the same when there was nothing to do
    std::string copy;  // the company as it was, by its name; empty when there was nothing to do
};

// Brings a company up to this kit's version, in one transaction. The company as it was is kept under
// a name of its own, which is not there before.
// Errors: 53 when there is no such company, 3343 for a database that holds none, 3274 for a newer
//         one; those of the database. The company is then as it was, and no copy is left.
LEDGERWICK_HOSTKIT_API Upgrade upgrade(const std::string& name);

}  // namespace ledgerwick::store
