// The pay dates of tax years to come, or gone by.
#pragma once

#include <vector>

#include "hostkit/explain/calendar_rules.h"
#include "hostkit/export.h"

namespace ledgerwick::explain {

// A pay date and the period of the tax year that it lies in.
struct PayDate {
    // The pay date.
    Date date;
    // Its frequency.
    PR_Pay_Freq frequency;
    // Its period.
    std::int32_t period;
    // Whether that is the week 53, the fortnight 27 or the four weeks 14 of the days left over.
    bool isLeftOver;
};

// The pay date with its period.
LEDGERWICK_HOSTKIT_API PayDate payDateOn(Date date, PR_Pay_Freq frequency);

// The pay dates in the tax year that begins in `taxYear`, stepped in both directions from one of
// them; a monthly one follows the pay-day rule wherever `first` lies.
LEDGERWICK_HOSTKIT_API std::vector<PayDate> payDatesOf(int taxYear, PR_Pay_Freq frequency,
                                                       Date first, const Controllers& controllers);

// A pay frequency with one of its pay dates, from which the others are counted.
struct Payer {
    // Its frequency.
    PR_Pay_Freq frequency;
    // The first date.
    Date first;
};
// The next expected pay dates of the company's regular employees, each with its frequency, once.
LEDGERWICK_HOSTKIT_API std::vector<Payer> payersOf(HostSession& session);

// The first Friday of the tax year.
LEDGERWICK_HOSTKIT_API Date firstFriday(int taxYear);

}  // namespace ledgerwick::explain
