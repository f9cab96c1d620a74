// Creates a pay row, and refreshes it at each preparation of a run.
//
// The standing pay items (hours, pre-tax and after-tax items) are copied once, when the row is
// created, and belong to the user from then on. Everything else follows the employee until the row is
// closed.
#include "ledgerwick/payrun/pay_record.h"

#include <algorithm>
#include <array>
#include <span>
#include <string>
#include <vector>

#include "ledgerwick/calendar/frequency.h"
#include "ledgerwick/host/dll_global.h"
#include "ledgerwick/host/payroll_functions.h"
#include "ledgerwick/records/schema.h"
#include "ledgerwick/records/statement.h"
#include "ledgerwick/values/checked.h"
#include "ledgerwick/values/format.h"

namespace ledgerwick {

using namespace field;

namespace {

struct FieldCopy {
    FieldName from;  // of the employee
    FieldName to;    // of the pay row
};

// Five numbered slots that are copied number by number.
struct SlotCopy {
    std::span<const FieldName, 5> from;
    std::span<const FieldName, 5> to;
};

// ---- copied once, when the row is made

constexpr SlotCopy standingItems[] = {
    {PREStdPreTax, PRPPreTax},
    {PREStdAfterTax, PRPAfterTax},
    {PREStdPreTaxComment, PRPPreTaxComment},
    {PREStdAfterTaxComment, PRPAfterTaxComment},
    {PREPreTaxNom, PRPPreTaxNom},
    {PREAfterTaxNom, PRPAfterTaxNom},
    {PREPreTaxCost, PRPPreTaxCost},
    {PREAfterTaxCost, PRPAfterTaxCost},
};

// ---- copied at each preparation, in this order, with what is worked out standing between

constexpr FieldCopy taxDetails[] = {
    {PRENITable, PRPNITable},
    {PRETaxCode, PRPTaxCode},
    {PREWeek1, PRPWeek1},
    {PREDirector, PRPDirector},
};
constexpr FieldCopy averagesAndLoans[] = {
    {PREAverageEarningsForSickPay, PRPAvPayForSickMaternity},
    {PREStudentLoan, PRPStudentLoan},
    {PREPostgradLoan, PRPPostgradLoan},
};
constexpr FieldCopy overtimeAndProvider[] = {
    {PREOT1HourlyRate, PRPOT1HourlyRate},
    {PREOT2HourlyRate, PRPOT2HourlyRate},
    {PREPenPrivateProviderNAID, PRPPenPrivateProviderNAID},
};
constexpr FieldCopy privatePension[] = {
    {PREPenPrivateEEDeductFlat, PRPPenPrivateEEDeductFlat},
    {PREPenPrivateEEDeductPerC, PRPPenPrivateEEDeductPerC},
    {PREPenPrivateERDeductFlat, PRPPenPrivateERDeductFlat},
    {PREPenPrivateERDeductPerC, PRPPenPrivateERDeductPerC},
};
constexpr FieldCopy hoursAndIdentity[] = {
    {PREMinNormHours, PRPMinNormHours},
    {PREOfficialIDNo, PRPOfficialIDNo},
};

constexpr FieldCopy workplaceScheme[] = {
    {PREPenWorkplaceSchemeID, PRPPenWorkplaceSchemeID},
    {PSDeductionsType, PRPPenWorkplaceDeductionsType},
    {PSSchemeAppliesTaxRelief, PRPPenWorkplaceSchemeAppTxRelief},
};
// The four deductions at the employee's own rates and at the scheme's. A scheme has percentages
// only.
struct WorkplaceDeduction {
    FieldName to;
    FieldName own;
    const FieldName* ofScheme;  // null: 0
};
constexpr WorkplaceDeduction workplaceDeductions[] = {
    {PRPPenWorkplaceEEDeductFlat, PREPenWorkplaceEEDeductFlat, nullptr},
    {PRPPenWorkplaceEEDeductPerC, PREPenWorkplaceEEDeductPerC, &PSDefEE},
    {PRPPenWorkplaceERDeductFlat, PREPenWorkplaceERDeductFlat, nullptr},
    {PRPPenWorkplaceERDeductPerC, PREPenWorkplaceERDeductPerC, &PSDefER},
};

constexpr std::array rowFields = {PRPID,        PRPNAID,          PRPPYEmployCount,
                                  PRPWeekNo,    PRPPayDate,       PRPEPEDate,
                                  PRPPeriodPay, PRPPaymentPeriod, PRPCalculationUsed};

// ---- the fields of the employee that the two operations read

const std::vector<FieldName>& fieldsForNewRow() {
    static const std::vector<FieldName> fields = [] {
        std::vector<FieldName> list{PREPYEmployCount, PREHourlyPaid, PREPayFrequency};
        list.insert(list.end(), PRENormHours.begin(), PRENormHours.end());
        for (const SlotCopy& slots : standingItems) {
            list.insert(list.end(), slots.from.begin(), slots.from.end());
        }
        return list;
    }();
    return fields;
}

const std::vector<FieldName>& fieldsForRefresh() {
    static const std::vector<FieldName> fields = [] {
        std::vector<FieldName> list{PREHourlyPaid,    PREInputNetPay,
                                    PREStdHourlyRate, PREStdPeriodRate,
                                    NAUserRef,        PREPenWorkplaceUseSchemeRates};
        list.insert(list.end(), PREQualSickDay.begin(), PREQualSickDay.end());
        const std::span<const FieldCopy> copies[] = {taxDetails,          averagesAndLoans,
                                                     overtimeAndProvider, privatePension,
                                                     hoursAndIdentity,    workplaceScheme};
        for (const auto& group : copies) {
            for (const FieldCopy& copy : group) list.push_back(copy.from);
        }
        for (const WorkplaceDeduction& deduction : workplaceDeductions) {
            list.push_back(deduction.own);
            if (deduction.ofScheme) list.push_back(*deduction.ofScheme);
        }
        return list;
    }();
    return fields;
}

// ---- the employee

RecordsetRef openForNewRow(std::int32_t naid) {
    const std::string sql = statement(
        R"(SELECT *
           FROM PREmployeeDetails
           WHERE PREmployeeDetails.PRENAID = @)",
        {std::to_string(naid)});
    return DLLGlobal::g().DBDll().OpenRecordset(sql, RecordsetType::Snapshot, fieldsForNewRow());
}

RecordsetRef openForRefresh(std::int32_t naid) {
    const std::string sql = statement(
        R"(SELECT PREmployeeDetails.*, PensionSchemes.*, Customers.NAUserRef
           FROM ((PREmployeeDetails
             LEFT JOIN Customers
               ON Customers.NAID = PREmployeeDetails.PRENAID)
             LEFT JOIN PensionSchemes
               on PREmployeeDetails.PREPenWorkplaceSchemeID = PensionSchemes.PSID)
           WHERE PRENAID = @)",
        {std::to_string(naid)});
    const auto query = DLLGlobal::g().DBDll().CreateQueryDef("", sql);
    return query->OpenRecordset(RecordsetType::Snapshot, fieldsForRefresh());
}

// ---- steps of both

void copy(Recordset& from, Recordset& to, std::span<const FieldCopy> fields) {
    for (const FieldCopy& field : fields) to.Value(field.to, from.Value(field.from));
}

// The weeks of normal hours in a period. An unknown frequency counts as that many weeks.
std::int16_t standardWeeks(std::int16_t frequency) {
    const auto* const found = calendar::findFrequency(frequency);
    return found ? found->standardWeeks : frequency;
}

// The standard hours of a period.
double standardHours(Recordset& employee) {
    if (!employee.GetBoolean(PREHourlyPaid)) return 0;
    double week = 0;
    for (const FieldName& day : PRENormHours) week += employee.GetDouble(day);
    return week * standardWeeks(employee.GetInt16(PREPayFrequency));
}

void copyStandingItems(Recordset& employee, Recordset& row) {
    row.Value(PRPStdHours, standardHours(employee));
    for (const SlotCopy& slots : standingItems) {
        for (std::size_t i = 0; i < slots.to.size(); ++i) {
            row.Value(slots.to[i], employee.Value(slots.from[i]));
        }
    }
}

// Whether a field of the row holds another value. A Null date or week counts as equal, a Null amount
// as different.
bool differs(Recordset& row, const FieldName& name, Date value) {
    return !row.IsNull(name) && row.GetDate(name) != value;
}
bool differs(Recordset& row, const FieldName& name, std::int32_t value) {
    return !row.IsNull(name) && row.GetInt32(name) != value;
}
bool differs(Recordset& row, const FieldName& name, Currency value) {
    return row.IsNull(name) || row.GetCurrency(name) != value;
}

std::int32_t qualifyingDays(Recordset& employee) {
    return static_cast<std::int32_t>(
        std::count_if(PREQualSickDay.begin(), PREQualSickDay.end(),
                      [&](const FieldName& day) { return employee.GetBoolean(day); }));
}

void writePeriodPay(Recordset& employee, Recordset& row, bool hourly, bool hasImported,
                    Currency imported) {
    if (hasImported && !hourly) {
        if (differs(row, PRPPeriodPay, imported)) {
            row.Value(PRPHasBeenVisited, false);
            row.Value(PRPPeriodPay, imported);
        }
    } else {
        row.Value(PRPPeriodPay, hourly ? Variant(Currency()) : employee.Value(PREStdPeriodRate));
    }
}

void writeNoWorkplacePension(Recordset& row) {
    row.Value(PRPPenWorkplaceSchemeID, 0);
    row.Value(PRPPenWorkplaceDeductionsType, 0);
    row.Value(PRPPenWorkplaceSchemeAppTxRelief, false);
    for (const WorkplaceDeduction& deduction : workplaceDeductions) row.Value(deduction.to, 0);
}

void writeWorkplacePension(Recordset& employee, Recordset& row) {
    if (employee.IsNull(PREPenWorkplaceSchemeID) ||
        employee.GetInt32(PREPenWorkplaceSchemeID) == 0) {
        writeNoWorkplacePension(row);
        return;
    }
    copy(employee, row, workplaceScheme);
    const bool bySchemeRates = employee.GetBoolean(PREPenWorkplaceUseSchemeRates);
    for (const WorkplaceDeduction& deduction : workplaceDeductions) {
        if (!bySchemeRates) {
            row.Value(deduction.to, employee.Value(deduction.own));
        } else if (deduction.ofScheme) {
            row.Value(deduction.to, employee.Value(*deduction.ofScheme));
        } else {
            row.Value(deduction.to, 0);
        }
    }
}

// The user's reference, followed by the number of the employment from the second one of a year on:
// "SMI01", "SMI01/E002".
std::string worksNumber(Recordset& employee, Recordset& row) {
    std::string number(employee.GetText(NAUserRef));
    const std::int32_t count = row.GetInt32(PRPPYEmployCount);
    if (count > 1) number += "/E" + formatNumber(static_cast<double>(count), "000");
    return number;
}

}  // namespace

FieldList payrun::openRowFields() noexcept {
    return rowFields;
}

void CPayrollFunctions::CreatePayRecord(Recordset& rsPay, std::int32_t lngWeekNoIn, Date dPayDateIn,
                                        std::int32_t lngNAIDIn, bool bStartingRecord,
                                        bool bPeriodUpdated, Date dEPEDate, Date dNExpPayDate,
                                        Date dNExpEPEDate) {
    const auto employee = openForNewRow(lngNAIDIn);
    employee->MoveFirst();

    rsPay.AddNew();
    rsPay.Value(PRPNAID, lngNAIDIn);
    rsPay.Value(PRPCalculationUsed,
                bStartingRecord ? 0 : C_CalculationsToUseOnNewRecord(lngWeekNoIn));
    rsPay.Value(PRPPeriodUpdated, bPeriodUpdated);
    rsPay.Value(PRPPYEmployCount, employee->Value(PREPYEmployCount));
    rsPay.Value(PRPPayrollYear, DLLGlobal::currentPayrollYear());
    rsPay.Value(PRPPayDate, dPayDateIn);
    rsPay.Value(PRPWeekNo, lngWeekNoIn);
    if (bStartingRecord) {
        rsPay.Value(PRPEPEDate, dEPEDate);
        rsPay.Value(PRPNExpPayDate, dNExpPayDate);
        rsPay.Value(PRPNExpEPEDate, dNExpEPEDate);
    } else {
        copyStandingItems(*employee, rsPay);
    }
    rsPay.Update();
    rsPay.Bookmark(rsPay.LastModified());
}

void CPayrollFunctions::UpdatePayRecord(Recordset& rsPay, std::int32_t lngWeekNoIn,
                                        std::int32_t iPayPeriodIn, Date dPayDateIn, Date dEPEDate,
                                        Date dNExpPayDate, bool bHasImported, Currency cImported) {
    const auto employee = openForRefresh(rsPay.GetInt32(PRPNAID));

    rsPay.Edit();
    if (differs(rsPay, PRPWeekNo, lngWeekNoIn) || differs(rsPay, PRPPayDate, dPayDateIn) ||
        differs(rsPay, PRPEPEDate, dEPEDate)) {
        rsPay.Value(PRPHasBeenVisited, false);
    }
    rsPay.Value(PRPWeekNo, lngWeekNoIn);
    rsPay.Value(PRPPayDate, dPayDateIn);
    rsPay.Value(PRPEPEDate, dEPEDate);
    rsPay.Value(PRPNExpPayDate, dNExpPayDate);
    rsPay.Value(
        PRPNExpEPEDate,
        C_Calc_Next_NExpDate(dEPEDate, C_Convert_PayPeriod_to_PayFreq(narrowToInt16(iPayPeriodIn)),
                             PR_NExp_EPE));
    const std::int32_t week = rsPay.GetInt32(PRPWeekNo);
    if (!rsPay.IsNull(PRPCalculationUsed) && rsPay.GetInt32(PRPCalculationUsed) > 0) {
        rsPay.Value(PRPCalculationUsed, C_CalculationsToUseOnNewRecord(week));
    }
    const bool hourly = employee->GetBoolean(PREHourlyPaid);
    rsPay.Value(PRPPeriodPaid, !hourly);
    rsPay.Value(PRPNetPaid, employee->Value(PREInputNetPay));
    const std::int32_t period = iPayPeriodIn < 0 ? -C_CalcTaxMonth_OF_Week(week) : iPayPeriodIn;
    rsPay.Value(PRPPaymentPeriod, period == 0 ? 1 : period);
    copy(*employee, rsPay, taxDetails);
    rsPay.Value(PRPNoQualifyingDays, qualifyingDays(*employee));
    copy(*employee, rsPay, averagesAndLoans);
    rsPay.Value(PRPStdHourlyRate, hourly ? employee->Value(PREStdHourlyRate) : Variant(Currency()));
    writePeriodPay(*employee, rsPay, hourly, bHasImported, cImported);
    if (!hourly) rsPay.Value(PRPStdHours, 0);
    copy(*employee, rsPay, overtimeAndProvider);
    rsPay.Value(PRPPenPrivateAfterTax, DLLGlobal::g().g_rsPRControl().Value(PRCFPensionAfterTax));
    copy(*employee, rsPay, privatePension);
    writeWorkplacePension(*employee, rsPay);
    copy(*employee, rsPay, hoursAndIdentity);
    rsPay.Value(PRPWorksNo, worksNumber(*employee, rsPay));
    rsPay.Value(PRPRTIPayDate, dPayDateIn);
    rsPay.Update();
}

}  // namespace ledgerwick
