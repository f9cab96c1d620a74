#include "hostkit/explain/words.h"

#include "ledgerwick/calendar/frequency.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick::explain {

namespace {

// The selection of every frequency; not a frequency itself.
constexpr std::string_view everyFrequency = "all";

}  // namespace

std::string frequencyName(std::int16_t frequency) {
    if (frequency == PFREQ_SelAll) return std::string(everyFrequency);
    const auto* const found = calendar::findFrequency(frequency);
    return found ? std::string(found->name) : std::to_string(frequency);
}

std::optional<PR_Pay_Freq> frequencyOf(std::string_view name) {
    if (equalsIgnoringCase(everyFrequency, name)) return PFREQ_SelAll;
    for (const auto& each : calendar::frequencies()) {
        if (equalsIgnoringCase(each.name, name)) return each.code;
    }
    return std::nullopt;
}

std::string frequencyNames() {
    std::string names;
    for (const auto& each : calendar::frequencies()) names += std::string(each.name) + ", ";
    return names.append(everyFrequency);
}

std::string counted(std::int64_t count, std::string_view what) {
    return std::to_string(count) + " " + std::string(what) + (count == 1 ? "" : "s");
}

}  // namespace ledgerwick::explain
