// The tax calendar and the dates that are expected next.
#include "capi/session.h"
#include "ledgerwick/host/payroll_functions.h"

namespace {

using namespace ledgerwick;
using namespace ledgerwick::c;

constexpr std::string_view here = "ledgerwick_calendar";

// The first and the last day that the library puts in an array.
void giveDays(const Variant& dates, ledgerwick_date* first, ledgerwick_date* last) {
    give(first, dateOut(dates.array(here).at(1).toDate(here)));
    give(last, dateOut(dates.array(here).at(2).toDate(here)));
}

std::int16_t weekOrMonth(std::int32_t number) {
    return Variant(number).toInt16(here);
}

}  // namespace

std::int32_t ledgerwick_tax_date(ledgerwick_date date, std::int32_t* payroll_year,
                                 std::int32_t* week, std::int32_t* month, ledgerwick_error* error) {
    return call(error, [&] {
        CPayrollFunctions payroll;
        const Date day = dateNeeded(date, here);
        const std::int32_t yearOfDay = payroll.PR_TaxYearNo(day);
        const std::int32_t weekOfDay = payroll.C_CalcTaxWeek(day);
        give(month, payroll.C_CalcTaxMonth(day));
        give(week, weekOfDay);
        give(payroll_year, yearOfDay);
    });
}

std::int32_t ledgerwick_pay_period(ledgerwick_date date, std::int32_t frequency,
                                   ledgerwick_date* first, ledgerwick_date* last,
                                   std::int32_t* number, ledgerwick_error* error) {
    return call(error, [&] {
        CPayrollFunctions payroll;
        const Date day = dateNeeded(date, here);
        const std::int16_t code = payroll.C_Convert_PayFreq_to_PayPeriod(frequencyIn(frequency));
        Variant dates;
        payroll.C_CalcTaxPeriodEndDate(day, code, &dates);
        const std::int32_t period = payroll.C_CalcTaxWeek_Month(day, code);
        giveDays(dates, first, last);
        give(number, period);
    });
}

std::int32_t ledgerwick_reference_period(ledgerwick_session* session, ledgerwick_date date,
                                         std::int32_t frequency, ledgerwick_date* first,
                                         ledgerwick_date* last, ledgerwick_error* error) {
    return call(error, [&] {
        CPayrollFunctions& payroll = sessionIn(session).payroll();
        Variant dates;
        payroll.AECalcR_PRP(dateNeeded(date, here),
                            payroll.C_Convert_PayFreq_to_PayPeriod(frequencyIn(frequency)), dates);
        giveDays(dates, first, last);
    });
}

std::int32_t ledgerwick_tax_week_end(ledgerwick_session* session, std::int32_t week,
                                     ledgerwick_date* last, ledgerwick_error* error) {
    return call(error, [&] {
        CPayrollFunctions& payroll = sessionIn(session).payroll();
        give(last, dateOut(payroll.C_CalcTaxWeekEndDate(weekOrMonth(week))));
    });
}

std::int32_t ledgerwick_tax_month_end(ledgerwick_session* session, std::int32_t month,
                                      ledgerwick_date* last, ledgerwick_error* error) {
    return call(error, [&] {
        CPayrollFunctions& payroll = sessionIn(session).payroll();
        give(last, dateOut(payroll.C_CalcTaxMonthEndDate(weekOrMonth(month))));
    });
}

std::int32_t ledgerwick_next_expected(ledgerwick_session* session, ledgerwick_date date,
                                      std::int32_t frequency, std::int32_t period_end,
                                      std::int32_t reverse, std::int32_t change,
                                      ledgerwick_date* next, ledgerwick_error* error) {
    return call(error, [&] {
        const Date found = sessionIn(session).payroll().C_Calc_Next_NExpDate(
            dateNeeded(date, here), frequencyIn(frequency),
            flagIn(period_end, here) ? PR_NExp_EPE : PR_NExp_Pay, flagIn(change, here),
            flagIn(reverse, here));
        give(next, dateOut(found));
    });
}

std::int32_t ledgerwick_week_of_date(ledgerwick_session* session, ledgerwick_date date,
                                     std::int32_t* week, ledgerwick_error* error) {
    return call(error, [&] {
        give(week, sessionIn(session).payroll().C_WeekNoOfDate(dateNeeded(date, here)));
    });
}

std::int32_t ledgerwick_date_of_week(ledgerwick_session* session, std::int32_t week,
                                     ledgerwick_date* date, ledgerwick_error* error) {
    return call(error,
                [&] { give(date, dateOut(sessionIn(session).payroll().C_DateOfWeekNo(week))); });
}

std::int32_t ledgerwick_calculation_set(ledgerwick_session* session, ledgerwick_date date,
                                        std::int32_t* set, ledgerwick_error* error) {
    return call(error, [&] {
        constexpr std::int32_t byDate = -10;
        give(set, sessionIn(session).payroll().C_CalculationsToUseOnNewRecord(
                      byDate, dateNeeded(date, here)));
    });
}
