// The data-access object `DAO_ADO`.
#pragma once

#include <string_view>

#include "ledgerwick/host/host.h"

namespace ledgerwick::fernbank {

// Gives the open database of the calling thread, at each use.
using OpenDatabase = Database& (*)();

class DataAccessFunctions final : public DataAccess {
  public:
    explicit DataAccessFunctions(OpenDatabase openDatabase) noexcept
        : openDatabase_(openDatabase) {}

    // Whether there is a table of that name, temporary or kept.
    // Errors: those of a database that cannot tell.
    bool TempTableExists(std::string_view name) override;

    // Gives the fields of the row in edit that would be stored as Null the blank value of their kind,
    // by `Recordset::FillEmpty` of whatever layer the set belongs to.
    void NoNullRecordLine(RecordsetRef& recordset) override;

  private:
    OpenDatabase openDatabase_;
};

}  // namespace ledgerwick::fernbank
