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
#include "ledgerwick/host/enums.h"
#include "ledgerwick/host/identify.h"
#include "ledgerwick/records/record_access.h"
#include "ledgerwick/values/result_table.h"

namespace ledgerwick {

class CPayrollFunctions;
namespace payrun {
// Opens the periods.
LEDGERWICK_API void openPeriods(CPayrollFunctions& payroll, std::int32_t naid, Date payDate);
}  // namespace payrun

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

    // ---- frame (host/payroll_functions.cpp) ----------------------------------------------------

    // A Variant holding the `Identify` of this object, made at the first read.
    Variant identifyClass() { return identify_.get(); }
    // Replaces the reference to the employee list, which is shared with the host.
    void Init(const std::shared_ptr<CEmployeeList>& CEmpList) { employeeList_ = CEmpList; }

    // ---- auto-enrolment tables (autoenrol/status_report.cpp, autoenrol/active_employees.cpp) ----
    // Of the regular active employees: those employed now and not casual.

    // Where each of them stands in auto-enrolment by the pay records up to `dtDateUpTo`: the values of
    // `cEmployee::GetAutoEnrolStatus`.
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
    // employee who is owed three weeks counts 1 and 3.
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
    // again, in order, before any is added, so that a second call adds no row.
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

    // Writes a new employment row of the current payroll year, and with `vAddInfo` a row of starter
    // details for it. The objects in memory follow at the next load of the employee.
    // Shape:  `sStartDateIn` is ISO or day first ("2016-04-29", "29/4/2016", "29 April 2016").
    //         `vAddInfo` is Empty, or an array as `PR_EmploymentsAddInfo_Add` takes it; the
    //         caller's array is not changed.
    // Errors: 10678, source "C_CreateNewEmploymentRecord", for an invalid start date, 3021 for
    //         an employee without details: nothing is written. Those of
    //         `PR_EmploymentsAddInfo_Add`; the employment row stays.
    void C_CreateNewEmploymentRecord(std::int32_t lngNAIDIn, std::int32_t lngWeekNoLastPaidIn,
                                     std::int16_t iPRTType = PR_ET_Regular,
                                     const std::string& sStartDateIn = {},
                                     const Variant& vAddInfo = {}, bool bContinuation = false,
                                     const std::string& sAEStatus = {});
    // Writes a row of starter or leaver details, and gives its key.
    // Shape:  an array whose elements 2 to 18 are the fields from `PRTAPRTID` to `PRTAPEmpPGLoans`
    //         in the order of schema.h. Element 3 of `PRTAT_JOIN` stores nothing and gives 0;
    //         element 4 of 0 sets the host's `g_blnPRSchUp`.
    // Errors: any failure, with its number and with "PR_EmploymentsAddInfo_Add|" before its source.
    std::int32_t PR_EmploymentsAddInfo_Add(const Variant& varArrIn);

    // ---- tax calendar (calendar/payroll_calendar.cpp) -------------------------------------------
    // Source: a tax year runs from 6 April to 5 April. Tax week n is the seven days from 6 April +
    //         7(n - 1) days, week 53 the day or two left over; tax month n runs from a 6th to a
    //         5th.
    // A pay period code is a number of weeks (1, 2, 4, 13, 26, 52), negative for monthly, 0 for
    // casual pay. Within the tax year 13, 26 and 52 count as 3, 6 and 12 tax months.

    // The tax week that holds the date.
    // Shape:  1 to 53.
    std::int32_t C_CalcTaxWeek(Date dDate);
    // The tax month that holds the date.
    // Shape:  1 to 12.
    std::int32_t C_CalcTaxMonth(Date dDate);
    // The last day of the pay period that holds the date; the last period of a year is cut at 5
    // April.
    // Shape:  `vPeriodDates` becomes an array (1 To 2) of the first and the last day.
    // Errors: 9909, source "C_CalcTaxPeriodEndDate", for any other pay period code.
    Date C_CalcTaxPeriodEndDate(Date dDate, std::int32_t lPayPeriodIn,
                                Variant* vPeriodDates = nullptr);
    // The number of that pay period within the tax year.
    // Shape:  weekly 1 to 53, fortnightly to 27, four-weekly to 14, monthly to 12, quarterly to 4,
    //         half-yearly to 2, yearly 1.
    // Errors: 9909, source "C_CalcTaxWeek", for any other pay period code.
    std::int32_t C_CalcTaxWeek_Month(Date dDate, std::int32_t lPayPeriodIn);
    // The tax week of the last day of a tax month of the current payroll year.
    // Errors: 13 and 94 for a month that is no number.
    std::int32_t C_CalcTaxWeek_OF_Month(const Variant& lMonthNo);
    // The tax month of the first day of a tax week of the current payroll year; week 54 is in month
    // 1.
    // Errors: 13 and 94 for a week that is no number.
    std::int32_t C_CalcTaxMonth_OF_Week(const Variant& lWeekNo);
    // The last day of a tax month of the current payroll year; there is no upper limit.
    Date C_CalcTaxMonthEndDate(std::int16_t iMonth);
    // The last day of a tax week of the current payroll year, never later than its 5 April.
    Date C_CalcTaxWeekEndDate(std::int16_t iWeek);
    // The pay period code of a pay frequency.
    // Errors: 9910, source "PR_Convert_PayFreq_to_PayPeriod", for a frequency that has none.
    std::int16_t C_Convert_PayFreq_to_PayPeriod(PR_Pay_Freq iFreq);
    // The pay frequency of a pay period code.
    // Errors: 9911, source "PR_Convert_PayPeriod_to_PayFreq", for any other code.
    PR_Pay_Freq C_Convert_PayPeriod_to_PayFreq(std::int16_t iPeriod);

    // ---- next expected dates (calendar/payroll_calendar.cpp) ------------------------------------

    // The expected date after `dDate`, or with `bReverse` the one before it.
    // Shape:  casual steps a day, weekly codes so many weeks, and 13, 26 and 52 weeks for the
    //         longer ones. Monthly follows the rule in the parameter "PRNExpD_M1" (pay) or
    //         "PREPED_M1" (end of period): 0 the last day of the month, 1 to 31 that day, -1 to -7
    //         the last Sunday to Saturday; a date in the first five days counts to the month
    //         before. `bFreqChange` asks for the first date after a change to monthly, which may
    //         lie in the same pay month.
    // Errors: 9910 for an invalid frequency; 9011, source "C_Calc_Next_NExpDate", for a monthly
    //         date with both flags; 9012, likewise, for a rule below -7; 6 outside the range of
    //         dates.
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

    // The month stored for a week in the workstation's table TEMP_PR_LAST_WEEK_NOS.
    // Shape:  the number travels in the type of a date.
    // Errors: 54234, source "Payroll_Function|C_MonthNoOfWeekNo", when the week has no row or
    //         several.
    Date C_MonthNoOfWeekNo(std::int32_t lngWeekNoIn);
    // The number of the set of calculations in force on a day of the current payroll year, given as
    // a week; with -10 for the week, on `dtmActDate` in the payroll year of that date.
    // Errors: 9916, source "Payroll_Functions|C_CalculationsToUseOnNewRecord", for a payroll year
    //         below 2; 9901 as `C_DateOfWeekNo`.
    // Source: the sets change on 18 May, with exceptions in calendar/calculation_set.cpp.
    std::int32_t C_CalculationsToUseOnNewRecord(std::int32_t lngWeekNoIn, Date dtmActDate = {});
    // The payroll year number of the date.
    std::int16_t PR_TaxYearNo(Date dtmIn);
    // The last year-end plus so many weeks.
    // Errors: 9901, source "Payroll_Functions|CheckYEValid|(CDateOfWeekNo)", when the last year-end
    //         does not lie in the calendar year in which the current payroll year begins; 3265 when
    //         the host has no year-end for the year before.
    Date C_DateOfWeekNo(std::int32_t lngWeekNoIn);
    // The number of weeks since the last year-end, to the nearest whole one.
    // Shape:  never below 0.
    // Errors: 3265 when the host has no year-end for the year before.
    std::int32_t C_WeekNoOfDate(Date dtmIn);
    // The same since the year-end before the payroll year `lngYearNoIn`.
    std::int32_t WeekNoOfDate(std::int32_t lngYearNoIn, Date dtmIn);

    // ---- employment records, continued (employee/employment_records.cpp) ------------------------

    // The day after the last closed period of an employment, on which the next earnings period
    // begins.
    // Shape:  `lCurWeekNoIn` other than 0 looks only at rows of earlier weeks. The zero date
    //         without a closed row.
    Date PR_GetEPSDate(std::int32_t lNAIDIn, std::int32_t lYearIn, std::int32_t lPYEmployCount,
                       std::int32_t lCurWeekNoIn = 0);

    // ---- closing a pay run (payrun/period_update.cpp) -------------------------------------------

    // Withdraws the visited mark from the employee's open rows. True when that worked.
    // Errors: none; a failure is shown through the host's critical message and gives False.
    bool C_Reset_HasBeenVisited(std::int32_t lNAID);
    // Closes the employee's open rows with a pay date up to `dPayDateIn`, whatever their year. For
    // monthly and longer periods the last of them also gets new look-ahead dates, by the
    // pay-day rules of this moment. The objects in memory follow at the next load of the employee.
    // Errors: 91 for an unknown employee; otherwise those of the calendar. Rows closed by then stay
    //         closed; load the employee again before the call is repeated.
    void C_UpdatePayPeriod(std::int32_t lngNAIDIn, Date dPayDateIn);

    // ---- missing periods (payrun/missing_periods.cpp) -------------------------------------------

    // Adds an empty closed row, with the late-reporting reason "H", for each period that is missing
    // between two closed rows of one employment in the current payroll year. Repeating the call
    // adds no row.
    // Shape:  the result is always Empty. Only regular employments of the employee's present count.
    // Errors: those of the calendar; rows added by then stay, and a repeated call completes the
    //         work.
    Variant AutoFillMissingPeriods();

    // ---- pay reference periods (calendar/payroll_calendar.cpp, payrun/pay_date_queries.cpp) -----

    // The pay reference period of auto-enrolment that holds the date. It runs its full length
    // across 5 April, and a weekly one begins on the host's `g_iAEPRPStartDay`.
    // Shape:  `vDates` becomes an array (1 To 2) of the first and the last day.
    // Errors: 9909, source "AECalcR_PRP", for any other pay period code; `vDates` stays.
    void AECalcR_PRP(Date dDate, std::int32_t lPayPeriodIn, Variant& vDates);
    // The last day of the pay reference period of a pay date: that of the employee's latest
    // expected pay date up to `dPayDateIn`, or of the next expected one when that lies later.
    // Errors: 91 for an unknown employee, 9909 for one of casual frequency.
    Date PR_End_of_PRP_for_PayDate(std::int32_t lNAIDIn, Date dPayDateIn);
    // The day before the latest start of a next expected pay reference period.
    // Shape:  29 December 1899 with nobody found.
    // Errors: 13 for an employment without such a period.
    Date PR_PRP_Get_Last_End_Date();

    // ---- employment records, continued (employee/employment_records.cpp) ------------------------

    // The highest key among an employment's pay rows that are reported up to a day, closed or not.
    // Errors: 94 without such a row.
    std::int32_t Max_PRPID_From_PayDate(std::int32_t lYearIn, std::int32_t lNAIDIn,
                                        std::int32_t lEmployCountIn, Date dRTIPayDateIn);
    // Whether another employee of the list has the identifier `lIDIn` as `OtherID`.
    // Shape:  `sDuplicatesOut` receives their names, with CR LF between two, only when there are
    //         any.
    bool PR_OtherID_Duplicate_Check(std::int32_t lIDIn, std::int32_t lNAIDIn,
                                    bool bActiveOnly = false,
                                    std::string* sDuplicatesOut = nullptr);

  private:
    // ---- pay records (payrun/pay_record.cpp) ----------------------------------------------------

    // Adds a row to `rsPay` and stands on it: whose it is, which year, employment and set of
    // calculations, and the employee's standing pay items, which later preparations leave alone. A
    // starting row gets the three dates instead of the items.
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

    // The year-end plus so many weeks; the check that the year-end belongs to the year, which
    // raises 9901 with the caller's name in the source.
    Date DateOfWeekNo(std::int32_t lngWeekNoIn, Date dtmYearEndIn);
    void CheckYEValidCurrent(const std::string& sCallerIn);
    void CheckYEValid(std::int32_t lngYearNoIn, Date dtmYearEndIn, const std::string& sCallerIn);

    friend void payrun::openPeriods(CPayrollFunctions& payroll, std::int32_t naid, Date payDate);
    class InputHours;  // one call of C_InputHoursInit (payrun/input_hours.cpp)

    // The list given by `Init`.
    // Errors: 91 before `Init`.
    CEmployeeList& employeeList() const;
    // Before anything is written.
    // Errors: 5 while `EmployeeList` holds another list: the host, and so the database, is another.
    void requireInForce() const;

    std::shared_ptr<CEmployeeList> employeeList_;
    IdentifyHolder identify_;
};

}  // namespace ledgerwick
