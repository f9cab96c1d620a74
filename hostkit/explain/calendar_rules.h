// The rules of the payroll calendar in words, and the dates that they give.
//
// The dates are answers of the library's calendar; what stands here is how people say why. Each rule
// is written once, in the tables of calendar_rules.cpp.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "hostkit/export.h"
#include "hostkit/services/host_session.h"
#include "ledgerwick/calendar/tax_calendar.h"
#include "ledgerwick/ledgerwick.h"

namespace ledgerwick::explain {

// The parameters of a company that decide dates.
struct Controllers {
    std::int32_t payRule = 0;     // "PRNExpD_M1", the monthly pay day
    std::int32_t periodRule = 0;  // "PREPED_M1", the monthly end of period
    std::int16_t startDay = 0;    // "AEPRPStartDay", the first day of a weekly reference period
};
// The company's controllers.
LEDGERWICK_HOSTKIT_API Controllers controllersOf(HostSession& session);

// A rule, and what it rests on.
struct Rule {
    // The rule in words.
    std::string_view words;
    // Where it comes from.
    std::string_view source;
};

// Rules of the tax calendar.
LEDGERWICK_HOSTKIT_API extern const Rule taxYearRule;          // of the tax year
LEDGERWICK_HOSTKIT_API extern const Rule payrollYearRule;      // of its number
LEDGERWICK_HOSTKIT_API extern const Rule taxWeekRule;          // of tax weeks
LEDGERWICK_HOSTKIT_API extern const Rule taxMonthRule;         // of tax months
LEDGERWICK_HOSTKIT_API extern const Rule calculationSetRule;   // of calculation sets
LEDGERWICK_HOSTKIT_API extern const Rule changeToMonthlyRule;  // of a change to monthly pay

// What there is to say of a pay frequency.
struct FrequencyRules {
    // The frequency.
    PR_Pay_Freq frequency;
    std::string_view periodName;  // "week"; empty for casual pay, which has no periods
    std::int32_t leftOver;        // the number of the period of the days left over, 0 if none
    Rule period;                  // which period of the tax year holds a date
    Rule reference;               // which pay reference period does
    Rule step;                    // how an expected date follows another
    // Its code.
    std::int16_t code() const { return PR_Convert_PayFreq_to_PayPeriod(frequency); }
};
// All frequencies.
LEDGERWICK_HOSTKIT_API std::span<const FrequencyRules> frequencyRules();
// The rules of one frequency.
LEDGERWICK_HOSTKIT_API const FrequencyRules& rulesOf(PR_Pay_Freq frequency);

// "week 53", "month 12", for the period of the tax year that holds the date.
LEDGERWICK_HOSTKIT_API std::string periodText(const FrequencyRules& rules, Date date);

// The expected date after one of the same kind, or before it.
LEDGERWICK_HOSTKIT_API Date expectedDate(Date from, PR_Pay_Freq frequency,
                                         const Controllers& controllers,
                                         PR_NExpMode mode = PR_NExp_Pay, bool freqChange = false,
                                         bool reverse = false);

// Which controller decides the expected dates of a frequency, and what it says: "PRNExpD_M1 = -6:
// the last Friday of the month"; empty for a frequency that has none.
LEDGERWICK_HOSTKIT_API std::string controllerWords(PR_Pay_Freq frequency,
                                                   const Controllers& controllers,
                                                   PR_NExpMode mode = PR_NExp_Pay);
// The same of the reference period: "AEPRPStartDay = 2: from a Monday".
LEDGERWICK_HOSTKIT_API std::string startDayWords(PR_Pay_Freq frequency,
                                                 const Controllers& controllers);

// "2015/16", the tax year that begins in the calendar year.
LEDGERWICK_HOSTKIT_API std::string taxYearText(int year);
// Its first and last day.
LEDGERWICK_HOSTKIT_API calendar::DateRange taxYearDays(int year);

}  // namespace ledgerwick::explain
