// Writes new employment rows, and answers what a host asks when it writes them.
#include <array>
#include <exception>
#include <string>

#include "ledgerwick/employee/employee_list.h"
#include "ledgerwick/host/dll_global.h"
#include "ledgerwick/host/payroll_functions.h"
#include "ledgerwick/records/pay_row_order.h"
#include "ledgerwick/records/schema.h"
#include "ledgerwick/records/statement.h"

namespace ledgerwick {

namespace {

// Which element of an add-info array means what; element 1 is not read.
constexpr std::int32_t prtidElement = 2;
constexpr std::int32_t typeElement = 3;
constexpr std::int32_t statusElement = 4;

// The fields of elements 2 to 18.
constexpr std::array addInfoFields{
    field::PRTAPRTID,       field::PRTAType,        field::PRTAStatus,      field::PRTAHCID,
    field::PRTADecDate,     field::PRTADied,        field::PRTAPEmpPAYERef, field::PRTAPEmpLeave,
    field::PRTAPEmpSLoans,  field::PRTAPEmpTaxCode, field::PRTAPEmpWeek1,   field::PRTAPEmpWeekNo,
    field::PRTAPEmpGross,   field::PRTAPEmpTax,     field::PRTAText,        field::PRTADec,
    field::PRTAPEmpPGLoans,
};

bool equals(const Variant& element, std::int32_t number) {
    return !element.isNull() && element.toDouble("PR_EmploymentsAddInfo_Add") == number;
}

std::int32_t employmentCountOf(std::int32_t naid) {
    const std::string sql = statement(
        R"(SELECT PREPYEmployCount
           FROM PREmployeeDetails
           WHERE PRENAID = @)",
        {std::to_string(naid)});
    const RecordsetRef rs = DLLGlobal::g().DBDll().OpenRecordset(sql, RecordsetType::Snapshot);
    return rs->GetInt32(field::PREPYEmployCount);
}

std::int32_t addAddInfoRow(const VariantArray& addInfo) {
    if (equals(addInfo.at(typeElement), PRTAT_JOIN)) return 0;

    const auto query = DLLGlobal::g().DBDll().CreateQueryDef(
        "", "SELECT * FROM PREmploymentsAddInfo WHERE PRTAID = -1");
    RecordsetRef rs = query->OpenRecordset(RecordsetType::Dynaset);
    rs->AddNew();
    std::int32_t element = prtidElement;
    for (const FieldName& field : addInfoFields) rs->Value(field, addInfo.at(element++));
    DLLGlobal::DAO_ADO().NoNullRecordLine(rs);
    rs->Update();
    rs->Bookmark(rs->LastModified());
    const std::int32_t key = rs->GetInt32(field::PRTAID);
    rs->Close();

    if (equals(addInfo.at(statusElement), 0)) DLLGlobal::g().g_blnPRSchUp(true);
    return key;
}

}  // namespace

void CPayrollFunctions::C_CreateNewEmploymentRecord(std::int32_t lngNAIDIn,
                                                    std::int32_t lngWeekNoLastPaidIn,
                                                    std::int16_t iPRTType,
                                                    const std::string& sStartDateIn,
                                                    const Variant& vAddInfo, bool bContinuation,
                                                    const std::string& sAEStatus) {
    Date start;
    if (!parseDate(sStartDateIn, start))
        throw Error(10678, "C_CreateNewEmploymentRecord", "Start Date not supplied.");
    const std::int32_t count = employmentCountOf(lngNAIDIn);

    const RecordsetRef rs = DLLGlobal::g().DBDll().OpenRecordset(
        "SELECT * FROM PREmployments WHERE PRTID = -1", RecordsetType::Dynaset);
    rs->AddNew();
    rs->Value(field::PRTNAID, lngNAIDIn);
    rs->Value(field::PRTPYEmployCount, count);
    rs->Value(field::PRTPayrollYear, DLLGlobal::currentPayrollYear());
    rs->Value(field::PRTStartWeekNo, lngWeekNoLastPaidIn);
    rs->Value(field::PRTStartDate, start);
    rs->Value(field::PRTEndDateLong, std::int32_t{0});
    rs->Value(field::PRTType, iPRTType);
    rs->Value(field::PRTContinuation, bContinuation);
    rs->Value(field::PRTAEStatus, sAEStatus);
    rs->Update();
    rs->Bookmark(rs->LastModified());
    const std::int32_t prtid = rs->GetInt32(field::PRTID);

    if (vAddInfo.isEmpty()) return;
    Variant addInfo = vAddInfo;
    addInfo.array("C_CreateNewEmploymentRecord").at(prtidElement) = prtid;
    PR_EmploymentsAddInfo_Add(addInfo);
}

std::int32_t CPayrollFunctions::PR_EmploymentsAddInfo_Add(const Variant& varArrIn) {
    static constexpr const char* source = "PR_EmploymentsAddInfo_Add|";
    try {
        return addAddInfoRow(varArrIn.array("PR_EmploymentsAddInfo_Add"));
    } catch (const Error& error) {
        Error again(error.Number(), source + error.Source(), error.Description());
        again.Row(error.Row());
        throw again;
    } catch (const std::exception& error) {
        throw Error(error_number::invalidCall, source, error.what());
    } catch (...) {
        throw Error(error_number::invalidCall, source, "An unknown failure");
    }
}

Date CPayrollFunctions::PR_GetEPSDate(std::int32_t lNAIDIn, std::int32_t lYearIn,
                                      std::int32_t lPYEmployCount, std::int32_t lCurWeekNoIn) {
    const std::string sql = statement(
        R"(SELECT PRPay.PRPEPEDate
           FROM PRPay
           WHERE PRPay.PRPNAID = @
             AND PRPay.PRPPayrollYear = @
             AND PRPay.PRPPYEmployCount = @
             @
             AND PRPay.PRPPeriodUpdated = true
           ORDER BY @)",
        {std::to_string(lNAIDIn), std::to_string(lYearIn), std::to_string(lPYEmployCount),
         lCurWeekNoIn == 0 ? "" : "AND PRPay.PRPWeekNo < " + std::to_string(lCurWeekNoIn),
         PaymentsOrderBy()});
    const RecordsetRef rs =
        DLLGlobal::g().DBDll().CreateQueryDef("", sql)->OpenRecordset(RecordsetType::Snapshot);
    Date start;
    if (rs->RecordCount() != 0) {
        rs->MoveLast();
        start = rs->GetDate(field::PRPEPEDate).addDays(1);
    }
    rs->Close();
    return start;
}

std::int32_t CPayrollFunctions::Max_PRPID_From_PayDate(std::int32_t lYearIn, std::int32_t lNAIDIn,
                                                       std::int32_t lEmployCountIn,
                                                       Date dRTIPayDateIn) {
    const std::string sql = statement(
        R"(SELECT max(PRPID) AS PRPIDMax
           FROM PRPay
           WHERE PRPPayrollYear = @
             AND PRPNAID = @
             AND PRPPYEmployCount = @
             AND PRPRTIPayDate <= #@#)",
        {std::to_string(lYearIn), std::to_string(lNAIDIn), std::to_string(lEmployCountIn),
         DLLGlobal::pf().DateToUSstr(dRTIPayDateIn)});
    const RecordsetRef rs = DLLGlobal::g().DBDll().OpenRecordset(sql, RecordsetType::Snapshot);
    rs->MoveFirst();
    const std::int32_t highest = rs->GetInt32(field::PRPIDMax);
    rs->Close();
    return highest;
}

bool CPayrollFunctions::PR_OtherID_Duplicate_Check(std::int32_t lIDIn, std::int32_t lNAIDIn,
                                                   bool bActiveOnly, std::string* sDuplicatesOut) {
    std::string duplicates;
    for (const auto& held : employeeList().Employees()) {
        const cEmployee& employee = used(held, "PR_OtherID_Duplicate_Check");
        const bool duplicate = employee.NAID() != lNAIDIn && employee.OtherID() == lIDIn &&
                               (!bActiveOnly || employee.Active());
        if (!duplicate) continue;
        if (!duplicates.empty()) duplicates += "\r\n";
        duplicates += employee.BusName();
    }
    if (duplicates.empty()) return false;
    if (sDuplicatesOut != nullptr) *sDuplicatesOut = duplicates;
    return true;
}

}  // namespace ledgerwick
