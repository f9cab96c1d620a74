#include "bench/company.h"

#include <cstdlib>
#include <filesystem>
#include <iostream>

#include "hostkit/sqlite/database.h"

namespace bench {
namespace {

void execute(sqlite3* db, const char* sql) {
    char* message = nullptr;
    if (sqlite3_exec(db, sql, nullptr, nullptr, &message) != SQLITE_OK) {
        std::cerr << message << "\n" << sql << "\n";
        std::exit(1);
    }
}

// Every statement counts on `people`, a table of the numbers 1 to n, and `years`, the payroll years.
const char* const company[] = {
    "INSERT INTO PRControl (PRCFCurrentYear, PRCFPensionAfterTax) VALUES (17, 0)",
    "INSERT INTO PRYearEnds (PRYEYear, PRYEDate) VALUES (16, 42465)",
    "INSERT INTO PensionSchemes (PSID, PSDesc, PSDeductionsType, PSSchemeAppliesTaxRelief, "
    "PSDefEE, PSDefER) VALUES (1, 'Works scheme', 1, -1, 5, 3)",
    "INSERT INTO Customers (NAID, NASeq, NABusName, NAUserRef, NAAdd1, NAAdd2, NAVillage, NATown, "
    "NACounty, NAPostCode, NACountry, NAEMailADD) SELECT n, 'W' || n % 97, 'Mr Alan Worker ' || n, "
    "'WRK' || n, n || ' High Street', 'Upper Side', '', 'Leeds', 'West Yorkshire', 'LS1 4AP', "
    "'England', 'worker' || n || '@example.org' FROM people",
    "INSERT INTO PREmployeeDetails (PRENAID, PREPYEmployCount, PRENINO, PRESex, PREDoB, "
    "PREOriginallyJoined, PREPayFrequency, PRENITable, PRETaxCode, PREGroup, PREHourlyPaid, "
    "PREStdHourlyRate, PREStdPeriodRate, PREHDays, PRENormHours1, PRENormHours2, PRENormHours3, "
    "PREPenWorkplaceSchemeID, PREPenWorkplaceUseSchemeRates) SELECT n, 1, 'QQ' || "
    "printf('%06d', n) || 'A', 'M', 30000 + n % 9000, 40000, 1, 'A', '1100L', n % 5, 0, 0, 412.5, "
    "28, 8, 8, 8, n % 2, -1 FROM people",
    "INSERT INTO PREmployments (PRTNAID, PRTPayrollYear, PRTPYEmployCount, PRTStartWeekNo, "
    "PRTStartDate, PRTEndDateLong, PRTType, PRTContinuation, PRTAEStatus) SELECT n, y, 1, 0, "
    "42466 - 364 * (17 - y), 0, 1, 0, 'Eligible' FROM people, years ORDER BY y, n",
    "WITH RECURSIVE weeks(w) AS (SELECT 1 UNION ALL SELECT w + 1 FROM weeks WHERE w < 51) "
    "INSERT INTO PRPay (PRPNAID, PRPPayrollYear, PRPPYEmployCount, PRPWeekNo, PRPPaymentPeriod, "
    "PRPPayDate, PRPRTIPayDate, PRPEPEDate, PRPNExpPayDate, PRPNExpEPEDate, PRPPeriodUpdated, "
    "PRPHasBeenVisited, PRPCalculationUsed, PRPStatus, PRPAEStatus, PRPPeriodPaid, PRPPeriodPay, "
    "PRPNITable, PRPTaxCode, PRPWorksNo) SELECT n, y, 1, w, 1, d, d, d - 2, d + 7, d + 5, -1, -1, "
    "34, 3, 'Eligible', -1, 412.5, 'A', '1100L', 'WRK' || n FROM (SELECT n, y, w, 42465 + 7 * w - "
    "364 * (17 - y) AS d FROM people, years, weeks WHERE y = 17 OR w > 47) ORDER BY y, w, n",
};

}  // namespace

sqlite3* openBare(const std::string& path) {
    sqlite3* db = nullptr;
    if (sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr) !=
        SQLITE_OK) {
        std::cerr << path << ": " << sqlite3_errmsg(db) << "\n";
        std::exit(1);
    }
    execute(db, "PRAGMA journal_mode = WAL; PRAGMA synchronous = NORMAL");
    return db;
}

void layDownCompany(const std::string& path, std::int32_t employees, std::int32_t employments) {
    for (const char* tail : {"", "-wal", "-shm"}) std::filesystem::remove(path + tail);
    ledgerwick::sqlite::SqliteDatabase::open(path)->createSchema();
    sqlite3* db = openBare(path);
    // Nothing here needs to survive a crash, and the indexes fill in another order than the table.
    execute(db,
            "PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF; PRAGMA cache_size = -2000000; "
            "BEGIN");
    const auto numbers = [db](const char* table, std::int32_t first, std::int32_t last) {
        execute(db, ("CREATE TEMP TABLE " + std::string(table) +
                     " AS WITH RECURSIVE numbers(n) AS "
                     "(SELECT " +
                     std::to_string(first) + " UNION ALL SELECT n + 1 FROM numbers WHERE n < " +
                     std::to_string(last) + ") SELECT n FROM numbers")
                        .c_str());
    };
    numbers("people", 1, employees);
    numbers("years", payrollYear - employments + 1, payrollYear);
    execute(db, "ALTER TABLE years RENAME COLUMN n TO y");
    for (const char* statement : company) execute(db, statement);
    execute(db, "COMMIT; PRAGMA journal_mode = WAL");
    sqlite3_close(db);
}

}  // namespace bench
