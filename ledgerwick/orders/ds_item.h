// A deadstock item, a plain record for the host.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "ledgerwick/export.h"
#include "ledgerwick/values/object.h"
#include "ledgerwick/values/property.h"

namespace ledgerwick {

// The item that an order line is about. A new object has zeros and an empty text.
class LEDGERWICK_API cDSItem : public Object {
  public:
    std::string_view TypeName() const noexcept override { return "cDSItem"; }

    // clang-format off
    Property<std::string>  Desc;     // the description
    Property<std::int32_t> DSID;     // the item
    Property<std::string>  UoPDesc;  // the description of the unit of purchase
    Property<std::string>  UoUDesc;  // the description of the unit of use
    // clang-format on
};

}  // namespace ledgerwick
