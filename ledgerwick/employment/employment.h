// One employment of an employee in one payroll year, and what its pay rows tell about it.
//
// An employee who stays on past a year end has one cEmployment per payroll year; one who leaves and
// returns within a year has several in that year, with rising EmployCount. The load makes the
// object from its row (`CreateEmployment`), hands it the closed pay rows in order (`AddPayment`),
// and each row moves the running state on: pay rows themselves are not kept.
//
//   employment->LastWeekNo();    // 11: the last closed row
//   employment->NExpPayDate();   // when pay falls due next
//
// EPE is the end of a pay period, PRP a pay reference period of auto-enrolment, RTI the report of
// each payment to the tax authority. The zero date means none.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "ledgerwick/employment/payment.h"
#include "ledgerwick/export.h"
#include "ledgerwick/imported/imported_earnings.h"
#include "ledgerwick/shell/enums.h"
#include "ledgerwick/shell/identify.h"
#include "ledgerwick/shell/record_access.h"
#include "ledgerwick/values/dictionary.h"
#include "ledgerwick/values/property.h"
#include "ledgerwick/values/result_table.h"

namespace ledgerwick {

// The store of payments by key, and of one year's payments by whole number.
using PaymentsByKey = Dictionary<std::string, std::shared_ptr<CPayment>>;
using PaymentsOfYear = Dictionary<std::int32_t, std::shared_ptr<CPayment>>;

// Owned by its employee, whom it finds again by NAID through the module-level EmployeeList.
// Of all members only the lets of `NExpPayDate` and `NExpEPEDate` and `UpdateImportedEarnings`
// write to the database.
class LEDGERWICK_API cEmployment : public Object {
  public:
    std::string_view TypeName() const noexcept override { return "cEmployment"; }
    Variant identifyClass() { return identify_.get(); }

    // The fields that `CreateEmployment` and `AddPayment` read from their rows.
    static FieldList employmentFields() noexcept;
    static FieldList paymentFields() noexcept;

    void CreateEmployment(Recordset& rsEmployment);
    void AddPayment(Recordset& rsPay);
    void ResetImportedPay();

    std::shared_ptr<PaymentsByKey> GetPayments();
    std::shared_ptr<CPayment> GetPayment(std::int32_t lPayrollYear, std::int32_t lWeekNo,
                                         Date dtPayDate);
    bool GetPayrollYearPayments(std::int32_t lPayrollYear,
                                std::shared_ptr<PaymentsOfYear>& dicPayments);
    std::shared_ptr<CPayment> GetLastPayment();

    // clang-format off
    Property<std::int32_t> PRTID;           // row key; the key of this object in its employee
    Property<std::int32_t> PayrollYear;     // payroll year number
    Property<std::int32_t> EmployCount;     // which employment of the employee in that year
    Date                   PRTStartDate() const noexcept { return prtStartDate_; }
    Property<Date>         EndDate;         // the zero date while the employment has not ended
    Property<bool>         Active;          // open, and of the current payroll year
    Property<std::string>  AEStatusStart;   // auto-enrolment status at the start of this row
    Property<bool>         Continuation;    // carries on the row before without a leaving date
    Property<bool>         AEContinuation;  // for auto-enrolment the same employment as the row before
    Property<PR_EmpType>   EmpType;         // regular or casual
    // clang-format on

    Date NExpPayDate() const noexcept { return nExpPayDate_; }
    void NExpPayDate(Date dtNExpPayDate);

    Variant NExpPRP() const;
    Variant NExpPRPStart() const;
    Variant LExpPRP() const;
    Variant LExpPRPStart() const;
    Variant LExpPRPEnd() const;

    const std::string& AEStatusCur() const noexcept { return aeStatusCur_; }
    Property<Date> LastEPEDate;
    bool Casual() const noexcept { return EmpType() == PR_ET_Casual; }
    Property<std::int16_t> LastWeekNo;
    Property<Date> LastPayDate;
    Property<std::int16_t> LastPayFreq;

    Date NExpEPEDate() const noexcept { return nExpEPEDate_; }
    void NExpEPEDate(Date dtNExpEPEDate);

    Date FirstEPEDate() const noexcept { return firstEPEDate_; }
    bool IsVoid() const noexcept { return !PaymentsExist() && EndDate().isSet(); }
    Property<bool> PaymentsExist;
    Property<std::int32_t> LastUD_PRPID;
    Property<std::int16_t> LastMonthNo;
    Property<bool> HasImportedPay;
    Property<Currency> ImportedPayValue;
    Property<Date> LExpPayDate;
    Property<Date> StartDate;
    Property<Date> HMRCStartDate;

    bool LastRTISet() const noexcept;
    Variant LastRTI() const;
    void LastRTI(const Variant& value);
    Property<std::int32_t> ContinuationOfPRTID;

    // imported/
    void AddImportedEarnings(Recordset& rsPay);
    bool HasImportedEarnings(Date dEPSDate, Date dEPEDate, Currency& curValue,
                             bool* bHasUnchecked = nullptr);
    bool UpdateImportedEarnings(std::int16_t iToStatus, Date dEPSDate, Date dEPEDate,
                                std::int32_t lInvID = 0, const Variant& vOrdRef = {});

    Property<std::int32_t> FirstPRPID;

    ResultTable ImportedEarningsRS(Date dEPSDate, Date dEPEDate, Currency& curTot);

    void CalcExpPRP();

    // clang-format off
    bool         SMPCurStatus() const noexcept;
    std::int32_t SMPConsecutiveWeeks() const noexcept;
    bool         SAPCurStatus() const noexcept;
    std::int32_t SAPConsecutiveWeeks() const noexcept;
    bool         SPPCurStatus() const noexcept;
    std::int32_t SPPConsecutiveWeeks() const noexcept;
    bool         ShPPCurStatus() const noexcept;
    std::int32_t ShPPConsecutiveDays() const noexcept;
    Property<std::int16_t> SLCurStatus;
    Property<std::int16_t> SLLastKnownPlan;
    bool         PGLCurStatus() const noexcept;
    bool         PGLWasDeducted() const noexcept;
    // clang-format on

  private:
    // To be completed by the files that define the members.
    Date prtStartDate_;
    Date nExpPayDate_;
    Date nExpEPEDate_;
    Date firstEPEDate_;
    std::string aeStatusCur_;
    std::int32_t prtNAID_ = 0;
    IdentifyHolder identify_;
};

}  // namespace ledgerwick
