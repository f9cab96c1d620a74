// A plain record of one payment, as the payment store of an employment holds it.
#pragma once

#include <cstdint>
#include <string>

#include "ledgerwick/export.h"
#include "ledgerwick/host/identify.h"
#include "ledgerwick/values/property.h"

namespace ledgerwick {

// Every property is a plain stored value. A blank record has every number 0, every boolean False,
// every date the zero date and every string empty.
class LEDGERWICK_API CPayment : public Object {
  public:
    std::string_view TypeName() const noexcept override { return "CPayment"; }
    // A Variant holding the `Identify` of this object, made at the first read.
    Variant identifyClass() { return identify_.get(); }

    // clang-format off
    Property<bool>         Director;              // the employee is a director
    Property<bool>         WeekOne;               // tax is worked on a week 1 basis
    Property<bool>         PeriodUpdated;         // the period is closed
    Property<Currency>     PeriodPay;             // pay of the period
    Property<Currency>     StdHourlyRate;         // standard hourly rate
    Property<Date>         PayDate;               // pay date
    Property<Date>         EPEDate;               // end of the pay period
    Property<Date>         NExpEPEDate;           // next expected end of pay period
    Property<Date>         NExpPayDate;           // next expected pay date
    Property<Date>         RTIPayDate;            // as reported; 1 January 1961: none, see PayDate
    Property<std::int32_t> WeekNo;                // tax week
    Property<std::int32_t> Year;                  // payroll year
    Property<std::string>  NITable;               // National Insurance table letter
    Property<std::string>  TaxCode;  // tax code
    Property<std::string>  StaffNo;               // staff number
    Property<std::int16_t> PayFrequency;          // a PR_Pay_Freq value
    Property<std::int32_t> PenWorkplaceSchemeID;  // workplace pension scheme of the payment
    // clang-format on

  private:
    IdentifyHolder identify_;
};

// How often a pay row with that `PRPPaymentPeriod` is paid.
// Shape:  a PR_Pay_Freq value; -10 and -11 for the periods 5 and 3, which have no frequency of
//         their own.
// Errors: 9911 for an unknown period.
std::int16_t payFrequencyOf(std::int16_t period);

}  // namespace ledgerwick
