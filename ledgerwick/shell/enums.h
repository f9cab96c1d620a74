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
    PFREQ_SelRegOnly = -2,
    PFREQ_SelAll = -1,
    PFREQ_Casual = 0,
    PFREQ_1Weekly = 1,
    PFREQ_2Weekly = 2,
    PFREQ_4Weekly = 3,
    PFREQ_Monthly = 4,
    PFREQ_Quarterly = 13,
    PFREQ_BiAnnual = 26,
    PFREQ_Annual = 52,
};

// The two kinds of employment.
enum PR_EmpType : std::int16_t {
    PR_ET_Regular = 1,
    PR_ET_Casual = 2,
};

// Which of the two look-ahead dates is meant: the pay date or the end of the pay period.
enum PR_NExpMode : std::int16_t {
    PR_NExp_Pay = 1,
    PR_NExp_EPE = 2,
};

// What a row of starter and leaver details records.
enum PRTAType : std::int16_t {
    PRTAT_LEFT = -2,
    PRTAT_JOIN = -1,  // never stored
    PRTAT_P38S = 1,
    PRTAT_P46 = 2,
    PRTAT_P453 = 3,
    PRTAT_P451 = 4,
};

// The kinds of auto-enrolment letters.
enum PR_AE_LETTER_TYPES : std::int32_t {
    PR_AELT_NONE = 0,
    PR_AELT_ENROLMENT = 1,
    PR_AELT_POSTPONEMENT = 2,
    PR_AELT_NOT_ELIGIBLE = 3,
    PR_AELT_RE_ENROLMENT = 4,
    PR_AELT_ENROLMENT_ATTACH = 500,
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
