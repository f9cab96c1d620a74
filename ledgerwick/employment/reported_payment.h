// The value of `LastRTI` of an employment.
#pragma once

#include <array>
#include <cstdint>

#include "ledgerwick/values/variant.h"

namespace ledgerwick {

// The thirteen details of a reported payment, kept as plain values in one block so that the next
// pay row replaces them in place. They leave as an array (1 To 13).
class ReportedPayment {
  public:
    // The number of details.
    static constexpr std::int32_t detailCount = 13;
    // The details in the order in which they leave.
    using Details = std::array<Variant, detailCount>;

    // Takes the details of a pay row.
    void replace(Details&& details) noexcept;

    // The details as an array, or whatever else was put in their place.
    Variant value() const;
    // Takes any value; an array (1 To 13) is taken apart.
    void value(const Variant& value);

  private:
    Details details_;  // any other value stands in the first
    bool isList_ = false;
};

}  // namespace ledgerwick
