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

    // ---- auto-enrolment tables (autoenrol/) -----------------------------------------------------

    ResultTable GetAEStatus(Date dtDateUpTo, std::int32_t lPayrollYear, bool bPeriodUpdated,
                            std::int32_t lNAID = 0);
    ResultTable C_ActiveEmployees(bool bIncPOFields = false);

    // ---- pay date queries (payrun/pay_date_queries.cpp) -----------------------------------------

    Date C_Next_Expected_Pay_Date(bool* bNone = nullptr, PR_Pay_Freq iPayFreq = PFREQ_SelAll,
                                  bool bHighest = false, std::int32_t iWPenScheme = 0);
    Date C_Last_Expected_Pay_Date(bool* bNone = nullptr, std::int32_t iWPenScheme = 0);
    Variant C_Count_for_Pay_Date(Date dDate, std::int32_t* lEmps = nullptr,
                                 std::int32_t* lRecs = nullptr);
    std::int32_t C_Count_Employees(PR_EmpType iType = PR_ET_Regular);
    Date C_Next_Expected_EPE_Date(bool* bNone = nullptr, PR_Pay_Freq iPayFreq = PFREQ_SelAll);
    Date C_Update_Period_Date(bool* bNone = nullptr);

    // ---- workplace scheme maintenance (autoenrol/scheme_maintenance.cpp) ------------------------

    Variant C_PenWorkplaceSchemeUpdate(std::int32_t lPSID);
    Variant C_ReEnrolDateChanged(Date dOld, Date dNew);

    // ---- opening a pay run (payrun/input_hours.cpp) ---------------------------------------------

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

    bool C_Reset_HasBeenVisited(std::int32_t lNAID);
    void C_UpdatePayPeriod(std::int32_t lngNAIDIn, Date dPayDateIn);

    // ---- missing periods (payrun/missing_periods.cpp) -------------------------------------------

    Variant AutoFillMissingPeriods();

    // ---- pay reference periods (calendar/payroll_calendar.cpp, payrun/pay_date_queries.cpp) -----

    void AECalcR_PRP(Date dDate, std::int32_t lPayPeriodIn, Variant& vDates);
    Date PR_End_of_PRP_for_PayDate(std::int32_t lNAIDIn, Date dPayDateIn);
    Date PR_PRP_Get_Last_End_Date();

    // ---- employment records, continued (employee/employment_records.cpp) ------------------------

    std::int32_t Max_PRPID_From_PayDate(std::int32_t lYearIn, std::int32_t lNAIDIn,
                                        std::int32_t lEmployCountIn, Date dRTIPayDateIn);
    bool PR_OtherID_Duplicate_Check(std::int32_t lIDIn, std::int32_t lNAIDIn,
                                    bool bActiveOnly = false,
                                    std::string* sDuplicatesOut = nullptr);

  private:
    // ---- pay records (payrun/pay_record.cpp) ----------------------------------------------------

    void CreatePayRecord(Recordset& rsPay, std::int32_t lngWeekNoIn, Date dPayDateIn,
                         std::int32_t lngNAIDIn, bool bStartingRecord, bool bPeriodUpdated,
                         Date dEPEDate, Date dNExpPayDate, Date dNExpEPEDate);
    void UpdatePayRecord(Recordset& rsPay, std::int32_t lngWeekNoIn, std::int32_t iPayPeriodIn,
                         Date dPayDateIn, Date dEPEDate, Date dNExpPayDate, bool bHasImported,
                         Currency cImported);

    // ---- tax calendar (calendar/payroll_calendar.cpp) -------------------------------------------

    Date DateOfWeekNo(std::int32_t lngWeekNoIn, Date dtmYearEndIn);
    void CheckYEValidCurrent(const std::string& sCallerIn);
    void CheckYEValid(std::int32_t lngYearNoIn, Date dtmYearEndIn, const std::string& sCallerIn);

    // The list given by `Init`.
    // Errors: 91 before `Init`.
    CEmployeeList& employeeList() const;

    std::shared_ptr<CEmployeeList> employeeList_;
    IdentifyHolder identify_;
};

}  // namespace ledgerwick
