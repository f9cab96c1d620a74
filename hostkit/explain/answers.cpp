#include "hostkit/explain/answers.h"

#include <algorithm>

#include "ledgerwick/calendar/calculation_set.h"

namespace ledgerwick::explain {

namespace {

void explainDay(std::vector<Answer>& answers, Date date) {
    const auto answer = [&](std::string question, const Variant& number,
                            const Rule& rule) -> auto& {
        return answers.emplace_back(
            Answer{.question = std::move(question), .number = number, .rule = &rule});
    };
    const int year = calendar::taxYearOf(date);
    const auto days = taxYearDays(year);
    const std::int16_t payrollYear = calendar::payrollYearOf(date);
    Answer& whole = answer("tax year", taxYearText(year), taxYearRule);
    whole.date = days.first;
    whole.lastDay = days.last;
    answer("payroll year", payrollYear, payrollYearRule);
    answer("tax week", calendar::taxWeek(date), taxWeekRule);
    answer("tax month", calendar::taxMonth(date), taxMonthRule);
    constexpr std::int16_t firstWithCalculations = 2;
    if (payrollYear < firstWithCalculations) return;
    answer("set of calculations", calendar::calculationSet(payrollYear, date), calculationSetRule);
}

void explainPeriods(std::vector<Answer>& answers, const FrequencyRules& rules, Date date,
                    const Controllers& controllers) {
    if (rules.periodName.empty()) return;
    const auto period = calendar::taxPeriod(date, rules.code(), "explain");
    answers.push_back({rules.frequency, "tax period", periodText(rules, date), period.first,
                       period.last, &rules.period});
    const auto reference = calendar::payReferencePeriod(date, rules.code(), controllers.startDay);
    answers.push_back({rules.frequency,
                       "pay reference period",
                       {},
                       reference.first,
                       reference.last,
                       &rules.reference,
                       startDayWords(rules.frequency, controllers)});
}

// Only monthly pay distinguishes a pay date from an end of period, and looks at a change of frequency.
void explainExpected(std::vector<Answer>& answers, const FrequencyRules& rules, Date date,
                     const Controllers& controllers) {
    const bool isMonthly = rules.frequency == PFREQ_Monthly;
    struct Kind {
        PR_NExpMode mode;
        std::string name;
    };
    std::vector<Kind> kinds{{PR_NExp_Pay, isMonthly ? "pay date" : "expected date"}};
    if (isMonthly) kinds.push_back({PR_NExp_EPE, "end of pay period"});
    for (const auto& [mode, name] : kinds) {
        const std::string controller = controllerWords(rules.frequency, controllers, mode);
        for (const bool reverse : {false, true}) {
            const Date answer =
                expectedDate(date, rules.frequency, controllers, mode, false, reverse);
            answers.push_back({rules.frequency,
                               (reverse ? "previous " : "next ") + name,
                               {},
                               answer,
                               {},
                               &rules.step,
                               controller});
        }
    }
    if (!isMonthly) return;
    answers.push_back({rules.frequency,
                       "first pay date after a change to monthly",
                       {},
                       expectedDate(date, rules.frequency, controllers, PR_NExp_Pay, true),
                       {},
                       &changeToMonthlyRule,
                       controllerWords(rules.frequency, controllers)});
}

}  // namespace

std::vector<Answer> explainDate(Date date, std::span<const PR_Pay_Freq> frequencies,
                                const Controllers& controllers) {
    std::vector<Answer> answers;
    explainDay(answers, date);
    for (const FrequencyRules& rules : frequencyRules()) {
        const bool isWanted =
            frequencies.empty() ||
            std::find(frequencies.begin(), frequencies.end(), rules.frequency) != frequencies.end();
        if (!isWanted) continue;
        explainPeriods(answers, rules, date, controllers);
        explainExpected(answers, rules, date, controllers);
    }
    return answers;
}

}  // namespace ledgerwick::explain
