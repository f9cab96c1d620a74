// A recordset of the kit's SQLite layer, with what a host's own tools may ask of it.
#pragma once

#include <cstddef>
#include <string_view>

#include "hostkit/export.h"
#include "ledgerwick/records/record_access.h"

namespace ledgerwick::sqlite {

class LEDGERWICK_HOSTKIT_API SqliteRecordset : public Recordset {
  public:
    ~SqliteRecordset() override;

    // The fields in the order of the statement.
    // Errors: of these and the next, 9 for a place that is none.
    virtual std::size_t fieldCount() const = 0;
    virtual std::string_view fieldName(std::size_t field) const = 0;
    // Empty for a field without a kind of its own, such as an expression.
    virtual VariantKind fieldKind(std::size_t field) const = 0;
    // Whether the database gives the field its value, being the number of the row.
    virtual bool isKey(std::size_t field) const = 0;

    // Whether a row is in edit, and whether `Update` would leave Null in a field of it.
    virtual bool inEdit() const = 0;
    virtual bool wouldBeNull(std::size_t field) = 0;
};

}  // namespace ledgerwick::sqlite
