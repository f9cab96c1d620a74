// The calendar's members of CPayrollFunctions: they read the host's state and leave the arithmetic
// to the plain functions of this folder.

#include <optional>
#include <string>

#include "ledgerwick/calendar/calculation_set.h"
#include "ledgerwick/calendar/frequency.h"
#include "ledgerwick/calendar/next_expected.h"
#include "ledgerwick/calendar/tax_calendar.h"
#include "ledgerwick/host/dll_global.h"
#include "ledgerwick/host/payroll_functions.h"
#include "ledgerwick/records/schema.h"
#include "ledgerwick/records/statement.h"
#include "ledgerwick/values/checked.h"
#include "ledgerwick/values/error.h"

namespace ledgerwick {
namespace {

constexpr const char* taxWeekSource = "C_CalcTaxWeek";

// The calendar year in which the current tax year begins.
int currentTaxYear() {
    return addInt32(DLLGlobal::currentPayrollYear(), calendar::calendarYearOfPayrollYear0);
}

// The year-end before a payroll year.
Date yearEndBefore(std::int32_t payrollYear) {
    return DLLGlobal::g().g_dicPRYears().Item(subtractInt32(payrollYear, 1));
}

Date lastYearEnd() {
    return yearEndBefore(DLLGlobal::currentPayrollYear());
}

VariantArray toArray(const calendar::DateRange& range) {
    VariantArray dates(1, 2);
    dates.at(1) = range.first;
    dates.at(2) = range.last;
    return dates;
}

std::int16_t hostLengthOfMonth(Date date) {
    return DLLGlobal::pf().DaysInMonth(date);
}

calendar::MonthlyRule monthlyRule(PR_NExpMode mode) {
    calendar::MonthlyRule rule{.lengthOfMonth = &hostLengthOfMonth};
    if (mode == PR_NExp_Pay) rule.parameter = "PRNExpD_M1";
    if (mode == PR_NExp_EPE) rule.parameter = "PREPED_M1";
    if (!rule.parameter.empty()) {
        rule.controller = DLLGlobal::pf().GetParameterField(rule.parameter).toInt32(rule.parameter);
    }
    return rule;
}

}  // namespace

std::int32_t CPayrollFunctions::C_CalcTaxWeek(Date dDate) {
    return calendar::taxWeek(dDate);
}

std::int32_t CPayrollFunctions::C_CalcTaxMonth(Date dDate) {
    return calendar::taxMonth(dDate);
}

Date CPayrollFunctions::C_CalcTaxPeriodEndDate(Date dDate, std::int32_t lPayPeriodIn,
                                               Variant* vPeriodDates) {
    const auto period = calendar::taxPeriod(dDate, lPayPeriodIn, "C_CalcTaxPeriodEndDate");
    if (vPeriodDates) *vPeriodDates = toArray(period);
    return period.last;
}

std::int32_t CPayrollFunctions::C_CalcTaxWeek_Month(Date dDate, std::int32_t lPayPeriodIn) {
    return calendar::taxPeriodNumber(dDate, lPayPeriodIn, taxWeekSource);
}

std::int32_t CPayrollFunctions::C_CalcTaxWeek_OF_Month(const Variant& lMonthNo) {
    const std::int32_t month = lMonthNo.toInt32("C_CalcTaxWeek_OF_Month");
    return calendar::taxWeek(calendar::taxMonthEnd(currentTaxYear(), month));
}

std::int32_t CPayrollFunctions::C_CalcTaxMonth_OF_Week(const Variant& lWeekNo) {
    const std::int32_t week = lWeekNo.toInt32("C_CalcTaxMonth_OF_Week");
    const Date weekEnd = Date::fromYmd(currentTaxYear(), 4, 5).addWeeks(week);
    return calendar::taxMonth(weekEnd.addDays(-6));
}

Date CPayrollFunctions::C_CalcTaxMonthEndDate(std::int16_t iMonth) {
    return calendar::taxMonthEnd(currentTaxYear(), iMonth);
}

Date CPayrollFunctions::C_CalcTaxWeekEndDate(std::int16_t iWeek) {
    return calendar::taxWeekEnd(currentTaxYear(), iWeek);
}

std::int16_t CPayrollFunctions::C_Convert_PayFreq_to_PayPeriod(PR_Pay_Freq iFreq) {
    return PR_Convert_PayFreq_to_PayPeriod(iFreq);
}

PR_Pay_Freq CPayrollFunctions::C_Convert_PayPeriod_to_PayFreq(std::int16_t iPeriod) {
    return PR_Convert_PayPeriod_to_PayFreq(iPeriod);
}

Date CPayrollFunctions::C_Calc_Next_NExpDate(Date dDate, PR_Pay_Freq iFreq, PR_NExpMode iNExpMode,
                                             bool bFreqChange, bool bReverse) {
    const auto rule = iFreq == PFREQ_Monthly ? monthlyRule(iNExpMode) : calendar::MonthlyRule();
    return calendar::nextExpectedDate(dDate, iFreq, rule, bFreqChange, bReverse);
}

Date CPayrollFunctions::C_MonthNoOfWeekNo(std::int32_t lngWeekNoIn) {
    const std::string week = std::to_string(lngWeekNoIn);
    auto& host = DLLGlobal::g();
    const auto query = host.DBDll().CreateQueryDef(
        "", statement("SELECT * FROM TEMP_PR_LAST_WEEK_NOS@ WHERE TLWWeekNo = @",
                      {host.g_strPCID(), week}));
    const FieldName reads[] = {field::TLWCMonthNo};
    const auto rows = query->OpenRecordset(RecordsetType::Snapshot, reads);
    if (rows->RecordCount() != 0) rows->MoveLast();
    std::optional<Date> month;
    if (rows->RecordCount() == 1) month = rows->GetDate(field::TLWCMonthNo);
    rows->Close();
    if (!month) {
        throw Error(54234, "Payroll_Function|C_MonthNoOfWeekNo",
                    "Unable to calculate Month No of Week No " + week);
    }
    return *month;
}

std::int32_t CPayrollFunctions::C_CalculationsToUseOnNewRecord(std::int32_t lngWeekNoIn,
                                                               Date dtmActDate) {
    constexpr std::int32_t dateInPlaceOfWeek = -10;
    if (lngWeekNoIn == dateInPlaceOfWeek) {
        return calendar::calculationSet(PR_TaxYearNo(dtmActDate), dtmActDate);
    }
    const Date date = C_DateOfWeekNo(lngWeekNoIn);
    return calendar::calculationSet(DLLGlobal::currentPayrollYear(), date);
}

std::int16_t CPayrollFunctions::PR_TaxYearNo(Date dtmIn) {
    return calendar::payrollYearOf(dtmIn);
}

Date CPayrollFunctions::C_DateOfWeekNo(std::int32_t lngWeekNoIn) {
    CheckYEValidCurrent("CDateOfWeekNo");
    return DateOfWeekNo(lngWeekNoIn, lastYearEnd());
}

std::int32_t CPayrollFunctions::C_WeekNoOfDate(Date dtmIn) {
    return calendar::nearestWeeks(lastYearEnd(), dtmIn);
}

std::int32_t CPayrollFunctions::WeekNoOfDate(std::int32_t lngYearNoIn, Date dtmIn) {
    return calendar::nearestWeeks(yearEndBefore(lngYearNoIn), dtmIn);
}

void CPayrollFunctions::AECalcR_PRP(Date dDate, std::int32_t lPayPeriodIn, Variant& vDates) {
    const std::int16_t startDay = lPayPeriodIn == calendar::weeklyPayPeriod
                                      ? DLLGlobal::g().g_iAEPRPStartDay()
                                      : std::int16_t{0};
    vDates = toArray(calendar::payReferencePeriod(dDate, lPayPeriodIn, startDay));
}

Date CPayrollFunctions::DateOfWeekNo(std::int32_t lngWeekNoIn, Date dtmYearEndIn) {
    return dtmYearEndIn.addDays(multiplyInt32(lngWeekNoIn, 7));
}

void CPayrollFunctions::CheckYEValidCurrent(const std::string& sCallerIn) {
    const std::int32_t year = DLLGlobal::currentPayrollYear();
    CheckYEValid(year, yearEndBefore(year), sCallerIn);
}

void CPayrollFunctions::CheckYEValid(std::int32_t lngYearNoIn, Date dtmYearEndIn,
                                     const std::string& sCallerIn) {
    if (dtmYearEndIn.year() - calendar::calendarYearOfPayrollYear0 == lngYearNoIn) return;
    throw Error(9901, "Payroll_Functions|CheckYEValid|(" + sCallerIn + ")",
                "Payroll last year-end doesn't match Payroll current year: " +
                    dtmYearEndIn.toText() + "/" + std::to_string(lngYearNoIn));
}

}  // namespace ledgerwick
