// A recordset of a company store, with what a host's own tools may ask of it.
#pragma once

#include <cstddef>
#include <string_view>

#include "hostkit/export.h"
#include "ledgerwick/records/record_access.h"

namespace ledgerwick::store {

// Every set that a company store opens is one.
class LEDGERWICK_HOSTKIT_API CompanyRecordset : public Recordset {
  public:
    ~CompanyRecordset() override;

    // The number of fields.
    // Errors: of this and the next two, 9 for a place outside the fields, 3420 after `Close`.
    virtual std::size_t fieldCount() const = 0;
    // The fields in the order of the statement.
    virtual std::string_view fieldName(std::size_t field) const = 0;
    // Empty for a field without a kind of its own, such as an expression.
    virtual VariantKind fieldKind(std::size_t field) const = 0;
};

}  // namespace ledgerwick::store
