#include "hostkit/store/company_store.h"

#include "hostkit/forwarding/forwarding_database.h"
#include "hostkit/store/company_recordset.h"
#include "ledgerwick/values/error.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick::store {

CompanyRecordset::~CompanyRecordset() = default;
CompanyStore::~CompanyStore() = default;

std::string CompanyStore::keepCopy(std::string_view) {
    raise(error_number::databaseError, "Database",
          "this store keeps no copy of a company; make one with the database's own tools");
}

void CompanyStore::createPayImportTable(bool kept) {
    define(std::string(kept ? "CREATE TABLE" : "CREATE TEMP TABLE") +
           " PRPayImport (PRPINAID INTEGER DEFAULT 0, PRPIPay NUMBER DEFAULT 0)");
}

void CompanyStore::dropPayImportTable() {
    define("DROP TABLE IF EXISTS PRPayImport");
}

void CompanyStore::createLastWeekNosTable(std::string_view pcId) {
    define("CREATE TEMP TABLE \"TEMP_PR_LAST_WEEK_NOS" + replaceAll(pcId, "\"", "\"\"") +
           "\" (TLWWeekNo NUMBER DEFAULT 0, TLWCMonthNo NUMBER DEFAULT 0)");
}

CompanyStore* storeUnder(Database& database) noexcept {
    Database* at = &database;
    while (auto* const layer = dynamic_cast<ForwardingDatabase*>(at)) at = &layer->real();
    return dynamic_cast<CompanyStore*>(at);
}

}  // namespace ledgerwick::store
