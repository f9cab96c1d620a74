// One piecework order line that counts as earnings.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "ledgerwick/export.h"
#include "ledgerwick/values/currency.h"
#include "ledgerwick/values/date.h"
#include "ledgerwick/values/object.h"
#include "ledgerwick/values/property.h"

namespace ledgerwick {

// All members are plain stored values except the let of `Desc`, which takes the unit of purchase
// out of the description and so needs `UoPCode` to be set before it.
class LEDGERWICK_API CImportedEarnings : public Object {
  public:
    std::string_view TypeName() const noexcept override { return "CImportedEarnings"; }

    // clang-format off
    Property<std::int32_t> OrdDSID;       // the item
    Property<std::int32_t> OrdID;         // the order line
    Property<std::int32_t> UoM;           // unit of measure number; only copied, so it stays 0
    Property<Currency>     Value;         // net value of the line, or a sum of such values
    Property<float>        Qty;           // quantity in units of purchase, or a sum
    Property<Date>         EarningsDate;  // the date on which the line counts as earned
    Property<std::int16_t> OrdStatus;     // 1 unchecked, below 5 open, 5 closed
    Property<std::string>  UoPCode;       // code of the unit of purchase
    // clang-format on

    // The description of the item.
    const std::string& Desc() const noexcept { return desc_; }
    void Desc(std::string_view sDesc);

  private:
    std::string desc_;
};

}  // namespace ledgerwick
