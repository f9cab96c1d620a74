#include "hostkit/audit/audit.h"

namespace ledgerwick::audit {

const std::vector<Kind>& kinds() {
    static const std::vector<Kind> all{
        // clang-format off
        {"unreadable", Severity::Stops,
         "restore the table or field that the error names"},
        {"settings", Severity::Stops,
         "put the current year of the control record and the year ends before and of it right"},
        {"no-customer", Severity::Stops,
         "add the person's row to Customers, or take the payroll details away"},
        {"no-employment", Severity::Stops,
         "add an employment, or take the payroll details away"},
        {"null", Severity::Stops,
         "give the field a value; a new row has its default"},
        {"bad-value", Severity::Stops,
         "give the field a value of its kind and size"},
        {"unknown-period", Severity::Stops,
         "put the period code right: 1, 2, 4, 13, 26, 52 weeks, or minus the tax month"},
        {"no-scheme", Severity::Stops,
         "add the scheme, or take its number from the employee"},
        {"frequency", Severity::Stops,
         "give the employee the pay frequency of a regular employment"},
        {"fault", Severity::Stops,
         "put right what the error names"},
        {"stray-pay", Severity::Stops,
         "add the payroll details and the employment of that person, move the row, or take it away "
         "(`ledgerwick audit DB --remove PRPay KEY`)"},
        {"pay-without-employment", Severity::Stops,
         "add the employment of that year and count, move the row to one that is there, or take it "
         "away (`ledgerwick audit DB --remove PRPay KEY`)"},
        {"import-of-nobody", Severity::Stops,
         "take the row out of PRPayImport, or give it the number of an employee"},
        {"order-without-item", Severity::Stops,
         "add the item and its unit of purchase, or close the order line"},
        {"second-control", Severity::Figures,
         "take all control records but one away"},
        {"double-employment", Severity::Figures,
         "give one of them another count: every pay row counts for both"},
        {"stray-employment", Severity::Figures,
         "add the payroll details of that person; the employment is never loaded"},
        {"employment-overlap", Severity::Figures,
         "end the earlier employment before the later one starts"},
        {"ends-before-start", Severity::Figures,
         "put the start or the end right"},
        {"count-mismatch", Severity::Figures,
         "set PREPYEmployCount to the count of the present employment: the rows of the next run "
         "would have no employment, and the load after it would stop"},
        {"double-period", Severity::Figures,
         "keep one of the rows, or give one another week: both count as paid"},
        {"period-overlap", Severity::Figures,
         "see which days the row before has paid already"},
        {"gap", Severity::Figures,
         "pay the periods, or have them filled (`ledgerwick fill`, current year only)"},
        {"week", Severity::Figures,
         "put the week right: 1 to 53"},
        {"year", Severity::Figures,
         "put the payroll year right"},
        {"neither-open-nor-closed", Severity::Figures,
         "set PRPPeriodUpdated: no load, run or closing sees the row"},
        {"never-closed", Severity::Figures,
         "open the run of that date again, or take the row away: no closing finds it as it is"},
        {"left-open", Severity::Figures,
         "close the row: a later period of the employment is closed already"},
        {"duplicate-number", Severity::Note,
         "see whose National Insurance number it is; a look-up finds the first only"},
        {"open-runs", Severity::Note,
         "close the earlier run before the next one is opened"},
        {"half-closed", Severity::Note,
         "close the rest of the run, unless it waits for other employees"},
        // clang-format on
    };
    return all;
}

}  // namespace ledgerwick::audit
