#include "hostkit/store/open.h"

#include <algorithm>
#include <array>
#include <mutex>
#include <vector>

#include "hostkit/store/store_library.h"
#include "hostkit/store/upgrade.h"
#include "ledgerwick/values/error.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick::store {

namespace {

using Kind = std::shared_ptr<const StoreKind>;

std::mutex kindsMutex;

std::vector<Kind>& kinds() {
    static std::vector<Kind> registered;
    return registered;
}

Kind registeredKind(std::string_view scheme) {
    const std::scoped_lock lock(kindsMutex);
    for (const Kind& kind : kinds()) {
        if (equalsIgnoringCase(kind->scheme(), scheme)) return kind;
    }
    return nullptr;
}

std::string_view schemeOf(std::string_view name) {
    const std::size_t end = name.find("://");
    return end == std::string_view::npos ? std::string_view() : name.substr(0, end);
}

// A name may carry a password, so that only its scheme is shown.
[[noreturn]] void refuse(std::string_view scheme) {
    raise(error_number::databaseError, "Store",
          scheme.empty() ? std::string("this program has no store for companies in files")
                         : "this program has no store for names that begin with " +
                               std::string(scheme) + "://");
}

Kind kindOf(std::string_view name) {
    const std::string_view scheme = schemeOf(name);
    if (Kind kind = registeredKind(scheme)) return kind;
    loadStoreLibrary(scheme);
    if (Kind kind = registeredKind(scheme)) return kind;
    refuse(scheme);
}

}  // namespace

StoreKind::~StoreKind() = default;

void registerKind(std::shared_ptr<const StoreKind> kind) {
    const std::scoped_lock lock(kindsMutex);
    std::erase_if(kinds(), [&](const Kind& known) {
        return equalsIgnoringCase(known->scheme(), kind->scheme());
    });
    kinds().push_back(std::move(kind));
}

bool exists(const std::string& name) {
    return kindOf(name)->exists(name);
}

std::shared_ptr<CompanyStore> open(const std::string& name, const OpenOptions& options) {
    auto company = openOfAnyVersion(name, options);
    requireCurrentVersion(*company);
    return company;
}

std::shared_ptr<CompanyStore> openOfAnyVersion(const std::string& name,
                                               const OpenOptions& options) {
    const Kind kind = kindOf(name);
    if (!kind->exists(name)) raise(error_number::fileNotFound, "Store", name);
    return kind->open(name, options);
}

std::shared_ptr<CompanyStore> create(const std::string& name, const OpenOptions& options) {
    const Kind kind = kindOf(name);
    if (kind->exists(name)) raise(error_number::fileExists, "Store", name);
    try {
        auto company = kind->open(name, options);
        company->inTransaction([&] { company->createSchema(); });
        return company;
    } catch (...) {
        kind->remove(name);
        throw;
    }
}

void remove(const std::string& name) {
    kindOf(name)->remove(name);
}

}  // namespace ledgerwick::store
