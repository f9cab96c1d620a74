// What the C interface tells of wrong arguments, wrong threads and damaged data; the road itself is
// driven by the programs in C and Python.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "hostkit/sqlite/database.h"
#include "ledgerwick_c.h"

namespace ledgerwick {
namespace {

using testing::HasSubstr;

constexpr ledgerwick_date today = 20160408;

class CInterface : public testing::Test {
  protected:
    CInterface() {
        const auto* const test = testing::UnitTest::GetInstance()->current_test_info();
        path_ = testing::TempDir() + "capi_" + test->name() + ".db";
        removeFile();
        must(ledgerwick_company_create(path_.c_str(), 2016, &error_));
        must(ledgerwick_session_open(path_.c_str(), today, nullptr, &session_, &error_));
        addPerson(1, "Ann \xE2\x82\xAC Smith");
        must(ledgerwick_load(session_, &error_));
        must(ledgerwick_employment_add(session_, 1, 20160406, 0, 0, nullptr, today, 20160410,
                                       nullptr, &error_));
        must(ledgerwick_employees(session_, 0, &table_, &error_));
        must(ledgerwick_row_open(session_, "Customers", 1, &row_, &error_));
    }
    ~CInterface() override {
        ledgerwick_row_close(row_, nullptr);
        ledgerwick_table_close(table_, nullptr);
        ledgerwick_session_close(session_, nullptr);
        removeFile();
    }

    void must(std::int32_t number) const {
        ASSERT_EQ(number, LEDGERWICK_OK) << error_.source << ": " << error_.description;
    }
    void removeFile() const {
        for (const char* ending : {"", "-wal", "-shm"}) std::filesystem::remove(path_ + ending);
    }
    void addPerson(int naid, const char* name) {
        ledgerwick_row* row = nullptr;
        must(ledgerwick_row_new(session_, "customers", &row, &error_));
        must(ledgerwick_row_set_integer(row, "naid", naid, &error_));
        must(ledgerwick_row_set_text(row, "NABusName", name, &error_));
        std::int64_t key = 0;
        must(ledgerwick_row_store(row, &key, &error_));
        EXPECT_EQ(key, naid);
        must(ledgerwick_row_close(row, &error_));
        must(ledgerwick_row_new(session_, "PREmployeeDetails", &row, &error_));
        must(ledgerwick_row_set_integer(row, "PRENAID", naid, &error_));
        must(ledgerwick_row_set_integer(row, "PREPayFrequency", LEDGERWICK_WEEKLY, &error_));
        must(ledgerwick_row_store(row, nullptr, &error_));
        must(ledgerwick_row_close(row, &error_));
    }
    std::string cell(std::int64_t row, const char* name) {
        std::int32_t column = -1;
        const char* text = "";
        must(ledgerwick_table_find(table_, name, &column, &error_));
        must(ledgerwick_table_text(table_, row, column, &text, nullptr, &error_));
        return text;
    }

    std::string path_;
    ledgerwick_session* session_ = nullptr;
    ledgerwick_table* table_ = nullptr;
    ledgerwick_row* row_ = nullptr;
    mutable ledgerwick_error error_{};
};

// Each wrong argument has its own number, and a sentence that names it.
TEST_F(CInterface, TellsWrongArguments) {
    ledgerwick_session* other = nullptr;
    ledgerwick_table* out = nullptr;
    ledgerwick_row* row = nullptr;
    std::int64_t number = 0;
    ledgerwick_options unknown{1000, 0, 0, 0, nullptr, nullptr, nullptr, 0};
    ledgerwick_options reckless{sizeof unknown, 7, 0, 0, nullptr, nullptr, nullptr, 0};
    ledgerwick_options hostile{sizeof unknown, 0, 0, 0, nullptr, "1; DROP TABLE PRPay", nullptr, 0};
    const char* const path = path_.c_str();
    ledgerwick_error* const e = &error_;
    struct Case {
        std::int32_t expected;
        const char* sentence;
        std::function<std::int32_t()> run;
    };
    const Case cases[] = {
        {91, "handle is NULL", [&] { return ledgerwick_load(nullptr, e); }},
        {91, "text is NULL", [&] { return ledgerwick_company_create(nullptr, 2016, e); }},
        {91, "no place", [&] { return ledgerwick_employees(session_, 0, nullptr, e); }},
        {91, "no employee 77", [&] { return ledgerwick_employees(session_, 77, &out, e); }},
        {91, "text is NULL", [&] { return ledgerwick_row_integer(row_, nullptr, &number, e); }},
        {91, "text is NULL", [&] { return ledgerwick_row_set_text(row_, "NASeq", nullptr, e); }},
        {58, "already", [&] { return ledgerwick_company_create(path, 2016, e); }},
        {5, "1999", [&] { return ledgerwick_company_create("no.db", 1999, e); }},
        {5, "no file", [&] { return ledgerwick_company_create(":memory:", 2016, e); }},
        {3146, "", [&] { return ledgerwick_company_create("/no/such/folder/x.db", 2016, e); }},
        {53, "no.db", [&] { return ledgerwick_session_open("no.db", today, nullptr, &other, e); }},
        {13, "not set", [&] { return ledgerwick_session_open(path, 0, nullptr, &other, e); }},
        {5, "size", [&] { return ledgerwick_session_open(path, today, &unknown, &other, e); }},
        {5, "durability",
         [&] { return ledgerwick_session_open(path, today, &reckless, &other, e); }},
        {5, "workstation",
         [&] { return ledgerwick_session_open(path, today, &hostile, &other, e); }},
        {13, "20160230",
         [&] { return ledgerwick_count_due(session_, 20160230, nullptr, nullptr, e); }},
        {13, "-20160408", [&] { return ledgerwick_set_today(session_, -20160408, e); }},
        {9910, "(7)",
         [&] { return ledgerwick_pay_period(today, 7, nullptr, nullptr, nullptr, e); }},
        {9909, "(0)",
         [&] { return ledgerwick_pay_period(today, 0, nullptr, nullptr, nullptr, e); }},
        {6, "Overflow", [&] { return ledgerwick_tax_week_end(session_, 40000, nullptr, e); }},
        {3265, "PRNoSuch",
         [&] { return ledgerwick_get_parameter(session_, "PRNoSuch", nullptr, e); }},
        {3265, "sqlite_master",
         [&] { return ledgerwick_rows(session_, "sqlite_master", 0, &out, e); }},
        {3265, "no field", [&] { return ledgerwick_rows(session_, "UoM", 1, &out, e); }},
        {3265, "Parameters",
         [&] { return ledgerwick_row_open(session_, "Parameters", 1, &row, e); }},
        {3021, "no row 99", [&] { return ledgerwick_row_open(session_, "PRPay", 99, &row, e); }},
        {3265, "NoSuch", [&] { return ledgerwick_row_set_integer(row_, "NoSuch", 1, e); }},
        {13, "NAID: Type", [&] { return ledgerwick_row_set_text(row_, "NAID", "one", e); }},
        {6, "NAID: Over", [&] { return ledgerwick_row_set_integer(row_, "NAID", INT64_MAX, e); }},
        {9, "row 1", [&] { return ledgerwick_table_integer(table_, 1, 0, &number, e); }},
        {9, "column -1", [&] { return ledgerwick_table_integer(table_, 0, -1, &number, e); }},
        {9, "column 99", [&] { return ledgerwick_table_name(table_, 99, nullptr, e); }},
        {3265, "salary", [&] { return ledgerwick_table_find(table_, "salary", nullptr, e); }},
        {13, "Type mismatch", [&] { return ledgerwick_table_integer(table_, 0, 2, &number, e); }},
        {20001, "UTF-8", [&] { return ledgerwick_row_set_text(row_, "NASeq", "\xC3(", e); }},
        {20001, "UTF-8", [&] { return ledgerwick_table_find(table_, "\xED\xA0\x80", nullptr, e); }},
        {5, "has an employment",
         [&] {
             return ledgerwick_employment_add(session_, 1, today, 0, 0, nullptr, 0, 0, nullptr, e);
         }},
        {5, "cannot end", [&] { return ledgerwick_employment_end(session_, 1, 20150101, e); }},
        {5, "0 or 1, not 2",
         [&] { return ledgerwick_next_pay_date(session_, -1, 2, 0, nullptr, nullptr, e); }},
        {5, "none has begun", [&] { return ledgerwick_transaction_end(session_, 1, e); }},
        {5, "letter 9", [&] { return ledgerwick_ae_letter(session_, 1, 9, nullptr, e); }},
        {53, "Enrolment.txt", [&] { return ledgerwick_ae_letter(session_, 1, 1, nullptr, e); }},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.sentence);
        EXPECT_EQ(each.run(), each.expected);
        EXPECT_EQ(error_.number, each.expected);
        const std::string told = std::string(error_.source) + ": " + error_.description;
        EXPECT_THAT(told, HasSubstr(each.sentence));
    }
    EXPECT_EQ(ledgerwick_load(nullptr, nullptr), LEDGERWICK_NULL);  // nobody to tell
    EXPECT_FALSE(std::filesystem::exists("no.db"));
}

// A handle is never followed: closed, of another kind, of another thread, or made up.
TEST_F(CInterface, TellsHandlesThatAreNone) {
    std::thread([this] {
        ledgerwick_error error{};
        EXPECT_EQ(ledgerwick_load(session_, &error), LEDGERWICK_WRONG_THREAD);
        EXPECT_THAT(error.description, HasSubstr("another thread"));
        EXPECT_EQ(ledgerwick_table_close(table_, &error), LEDGERWICK_WRONG_THREAD);
        ledgerwick_session* own = nullptr;  // closed with the thread
        EXPECT_EQ(ledgerwick_session_open(path_.c_str(), today, nullptr, &own, &error), 0);
        EXPECT_EQ(ledgerwick_load(own, &error), LEDGERWICK_OK) << error.description;
    }).join();
    auto* const table = reinterpret_cast<ledgerwick_table*>(session_);
    auto* const invented = reinterpret_cast<ledgerwick_session*>(std::uintptr_t{0x7fff1234});
    EXPECT_EQ(ledgerwick_table_close(table, &error_), LEDGERWICK_TYPE_MISMATCH);
    EXPECT_EQ(ledgerwick_load(invented, &error_), LEDGERWICK_CLOSED);

    must(ledgerwick_session_close(session_, &error_));
    EXPECT_EQ(ledgerwick_session_close(session_, &error_), LEDGERWICK_CLOSED);
    EXPECT_EQ(ledgerwick_row_store(row_, nullptr, &error_), LEDGERWICK_CLOSED);
    EXPECT_EQ(cell(0, "next_pay"), "2016-04-08");  // tables stay
    session_ = nullptr;
}

// A copy of the session in a child shares the file with the parent, whose locks it would end.
TEST_F(CInterface, IsRefusedInAForkedChildWhichOpensItsOwn) {
    const pid_t child = fork();
    if (child == 0) {
        ledgerwick_session* own = nullptr;
        const bool sound =
            ledgerwick_load(session_, &error_) == LEDGERWICK_WRONG_PROCESS &&
            ledgerwick_session_close(session_, nullptr) == LEDGERWICK_WRONG_PROCESS &&
            ledgerwick_session_open(path_.c_str(), today, nullptr, &own, &error_) == 0 &&
            own != session_ && ledgerwick_load(own, &error_) == 0;
        _exit(sound ? 0 : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    must(ledgerwick_load(session_, &error_));
}

// Without employees a query would tell of an empty company, and a fill fail behind its rows.
TEST_F(CInterface, SaysThatNothingIsLoadedBeforeItWrites) {
    ledgerwick_session* bare = nullptr;
    must(ledgerwick_session_open(path_.c_str(), today, nullptr, &bare, &error_));
    ledgerwick_table* table = nullptr;
    EXPECT_EQ(ledgerwick_count(bare, nullptr, nullptr, nullptr, &error_), LEDGERWICK_NOT_LOADED);
    EXPECT_EQ(ledgerwick_fill_missing_periods(bare, &table, &error_), LEDGERWICK_NOT_LOADED);
    EXPECT_EQ(ledgerwick_run_open(bare, today, LEDGERWICK_ALL, 0, 0, &table, nullptr, &error_),
              LEDGERWICK_NOT_LOADED);
    EXPECT_THAT(error_.description, HasSubstr("ledgerwick_load"));
    must(ledgerwick_reload(bare, 1, &error_));
    must(ledgerwick_count(bare, nullptr, nullptr, nullptr, &error_));
    must(ledgerwick_session_close(bare, &error_));
}

// Sessions of one thread take turns, each on its own company.
TEST_F(CInterface, KeepsSessionsOfOneThreadApart) {
    const std::string path = path_ + ".second";
    std::filesystem::remove(path);
    ledgerwick_session* second = nullptr;
    must(ledgerwick_company_create(path.c_str(), 2020, &error_));
    must(ledgerwick_session_open(path.c_str(), 20200408, nullptr, &second, &error_));
    must(ledgerwick_load(second, &error_));
    for (int turn = 0; turn < 2; ++turn) {
        std::int32_t year = 0;
        std::int32_t people = 0;
        must(ledgerwick_reload(session_, 1, &error_));
        must(ledgerwick_payroll_year(session_, &year, &error_));
        must(ledgerwick_count(session_, &people, nullptr, nullptr, &error_));
        EXPECT_EQ(year * 100 + people, 1701);
        must(ledgerwick_payroll_year(second, &year, &error_));
        must(ledgerwick_count(second, &people, nullptr, nullptr, &error_));
        EXPECT_EQ(year * 100 + people, 2100);
    }
    must(ledgerwick_session_close(second, &error_));
    must(ledgerwick_reload(session_, 1, &error_));
    std::filesystem::remove(path);
}

// What comes out is UTF-8 whatever the database holds, and long texts are cut between characters.
TEST_F(CInterface, HandsOutSoundTexts) {
    EXPECT_EQ(cell(0, "name"), "Ann \xE2\x82\xAC Smith");
    const auto database = sqlite::SqliteDatabase::open(path_);
    database->exec("UPDATE Customers SET NABusName = CAST(x'41FF00C342' AS TEXT)");
    ledgerwick_table* rows = nullptr;
    const char* text = nullptr;
    std::size_t length = 0;
    std::int32_t column = 0;
    must(ledgerwick_rows(session_, "Customers", 1, &rows, &error_));
    must(ledgerwick_table_find(rows, "NABusName", &column, &error_));
    must(ledgerwick_table_text(rows, 0, column, &text, &length, &error_));
    EXPECT_EQ(std::string(text, length), std::string("A\xEF\xBF\xBD\0\xEF\xBF\xBD"
                                                     "B",
                                                     9));
    must(ledgerwick_table_close(rows, &error_));

    std::string name(5000, 'x');
    for (std::size_t i = 0; i + 3 < name.size(); i += 3) name.replace(i, 3, "\xE2\x82\xAC");
    for (int shift = 0; shift < 3; ++shift) {
        EXPECT_EQ(ledgerwick_get_parameter(session_, name.c_str(), nullptr, &error_), 3265);
        const std::string told = error_.description;
        EXPECT_GE(told.size(), sizeof error_.description - 4);
        EXPECT_EQ(told.substr(told.size() - 3), "\xE2\x82\xAC");
        name.insert(0, "y");
    }
}

}  // namespace
}  // namespace ledgerwick
