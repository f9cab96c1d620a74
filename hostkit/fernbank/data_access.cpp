#include "hostkit/fernbank/data_access.h"

namespace ledgerwick::fernbank {

bool DataAccessFunctions::TempTableExists(std::string_view name) {
    return openDatabase_().TableExists(name);
}

void DataAccessFunctions::NoNullRecordLine(RecordsetRef& recordset) {
    if (recordset) recordset->FillEmpty();
}

}  // namespace ledgerwick::fernbank
