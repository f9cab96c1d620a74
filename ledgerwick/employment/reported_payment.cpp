#include "ledgerwick/employment/reported_payment.h"

#include <utility>

namespace ledgerwick {
namespace {

bool isListOfDetails(const Variant& value) {
    if (!value.isArray()) return false;
    const VariantArray& array = value.array();
    return array.dimensions() == 1 && array.lowerBound() == 1 &&
           array.upperBound() == ReportedPayment::detailCount;
}

}  // namespace

void ReportedPayment::replace(Details&& details) noexcept {
    details_ = std::move(details);
    isList_ = true;
}

Variant ReportedPayment::value() const {
    if (!isList_) return details_.front();
    VariantArray array(1, detailCount);
    std::int32_t index = 1;
    for (const Variant& detail : details_) array.at(index++) = detail;
    return Variant(std::move(array));
}

void ReportedPayment::value(const Variant& value) {
    Details details;
    const bool isList = isListOfDetails(value);
    if (isList) {
        std::int32_t index = 1;
        for (Variant& detail : details) detail = value.array().at(index++);
    } else {
        details.front() = value;
    }
    replace(std::move(details));
    isList_ = isList;
}

}  // namespace ledgerwick
