#include "ledgerwick/employee/load_queries.h"

#include <string>
#include <vector>

#include "ledgerwick/host/dll_global.h"
#include "ledgerwick/records/pay_row_order.h"
#include "ledgerwick/records/statement.h"

namespace ledgerwick {

namespace {

// "WHERE a AND b"; empty without conditions.
std::string where(const std::vector<std::string>& conditions) {
    std::string clause;
    for (const std::string& condition : conditions)
        clause += (clause.empty() ? "WHERE " : " AND ") + condition;
    return clause;
}

}  // namespace

RecordsetRef OpenEmployeesRS(std::int32_t lNAID, FieldList reads) {
    std::vector<std::string> conditions;
    if (lNAID != 0) conditions.push_back("PREmployments.PRTNAID = " + std::to_string(lNAID));

    const std::string sql = statement(
        R"(SELECT Customers.*, PREmployeeDetails.*, PREmployments.*, PensionSchemes.*
           FROM (((PREmployeeDetails
             LEFT JOIN Customers
               ON Customers.NAID = PREmployeeDetails.PRENAID)
             LEFT JOIN PREmployments
               ON PREmployments.PRTNAID = PREmployeeDetails.PRENAID)
             LEFT JOIN PensionSchemes
               ON PensionSchemes.PSID = PREmployeeDetails.PREPenWorkplaceSchemeID)
           @
           ORDER BY PRTNAID, PRTPayrollYear, PRTPYEmployCount)",
        {where(conditions)});
    return DLLGlobal::g().DBDll().OpenRecordset(sql, RecordsetType::Snapshot, reads);
}

RecordsetRef OpenPaymentsRS(std::int32_t lNAID, std::int32_t lPYEmployCount,
                            std::int32_t lPayrollYear, FieldList reads) {
    std::vector<std::string> conditions;
    if (lNAID > 0) conditions.push_back("PRPay.PRPNAID = " + std::to_string(lNAID));
    if (lPYEmployCount > 0)
        conditions.push_back("PRPay.PRPPYEmployCount = " + std::to_string(lPYEmployCount));
    if (lPayrollYear != -1)
        conditions.push_back("PRPay.PRPPayrollYear = " + std::to_string(lPayrollYear));

    const std::string sql = statement(
        R"(SELECT *
           FROM PRPay
             LEFT JOIN PREmployments
               ON PREmployments.PRTNAID = PRPay.PRPNAID
               AND PREmployments.PRTPYEmployCount = PRPay.PRPPYEmployCount
               AND PREmployments.PRTPayrollYear = PRPay.PRPPayrollYear
           @
           ORDER BY @)",
        {where(conditions), PaymentsOrderBy()});
    return DLLGlobal::g().DBDll().OpenRecordset(sql, RecordsetType::Snapshot, reads);
}

}  // namespace ledgerwick
