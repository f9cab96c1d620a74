#include "hostkit/history/as_of.h"

#include <string>

#include "ledgerwick/calendar/tax_calendar.h"
#include "ledgerwick/records/statement.h"

namespace ledgerwick::history {

// A view of the connection's own stands in front of the table of the same name.
void showAsOf(sqlite::SqliteDatabase& database, Date day) {
    const std::string last = std::to_string(day.dayNumber());
    const std::string next = std::to_string(day.dayNumber() + 1);
    database.exec(statement(
        R"(CREATE TEMP VIEW PRPay AS
             SELECT *
             FROM main.PRPay
             WHERE PRPPayDate < @ OR PRPPayDate IS NULL;
           CREATE TEMP VIEW PREmployments AS
             SELECT PRTID, PRTNAID, PRTPayrollYear, PRTPYEmployCount, PRTStartWeekNo, PRTStartDate,
                    iif(PRTEndDateLong > @, 0, PRTEndDateLong) AS PRTEndDateLong,
                    PRTType, PRTContinuation, PRTAEStatus
             FROM main.PREmployments
             WHERE PRTStartDate < @ OR PRTStartDate IS NULL;
           CREATE TEMP VIEW PRControl AS
             SELECT min(PRCFCurrentYear, @) AS PRCFCurrentYear, PRCFPensionAfterTax
             FROM main.PRControl;)",
        {next, last, next, std::to_string(calendar::payrollYearOf(day))}));
}

}  // namespace ledgerwick::history
