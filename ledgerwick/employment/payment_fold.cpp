// How a pay row moves the running state of its employment. This is the hot path of a load: every
// pay row of the payroll comes through here, so its fields are read all at once, each a single time.
#include <algorithm>
#include <array>
#include <cstdlib>
#include <string_view>
#include <utility>

#include "ledgerwick/calendar/frequency.h"
#include "ledgerwick/employment/employment.h"
#include "ledgerwick/records/schema.h"
#include "ledgerwick/values/checked.h"

namespace ledgerwick {
namespace {

constexpr std::array payRowFields{
    // The load finds the employment of the row by these two. The others are read here.
    field::PRTID,
    field::PRPNAID,
    field::PRPPeriodUpdated,
    field::PRPRTIPayDate,
    field::PRPEPEDate,
    field::PRPPaymentPeriod,
    field::PRPNExpPayDate,
    field::PRPNExpEPEDate,
    field::PRPWeekNo,
    field::PRPCalculationUsed,
    field::PRPID,
    field::PRPAEStatus,
    field::PRPMaternityHighWeeks,
    field::PRPMaternityLowWeeks,
    field::PRPAdoptionHighWeeks,
    field::PRPAdoptionLowWeeks,
    field::PRPPaternityWeeks,
    field::PRPASPPDays,
    field::PRPStudentLoan,
    field::PRPPostgradLoan,
    field::PRPStatus,
    field::PRPPYEmployCount,
    field::PRPWorksNo,
    field::PRPOfficialIDNo,
    field::PRPPartnerNAID,
    field::PRPPayrollYear,
    field::PRPTaxCode,
    field::PRPWeek1,
    field::PRPMinNormHours,
};

// A monthly row stores minus its tax month.
std::int16_t taxMonthOf(std::int16_t period) {
    return narrowToInt16(std::abs(std::int32_t{period}));
}

bool isLongerThanMonth(std::int16_t period) {
    const auto* const frequency = calendar::findByPayPeriod(period);
    return frequency && frequency->months > 1;
}

// The frequency of a reported payment.
// Shape: a PR_Pay_Freq value; 3 and 5 stand for themselves here.
std::int16_t reportedFrequency(std::int16_t period) {
    const auto* const frequency = calendar::findByPayPeriod(period);
    return frequency ? std::int16_t{frequency->code} : period;
}

// The number of a reported payment's period: the tax month of monthly and longer periods, else the
// tax week.
std::int16_t reportedPeriodNumber(std::int16_t period, std::int16_t week) {
    if (isLongerThanMonth(period)) return roundToInt16(week / 52.0 * 12.0);
    return period < 0 ? taxMonthOf(period) : week;
}

}  // namespace

std::int16_t payFrequencyOf(std::int16_t period) {
    switch (period) {
        case 5:
            return -10;
        case 3:
            return -11;
        default:
            return PR_Convert_PayPeriod_to_PayFreq(period);
    }
}

// The fields of the current row.
class cEmployment::PayRow {
  public:
    // The place of a field; one that is not in the list above does not compile.
    class Place {
      public:
        consteval Place(const FieldName& name) : index_(skipped) {
            while (payRowFields[index_].id() != name.id()) ++index_;
            index_ -= skipped;
        }

      private:
        friend class PayRow;
        std::size_t index_;
    };

    explicit PayRow(Recordset& row) {
        try {
            row.Values(FieldList(payRowFields).subspan(skipped), values_);
        } catch (const Error&) {
            // An open row changes nothing, even when its other fields cannot be read.
            Variant& gate = values_[Place(field::PRPPeriodUpdated).index_];
            gate = row.Value(field::PRPPeriodUpdated);
            if (isClosed()) throw;
        }
    }

    const Variant& operator[](Place place) const { return values_[place.index_]; }
    bool boolean(Place place) const { return (*this)[place].toBoolean(sourceOf(place)); }
    std::int16_t int16(Place place) const { return (*this)[place].toInt16(sourceOf(place)); }
    std::int32_t int32(Place place) const { return (*this)[place].toInt32(sourceOf(place)); }
    double number(Place place) const { return (*this)[place].toDouble(sourceOf(place)); }
    Date date(Place place) const { return (*this)[place].toDate(sourceOf(place)); }

    // Tests on a row. A Null fails the test and does not end the fold.
    bool isClosed() const {
        return holds(field::PRPPeriodUpdated) && boolean(field::PRPPeriodUpdated);
    }
    bool isCalculated() const {
        return holds(field::PRPCalculationUsed) && int32(field::PRPCalculationUsed) != 0;
    }
    bool isReported() const {
        constexpr double reported = 3.0;
        return holds(field::PRPStatus) && number(field::PRPStatus) >= reported;
    }

  private:
    static constexpr std::size_t skipped = 2;

    static std::string_view sourceOf(Place place) {
        return payRowFields[skipped + place.index_].text();
    }
    bool holds(Place place) const { return !(*this)[place].isNull(); }

    std::array<Variant, payRowFields.size() - skipped> values_;
};

FieldList cEmployment::paymentFields() noexcept {
    return payRowFields;
}

void cEmployment::AddPayment(Recordset& rsPay) {
    const PayRow row(rsPay);
    if (!row.isClosed()) return;

    LastPayDate(row.date(field::PRPRTIPayDate));
    LastEPEDate(row.date(field::PRPEPEDate));
    const std::int16_t period = row.int16(field::PRPPaymentPeriod);
    LastPayFreq(payFrequencyOf(period));
    LExpPayDate(nExpPayDate_);
    nExpPayDate_ = row.date(field::PRPNExpPayDate);
    LastWeekNo(row.int16(field::PRPWeekNo));
    if (period < 0) LastMonthNo(taxMonthOf(period));
    if (Active()) nExpEPEDate_ = row.date(field::PRPNExpEPEDate);
    if (row.isCalculated()) addCalculatedPayment(row);
    LastUD_PRPID(row.int32(field::PRPID));
    if (!Casual() && row.isReported()) keepReportedPayment(row, period);
}

void cEmployment::addCalculatedPayment(const PayRow& row) {
    PaymentsExist(true);
    if (FirstPRPID() == 0) {
        FirstPRPID(row.int32(field::PRPID));
        firstEPEDate_ = LastEPEDate();
    }
    const Variant& status = row[field::PRPAEStatus];
    if (status.kind() != VariantKind::Text || status.textView() != aeStatusCur_)
        aeStatusCur_ = status.toText(field::PRPAEStatus.text());

    extendRun(StatutoryPay::Maternity, row.number(field::PRPMaternityHighWeeks),
              row.number(field::PRPMaternityLowWeeks));
    extendRun(StatutoryPay::Adoption, row.number(field::PRPAdoptionHighWeeks),
              row.number(field::PRPAdoptionLowWeeks));
    extendRun(StatutoryPay::Paternity, row.number(field::PRPPaternityWeeks));
    extendRun(StatutoryPay::SharedParental, row.number(field::PRPASPPDays));

    SLCurStatus(row.int16(field::PRPStudentLoan));
    if (SLCurStatus() != 0) SLLastKnownPlan(SLCurStatus());
    pglCurStatus_ = row.boolean(field::PRPPostgradLoan);
    pglWasDeducted_ = pglWasDeducted_ || pglCurStatus_;
}

// A calculated row without that pay ends the run.
void cEmployment::extendRun(StatutoryPay pay, double first, double second) {
    StatutoryRun& run = statutoryRuns_[static_cast<std::size_t>(pay)];
    run.current = first != 0.0 || second != 0.0;
    run.length = run.current ? roundToInt32(run.length + first + second) : 0;
}

void cEmployment::keepReportedPayment(const PayRow& row, std::int16_t period) {
    ReportedPayment::Details details{
        row[field::PRPPYEmployCount],
        row[field::PRPWorksNo],
        row[field::PRPOfficialIDNo],
        row[field::PRPPartnerNAID],
        row[field::PRPASPPDays],
        row[field::PRPPayrollYear],
        row[field::PRPRTIPayDate],
        reportedFrequency(period),
        reportedPeriodNumber(period, LastWeekNo()),
        row[field::PRPTaxCode],
        row[field::PRPWeek1],
        row[field::PRPMinNormHours],
        row[field::PRPID],
    };
    if (!lastRTI_ || lastRTI_.use_count() > 1) lastRTI_ = std::make_shared<ReportedPayment>();
    lastRTI_->replace(std::move(details));
}

}  // namespace ledgerwick
