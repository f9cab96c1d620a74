// A tax year drawn as one picture: every day in its tax week, the periods below, pay dates on top.
//
//   std::ofstream("year.svg") << drawYear({.taxYear = 2015, .marks = {{day, PFREQ_Monthly}}});
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "hostkit/export.h"
#include "ledgerwick/ledgerwick.h"

namespace ledgerwick::report {

// A marked pay date.
struct PayMark {
    // The date.
    Date date;
    // Its frequency.
    PR_Pay_Freq frequency;
    bool isPaid = true;  // drawn full; one that is only expected is drawn hollow
};

// What is drawn.
struct YearDrawing {
    int taxYear = 0;  // the calendar year in which it begins
    // The marked dates.
    std::vector<PayMark> marks{};
    // Today.
    std::optional<Date> today{};
    std::optional<Date> payDate{};  // of the run at hand
};

// The drawing as a document of its own, or for a page to hold.
// Shape:  an `svg` element that needs nothing from elsewhere.
LEDGERWICK_HOSTKIT_API std::string drawYear(const YearDrawing& drawing);

}  // namespace ledgerwick::report
