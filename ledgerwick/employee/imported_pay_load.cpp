// Loads pay from outside the payroll: values from the host's import table, and the open piecework
// lines of the order book.
#include <array>
#include <string>

#include "ledgerwick/employee/employee_list.h"
#include "ledgerwick/employee/load_steps.h"
#include "ledgerwick/host/dll_global.h"
#include "ledgerwick/records/row_at_hand.h"
#include "ledgerwick/records/schema.h"
#include "ledgerwick/values/error.h"
#include "ledgerwick/values/format.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick {
namespace {

constexpr std::array importFields{field::PRPINAID, field::PRPIPay};

constexpr std::array orderFields{
    field::OrdID,  field::OrdNAID, field::OrdDSID,  field::OrdActionDate, field::Qty,
    field::DSDesc, field::UoPCode, field::NetPrice, field::OrdStatus,
};

// Open order lines with an item, in units of purchase and priced, both as the text that a user
// would see: `Qty` with up to three decimals, `NetPrice` in the money format. The discount comes
// off the line as an amount, and a line of no quantity is priced as one unit.
std::string openOrdersStatement(std::string_view moneyFormat) {
    constexpr std::string_view statement = R"(
SELECT OrdID, OrdNAID, OrdDSID, OrdActionDate,
       Format(OrdQty / iif(OrdDSID = 0, 1, DSUoMConv),'#,##0.0##') as Qty,
       DSDesc, UoMCode AS UoPCode,
       Format( iif(OrdDSID = 0, 0,
                   (OrdPrice * DSUoMConv) * iif(OrdQty = 0, 1, Qty) * 1 - (OrdDiscount/100))
              ,'<money format>' ) AS NetPrice,
       OrdStatus
FROM (( Orders LEFT JOIN Deadstock ON Orders.ORDDSID = Deadstock.DSIDNo)
               LEFT JOIN UoM ON UoM.UoMNo = Deadstock.DSPurchUoM)
WHERE OrdStatus < 5 AND OrdDSID <> 0
ORDER BY OrdNAID, OrdActionDate, UoMCode, DSDesc)";
    return replaceAll(statement, "<money format>", replaceAll(moneyFormat, "'", "''"));
}

}  // namespace

RecordsetRef load::openPayImport() {
    return DLLGlobal::g().DBDll().OpenRecordset("SELECT * FROM PRPayImport",
                                                RecordsetType::Snapshot, importFields);
}

// A later value of the same employee replaces the one before.
void load::takePayImport(CEmployeeList& list, Recordset& row) {
    const auto employee = list.GetEmployeeByNAID(row.GetInt32(field::PRPINAID));
    const auto employment = used(employee, "LoadImportedPay").CurEmployment();
    employment->HasImportedPay(true);
    const std::string moneyFormat = DLLGlobal::g().strCurFormat();
    const std::string shown = Format(row.Value(field::PRPIPay), moneyFormat);
    employment->ImportedPayValue(readMoney(shown, moneyFormat, "LoadImportedPay"));
}

RecordsetRef load::openOrderLines() {
    return DLLGlobal::g().DBDll().OpenRecordset(openOrdersStatement(DLLGlobal::g().strCurFormat()),
                                                RecordsetType::Dynaset, orderFields);
}

// Most lines of the order book belong to nobody on the payroll.
void load::takeOrderLine(CEmployeeList& list, Recordset& row) {
    const auto employee = list.GetEmployeeByNAID(row.GetInt32(field::OrdNAID));
    if (employee) employee->CurEmployment()->AddImportedEarnings(row);
}

Variant CEmployeeList::LoadImportedPay() {
    for (const auto& employee : Employees()) {
        used(employee, "LoadImportedPay").CurEmployment()->ResetImportedPay();
    }
    const auto takeAll = [this](const RecordsetRef& rows, std::string_view table, auto take) {
        for (; !rows->Eof(); rows->MoveNext()) {
            onRow(*rows, table, [&] { take(*this, *rows); });
        }
        rows->Close();
    };
    if (DLLGlobal::DAO_ADO().TempTableExists("PRPayImport")) {
        takeAll(load::openPayImport(), "PRPayImport", load::takePayImport);
    }
    takeAll(load::openOrderLines(), "Orders", load::takeOrderLine);
    return {};
}

}  // namespace ledgerwick
