// The kit's program functions: dates in statements, parameters, arrays and padding.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "hostkit/export.h"
#include "hostkit/services/parameters.h"
#include "ledgerwick/host/host.h"

namespace ledgerwick {

// The program functions as the library expects them, with the parameters of the company.
class LEDGERWICK_HOSTKIT_API KitProgramFunctions : public ProgramFunctions {
  public:
    // `GetParameterField` asks `parameters`.
    explicit KitProgramFunctions(std::shared_ptr<const KitParameters> parameters);

    // "4/29/2016", month first; with a time of day "4/29/2016 13:05:00".
    std::string DateToUSstr(Date date) override;
    // Errors: 3265 for a parameter that the company does not have.
    Variant GetParameterField(std::string_view name) override;
    std::int16_t DaysInMonth(Date date) override;
    // Elements are equal when they have the same kind and the same value.
    void DeleteFromArray(VariantArray& array, const Variant& value) override;
    void BubbleSortLongArray(std::vector<std::int32_t>& array) override;
    // Pads on the left, so that "7" sorts before "10"; a longer text is cut to its first `width`
    // characters.
    std::string padstring(std::string_view text, std::int32_t width, char pad) override;

  private:
    std::shared_ptr<const KitParameters> parameters_;
};

}  // namespace ledgerwick
