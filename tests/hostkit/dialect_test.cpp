// The statements of the system, as they stand, on SQLite.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "hostkit/sqlite/database.h"
#include "hostkit/store/company_recordset.h"
#include "ledgerwick/records/schema.h"
#include "ledgerwick/values/error.h"
#include "tests/support/errors.h"

namespace ledgerwick {
namespace {

using test::errorOf;
using test::Told;

class Dialect : public testing::Test {
  protected:
    Dialect() {
        db_->createSchema();
        db_->exec(R"sql(
            INSERT INTO Customers (NAID, NASeq, NABusName)
                VALUES (1, 'b', 'Bell'), (2, 'A', 'Archer'), (3, 'O', 'O''Hara');
            INSERT INTO PREmployeeDetails (PRENAID, PREPenWorkplaceSchemeID)
                VALUES (1, 5), (2, 0), (3, 6);
            INSERT INTO PREmployments (PRTID, PRTNAID, PRTStartDate)
                VALUES (11, 1, 42100), (12, 1, 41800), (21, 2, 42000);
            INSERT INTO PensionSchemes (PSID, PSDeductionsType) VALUES (5, 2), (6, 1);
            INSERT INTO PRPay (PRPID, PRPNAID, PRPPayrollYear, PRPWeekNo, PRPPayDate, PRPRTIPayDate,
                               PRPPeriodUpdated, PRPHasBeenVisited, PRPPenWorkplaceSchemeID)
                VALUES (101, 1, 16, 2, 42122, 42122, -1, -1, 5),
                       (102, 1, 16, 1, 42115, 42115, -1, -1, 5),
                       (103, 1, 16, 3, 42129, 42129, 0, -1, 5),
                       (201, 2, 16, 1, 42115, 42115, 0, -1, 0),
                       (301, 3, 16, 1, 42115, 42115, 0, -1, 6);
            INSERT INTO UoM (UoMNo, UoMCode) VALUES (1, 'box');
            INSERT INTO Deadstock (DSIDNo, DSUoMConv, DSPurchUoM)
                VALUES (1, 1, 1), (2, 12, 1), (3, 0, 1);
        )sql");
    }

    // The rows as text: fields divided by "|", rows by ";".
    std::string rows(std::string_view sql, RecordsetType type = RecordsetType::Snapshot) {
        const auto rs = db_->OpenRecordset(sql, type);
        const auto& fields = dynamic_cast<store::CompanyRecordset&>(*rs);
        std::string text;
        for (; !rs->Eof(); rs->MoveNext()) {
            if (!text.empty()) text += ';';
            for (std::size_t i = 0; i < fields.fieldCount(); ++i) {
                if (i > 0) text += '|';
                const Variant value = rs->Value(fields.fieldName(i));
                text += value.isNull() ? "Null" : value.toText();
            }
        }
        return text;
    }
    void execute(std::string_view sql) { db_->Execute(sql, failOnError); }
    std::string visited() {
        return rows("SELECT PRPID FROM PRPay WHERE PRPHasBeenVisited = True ORDER BY PRPID");
    }

    std::shared_ptr<sqlite::SqliteDatabase> db_ = sqlite::SqliteDatabase::open(":memory:");
};

struct Query {
    const char* sql;
    const char* rows;
};

TEST_F(Dialect, GivesTheRowsOfAStatement) {
    const std::vector<Query> queries{
        // texts and numbers; texts compare and sort without regard to case
        {"SELECT NAID, 'it''s', 1.5, -2, .5, 1E3 FROM Customers WHERE NABusName = 'o''hara'",
         "3|it's|1.5|-2|0.5|1000"},
        {"SELECT NAID FROM Customers WHERE NABusName IN ('Bell', 'ARCHER') ORDER BY 1", "1;2"},
        {"SELECT NASeq FROM Customers ORDER BY NASeq", "A;b;O"},
        // dates are month first or year first, with or without a time
        {"SELECT max(PRPID) as PRPIDMax FROM PRPay WHERE PRPNAID = 1 AND PRPRTIPayDate <= "
         "#4/28/2015# ",
         "102"},
        {"SELECT PRPID FROM PRPay WHERE PRPPayDate > # 4 / 28 / 2015 13:00:00 #", "103"},
        {"SELECT PRPID FROM PRPay WHERE PRPPayDate > #2015-04-28#AND PRPID>0", "103"},
        // booleans, alone and in any case
        {"SELECT PRPID FROM prpay WHERE prpperiodupdated = TRUE ORDER BY prpid", "101;102"},
        {"SELECT prpid FROM PRPay WHERE PRPPeriodUpdated = false AND PRPNAID = 1", "103"},
        {"SELECT COUNT(*) FROM PRPay WHERE True", "5"},
        // totals, with and without a row
        {"SELECT PRPNAID, COUNT(*) AS Rows FROM PRPay GROUP BY PRPNAID HAVING COUNT(*) > 1", "1|3"},
        {"SELECT Min(PRTStartDate) AS a, MAX(PRTID) AS b FROM PREmployments", "41800|21"},
        {"SELECT max(PRPID) as PRPIDMax FROM PRPay WHERE PRPPayrollYear = 3", "Null"},
        // division keeps its fraction, and by nothing gives Null
        {"SELECT 7 / 2 / 2, 2 * 3 / 4, PRPWeekNo / 2, 1 / 0 FROM PRPay WHERE PRPID = 103",
         "1.75|1.5|1.5|Null"},
        // functions
        {"SELECT Format(1234.5, '#,##0.00'), FORMAT(0.125, '0.00'), format(Null, '0') FROM UoM",
         "1,234.50|0.13|Null"},
        {"SELECT iif(NAID = 2, 'two', NABusName) FROM Customers ORDER BY NAID", "Bell;two;O'Hara"},
        // names in brackets, and a column used in another one, before or behind it
        {"SELECT [NAID], Customers.[NASeq] FROM [Customers] WHERE [Customers].NAID = 1", "1|b"},
        {"SELECT PRPWeekNo * 2 AS Twice, Twice + 1 AS More FROM PRPay WHERE PRPID = 103", "6|7"},
        {"SELECT Size + 0.5 AS Half, Format(1234, '#,##0') AS Size FROM UoM", "1234.5|1,234"},
        {"SELECT NAID AS NASeq, NASeq AS Own FROM Customers WHERE NAID = 1", "1|b"},
        // what a join does not find is Null, which sorts first
        {"SELECT PRENAID, PSID FROM PREmployeeDetails LEFT JOIN PensionSchemes ON "
         "PREmployeeDetails.PREPenWorkplaceSchemeID = PensionSchemes.PSID ORDER BY PSID",
         "2|Null;1|5;3|6"},
    };
    for (const Query& query : queries) EXPECT_EQ(rows(query.sql), query.rows) << query.sql;
    const auto quoted =
        db_->OpenRecordset(R"(SELECT NAID AS "a""b" FROM Customers)", RecordsetType::Snapshot);
    EXPECT_EQ(quoted->Value("a\"b").toInt32(), 1);
}

TEST_F(Dialect, UpdatesInAnyCaseAndOverAJoin) {
    execute(
        "UPDATE PRPay LEFT JOIN PensionSchemes ON PRPay.PRPPenWorkplaceSchemeID = "
        "PensionSchemes.PSID SET PRPHasBeenVisited = False WHERE (PRPPayrollYear = 16) AND "
        "(PRPPeriodUpdated = False) AND (PSDeductionsType = 2)");
    EXPECT_EQ(visited(), "101;102;201;301");
    execute("UPDATE PRPAY SET PRPHasBeenVisited = FALSE WHERE PRPPeriodUpdated = TRUE");
    EXPECT_EQ(visited(), "201;301");
    execute(
        "UPDATE PRPay INNER JOIN PREmployments ON PREmployments.PRTNAID = PRPay.PRPNAID "
        "SET PRPay.PRPHasBeenVisited = False");
    EXPECT_EQ(visited(), "301");
    execute("UPDATE PRPAY SET PRPNExpEPEDate = #4/29/2016#WHERE PRPID = 101");
    EXPECT_EQ(rows("SELECT PRPNExpEPEDate FROM PRPay WHERE PRPID = 101"), "29/04/2016");
    execute("INSERT INTO Orders (OrdID, OrdStatus) VALUES (1, 2)");
    execute(
        "    UPDATE ORDERS SET    OrdStatus = 5 , OrdInvID = 9 , OrdRef = 'it''s; DROP' WHERE "
        "   OrdStatus < 5    AND    ORDID IN (1,2,3)");
    EXPECT_EQ(rows("SELECT OrdStatus, OrdInvID, OrdRef FROM Orders"), "5|9|it's; DROP");
}

TEST_F(Dialect, OneShapeServesManyLiterals) {
    for (int id = 1; id <= 3; ++id) {
        EXPECT_EQ(rows("SELECT NAID FROM Customers WHERE NAID = " + std::to_string(id)),
                  std::to_string(id));
    }
    EXPECT_EQ(rows("SELECT NAID FROM Customers WHERE NAID = 2.0"), "2");
    EXPECT_EQ(rows("SELECT NAID FROM Customers WHERE NAID = 'x'"), "");
    // Two of one shape at the same time.
    const auto open = [&](const char* sql) {
        return db_->OpenRecordset(sql, RecordsetType::Snapshot);
    };
    const auto first = open("SELECT * FROM PRPay WHERE PRPNAID = 1 ORDER BY PRPID");
    const auto second = open("SELECT * FROM PRPay WHERE PRPNAID = 3 ORDER BY PRPID");
    first->MoveNext();
    EXPECT_EQ(first->GetInt32(field::PRPID), 102);
    EXPECT_EQ(second->GetInt32(field::PRPID), 301);
}

TEST_F(Dialect, TakesMoreLiteralsThanAStatementIsKeptFor) {
    std::string sql =
        "UPDATE PRPay SET PRPHasBeenVisited = False WHERE PRPPayDate < #4/28/2015# AND "
        "PRPTaxCode = '' AND PRPWeekNo <= 3 / 2 AND PRPID IN (0";
    for (int id = 1; id <= 3000; ++id) sql += "," + std::to_string(id);
    execute(sql + ")");
    EXPECT_EQ(visited(), "101;103");
}

TEST_F(Dialect, TellsWhatDoesNotCompile) {
    const std::vector<const char*> statements{
        "SELECT * FROM Customers WHERE NABusName = 'open",
        "SELECT * FROM PRPay WHERE PRPPayDate = #2/30/2015#",
        "SELECT * FROM PRPay WHERE PRPPayDate = #4/29/2015",
        "SELECT * FROM Customers WHERE NAID = ?",
        "SELECT * FROM Customers WHERE NABusName = \"Bell\"",
        "SELECT NAID AS a FROM [Customers",
        "SELECT a + 1 AS b, b + 1 AS a FROM Customers",
        "SELECT NAID FROM Customers; DROP TABLE Customers",
        "",
        "UPDATE Customers SET NAID = 1",
    };
    for (const char* sql : statements) {
        EXPECT_EQ(errorOf([&] { rows(sql); }), (Told{error_number::statementError, "Database"}))
            << sql;
    }
    EXPECT_THROW(execute("SELECT * FROM Customers"), Error);
    EXPECT_THROW(execute("CREATE TABLE a (b); DROP TABLE Customers"), Error);
    EXPECT_EQ(rows("SELECT COUNT(*) FROM Customers"), "3");
}

}  // namespace
}  // namespace ledgerwick
