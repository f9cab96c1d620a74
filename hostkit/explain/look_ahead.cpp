#include "hostkit/explain/look_ahead.h"

#include <set>

namespace ledgerwick::explain {

PayDate payDateOn(Date date, PR_Pay_Freq frequency) {
    const FrequencyRules& rules = rulesOf(frequency);
    const std::int32_t period = calendar::taxPeriodNumber(date, rules.code(), "calendar");
    return {date, frequency, period, period == rules.leftOver};
}

std::vector<PayDate> payDatesOf(int taxYear, PR_Pay_Freq frequency, Date first,
                                const Controllers& controllers) {
    const auto year = taxYearDays(taxYear);
    const auto step = [&](Date from, bool reverse) {
        return expectedDate(from, frequency, controllers, PR_NExp_Pay, false, reverse);
    };
    Date date = first;
    while (date >= year.first) date = step(date, true);
    std::vector<PayDate> dates;
    while ((date = step(date, false)) <= year.last) {
        if (date >= year.first) dates.push_back(payDateOn(date, frequency));
    }
    return dates;
}

std::vector<Payer> payersOf(HostSession& session) {
    std::vector<Payer> found;
    for (const FrequencyRules& rules : frequencyRules()) {
        if (rules.periodName.empty()) continue;
        std::set<std::int32_t> days;
        for (const auto& employee : session.list().Employees()) {
            if (!isRegularActive(*employee) || employee->PayFrequency() != rules.frequency) {
                continue;
            }
            const Date next = employee->CurEmployment()->NExpPayDate();
            if (next.isSet() && days.insert(next.dayNumber()).second) {
                found.push_back({rules.frequency, next.dateOnly()});
            }
        }
    }
    return found;
}

Date firstFriday(int taxYear) {
    constexpr int friday = 6;
    Date date = taxYearDays(taxYear).first;
    while (date.weekday() != friday) date = date.addDays(1);
    return date;
}

}  // namespace ledgerwick::explain
