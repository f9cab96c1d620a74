// Which pay date to work on next. These queries read the employee list and change nothing.
#include <string>

#include "ledgerwick/host/dll_global.h"
#include "ledgerwick/host/payroll_functions.h"
#include "ledgerwick/payrun/due_employees.h"
#include "ledgerwick/records/schema.h"
#include "ledgerwick/records/statement.h"
#include "ledgerwick/values/checked.h"

namespace ledgerwick {

namespace {

using payrun::frequencyOf;

constexpr int friday = 6;  // 1 = Sunday

Date todayOrNextFriday() {
    Date day = DLLGlobal::g().g_dtmToday();
    while (day.weekday() != friday) day = day.addDays(1);
    return day;
}

bool isOfFrequency(const cEmployee& employee, PR_Pay_Freq frequency) {
    return frequency == PFREQ_SelAll || employee.PayFrequency() == frequency;
}

bool isOfScheme(const cEmployee& employee, std::int32_t scheme) {
    return scheme == 0 || employee.PenWorkplaceSchemeID() == scheme;
}

}  // namespace

Date CPayrollFunctions::C_Next_Expected_Pay_Date(bool* bNone, PR_Pay_Freq iPayFreq, bool bHighest,
                                                 std::int32_t iWPenScheme) {
    bool unheard = false;
    bool& none = bNone ? *bNone : unheard;
    none = true;
    Date working = bHighest ? Date() : Date::last();
    for (const auto& held : employeeList().Employees()) {
        cEmployee& employee = used(held, "C_Next_Expected_Pay_Date");
        if (!isRegularActive(employee) || !isOfFrequency(employee, iPayFreq) ||
            !isOfScheme(employee, iWPenScheme)) {
            continue;
        }
        const Date expected = employee.CurEmployment()->NExpPayDate();
        if (bHighest ? expected > working : expected < working) {
            working = expected;
            none = false;
        }
    }
    return working == Date::last() ? todayOrNextFriday() : working;
}

Date CPayrollFunctions::C_Next_Expected_EPE_Date(bool* bNone, PR_Pay_Freq iPayFreq) {
    bool unheard = false;
    bool& none = bNone ? *bNone : unheard;
    none = true;
    Date working = Date::last();
    for (const auto& held : employeeList().Employees()) {
        cEmployee& employee = used(held, "C_Next_Expected_EPE_Date");
        if (!isRegularActive(employee) || !isOfFrequency(employee, iPayFreq)) continue;
        const Date expected = employee.CurEmployment()->NExpEPEDate();
        if (expected < working) {
            working = expected;
            none = false;
        }
    }
    return working == Date::last() ? todayOrNextFriday() : working;
}

Date CPayrollFunctions::C_Last_Expected_Pay_Date(bool* bNone, std::int32_t iWPenScheme) {
    bool unheard = false;
    bool& none = bNone ? *bNone : unheard;
    none = true;
    Date working;
    for (const auto& held : employeeList().Employees()) {
        cEmployee& employee = used(held, "C_Last_Expected_Pay_Date");
        if (employee.MostRecentEmploymentPRTID() == 0 || employee.Casual() ||
            !isOfScheme(employee, iWPenScheme)) {
            continue;
        }
        const Date expected =
            used(employee.MostRecentEmployment(), "C_Last_Expected_Pay_Date").LExpPayDate();
        if (expected > working) {
            working = expected;
            none = false;
        }
    }
    return working;
}

Variant CPayrollFunctions::C_Count_for_Pay_Date(Date dDate, std::int32_t* lEmps,
                                                std::int32_t* lRecs) {
    std::int32_t unheard[2];
    std::int32_t& employees = lEmps ? *lEmps : unheard[0];
    std::int32_t& records = lRecs ? *lRecs : unheard[1];
    employees = 0;
    records = 0;
    for (const auto& held : employeeList().Employees()) {
        cEmployee& employee = used(held, "C_Count_for_Pay_Date");
        if (!isRegularActive(employee)) continue;
        Date due = employee.CurEmployment()->NExpPayDate();
        if (due <= dDate) employees = addInt32(employees, 1);
        while (due <= dDate) {
            records = addInt32(records, 1);
            due = C_Calc_Next_NExpDate(due, frequencyOf(employee), PR_NExp_Pay);
        }
    }
    return {};
}

std::int32_t CPayrollFunctions::C_Count_Employees(PR_EmpType iType) {
    if (iType != PR_ET_Regular && iType != PR_ET_Casual) return 0;
    std::int32_t count = 0;
    for (const auto& held : employeeList().Employees()) {
        cEmployee& employee = used(held, "C_Count_Employees");
        if (employee.Active() && employee.Casual() == (iType == PR_ET_Casual)) {
            count = addInt32(count, 1);
        }
    }
    return count;
}

Date CPayrollFunctions::C_Update_Period_Date(bool* bNone) {
    bool unheard = false;
    bool& none = bNone ? *bNone : unheard;
    none = false;
    const std::string sql = statement(
        R"(SELECT Min(PRPPayDate) as NextDate
           FROM PRPay
           WHERE PRPPeriodUpdated = False
             AND PRPPayrollYear = @)",
        {std::to_string(DLLGlobal::currentPayrollYear())});
    const auto oldest = DLLGlobal::g().DBDll().OpenRecordset(sql, RecordsetType::Snapshot);
    oldest->MoveFirst();
    Date result;
    if (oldest->IsNull(field::NextDate)) {
        result = C_Next_Expected_Pay_Date();
        none = true;
    } else {
        result = oldest->GetDate(field::NextDate);
    }
    oldest->Close();
    return result;
}

Date CPayrollFunctions::PR_End_of_PRP_for_PayDate(std::int32_t lNAIDIn, Date dPayDateIn) {
    const auto employee = payrun::employeeOf(employeeList(), lNAIDIn, "PR_End_of_PRP_for_PayDate");
    const PR_Pay_Freq frequency = frequencyOf(*employee);
    Date next = employee->CurEmployment()->NExpPayDate();
    Date last = next;
    while (next <= dPayDateIn) {
        next = C_Calc_Next_NExpDate(last, frequency, PR_NExp_Pay);
        if (next <= dPayDateIn) last = next;
    }
    Variant dates;
    AECalcR_PRP(last, C_Convert_PayFreq_to_PayPeriod(frequency), dates);
    return dates.array().at(2).toDate();
}

Date CPayrollFunctions::PR_PRP_Get_Last_End_Date() {
    Date working;
    for (const auto& held : employeeList().Employees()) {
        cEmployee& employee = used(held, "PR_PRP_Get_Last_End_Date");
        if (!isRegularActive(employee)) continue;
        const Date start = employee.CurEmployment()->NExpPRPStart().toDate();
        if (start > working) working = start;
    }
    return working.addDays(-1);
}

}  // namespace ledgerwick
