#include "hostkit/explain/calendar_rules.h"

#include <array>

#include "ledgerwick/calendar/next_expected.h"
#include "ledgerwick/values/format.h"

namespace ledgerwick::explain {

namespace {

constexpr std::string_view taxYears = "tax years run from 6 April to 5 April";
constexpr std::string_view payFrequency = "the pay frequency";
constexpr std::string_view payDay = "the employer's pay day";
constexpr std::string_view enrolment = "auto-enrolment, which does not cut a period at 5 April";
constexpr std::string_view enrolmentMonths = "auto-enrolment, with the periods of the tax year";

// clang-format off
constexpr std::array rules{
    FrequencyRules{PFREQ_1Weekly, "week", 53,
        {"Weeks count from 6 April; week 53 is the day, or two with a 29 February, left over after 52.", taxYears},
        {"Seven days, counted from 6 April or from the weekday set on or before it.", enrolment},
        {"One week away.", payFrequency}},
    FrequencyRules{PFREQ_2Weekly, "fortnight", 27,
        {"Fortnights count from 6 April; the one cut short at 5 April is fortnight 27.", taxYears},
        {"Fourteen days, counted from 6 April.", enrolment},
        {"Two weeks away.", payFrequency}},
    FrequencyRules{PFREQ_4Weekly, "four weeks", 14,
        {"Four weeks each count from 6 April; the one cut short at 5 April is number 14.", taxYears},
        {"Twenty-eight days, counted from 6 April.", enrolment},
        {"Four weeks away.", payFrequency}},
    FrequencyRules{PFREQ_Monthly, "month", 0,
        {"Tax months run from the 6th of one calendar month to the 5th of the next.", taxYears},
        {"One tax month.", enrolmentMonths},
        {"One pay month away; a date in the first five days counts to the calendar month before.", payDay}},
    FrequencyRules{PFREQ_Quarterly, "quarter", 0,
        {"Quarters are three tax months, from 6 April, 6 July, 6 October and 6 January.", taxYears},
        {"Three tax months.", enrolmentMonths},
        {"Thirteen weeks away, not three calendar months.", payFrequency}},
    FrequencyRules{PFREQ_BiAnnual, "half-year", 0,
        {"Half-years are six tax months, from 6 April and 6 October.", taxYears},
        {"Six tax months.", enrolmentMonths},
        {"Twenty-six weeks away, not six calendar months.", payFrequency}},
    FrequencyRules{PFREQ_Annual, "year", 0,
        {"The period is the tax year.", taxYears},
        {"The tax year.", enrolmentMonths},
        {"Fifty-two weeks away, not a calendar year.", payFrequency}},
    FrequencyRules{PFREQ_Casual, "", 0, {}, {}, {"One day away.", payFrequency}},
};
// clang-format on

constexpr std::array<std::string_view, 8> weekdays{"",          "Sunday",   "Monday", "Tuesday",
                                                   "Wednesday", "Thursday", "Friday", "Saturday"};

std::string monthlyWords(std::int32_t controller) {
    constexpr std::int32_t lastOfNextMonth = 5;
    constexpr std::int32_t shortestMonth = 28;
    if (controller == 0) return "the last day of the month";
    if (controller < 0) {
        if (controller < -7) return "no rule";
        return "the last " + std::string(weekdays[static_cast<std::size_t>(-controller)]) +
               " of the month";
    }
    const std::string day = "day " + std::to_string(controller);
    if (controller <= lastOfNextMonth) return day + " of the calendar month after the pay month";
    if (controller <= shortestMonth) return day + " of the month";
    return day + " of the month, or the last of a shorter one";
}

std::string_view parameterOf(PR_NExpMode mode) {
    return mode == PR_NExp_Pay ? "PRNExpD_M1" : "PREPED_M1";
}

std::int32_t monthlyController(const Controllers& controllers, PR_NExpMode mode) {
    return mode == PR_NExp_Pay ? controllers.payRule : controllers.periodRule;
}

}  // namespace

const Rule taxYearRule{"A tax year runs from 6 April to the following 5 April.", "tax law"};
const Rule payrollYearRule{"The calendar year in which the tax year begins, minus 1999.",
                           "the count of payroll years"};
const Rule taxWeekRule{
    "Tax weeks are the seven days from 6 April on; the one or two days left over are week 53.",
    taxYears};
const Rule taxMonthRule{"Tax months run from the 6th of one calendar month to the 5th of the next.",
                        taxYears};
const Rule calculationSetRule{
    "The calculations of a payroll year change once more in the course of it, most often on 18 "
    "May.",
    "the table of changes by year"};
const Rule changeToMonthlyRule{"The first date ahead, which may lie in the same pay month.",
                               payDay};

Controllers controllersOf(HostSession& session) {
    auto& parameters = session.parameters();
    return {parameters.Get("PRNExpD_M1").toInt32("PRNExpD_M1"),
            parameters.Get("PREPED_M1").toInt32("PREPED_M1"), session.state().g_iAEPRPStartDay()};
}

std::span<const FrequencyRules> frequencyRules() {
    return rules;
}

const FrequencyRules& rulesOf(PR_Pay_Freq frequency) {
    for (const FrequencyRules& each : rules) {
        if (each.frequency == frequency) return each;
    }
    PR_Convert_PayFreq_to_PayPeriod(frequency);  // raises for what is no frequency
    return rules.back();
}

std::string periodText(const FrequencyRules& frequency, Date date) {
    return std::string(frequency.periodName) + " " +
           std::to_string(calendar::taxPeriodNumber(date, frequency.code(), "calendar"));
}

Date expectedDate(Date from, PR_Pay_Freq frequency, const Controllers& controllers,
                  PR_NExpMode mode, bool freqChange, bool reverse) {
    const calendar::MonthlyRule rule{.controller = monthlyController(controllers, mode),
                                     .parameter = parameterOf(mode)};
    return calendar::nextExpectedDate(from, frequency, rule, freqChange, reverse);
}

std::string controllerWords(PR_Pay_Freq frequency, const Controllers& controllers,
                            PR_NExpMode mode) {
    if (frequency != PFREQ_Monthly) return {};
    const std::int32_t controller = monthlyController(controllers, mode);
    return std::string(parameterOf(mode)) + " = " + std::to_string(controller) + ": " +
           monthlyWords(controller);
}

std::string startDayWords(PR_Pay_Freq frequency, const Controllers& controllers) {
    if (frequency != PFREQ_1Weekly) return {};
    const std::int16_t day = controllers.startDay;
    const std::string named = "AEPRPStartDay = " + std::to_string(day) + ": ";
    if (day <= 0 || static_cast<std::size_t>(day) >= weekdays.size()) {
        return named + "the tax week";
    }
    return named + "from a " + std::string(weekdays[static_cast<std::size_t>(day)]);
}

std::string taxYearText(int year) {
    return std::to_string(year) + "/" + formatNumber(double((year + 1) % 100), "00");
}

calendar::DateRange taxYearDays(int year) {
    return calendar::taxPeriod(Date::fromYmd(year, 4, 6),
                               PR_Convert_PayFreq_to_PayPeriod(PFREQ_Annual), "calendar");
}

}  // namespace ledgerwick::explain
