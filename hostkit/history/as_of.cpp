#include "hostkit/history/as_of.h"

#include <string>

#include "ledgerwick/calendar/tax_calendar.h"
#include "ledgerwick/records/statement.h"

namespace ledgerwick::history {

void showAsOf(store::CompanyStore& company, Date day) {
    const std::string last = std::to_string(day.dayNumber());
    const std::string next = std::to_string(day.dayNumber() + 1);
    const std::string year = std::to_string(calendar::payrollYearOf(day));
    company.narrow("PRPay", "*", statement("PRPPayDate < @ OR PRPPayDate IS NULL", {next}));
    company.narrow("PREmployments",
                   statement(R"(PRTID, PRTNAID, PRTPayrollYear, PRTPYEmployCount, PRTStartWeekNo,
                                PRTStartDate,
                                iif(PRTEndDateLong > @, 0, PRTEndDateLong) AS PRTEndDateLong,
                                PRTType, PRTContinuation, PRTAEStatus)",
                             {last}),
                   statement("PRTStartDate < @ OR PRTStartDate IS NULL", {next}));
    company.narrow("PRControl",
                   statement(R"(iif(PRCFCurrentYear > @, @, PRCFCurrentYear) AS PRCFCurrentYear,
                                PRCFPensionAfterTax)",
                             {year, year}),
                   "True");
}

}  // namespace ledgerwick::history
