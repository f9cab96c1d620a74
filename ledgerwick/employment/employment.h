// One employment of an employee in one payroll year, and what its pay rows say about it.
//
// An employee who stays on past a year end has one cEmployment per payroll year; one who leaves and
// returns within a year has several in that year, with rising EmployCount. The load makes the
// object from its row (`CreateEmployment`), hands it the pay rows in order (`AddPayment`), and each
// closed row moves the running state on: pay rows themselves are not kept.
//
//   employment->LastWeekNo();    // 11: the last closed row
//   employment->NExpPayDate();   // when pay falls due next
//
// EPE is the end of a pay period, PRP a pay reference period of auto-enrolment, RTI the report of
// each payment to the tax authority. The zero date means none.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "ledgerwick/calendar/tax_calendar.h"
#include "ledgerwick/employment/payment.h"
#include "ledgerwick/employment/reported_payment.h"
#include "ledgerwick/export.h"
#include "ledgerwick/host/enums.h"
#include "ledgerwick/host/identify.h"
#include "ledgerwick/orders/order_line.h"
#include "ledgerwick/records/record_access.h"
#include "ledgerwick/values/dictionary.h"
#include "ledgerwick/values/property.h"
#include "ledgerwick/values/result_table.h"

namespace ledgerwick {

// The store of payments by key.
using PaymentsByKey = Dictionary<std::string, std::shared_ptr<CPayment>>;
// The store of one year's payments by whole number.
using PaymentsOfYear = Dictionary<std::int32_t, std::shared_ptr<CPayment>>;

// Owned by its employee, whom it finds again by NAID through the module-level EmployeeList. A new
// object has every number 0, every boolean False, every string empty and every variant Empty. Of
// all members only the lets of `NExpPayDate` and `NExpEPEDate` and `UpdateImportedEarnings` write
// to the database. An operation that fails on a Null (94) or on a value that does not fit (6, 13)
// keeps what it had changed by then.
class LEDGERWICK_API cEmployment : public Object {
  public:
    std::string_view TypeName() const noexcept override { return "cEmployment"; }

    // ---- from the rows (employment.cpp, payment_fold.cpp) ---------------------------------------

    // A Variant holding the `Identify` of this object, made at the first read.
    Variant identifyClass() { return identify_.get(); }

    // Every field that `CreateEmployment` reads.
    static FieldList employmentFields() noexcept;
    // Every field of a pay row that `AddPayment` reads, and the two by which a load finds the
    // employment of the row (PRPNAID, PRTID).
    static FieldList paymentFields() noexcept;

    // Fills the object from the row that the set stands on. Once, straight after construction.
    // Errors: those of reading a field; the object is then partly filled.
    void CreateEmployment(Recordset& rsEmployment);
    // Takes one pay row into the running state; an open row changes nothing.
    // Shape:  rows come by payroll year, employment count, week, reported pay date and PRPID, each
    //         once: the last one wins, and the counters count in that order.
    // Errors: those of reading a field; 9911 for an unknown pay period.
    void AddPayment(Recordset& rsPay);
    // Forgets imported pay and imported earnings.
    void ResetImportedPay();

    // ---- payment store (payment_store.cpp) ------------------------------------------------------

    // The live store by key, not a copy. The library puts nothing in it; a host may.
    std::shared_ptr<PaymentsByKey> GetPayments();
    // The payment of that year, week and day in the store.
    // Shape:  a new blank record when the store has no such payment.
    std::shared_ptr<CPayment> GetPayment(std::int32_t lPayrollYear, std::int32_t lWeekNo,
                                         Date dtPayDate);
    // Whether the payments of that year are in memory.
    // Shape:  `dicPayments` becomes the live store of the year, or a new empty one.
    bool GetPayrollYearPayments(std::int32_t lPayrollYear,
                                std::shared_ptr<PaymentsOfYear>& dicPayments);
    // A new blank record, unless a host has stored a payment under the empty key.
    std::shared_ptr<CPayment> GetLastPayment();

    // The live store of that year for a host who fills it with all of the year's payments, made when
    // it does not yet exist. From then on `GetPayrollYearPayments` finds the year.
    std::shared_ptr<PaymentsOfYear> payrollYearStore(std::int32_t lPayrollYear);
    // The same for one who fills it with the closed payments, or with the open ones.
    std::shared_ptr<PaymentsOfYear> payrollYearStore(std::int32_t lPayrollYear, bool closed);
    // Whether the year's closed payments, or its open ones, are in memory.
    bool holdsPayments(std::int32_t lPayrollYear, bool closed) const;

    // ---- state ----------------------------------------------------------------------------------

    // clang-format off
    Property<std::int32_t> PRTID;           // row key; the key of this object in its employee
    Property<std::int32_t> PayrollYear;     // payroll year number
    Property<std::int32_t> EmployCount;     // which employment of the employee in that year
    Date                   PRTStartDate() const noexcept { return prtStartDate_; }  // as stored
    Property<Date>         EndDate;         // the zero date while the employment has not ended
    Property<bool>         Active;          // open, and of the current payroll year
    Property<std::string>  AEStatusStart;   // auto-enrolment status at the start of this row
    Property<bool>         Continuation;    // carries on the row before without a leaving date
    Property<bool>         AEContinuation;  // for auto-enrolment the same employment as the row before
    Property<PR_EmpType>   EmpType;         // regular or casual
    // clang-format on

    // The next expected pay date. The let writes it to the last closed pay row. When that worked,
    // it keeps the date and calculates the expected pay reference periods again. It does not write
    // the date that it already holds.
    // Errors: those of `CalcExpPRP`, the row and the date being changed by then.
    Date NExpPayDate() const noexcept { return nExpPayDate_; }
    void NExpPayDate(Date dtNExpPayDate);

    // The pay reference period that holds the next expected pay date, as `CalcExpPRP` left it.
    // Shape:  a copy of an array (1 To 2) of first and last day; Empty before the first
    //         calculation.
    Variant NExpPRP() const;
    // The first day of that period.
    // Errors: 13 before the first calculation.
    Variant NExpPRPStart() const;
    // The pay reference period that holds the last expected pay date.
    // Shape:  as `NExpPRP`.
    Variant LExpPRP() const;
    // The first day of that period.
    // Errors: 13 before the first calculation.
    Variant LExpPRPStart() const;
    // The last day of that period.
    // Errors: 13 before the first calculation.
    Variant LExpPRPEnd() const;

    // clang-format off
    // The auto-enrolment status now: that of the last calculated row, `AEStatusStart` before it.
    const std::string&     AEStatusCur() const noexcept { return aeStatusCur_; }
    Property<Date>         LastEPEDate;     // end of the pay period of the last closed row
    // Whether the employment is casual.
    bool                   Casual() const noexcept { return EmpType() == PR_ET_Casual; }
    Property<std::int16_t> LastWeekNo;      // tax week of the last closed row
    Property<Date>         LastPayDate;     // reported pay date of the last closed row
    Property<std::int16_t> LastPayFreq;     // a PR_Pay_Freq value; -10 and -11 for periods 5 and 3
    // clang-format on

    // The next expected end of pay period. The let writes it to the last closed pay row, and keeps
    // it only when that worked. It does not write the date that it already holds.
    Date NExpEPEDate() const noexcept { return nExpEPEDate_; }
    void NExpEPEDate(Date dtNExpEPEDate);

    // clang-format off
    Date                   FirstEPEDate() const noexcept { return firstEPEDate_; }  // of the first calculated row
    // Ended without a calculated pay row.
    bool                   IsVoid() const noexcept { return !PaymentsExist() && EndDate().isSet(); }
    Property<bool>         PaymentsExist;     // a calculated row has been taken in
    Property<std::int32_t> LastUD_PRPID;      // key of the last closed row
    Property<std::int16_t> LastMonthNo;       // tax month of the last closed monthly row
    Property<bool>         HasImportedPay;    // an imported value exists
    Property<Currency>     ImportedPayValue;  // the last such value, cut to the money format
    Property<Date>         LExpPayDate;       // date on which the last closed row was expected
    Property<Date>         StartDate;         // start as auto-enrolment sees it; set by the load
    Property<Date>         HMRCStartDate;     // start as tax law sees it; set by the load
    // clang-format on

    // Whether a payment has been reported, or a host has set its details.
    bool LastRTISet() const noexcept { return lastRTI_ != nullptr; }
    // The details of the last reported payment.
    // Shape:  an array (1 To 13): employment count, works number, official identification number,
    //         partner, shared parental pay days, payroll year, reported pay date, pay frequency,
    //         number of the period in the tax year, tax code, week 1 basis, minimum normal hours,
    //         PRPID. Empty while `LastRTISet` is False. The let keeps a copy of any value, and sets
    //         `LastRTISet` also for Empty.
    Variant LastRTI() const;
    void LastRTI(const Variant& value);
    // `LastRTI(from.LastRTI())` without the copy: the two share the details until a further pay row
    // replaces one of them. Nothing happens while `from.LastRTISet` is False.
    void carryLastRTI(const cEmployment& from) noexcept;

    Property<std::int32_t> ContinuationOfPRTID;  // the row that this one continues; set by the load

    // ---- imported earnings (piecework.cpp) -----------------------------------------------------

    // Takes in the order line that the set of `LoadImportedPay` stands on.
    // Errors: those of reading a field; the line is then partly filled.
    void AddImportedEarnings(Recordset& rsPay);
    // Whether checked lines were earned from `dEPSDate` to the end of the day `dEPEDate`.
    // Shape:  `curValue` is their sum; `bHasUnchecked`: the period has unchecked lines.
    bool HasImportedEarnings(Date dEPSDate, Date dEPEDate, Currency& curValue,
                             bool* bHasUnchecked = nullptr) const;
    // Moves the checked lines of the period up to a status, in the store and in memory; lines at or
    // above it stay. Status 5 also writes the invoice, unless it is 0, and the order reference,
    // unless it is Empty or the null object.
    // Shape:  always False.
    // Errors: those of the statement; the lines in memory then keep their status.
    bool UpdateImportedEarnings(std::int16_t iToStatus, Date dEPSDate, Date dEPEDate,
                                std::int32_t lInvID = 0, const Variant& vOrdRef = {});

    Property<std::int32_t> FirstPRPID;  // key of the first calculated row

    // The checked lines of the period as a table: first one row of totals for each item, with the
    // zero date, then one row for each day and item, both by description.
    // Shape:  OrdDate, OrdDSID, OrdQty, ItemDesc, UoPCode, OrdPrice (the money of the row). `curTot`
    //         is the money of the period.
    ResultTable ImportedEarningsRS(Date dEPSDate, Date dEPEDate, Currency& curTot) const;

    // ---- expected periods (employee/expected_periods.cpp) ---------------------------------------

    // Works out the pay reference periods that hold `LExpPayDate` and `NExpPayDate`, by the pay
    // frequency that the employee has now. A casual employment has none and is left alone.
    // Errors: 91 when EmployeeList does not hold the employee, or the employee has no most recent
    //         employment; 10770, source "CalcExpPRP", for any other employment than that; 9909 for
    //         an employee paid casually. The periods then stay as they were.
    void CalcExpPRP();

    // ---- statutory pay and loans (payment_fold.cpp) ---------------------------------------------

    // Whether the last calculated row paid each kind of statutory pay, and how long the run of such
    // rows has been.
    // clang-format off

    // The last calculated row paid maternity pay.
    bool         SMPCurStatus() const noexcept { return run(StatutoryPay::Maternity).current; }
    // Weeks of maternity pay in the run.
    std::int32_t SMPConsecutiveWeeks() const noexcept { return run(StatutoryPay::Maternity).length; }
    // The last calculated row paid adoption pay.
    bool         SAPCurStatus() const noexcept { return run(StatutoryPay::Adoption).current; }
    // Weeks of adoption pay in the run.
    std::int32_t SAPConsecutiveWeeks() const noexcept { return run(StatutoryPay::Adoption).length; }
    // The last calculated row paid paternity pay.
    bool         SPPCurStatus() const noexcept { return run(StatutoryPay::Paternity).current; }
    // Weeks of paternity pay in the run.
    std::int32_t SPPConsecutiveWeeks() const noexcept { return run(StatutoryPay::Paternity).length; }
    // The last calculated row paid shared parental pay.
    bool         ShPPCurStatus() const noexcept { return run(StatutoryPay::SharedParental).current; }
    // Days of shared parental pay in the run.
    std::int32_t ShPPConsecutiveDays() const noexcept { return run(StatutoryPay::SharedParental).length; }
    Property<std::int16_t> SLCurStatus;      // student loan plan of the last calculated row, 0 none
    Property<std::int16_t> SLLastKnownPlan;  // the last plan other than 0
    bool         PGLCurStatus() const noexcept { return pglCurStatus_; }      // in the last calculated row
    bool         PGLWasDeducted() const noexcept { return pglWasDeducted_; }  // in any calculated row
    // clang-format on

  private:
    class PayRow;
    enum class StatutoryPay : std::uint8_t { Maternity, Adoption, Paternity, SharedParental };
    struct StatutoryRun {
        std::int32_t length = 0;
        bool current = false;
    };
    struct PaymentStore {
        std::shared_ptr<PaymentsByKey> byKey;
        Dictionary<std::int32_t, std::shared_ptr<PaymentsOfYear>> byYear;
        // Years with closed payments only (true), or with open ones only.
        Dictionary<std::int32_t, bool> oneKindOnly;
    };
    using EarningsByOrder = Dictionary<std::int32_t, std::shared_ptr<CImportedEarnings>>;
    struct EarningsStore {
        EarningsByOrder checked;
        EarningsByOrder unchecked;
    };
    struct ExpectedPeriods {
        std::optional<calendar::DateRange> last;
        std::optional<calendar::DateRange> next;
    };

    const StatutoryRun& run(StatutoryPay pay) const noexcept {
        return statutoryRuns_[static_cast<std::size_t>(pay)];
    }
    void addCalculatedPayment(const PayRow& row);
    void extendRun(StatutoryPay pay, double first, double second = 0.0);
    void keepReportedPayment(const PayRow& row, std::int16_t period);
    PaymentStore& paymentStore();
    std::shared_ptr<CPayment> storedPayment(const std::string& key);
    const calendar::DateRange& expectedPeriod(
        std::optional<calendar::DateRange> ExpectedPeriods::*which, std::string_view source) const;

    Date prtStartDate_;
    Date nExpPayDate_;
    Date nExpEPEDate_;
    Date firstEPEDate_;
    std::string aeStatusCur_;
    std::int32_t prtNAID_ = 0;
    bool pglCurStatus_ = false;
    bool pglWasDeducted_ = false;
    std::array<StatutoryRun, 4> statutoryRuns_;
    std::shared_ptr<ReportedPayment> lastRTI_;

    // Made on first use: most employments of a payroll never need them.
    std::unique_ptr<ExpectedPeriods> expectedPeriods_;
    std::unique_ptr<PaymentStore> payments_;
    std::unique_ptr<EarningsStore> earnings_;
    IdentifyHolder identify_;
};

}  // namespace ledgerwick
