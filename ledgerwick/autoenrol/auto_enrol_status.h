// Where one worker stands in workplace pension auto-enrolment at a date.
//
//   auto status = employee->GetAutoEnrolStatus(Date::fromYmd(2016, 4, 5), 16, true);
//   status->FirstAssessDate();     // the pay date of the first closed pay row
//   status->CurrentAssessDate();   // and of the last
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "ledgerwick/export.h"
#include "ledgerwick/host/identify.h"
#include "ledgerwick/values/currency.h"
#include "ledgerwick/values/date.h"
#include "ledgerwick/values/property.h"
#include "ledgerwick/values/variant.h"

namespace ledgerwick {

// A snapshot made afresh at each call of `cEmployee::GetAutoEnrolStatus` and owned by the caller.
// Every property is a plain stored value; a new object has zero dates, zero amounts and empty
// strings. The library decides nothing about eligibility: the dates and pay figures are copied from
// pay records, and the assessment words are fixed texts.
class LEDGERWICK_API CAutoEnrolStatus : public Object {
  public:
    std::string_view TypeName() const noexcept override { return "CAutoEnrolStatus"; }
    // A Variant holding the `Identify` of this object, made at the first read.
    Variant identifyClass() { return identify_.get(); }

    // clang-format off
    Property<std::string>  CurrentAssessChange;    // "Cur Change" once a pay record counts
    Property<std::string>  CurrentAssessCategory;  // "Cur Category" once a pay record counts
    Property<Date>         CurrentAssessDate;      // pay date of the last pay record that counts
    Property<std::string>  PrevAssessCategory;     // the current category before that, followed by "*"
    Property<Date>         PrevAssessDate;         // the current date before that
    Property<std::string>  FirstAssessCategory;    // "First Cat" once a pay record counts
    Property<Date>         FirstAssessDate;        // pay date of the first pay record that counts
    Property<Date>         EnrolledDate;           // day of enrolment, for the host to fill, like the next three
    Property<Date>         OptOutDate;  // day of opting out
    Property<Date>         OptInDate;  // day of opting in
    Property<Date>         JoinedDate;  // day of joining the scheme
    Property<Currency>     PeriodPay;              // pay of the period; this and the rest are of the last record that counts
    Property<Currency>     StdHourlyRate;  // standard hourly rate
    Property<std::string>  StaffNo;  // works number
    Property<std::int16_t> PayFrequency;           // a PR_Pay_Freq value
    Property<std::int32_t> PenWorkplaceSchemeID;   // 0 for no scheme
    // clang-format on

  private:
    IdentifyHolder identify_;
};

}  // namespace ledgerwick
