#include "hostkit/audit/removal.h"

#include <string>

#include "ledgerwick/records/statement.h"
#include "ledgerwick/values/error.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick::audit {

namespace {

// What rests on a row, by a query that gives a row when there is something; "@" is the key.
struct Rest {
    std::string_view table;
    std::string_view what;
    std::string_view query;
};

constexpr Rest rests[] = {
    {"PRPay", "closed pay of an employment, on which the employee's dates rest",
     R"(SELECT PRPID
        FROM (PRPay
          LEFT JOIN PREmployments
            ON PREmployments.PRTNAID = PRPay.PRPNAID
            AND PREmployments.PRTPYEmployCount = PRPay.PRPPYEmployCount
            AND PREmployments.PRTPayrollYear = PRPay.PRPPayrollYear)
          LEFT JOIN PREmployeeDetails
            ON PREmployeeDetails.PRENAID = PRPay.PRPNAID
        WHERE PRPID = @
          AND PRPPeriodUpdated = True
          AND PRTID IS NOT NULL
          AND PRENAID IS NOT NULL)"},
    {"PREmployments", "pay rows of the employment",
     R"(SELECT PRPID
        FROM PREmployments
          LEFT JOIN PRPay
            ON PREmployments.PRTNAID = PRPay.PRPNAID
            AND PREmployments.PRTPYEmployCount = PRPay.PRPPYEmployCount
            AND PREmployments.PRTPayrollYear = PRPay.PRPPayrollYear
        WHERE PRTID = @
          AND PRPID IS NOT NULL)"},
    {"PREmployments", "starter or leaver details of the employment",
     "SELECT PRTAID FROM PREmploymentsAddInfo WHERE PRTAPRTID = @"},
    {"PREmployeeDetails", "employments of that person",
     "SELECT PRTID FROM PREmployments WHERE PRTNAID = @"},
    {"PREmployeeDetails", "pay of that person", "SELECT PRPID FROM PRPay WHERE PRPNAID = @"},
    {"Customers", "payroll details of that person",
     "SELECT PRENAID FROM PREmployeeDetails WHERE PRENAID = @"},
    {"Customers", "orders of that person", "SELECT OrdID FROM Orders WHERE OrdNAID = @"},
    {"Orders", "an item that is there: the line is sound or closed",
     R"(SELECT OrdID
        FROM Orders
          LEFT JOIN Deadstock
            ON Deadstock.DSIDNo = Orders.OrdDSID
        WHERE OrdID = @
          AND (DSIDNo IS NOT NULL OR OrdStatus >= 5))"},
};

struct Removable {
    std::string_view table;
    std::string_view key;
};

constexpr Removable removables[] = {
    {"PRPay", "PRPID"},    {"PREmployments", "PRTID"}, {"PREmployeeDetails", "PRENAID"},
    {"Customers", "NAID"}, {"Orders", "OrdID"},        {"PRPayImport", "PRPINAID"},
};

bool hasRow(Database& database, const std::string& query) {
    const RecordsetRef rows = database.OpenRecordset(query, RecordsetType::Snapshot);
    const bool found = !rows->Eof();
    rows->Close();
    return found;
}

}  // namespace

void removeRow(Database& database, std::string_view table, std::int32_t key) {
    constexpr std::string_view here = "removeRow";
    const Removable* found = nullptr;
    for (const Removable& each : removables) {
        if (equalsIgnoringCase(each.table, table)) found = &each;
    }
    if (!found) raise(error_number::noSuchItem, here, table);
    const std::string number = std::to_string(key);
    const std::string where = statement("FROM @ WHERE @ = @", {found->table, found->key, number});
    inOneBatch(database, [&] {
        if (!hasRow(database, "SELECT * " + where)) {
            raise(error_number::noCurrentRecord, here,
                  std::string(found->table) + " has no row " + number);
        }
        for (const Rest& rest : rests) {
            if (rest.table != found->table) continue;
            if (hasRow(database, statement(rest.query, {number}))) {
                raise(error_number::invalidCall, here,
                      "row " + number + " of " + std::string(found->table) +
                          " stays, since there is " + std::string(rest.what));
            }
        }
        database.Execute("DELETE " + where, failOnError);
    });
}

}  // namespace ledgerwick::audit
