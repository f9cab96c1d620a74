// The enumerations that hosts and the library share.
#pragma once

#include <cstdint>
#include <string_view>

#include "ledgerwick/export.h"
#include "ledgerwick/values/object.h"

namespace ledgerwick {

// How often an employee is paid, as the employee record stores it. The first two are selection
// values and stand on no employee.
enum PR_Pay_Freq : std::int16_t {
    PFREQ_SelRegOnly = -2,  // a selection: regular employees only
    PFREQ_SelAll = -1,      // a selection: every frequency
    PFREQ_Casual = 0,       // at no fixed interval
    PFREQ_1Weekly = 1,      // every week
    PFREQ_2Weekly = 2,      // every two weeks
    PFREQ_4Weekly = 3,      // every four weeks
    PFREQ_Monthly = 4,      // every month
    PFREQ_Quarterly = 13,   // every 13 weeks
    PFREQ_BiAnnual = 26,    // every 26 weeks
    PFREQ_Annual = 52,      // every 52 weeks
};

// The two kinds of employment.
enum PR_EmpType : std::int16_t {
    PR_ET_Regular = 1,  // paid at fixed intervals
    PR_ET_Casual = 2,   // paid from time to time
};

// Which of the two look-ahead dates is meant: the pay date or the end of the pay period.
enum PR_NExpMode : std::int16_t {
    PR_NExp_Pay = 1,  // the next expected pay date
    PR_NExp_EPE = 2,  // the next expected end of pay period
};

// What a row of starter and leaver details records.
enum PRTAType : std::int16_t {
    PRTAT_LEFT = -2,  // the employee has left
    PRTAT_JOIN = -1,  // never stored
    PRTAT_P38S = 1,   // a student's declaration
    PRTAT_P46 = 2,    // a starter without a leaving form
    PRTAT_P453 = 3,   // part 3 of a previous employer's leaving form
    PRTAT_P451 = 4,   // part 1 of the leaving form
};

// The kinds of auto-enrolment letters.
enum PR_AE_LETTER_TYPES : std::int32_t {
    PR_AELT_NONE = 0,                // no letter chosen yet
    PR_AELT_ENROLMENT = 1,           // the worker has been enrolled
    PR_AELT_POSTPONEMENT = 2,        // enrolment is put off
    PR_AELT_NOT_ELIGIBLE = 3,        // the worker does not qualify
    PR_AELT_RE_ENROLMENT = 4,        // the worker has been enrolled again
    PR_AELT_ENROLMENT_ATTACH = 500,  // goes with an enrolment letter
};

// Carries the shared enumerations to hosts that reach them through a class. Declared only: it has
// no members and cannot be created.
class Enum_Declarations;

// Carries the shared enumerations likewise, and can be created by name. It has no members.
class LEDGERWICK_API Enum_Declarations_B_Only : public Object {
  public:
    std::string_view TypeName() const noexcept override { return "Enum_Declarations_B_Only"; }
};

}  // namespace ledgerwick
