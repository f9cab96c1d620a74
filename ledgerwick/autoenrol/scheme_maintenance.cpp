#include <string>

#include "ledgerwick/employee/employee_list.h"
#include "ledgerwick/host/dll_global.h"
#include "ledgerwick/host/payroll_functions.h"
#include "ledgerwick/records/row_at_hand.h"
#include "ledgerwick/records/schema.h"

namespace ledgerwick {
namespace {

// The open pay rows of the scheme must be worked on again.
void clearVisitedMarks(Database& database, std::int32_t scheme) {
    database.Execute("UPDATE PRPay SET PRPHasBeenVisited = False WHERE (PRPPayrollYear = " +
                         std::to_string(DLLGlobal::currentPayrollYear()) +
                         ") AND (PRPPeriodUpdated = False) AND (PRPPenWorkplaceSchemeID = " +
                         std::to_string(scheme) + ")",
                     failOnError);
}

RecordsetRef openEmployeesOfScheme(Database& database, std::int32_t scheme) {
    constexpr std::string_view select =
        "SELECT PRENAID, PREPenWorkplaceSchemeID, PREPenWorkplaceUseSchemeRates, "
        "PREPenWorkplaceEEDeductPerC, PREPenWorkplaceERDeductPerC, PREPenWorkplaceEEDeductFlat, "
        "PREPenWorkplaceERDeductFlat, PSID, PSDefEE, PSDefER "
        "FROM PREmployeeDetails "
        "LEFT JOIN PensionSchemes "
        "ON PREmployeeDetails.PREPenWorkplaceSchemeID = PensionSchemes.PSID "
        "WHERE PREPenWorkplaceSchemeID = ";
    return database.OpenRecordset(std::string(select) + std::to_string(scheme),
                                  RecordsetType::Snapshot);
}

}  // namespace

Variant CPayrollFunctions::C_PenWorkplaceSchemeUpdate(std::int32_t lPSID) {
    Database& database = DLLGlobal::g().DBDll();
    clearVisitedMarks(database, lPSID);

    const RecordsetRef rows = openEmployeesOfScheme(database, lPSID);
    const auto update = [&] {
        const auto employee = employeeList().GetEmployeeByNAID(rows->GetInt32(field::PRENAID));
        if (!employee) {
            raise(error_number::objectNotSet, "C_PenWorkplaceSchemeUpdate",
                  "an employee of the scheme is not in the list");
        }
        employee->UpdateWorkplacePensionDetails(*rows);
    };
    for (; !rows->Eof(); rows->MoveNext()) onRow(*rows, "PREmployeeDetails", update);
    rows->Close();
    return {};
}

Variant CPayrollFunctions::C_ReEnrolDateChanged(Date dOld, Date dNew) {
    const std::int32_t currentYear = DLLGlobal::currentPayrollYear();
    if (PR_TaxYearNo(dOld) != currentYear && PR_TaxYearNo(dNew) != currentYear) return {};

    DLLGlobal::g().DBDll().Execute(
        "UPDATE PRPay LEFT JOIN PensionSchemes "
        "ON PRPay.PRPPenWorkplaceSchemeID = PensionSchemes.PSID "
        "SET PRPHasBeenVisited = False WHERE (PRPPayrollYear = " +
            std::to_string(currentYear) +
            ") AND (PRPPeriodUpdated = False) AND (PSDeductionsType = 2)",
        failOnError);
    return {};
}

}  // namespace ledgerwick
