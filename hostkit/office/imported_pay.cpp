#include "hostkit/office/imported_pay.h"

#include "hostkit/office/transaction.h"
#include "ledgerwick/records/schema.h"
#include "ledgerwick/values/error.h"

namespace ledgerwick::office {

void importPay(HostSession& session, std::int32_t naid, Currency amount) {
    if (!session.list().GetEmployeeByNAID(naid)) {
        raise(error_number::objectNotSet, "importPay", "employee " + std::to_string(naid));
    }
    // The table keeps a number; one that does not come back as the same amount would stop the run.
    if (Currency::fromDouble(amount.toDouble(), "importPay") != amount) {
        raise(error_number::overflow, "importPay", "the amount is too large");
    }
    auto& company = storeOf(session);
    company.inTransaction([&] {
        if (company.tableExists("PRPayImport")) {
            company.Execute("DELETE FROM PRPayImport WHERE PRPINAID = " + std::to_string(naid),
                            failOnError);
        } else {
            company.createPayImportTable(true);
        }
        const auto rows =
            company.OpenRecordset("SELECT * FROM PRPayImport", RecordsetType::Dynaset);
        rows->AddNew();
        rows->Value(field::PRPINAID, naid);
        rows->Value(field::PRPIPay, amount);
        rows->Update();
        rows->Close();
    });
}

}  // namespace ledgerwick::office
