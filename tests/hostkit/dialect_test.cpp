// The statements of the system, as they stand, on SQLite.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "hostkit/sqlite/database.h"
#include "hostkit/sqlite/recordset.h"
#include "ledgerwick/shell/schema.h"
#include "ledgerwick/values/error.h"

namespace ledgerwick {
namespace {

class Dialect : public testing::Test {
  protected:
    Dialect() {
        db_->createSchema();
        db_->exec(R"sql(
            INSERT INTO Customers (NAID, NASeq, NABusName, NAUserRef) VALUES
                (1, 'B', 'Bell', 'BEL01'), (2, 'A', 'Archer', 'ARC01'), (3, 'O', 'O''Hara', '');
            INSERT INTO PREmployeeDetails (PRENAID, PREPYEmployCount, PREPenWorkplaceSchemeID)
                VALUES (1, 1, 5), (2, 1, 0), (3, 1, 6);
            INSERT INTO PREmployments (PRTID, PRTNAID, PRTPayrollYear, PRTPYEmployCount,
                                       PRTStartDate, PRTType)
                VALUES (11, 1, 16, 1, 42100, 1), (12, 1, 15, 1, 41800, 1), (21, 2, 16, 1, 42000, 2);
            INSERT INTO PensionSchemes (PSID, PSDesc, PSDeductionsType, PSDefEE)
                VALUES (5, 'Five', 2, 1.5), (6, 'Six', 1, 2);
            INSERT INTO PRPay (PRPID, PRPNAID, PRPPayrollYear, PRPPYEmployCount, PRPWeekNo,
                               PRPPaymentPeriod, PRPPayDate, PRPRTIPayDate, PRPPeriodUpdated,
                               PRPHasBeenVisited, PRPPenWorkplaceSchemeID)
                VALUES (101, 1, 16, 1, 2, 1, 42122, 42122, -1, -1, 5),
                       (102, 1, 16, 1, 1, 1, 42115, 42115, -1, -1, 5),
                       (103, 1, 16, 1, 3, 1, 42129, 42129, 0, -1, 5),
                       (201, 2, 16, 1, 1, 0, 42115, 42115, 0, -1, 0),
                       (301, 3, 16, 1, 1, 1, 42115, 42115, 0, -1, 6);
            INSERT INTO UoM (UoMNo, UoMCode) VALUES (1, 'box');
            INSERT INTO Deadstock (DSIDNo, DSDesc, DSUoMConv, DSPurchUoM)
                VALUES (1, 'Apples', 1, 1), (2, 'Pears', 12, 1), (3, 'Plums', 0, 1);
        )sql");
    }

    // The rows as text: fields divided by "|", rows by ";".
    std::string rows(std::string_view sql, RecordsetType type = RecordsetType::Snapshot) {
        const auto rs = db_->OpenRecordset(sql, type);
        const auto& fields = dynamic_cast<sqlite::SqliteRecordset&>(*rs);
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
        // literals
        {"SELECT NAID FROM Customers WHERE NABusName = 'o''hara'", "3"},
        {"SELECT NAID, 'it''s', 1.5, -2, .5, 1E3 FROM Customers WHERE NAID = 1",
         "1|it's|1.5|-2|0.5|1000"},
        {"SELECT PRPID FROM PRPay WHERE PRPPayDate = #4/28/2015#", "101"},
        {"SELECT PRPID FROM PRPay WHERE PRPPayDate > # 4 / 28 / 2015 13:00:00 # ORDER BY PRPID",
         "103"},
        {"SELECT PRPID FROM PRPay WHERE PRPPayDate > #2015-04-28#AND PRPID>0", "103"},
        {"SELECT PRPID FROM prpay WHERE prpperiodupdated = TRUE ORDER BY prpid", "101;102"},
        {"SELECT prpid FROM PRPay WHERE PRPPeriodUpdated = false AND PRPNAID = 1", "103"},
        {"SELECT COUNT(*) FROM PRPay WHERE True", "5"},
        {"SELECT NAID FROM Customers WHERE NABusName IN ('Bell', 'ARCHER') ORDER BY 1", "1;2"},
        {"SELECT PRPNAID, COUNT(*) AS Rows FROM PRPay GROUP BY PRPNAID HAVING COUNT(*) > 1", "1|3"},
        // sorting: no regard to case, Null first
        {"SELECT NASeq FROM Customers ORDER BY NASeq", "A;B;O"},
        // division keeps its fraction
        {"SELECT 7 / 2, 7 / 2 / 2, 2 * 3 / 4, PRPWeekNo / 2 FROM PRPay WHERE PRPID = 103",
         "3.5|1.75|1.5|1.5"},
        {"SELECT 1 / 0 FROM UoM", "Null"},
        // functions
        {"SELECT Format(1234.5, '#,##0.00'), FORMAT(0.125, '0.00'), format(Null, '0') FROM UoM",
         "1,234.50|0.13|Null"},
        {"SELECT iif(NAID = 2, 'two', NABusName) FROM Customers ORDER BY NAID", "Bell;two;O'Hara"},
        {"SELECT Min(PRTStartDate) AS a, MAX(PRTID) AS b FROM PREmployments", "41800|21"},
        // names
        {"SELECT [NAID], Customers.[NASeq] FROM [Customers] WHERE [Customers].NAID = 1", "1|B"},
        // a column used in another one
        {"SELECT PRPWeekNo * 2 AS Twice, Twice + 1 AS More FROM PRPay WHERE PRPID = 103", "6|7"},
        {"SELECT Size + 0.5 AS Half, Format(1234, '#,##0') AS Size FROM UoM", "1234.5|1,234"},
        {"SELECT NAID AS NASeq, NASeq AS Own FROM Customers WHERE NAID = 1", "1|B"},
    };
    for (const Query& query : queries) EXPECT_EQ(rows(query.sql), query.rows) << query.sql;
}

TEST_F(Dialect, RunsTheStatementsOfTheSystem) {
    const std::vector<Query> queries{
        {"SELECT min(PRTStartDate) AS MinStart FROM PREmployments", "41800"},
        {"SELECT PRPay.PRPEPEDate FROM PRPay WHERE PRPay.PRPNAID = 1 AND PRPay.PRPPayrollYear = 16 "
         "AND PRPay.PRPPYEmployCount = 1 AND PRPay.PRPWeekNo < 2 AND PRPay.PRPPeriodUpdated = true "
         "ORDER BY PRPNAID, PRPPayrollYear, PRPPYEmployCount, PRPWeekNo, PRPRTIPayDate, PRPID",
         "30/12/1899"},
        {"SELECT max(PRPID) as PRPIDMax FROM PRPay WHERE PRPPayrollYear = 16 AND PRPNAID = 1 AND "
         "PRPPYEmployCount = 1 AND PRPRTIPayDate <= #4/28/2015# ",
         "102"},
        {"SELECT max(PRPID) as PRPIDMax FROM PRPay WHERE PRPPayrollYear = 3 AND PRPNAID = 1 AND "
         "PRPPYEmployCount = 1 AND PRPRTIPayDate <= #4/28/2015# ",
         "Null"},
        {"SELECT Min(PRPPayDate) as NextDate FROM PRPay WHERE PRPPeriodUpdated = False AND "
         "PRPPayrollYear = 16",
         "42115"},
        {"SELECT PRENAID, PREPenWorkplaceSchemeID, PSID, PSDefEE FROM PREmployeeDetails LEFT JOIN "
         "PensionSchemes ON PREmployeeDetails.PREPenWorkplaceSchemeID = PensionSchemes.PSID WHERE "
         "PREPenWorkplaceSchemeID = 0",
         "2|0|Null|Null"},
    };
    for (const Query& query : queries) EXPECT_EQ(rows(query.sql), query.rows) << query.sql;
}

TEST_F(Dialect, TheLoadsStreamInTheirOrder) {
    const auto employees = db_->OpenRecordset(
        "SELECT Customers.*, PREmployeeDetails.*, PREmployments.*, PensionSchemes.* FROM "
        "(((PREmployeeDetails LEFT JOIN Customers ON Customers.NAID = PREmployeeDetails.PRENAID) "
        "LEFT JOIN PREmployments ON PREmployments.PRTNAID = PREmployeeDetails.PRENAID) LEFT JOIN "
        "PensionSchemes ON PensionSchemes.PSID = PREmployeeDetails.PREPenWorkplaceSchemeID) "
        "ORDER BY PRTNAID, PRTPayrollYear, PRTPYEmployCount",
        RecordsetType::Snapshot);
    std::string order;
    for (; !employees->Eof(); employees->MoveNext()) {
        order += employees->GetText(field::NABusName);
        order += employees->Value(field::PRTID).isNull()
                     ? "/-"
                     : "/" + std::to_string(employees->GetInt32(field::PRTID));
        order += employees->IsNull(field::PSDesc) ? " " : "/" + employees->Value("psdesc").toText();
    }
    EXPECT_EQ(order, "O'Hara/-/SixBell/12/FiveBell/11/FiveArcher/21 ");

    const std::vector<FieldName> reads{field::PRPID, field::PRTID};
    const auto pay = db_->OpenRecordset(
        "SELECT * FROM PRPay LEFT JOIN PREmployments ON PREmployments.PRTNAID = PRPay.PRPNAID AND "
        "PREmployments.PRTPYEmployCount = PRPay.PRPPYEmployCount AND PREmployments.PRTPayrollYear "
        "= PRPay.PRPPayrollYear ORDER BY PRPNAID, PRPPayrollYear, PRPPYEmployCount, PRPWeekNo, "
        "PRPRTIPayDate, PRPID",
        RecordsetType::Snapshot, reads);
    order.clear();
    for (; !pay->Eof(); pay->MoveNext()) {
        order += pay->Value(field::PRPID).toText() + "/";
        order += pay->IsNull(field::PRTID) ? "- " : pay->Value(field::PRTID).toText() + " ";
    }
    EXPECT_EQ(order, "102/11 101/11 103/11 201/21 301/- ");
}

// The price of an order line: the quantity comes out as text with commas and goes into the price as
// a number; the discount is taken off as an amount.
TEST_F(Dialect, PricesOrderLines) {
    const std::string pricing =
        "SELECT OrdID, OrdNAID, OrdDSID, OrdActionDate, Format(OrdQty / iif(OrdDSID = 0, 1, "
        "DSUoMConv),'#,##0.0##') as Qty, DSDesc, UoMCode AS UoPCode, Format( iif(OrdDSID = 0, 0, "
        "(OrdPrice * DSUoMConv) * iif(OrdQty = 0, 1, Qty) * 1 - (OrdDiscount/100)) ,'#,##0.00' ) "
        "AS NetPrice, OrdStatus FROM (( Orders LEFT JOIN Deadstock ON Orders.ORDDSID = "
        "Deadstock.DSIDNo) LEFT JOIN UoM ON UoM.UoMNo = Deadstock.DSPurchUoM) WHERE OrdStatus < 5 "
        "AND OrdDSID <> 0 ORDER BY OrdNAID, OrdActionDate, UoMCode, DSDesc";
    struct Line {
        int item;
        const char* quantity;
        const char* price;
        const char* discount;
        const char* qty;
        const char* net;
    };
    const std::vector<Line> lines{
        {1, "1234.5", "2", "0", "1,234.5", "2,469.00"},
        {1, "1000", "0.125", "0", "1,000.0", "125.00"},
        {1, "10", "2", "50", "10.0", "19.50"},  // half a pound off
        {1, "0", "3", "0", "0.0", "3.00"},      // priced as one
        {2, "30", "0.5", "0", "2.5", "15.00"},
        {2, "7", "1", "0", "0.583", "7.00"},  // the rounded quantity is what is priced
        {1, "1000000", "0.01", "12.5", "1,000,000.0", "9,999.88"},
        {3, "5", "1", "0", "Null", "Null"},
        {9, "5", "1", "0", "Null", "Null"},  // an item that is not there
    };
    for (const Line& line : lines) {
        execute("DELETE FROM Orders");
        execute(
            "INSERT INTO Orders (OrdID, OrdNAID, OrdDSID, OrdActionDate, OrdQty, OrdPrice, "
            "OrdDiscount, OrdStatus) VALUES (1, 7, " +
            std::to_string(line.item) + ", #4/29/2015#, " + line.quantity + ", " + line.price +
            ", " + line.discount + ", 2)");
        for (const auto type : {RecordsetType::Snapshot, RecordsetType::Dynaset}) {
            const auto rs = db_->OpenRecordset(pricing, type);
            const auto text = [&](const FieldName& name) {
                return rs->IsNull(name) ? "Null" : std::string(rs->GetText(name));
            };
            EXPECT_EQ(text(field::Qty), line.qty);
            EXPECT_EQ(text(field::NetPrice), line.net) << line.quantity << " at " << line.price;
            EXPECT_EQ(rs->GetDate(field::OrdActionDate), Date::fromYmd(2015, 4, 29));
        }
    }
    const auto joined = db_->OpenRecordset(pricing, RecordsetType::Dynaset);
    EXPECT_EQ(joined->RecordCount(), 1);
    EXPECT_THROW(joined->Edit(), Error);
}

TEST_F(Dialect, UpdatesOverAJoinChangeTheFirstTable) {
    execute(
        "UPDATE PRPay LEFT JOIN PensionSchemes ON PRPay.PRPPenWorkplaceSchemeID = "
        "PensionSchemes.PSID SET PRPHasBeenVisited = False WHERE (PRPPayrollYear = 16) AND "
        "(PRPPeriodUpdated = False) AND (PSDeductionsType = 2)");
    EXPECT_EQ(visited(), "101;102;201;301");
    execute(
        "UPDATE PRPay INNER JOIN PREmployments ON PREmployments.PRTNAID = PRPay.PRPNAID "
        "SET PRPay.PRPHasBeenVisited = False");
    EXPECT_EQ(visited(), "301");
}

TEST_F(Dialect, UpdatesInAnyCaseAndSpacing) {
    execute(
        "UPDATE PRPAY SET PRPHasBeenVisited = FALSE WHERE PRPPeriodUpdated = FALSE AND "
        "PRPNAID = 1");
    EXPECT_EQ(visited(), "101;102;201;301");
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
    const auto first = db_->OpenRecordset("SELECT * FROM PRPay WHERE PRPNAID = 1 ORDER BY PRPID",
                                          RecordsetType::Snapshot);
    const auto second = db_->OpenRecordset("SELECT * FROM PRPay WHERE PRPNAID = 3 ORDER BY PRPID",
                                           RecordsetType::Snapshot);
    first->MoveNext();
    EXPECT_EQ(first->GetInt32(field::PRPID), 102);
    EXPECT_EQ(second->GetInt32(field::PRPID), 301);
}

TEST_F(Dialect, TakesMoreLiteralsThanAStatementIsKeptFor) {
    std::string sql =
        "UPDATE PRPay SET PRPHasBeenVisited = False, PRPStdHours = 3 / 2 "
        "WHERE PRPPayDate < #4/28/2015# AND PRPTaxCode = '' AND PRPID IN (0";
    for (int id = 1; id <= 3000; ++id) sql += "," + std::to_string(id);
    execute(sql + ")");
    EXPECT_EQ(visited(), "101;103");
    EXPECT_EQ(rows("SELECT PRPStdHours FROM PRPay WHERE PRPID = 102"), "1.5");
}

TEST_F(Dialect, HostileTextsStayTexts) {
    const std::vector<std::string> texts{
        "'; DROP TABLE Customers; --", "''",  "?1", "#1/1/2000#", "True", "a\"b]c[d`e",
        "\xC3\xA9\xE2\x82\xAC",        "%_\\"};
    for (const std::string& text : texts) {
        std::string literal = "'";
        for (const char c : text) literal += c == '\'' ? std::string("''") : std::string(1, c);
        literal += "'";
        execute("UPDATE Customers SET NABusName = " + literal + " WHERE NAID = 1");
        EXPECT_EQ(rows("SELECT NABusName FROM Customers WHERE NABusName = " + literal), text);
    }
    EXPECT_EQ(rows("SELECT COUNT(*) FROM Customers"), "3");
}

// Statements that are damaged anywhere give rows or an error that can be told.
TEST_F(Dialect, SurvivesDamagedStatements) {
    const std::vector<std::string> statements{
        "SELECT Customers.*, PSID AS [a], a / 2 AS b FROM ((PREmployeeDetails LEFT JOIN Customers "
        "ON "
        "Customers.NAID = PRENAID) LEFT JOIN PensionSchemes ON PSID = PREPenWorkplaceSchemeID) "
        "WHERE NABusName <> 'it''s' AND PREDoB < #4/29/2015 13:00:00# ORDER BY NAID, 1",
        "SELECT * FROM PRPay WHERE (PRPNAID = 1) AND (PRPPeriodUpdated = false) ORDER BY PRPID",
        "UPDATE PRPay LEFT JOIN PensionSchemes ON PRPPenWorkplaceSchemeID = PSID SET "
        "PRPay.PRPStdHours = 1.5, PRPHasBeenVisited = False WHERE PSDeductionsType = 2",
    };
    const std::string inserted = "'#[]()\",.*/=?; 9aTrueFROM";
    const std::vector<FieldName> reads{field::NAID, field::PRPID, "b"};
    std::uint32_t random = 20150429;
    const auto below = [&](std::size_t limit) {
        random = random * 1664525u + 1013904223u;
        return (random >> 8) % limit;
    };
    int opened = 0;
    for (int i = 0; i < 3000; ++i) {
        std::string sql = statements[below(statements.size())];
        for (std::size_t damage = below(4); damage > 0; --damage) {
            const std::size_t place = below(sql.size());
            const std::size_t length = 1 + below(6);
            switch (below(3)) {
                case 0:
                    sql.erase(place, length);
                    break;
                case 1:
                    sql.insert(place, 1, inserted[below(inserted.size())]);
                    break;
                default:
                    sql.insert(place, sql.substr(below(sql.size()), length));
            }
        }
        const auto type = below(2) == 0 ? RecordsetType::Snapshot : RecordsetType::Dynaset;
        try {
            if (sql.starts_with("UPDATE")) {
                execute(sql);
            } else {
                const auto rs =
                    db_->OpenRecordset(sql, type, below(2) == 0 ? FieldList(reads) : FieldList());
                for (; !rs->Eof(); rs->MoveNext()) rs->Value("b");
            }
            ++opened;
        } catch (const Error& e) {
            EXPECT_NE(e.Number(), 0) << sql;
        }
    }
    EXPECT_GT(opened, 100);
}

TEST_F(Dialect, TellsWhatDoesNotCompile) {
    const std::vector<std::string> statements{
        "SELECT * FROM Customers WHERE NABusName = 'open",
        "SELECT * FROM PRPay WHERE PRPPayDate = #13/13/2015#",
        "SELECT * FROM PRPay WHERE PRPPayDate = #2/30/2015#",
        "SELECT * FROM PRPay WHERE PRPPayDate = #4/29/2015",
        "SELECT * FROM Customers WHERE NAID = ?",
        "SELECT * FROM Customers WHERE NABusName = \"Bell\"",
        "SELECT NAID AS a FROM [Customers",
        "SELECT * FROM",
        "SELECT a + 1 AS b, b + 1 AS a FROM Customers",
        "SELECT NAID FROM Customers; DROP TABLE Customers",
        "",
        "UPDATE Customers SET NAID = 1",
    };
    for (const std::string& sql : statements) {
        try {
            rows(sql);
            ADD_FAILURE() << sql;
        } catch (const Error& e) {
            EXPECT_EQ(e.Number(), error_number::statementError) << sql;
            EXPECT_EQ(e.Source(), "Database");
        }
    }
    EXPECT_THROW(execute("SELECT * FROM Customers"), Error);
}

}  // namespace
}  // namespace ledgerwick
