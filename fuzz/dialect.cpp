// Statements: a literal stays a literal, one statement stays one, and nothing that is read writes.
//
// Input: 0 and a text; 1, a statement with "@" where a text goes, and two texts, line by line; 2
// and a statement as it is.
#include <sqlite3.h>

#include <vector>

#include "fuzz/harness.h"
#include "hostkit/sqlite/database.h"
#include "hostkit/store/company_recordset.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick::fuzz {

namespace {

std::shared_ptr<sqlite::SqliteDatabase> newDatabase() {
    sqlite3_hard_heap_limit64(std::int64_t{256} << 20);
    auto database = sqlite::SqliteDatabase::open(":memory:");
    database->createSchema();
    database->exec("INSERT INTO Customers (NAID, NABusName) VALUES (1, 'one'), (2, 'two')");
    return database;
}

std::string quoted(std::string_view text) {
    return "'" + replaceAll(text, "'", "''") + "'";
}

// The tables and the rows of the one that is filled.
std::string contents(Database& database) {
    std::string text;
    for (const char* sql : {"SELECT group_concat(type || name || coalesce(sql, '')) FROM "
                            "(SELECT * FROM sqlite_schema UNION ALL SELECT * FROM "
                            "sqlite_temp_schema)",
                            "SELECT group_concat(NAID || NABusName) FROM Customers"}) {
        const auto rows = database.OpenRecordset(sql, RecordsetType::Snapshot);
        const auto& fields = dynamic_cast<const store::CompanyRecordset&>(*rows);
        text += rows->Value(fields.fieldName(0)).toText() + '\n';
    }
    return text;
}

void textComesBack(Database& database, const std::string& text) {
    const auto read = [&](const std::string& sql) {
        const auto row = database.OpenRecordset(sql, RecordsetType::Snapshot);
        CHECK(row->RecordCount() == 1, sql);
        return row->Value("a").toText();
    };
    const std::string literal = quoted(text);
    CHECK(read("SELECT " + literal + " AS a FROM Customers WHERE NAID = 1") == text, literal);
    CHECK(read("SELECT a FROM (SELECT " + literal + " AS a FROM Customers GROUP BY " + literal +
               " ORDER BY " + literal + ")") == text,
          literal);
    database.Execute("UPDATE Customers SET NABusName = " + literal + " WHERE NAID = 1", 128);
    CHECK(read("SELECT NABusName AS a FROM Customers WHERE NAID = 1 AND NABusName = " + literal) ==
              text,
          literal);
    CHECK(read("SELECT NABusName AS a FROM Customers WHERE NAID = 2") == "two", literal);
    database.Execute("UPDATE Customers SET NABusName = 'one' WHERE NAID = 1", 128);
}

// Whether a statement opens: 0, 3075 when it does not compile, else what reading it raises.
std::int32_t opening(Database& database, const std::string& sql, RecordsetType type) {
    return raisedBy([&] { database.OpenRecordset(sql, type); });
}

// What takes its time or memory by intent, and what asks for another value each time.
bool isHeavy(std::string_view sql) {
    std::string small(sql);
    for (char& c : small) c = static_cast<char>(c | 0x20);
    for (const char* word : {"recursive", "blob", "printf", "format", "random", "pragma"}) {
        if (small.find(word) != std::string::npos) return true;
    }
    return std::count(small.begin(), small.end(), ',') > 30;
}

}  // namespace

void fuzzOne(Input input) {
    static const auto database = newDatabase();
    static const std::string before = contents(*database);
    const std::size_t kind = input.choice(3);
    if (kind == 0) {
        textComesBack(*database, input.rest());
    } else if (kind == 1) {
        const std::string frame = input.line();
        const std::string first = quoted(input.line());
        const std::string second = quoted(input.rest());
        if (isHeavy(frame) || frame.find('\'') != std::string::npos) return;
        for (const auto type : {RecordsetType::Snapshot, RecordsetType::Dynaset}) {
            const auto one = opening(*database, replaceAll(frame, "@", first), type);
            const auto other = opening(*database, replaceAll(frame, "@", second), type);
            CHECK((one == 3075) == (other == 3075), frame + "\n" + first + "\n" + second);
        }
    } else {
        const std::string sql = input.rest();
        if (isHeavy(sql)) return;
        opening(*database, sql, RecordsetType::Snapshot);
        if (raisedBy([&] { database->OpenRecordset(sql, RecordsetType::Dynaset); }) == 0) {
            CHECK(sql.find('\0') == std::string::npos || sql.find('\'') != std::string::npos, sql);
        }
    }
    CHECK(contents(*database) == before, "the tables changed");
}

}  // namespace ledgerwick::fuzz
