#include "hostkit/explain/words.h"

#include <array>

#include "ledgerwick/values/text.h"

namespace ledgerwick::explain {

namespace {

struct FrequencyName {
    PR_Pay_Freq frequency;
    std::string_view name;
};

constexpr std::array frequencyTable{
    FrequencyName{PFREQ_1Weekly, "weekly"},      FrequencyName{PFREQ_2Weekly, "fortnightly"},
    FrequencyName{PFREQ_4Weekly, "four-weekly"}, FrequencyName{PFREQ_Monthly, "monthly"},
    FrequencyName{PFREQ_Quarterly, "quarterly"}, FrequencyName{PFREQ_BiAnnual, "half-yearly"},
    FrequencyName{PFREQ_Annual, "yearly"},       FrequencyName{PFREQ_Casual, "casual"},
    FrequencyName{PFREQ_SelAll, "all"},
};

}  // namespace

std::string frequencyName(std::int16_t frequency) {
    for (const auto& entry : frequencyTable) {
        if (entry.frequency == frequency) return std::string(entry.name);
    }
    return std::to_string(frequency);
}

std::optional<PR_Pay_Freq> frequencyOf(std::string_view name) {
    for (const auto& entry : frequencyTable) {
        if (equalsIgnoringCase(entry.name, name)) return entry.frequency;
    }
    return std::nullopt;
}

std::string frequencyNames() {
    std::string names;
    for (const auto& entry : frequencyTable) {
        if (!names.empty()) names += ", ";
        names += entry.name;
    }
    return names;
}

std::string counted(std::int64_t count, std::string_view what) {
    return std::to_string(count) + " " + std::string(what) + (count == 1 ? "" : "s");
}

}  // namespace ledgerwick::explain
