#include "hostkit/fernbank/data_access.h"

#include <string>

#include "hostkit/store/company_recordset.h"
#include "hostkit/store/company_store.h"
#include "ledgerwick/values/error.h"

namespace ledgerwick::fernbank {

namespace {

Variant blankOf(VariantKind kind) {
    switch (kind) {
        case VariantKind::Boolean:
            return false;
        case VariantKind::Date:
            return Date();
        case VariantKind::Text:
        case VariantKind::Empty:
            return "";
        default:
            return std::int16_t{0};
    }
}

bool canBeRead(Database& database, std::string_view name) {
    try {
        database
            .OpenRecordset("SELECT * FROM [" + std::string(name) + "] WHERE 1 = 0",
                           RecordsetType::Snapshot)
            ->Close();
        return true;
    } catch (const Error& error) {
        // A database that fails tells nothing of its tables, and pay would be left out in silence.
        if (error.Number() == error_number::databaseError) throw;
        return false;
    }
}

}  // namespace

bool DataAccessFunctions::TempTableExists(std::string_view name) {
    Database& database = openDatabase_();
    if (auto* const kit = dynamic_cast<store::CompanyStore*>(&database)) {
        return kit->tableExists(name);
    }
    return name.find(']') == std::string_view::npos && canBeRead(database, name);
}

void DataAccessFunctions::NoNullRecordLine(RecordsetRef& recordset) {
    auto* const rows = dynamic_cast<store::CompanyRecordset*>(recordset.get());
    if (!rows || !rows->inEdit()) return;
    for (std::size_t field = 0; field < rows->fieldCount(); ++field) {
        if (rows->isKey(field) || !rows->wouldBeNull(field)) continue;
        rows->Value(rows->fieldName(field), blankOf(rows->fieldKind(field)));
    }
}

}  // namespace ledgerwick::fernbank
