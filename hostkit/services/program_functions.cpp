#include "hostkit/services/program_functions.h"

#include <algorithm>
#include <utility>

#include "ledgerwick/values/checked.h"
#include "ledgerwick/values/format.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick {

KitProgramFunctions::KitProgramFunctions(std::shared_ptr<const KitParameters> parameters)
    : parameters_(std::move(parameters)) {}

std::string KitProgramFunctions::DateToUSstr(Date date) {
    const bool hasTime = date != date.dateOnly();
    return formatDate(date, hasTime ? "m/d/yyyy hh:nn:ss" : "m/d/yyyy");
}

Variant KitProgramFunctions::GetParameterField(std::string_view name) {
    return parameters_->Get(name);
}

std::int16_t KitProgramFunctions::DaysInMonth(Date date) {
    return narrowToInt16(date.daysInMonth());
}

void KitProgramFunctions::DeleteFromArray(VariantArray& array, const Variant& value) {
    for (std::int32_t i = array.upperBound(); i >= array.lowerBound(); --i) {
        if (array.at(i) == value) array.erase(i);
    }
}

void KitProgramFunctions::BubbleSortLongArray(std::vector<std::int32_t>& array) {
    std::sort(array.begin(), array.end());
}

std::string KitProgramFunctions::padstring(std::string_view text, std::int32_t width, char pad) {
    const std::size_t wanted = width > 0 ? static_cast<std::size_t>(width) : 0;
    const std::size_t length = characterCount(text);
    if (length >= wanted) return std::string(firstCharacters(text, wanted));
    return std::string(wanted - length, pad) + std::string(text);
}

}  // namespace ledgerwick
