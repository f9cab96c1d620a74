#include "hostkit/store/upgrade.h"

#include <string_view>

#include "hostkit/store/open.h"
#include "ledgerwick/values/error.h"

namespace ledgerwick::store {

namespace {

bool holdsCompany(CompanyStore& company) {
    return company.tableExists("PRControl");
}

[[noreturn]] void refuse(const CompanyStore& company, std::string_view words) {
    throw Error(error_number::wrongVersion, "Store", company.name() + std::string(words));
}

[[noreturn]] void refuseNewer(const CompanyStore& company, std::int32_t version) {
    refuse(company, " is of version " + std::to_string(version) +
                        ", and this program knows companies up to version " +
                        std::to_string(currentSchemaVersion()) +
                        ": work on it with a newer release of Ledgerwick");
}

}  // namespace

std::int32_t currentSchemaVersion() noexcept {
    return LEDGERWICK_SCHEMA_VERSION;
}

std::int32_t schemaVersion(CompanyStore& company) {
    if (!company.tableExists("LedgerwickSchema")) return 0;
    const auto rows =
        company.OpenRecordset("SELECT Version FROM LedgerwickSchema", RecordsetType::Snapshot);
    const std::int32_t version = rows->Eof() ? 0 : rows->GetInt32("Version");
    rows->Close();
    return version;
}

void requireCurrentVersion(CompanyStore& company) {
    const std::int32_t version = schemaVersion(company);
    if (version == currentSchemaVersion()) return;
    if (version > currentSchemaVersion()) refuseNewer(company, version);
    if (!holdsCompany(company)) return;
    refuse(company, " is of version " + std::to_string(version) +
                        ", and this program works on version " +
                        std::to_string(currentSchemaVersion()) + ": upgrade it with `ledgerwick " +
                        "upgrade " + company.name() + "`, which keeps a copy");
}

Upgrade upgrade(const std::string& name) {
    const auto company = openOfAnyVersion(name);
    if (!holdsCompany(*company)) raise(error_number::notACompany, "Store", name);
    Upgrade done;
    try {
        company->inTransaction([&] {
            done.from = schemaVersion(*company);
            done.to = currentSchemaVersion();
            if (done.from > done.to) refuseNewer(*company, done.from);
            if (done.from == done.to) return;
            done.copy = company->keepCopy("version-" + std::to_string(done.from));
            company->createSchema();
            company->Execute("UPDATE LedgerwickSchema SET Version = " + std::to_string(done.to),
                             failOnError);
        });
    } catch (...) {
        if (!done.copy.empty()) remove(done.copy);
        throw;
    }
    return done;
}

}  // namespace ledgerwick::store
