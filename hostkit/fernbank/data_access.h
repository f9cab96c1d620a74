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

    // Whether there is a table of that name, temporary or kept. The kit's layer is asked; on
    // another one a statement is tried, and its failure means that there is none.
    // Errors: 3146, which says that the database itself failed.
    bool TempTableExists(std::string_view name) override;

    // Fills the fields of the row in edit that would be stored as Null: a text with the empty
    // text, a number with 0, a boolean with False, a date with the zero date. Fields that hold a
    // value, and the key, are left alone, and so is a recordset of another layer.
    void NoNullRecordLine(RecordsetRef& recordset) override;

  private:
    OpenDatabase openDatabase_;
};

}  // namespace ledgerwick::fernbank
