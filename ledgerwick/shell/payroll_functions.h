// The class through which a host drives its payroll work.
//
//   CPayrollFunctions payroll;
//   payroll.Init(list);
//   Date due = payroll.C_Next_Expected_Pay_Date();
//   Variant columns;
//   payroll.C_InputHoursInit(due, PFREQ_SelAll, 0, 0, &columns);   // opens the run
//   payroll.C_UpdatePayPeriod(naid, due);                          // closes it for one employee
//
// One class, declared here in slot order; each section names the file that defines it, in the
// folder of its subject.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "ledgerwick/export.h"
#include "ledgerwick/shell/enums.h"
#include "ledgerwick/shell/identify.h"
#include "ledgerwick/shell/record_access.h"
#include "ledgerwick/values/result_table.h"

namespace ledgerwick {

class CEmployeeList;
class cEmployee;

// Operations that share one reference to the employee list. Nothing else is kept between calls:
// every operation reads the employees and the database afresh. Without `Init` only the operations
// of the tax calendar and of the next expected dates may be called; the others fail with error 91.
// Payroll year numbers are the calendar year in which the tax year begins, minus 1999. Errors of
// the database and of the host reach the caller as they are, and nothing is rolled back.
class LEDGERWICK_API CPayrollFunctions : public Object {
  public:
    std::string_view TypeName() const noexcept override { return "CPayrollFunctions"; }

    // ---- frame (shell/payroll_functions.cpp) ----------------------------------------------------

    // A Variant holding the `Identify` of this object, made at the first read.
    Variant identifyClass() { return identify_.get(); }
    // Replaces the reference to the employee list, which is shared with the host.
    void Init(const std::shared_ptr<CEmployeeList>& CEmpList) { employeeList_ = CEmpList; }

    // ---- auto-enrolment tables (autoenrol/status_report.cpp, autoenrol/active_employees.cpp) ----
    // Of the regular active employees: those employed now and not casual.

    // Where each of them stands in auto-enrolment by the pay records up to `dtDateUpTo`, as
    // `cEmployee::GetAutoEnrolStatus` tells it.
    // Shape:  21 fields, unsorted ("NameSort" is there to sort by), standing on the row stored
    //         last. `lNAID` below 1 is everybody; one who is not among them gives no rows.
    //         "EnrolledDate" is never filled, "Scheme" not for a scheme that does not exist.
    ResultTable GetAEStatus(Date dtDateUpTo, std::int32_t lPayrollYear, bool bPeriodUpdated,
                            std::int32_t lNAID = 0);
    // A table for pick lists and exports, sorted by sequence and name.
    // Shape:  5 fields, with `bIncPOFields` 21. "NASeq" is never filled.
    ResultTable C_ActiveEmployees(bool bIncPOFields = false);

    // ---- pay date queries (payrun/pay_date_queries.cpp) -----------------------------------------
    // They speak of the regular active employees, those employed now and not casual, where nothing
    // else is said.

    // The earliest date, or with `bHighest` the latest, on which pay next falls due.
    // Shape:  `iPayFreq` is one frequency or `PFREQ_SelAll`; with any other value, such as
    //         `PFREQ_SelRegOnly`, nobody is found. `iWPenScheme` 0 is every scheme. With nobody
    //         found `bNone` is True and the result today, when that is a Friday, or the next
    //         Friday; with `bHighest` it is the zero date.
    // Errors: none of its own.
    Date C_Next_Expected_Pay_Date(bool* bNone = nullptr, PR_Pay_Freq iPayFreq = PFREQ_SelAll,
                                  bool bHighest = false, std::int32_t iWPenScheme = 0);
    // The latest expected pay date that has gone by, of all who are not casual; leavers count.
    // Shape:  `iWPenScheme` 0 is every scheme. With nobody found the zero date, and `bNone` True.
    // Errors: none of its own.
    Date C_Last_Expected_Pay_Date(bool* bNone = nullptr, std::int32_t iWPenScheme = 0);
    // Counts what a pay run on `dDate` would bring in: employees due, and pay periods due. A weekly
    // employee three weeks behind counts 1 and 3.
    // Shape:  the result is always Empty; the figures travel in the outputs.
    // Errors: those of `C_Calc_Next_NExpDate`.
    Variant C_Count_for_Pay_Date(Date dDate, std::int32_t* lEmps = nullptr,
                                 std::int32_t* lRecs = nullptr);
    // The number of employees employed now who are regular, or who are casual.
    // Shape:  0 for any other `iType`.
    // Errors: none of its own.
    std::int32_t C_Count_Employees(PR_EmpType iType = PR_ET_Regular);
    // The earliest date on which a pay period next ends.
    // Shape:  as `C_Next_Expected_Pay_Date` with every scheme and without `bHighest`.
    // Errors: none of its own.
    Date C_Next_Expected_EPE_Date(bool* bNone = nullptr, PR_Pay_Freq iPayFreq = PFREQ_SelAll);
    // The pay date of the oldest pay run that is still open in the current payroll year.
    // Shape:  with no open row the next expected pay date of all, and `bNone` True.
    // Errors: none of its own.
    Date C_Update_Period_Date(bool* bNone = nullptr);

    // ---- workplace scheme maintenance (autoenrol/scheme_maintenance.cpp) ------------------------

    // Withdraws the visited mark from the scheme's open pay rows of the current payroll year, and
    // brings the scheme's employees in the list up to date with its rates.
    // Shape:  always Empty.
    // Errors: 91 for an employee of the scheme who is not in the list; the marks are withdrawn by
    //         then, and the employees before that one up to date.
    Variant C_PenWorkplaceSchemeUpdate(std::int32_t lPSID);
    // When one of the two dates lies in the current payroll year, withdraws the visited mark from
    // that year's open pay rows whose scheme has deductions of type 2.
    // Shape:  always Empty.
    Variant C_ReEnrolDateChanged(Date dOld, Date dNew);

    // ---- opening a pay run (payrun/input_hours.cpp) ---------------------------------------------

    // Opens a pay run, or opens it again: makes sure that every pay period due up to `dPayDateIn`
    // has one open pay row, brings each row into line with its employee, and hands the host one
    // column for each, in the order of the input screen. Rows left open by an earlier call are used
    // again, in order, before any is added; a second call adds nothing.
    // Shape:  `lngFrequencyIn` negative, `lngSLGNoIn` (the group) 0 and `lngNAIDIn` 0 leave that
    //         choice open. `vRet` is an array (1 To 8, 1 To n), with n = 1 and all Empty when
    //         nothing is due: 1 NAID, 2 key of the pay row, 3 first and 4 last day of the period,
    //         5 Empty, 6 imported pay or "N", 7 tax week, 8 pay period code or minus the tax month.
    //         `bUncheckedOut` is True when earnings of some period have not been checked. The
    //         result is always Empty.
    // Errors: those of the calendar; rows written by then stay, and `vRet` is not set. A repeated
    //         call completes the run.
    Variant C_InputHoursInit(Date dPayDateIn, std::int32_t lngFrequencyIn, std::int32_t lngSLGNoIn,
                             std::int32_t lngNAIDIn, Variant* vRet = nullptr,
                             bool* bUncheckedOut = nullptr);

    // ---- employment records (employee/employment_records.cpp) -----------------------------------

    void C_CreateNewEmploymentRecord(std::int32_t lngNAIDIn, std::int32_t lngWeekNoLastPaidIn,
                                     std::int16_t iPRTType = PR_ET_Regular,
                                     const std::string& sStartDateIn = {},
                                     const Variant& vAddInfo = {}, bool bContinuation = false,
                                     const std::string& sAEStatus = {});
    std::int32_t PR_EmploymentsAddInfo_Add(const Variant& varArrIn);

    // ---- tax calendar (calendar/payroll_calendar.cpp) -------------------------------------------

    std::int32_t C_CalcTaxWeek(Date dDate);
    std::int32_t C_CalcTaxMonth(Date dDate);
    Date C_CalcTaxPeriodEndDate(Date dDate, std::int32_t lPayPeriodIn,
                                Variant* vPeriodDates = nullptr);
    std::int32_t C_CalcTaxWeek_Month(Date dDate, std::int32_t lPayPeriodIn);
    std::int32_t C_CalcTaxWeek_OF_Month(const Variant& lMonthNo);
    std::int32_t C_CalcTaxMonth_OF_Week(const Variant& lWeekNo);
    Date C_CalcTaxMonthEndDate(std::int16_t iMonth);
    Date C_CalcTaxWeekEndDate(std::int16_t iWeek);
    std::int16_t C_Convert_PayFreq_to_PayPeriod(PR_Pay_Freq iFreq);
    PR_Pay_Freq C_Convert_PayPeriod_to_PayFreq(std::int16_t iPeriod);

    // ---- next expected dates (calendar/payroll_calendar.cpp) ------------------------------------

    Date C_Calc_Next_NExpDate(Date dDate, PR_Pay_Freq iFreq, PR_NExpMode iNExpMode,
                              bool bFreqChange = false, bool bReverse = false);

    // ---- starting row (payrun/period_update.cpp) ------------------------------------------------

    // Makes the closed row, without pay, from which an employee's history starts: the next load
    // takes the last week number and the next expected dates from it. Without one an employee's
    // pay counts as due since the zero date.
    // Errors: 9901 when the last year end does not match the current year, 3021 for an employee
    //         without details.
    void C_CreateStartingPayRecord(std::int32_t lngNAIDIn, std::int32_t lngWeekNoIn, Date dEPEDate,
                                   Date dNExpPayDate, Date dNExpEPEDate);

    // ---- tax calendar, continued (calendar/payroll_calendar.cpp) --------------------------------

    Date C_MonthNoOfWeekNo(std::int32_t lngWeekNoIn);
    std::int32_t C_CalculationsToUseOnNewRecord(std::int32_t lngWeekNoIn, Date dtmActDate = {});
    std::int16_t PR_TaxYearNo(Date dtmIn);
    Date C_DateOfWeekNo(std::int32_t lngWeekNoIn);
    std::int32_t C_WeekNoOfDate(Date dtmIn);
    std::int32_t WeekNoOfDate(std::int32_t lngYearNoIn, Date dtmIn);

    // ---- employment records, continued (employee/employment_records.cpp) ------------------------

    Date PR_GetEPSDate(std::int32_t lNAIDIn, std::int32_t lYearIn, std::int32_t lPYEmployCount,
                       std::int32_t lCurWeekNoIn = 0);

    // ---- closing a pay run (payrun/period_update.cpp) -------------------------------------------

    // Withdraws the visited mark from the employee's open rows, and tells whether that was done.
    // Errors: none; a failure is shown through the host's critical message and gives False.
    bool C_Reset_HasBeenVisited(std::int32_t lNAID);
    // Closes the employee's open rows with a pay date up to `dPayDateIn`, whatever their year. For
    // monthly and longer periods the last of them also gets its two look-ahead dates anew, by the
    // pay-day rules of this moment. The objects in memory follow at the next load of the employee.
    // Errors: 91 for an unknown employee; otherwise those of the calendar. Rows closed by then stay
    //         closed; load the employee again before the call is repeated.
    void C_UpdatePayPeriod(std::int32_t lngNAIDIn, Date dPayDateIn);

    // ---- missing periods (payrun/missing_periods.cpp) -------------------------------------------

    // Adds an empty closed row, with the late-reporting reason "H", for each period that is missing
    // between two closed rows of one employment in the current payroll year. A second call adds
    // nothing.
    // Shape:  the result is always Empty. Only regular employments of the employee's present count.
    // Errors: those of the calendar; rows added by then stay, and a repeated call completes the
    //         work.
    Variant AutoFillMissingPeriods();

    // ---- pay reference periods (calendar/payroll_calendar.cpp, payrun/pay_date_queries.cpp) -----

    void AECalcR_PRP(Date dDate, std::int32_t lPayPeriodIn, Variant& vDates);
    // The last day of the pay reference period behind a pay date: that of the employee's latest
    // expected pay date up to `dPayDateIn`, or of the next expected one when that lies later.
    // Errors: 91 for an unknown employee, 9909 for one of casual frequency.
    Date PR_End_of_PRP_for_PayDate(std::int32_t lNAIDIn, Date dPayDateIn);
    // The day before the latest start of a next expected pay reference period.
    // Shape:  29 December 1899 with nobody found.
    // Errors: 13 for an employment without such a period.
    Date PR_PRP_Get_Last_End_Date();

    // ---- employment records, continued (employee/employment_records.cpp) ------------------------

    std::int32_t Max_PRPID_From_PayDate(std::int32_t lYearIn, std::int32_t lNAIDIn,
                                        std::int32_t lEmployCountIn, Date dRTIPayDateIn);
    bool PR_OtherID_Duplicate_Check(std::int32_t lIDIn, std::int32_t lNAIDIn,
                                    bool bActiveOnly = false,
                                    std::string* sDuplicatesOut = nullptr);

  private:
    // ---- pay records (payrun/pay_record.cpp) ----------------------------------------------------

    // Adds a row to `rsPay` and stands on it: whose it is, which year, employment and set of
    // calculations, and the employee's standing pay items, which later preparations leave alone. A
    // starting row gets the three dates in place of the items.
    // Errors: 3021 for an employee without details; those of the calculation set.
    void CreatePayRecord(Recordset& rsPay, std::int32_t lngWeekNoIn, Date dPayDateIn,
                         std::int32_t lngNAIDIn, bool bStartingRecord, bool bPeriodUpdated,
                         Date dEPEDate, Date dNExpPayDate, Date dNExpEPEDate);
    // Brings the open row that `rsPay` stands on into line with the employee's present details. The
    // visited mark goes when the week, the pay date, the end of the period or the imported pay of
    // the period has changed.
    // Errors: 94 for a Null among the details; those of the calendar. The row is then not stored.
    void UpdatePayRecord(Recordset& rsPay, std::int32_t lngWeekNoIn, std::int32_t iPayPeriodIn,
                         Date dPayDateIn, Date dEPEDate, Date dNExpPayDate, bool bHasImported,
                         Currency cImported);

    // ---- tax calendar (calendar/payroll_calendar.cpp) -------------------------------------------

    Date DateOfWeekNo(std::int32_t lngWeekNoIn, Date dtmYearEndIn);
    void CheckYEValidCurrent(const std::string& sCallerIn);
    void CheckYEValid(std::int32_t lngYearNoIn, Date dtmYearEndIn, const std::string& sCallerIn);

    class InputHours;  // one call of C_InputHoursInit (payrun/input_hours.cpp)

    // The list given by `Init`.
    // Errors: 91 before `Init`.
    CEmployeeList& employeeList() const;

    std::shared_ptr<CEmployeeList> employeeList_;
    IdentifyHolder identify_;
};

}  // namespace ledgerwick
