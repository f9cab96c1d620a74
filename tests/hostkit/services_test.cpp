// The kit's host services on a database in memory.
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <thread>

#include "hostkit/services/file_functions.h"
#include "hostkit/services/host_session.h"
#include "hostkit/services/program_functions.h"
#include "hostkit/services/terminal_text.h"
#include "hostkit/sqlite/database.h"
#include "ledgerwick/host/dll_global.h"
#include "ledgerwick/records/schema.h"
#include "ledgerwick/values/error.h"
#include "tests/support/errors.h"

namespace ledgerwick {
namespace {

using test::errorOf;
using test::raisedBy;
using test::Told;

std::shared_ptr<sqlite::SqliteDatabase> companyOfYear16() {
    auto database = sqlite::SqliteDatabase::open(":memory:");
    database->createSchema();
    database->exec(R"(
        INSERT INTO PRControl (PRCFCurrentYear) VALUES (16);
        INSERT INTO PRYearEnds (PRYEYear, PRYEDate) VALUES (15, 42099), (16, 42465);
        INSERT INTO Parameters (ParName, ParValue) VALUES ('PRNExpD_M1', '-6'), ('PREPED_M1', '0');
    )");
    return database;
}

const Date today = Date::fromYmd(2016, 1, 29);

TEST(HostSession, LinksTheLibraryUntilItsEnd) {
    auto first = std::make_unique<HostSession>(companyOfYear16(), today);
    auto second = std::make_unique<HostSession>(companyOfYear16(), today);
    CPayrollFunctions& ofTheFirst = first->payroll();
    EXPECT_TRUE(first->isInForce());  // by the call
    second->list();
    EXPECT_EQ(raisedBy([&] { ofTheFirst.C_UpdatePayPeriod(7, today); }), error_number::invalidCall);
    {
        HostSession third(companyOfYear16(), today);
        first->list();
        second->list();
    }
    EXPECT_TRUE(second->isInForce());
    second->letGo();
    EXPECT_TRUE(first->isInForce());
    second->list();
    first.reset();  // leaves the references that are no longer its own
    EXPECT_EQ(DLLGlobal::currentPayrollYear(), 16);
    EXPECT_EQ(DLLGlobal::g().g_dtmToday(), today);
    // The last Friday of the month after.
    EXPECT_EQ(second->payroll().C_Calc_Next_NExpDate(today, PFREQ_Monthly, PR_NExp_Pay),
              Date::fromYmd(2016, 2, 26));
    second.reset();
    EXPECT_EQ(raisedBy([] { DLLGlobal::g(); }), error_number::objectNotSet);
}

TEST(HostSession, WorksOnTheThreadThatItWasGivenTo) {
    HostSession session(companyOfYear16(), today);
    const auto onAnother = [&] {
        std::string told;
        std::thread([&] {
            told = errorOf([&] { session.list(); }).description;
            if (told.empty()) session.letGo();
        }).join();
        return told;
    };
    EXPECT_NE(onAnother().find("belongs to another thread"), std::string::npos);
    session.letGo();
    EXPECT_EQ(raisedBy([] { DLLGlobal::g(); }), error_number::objectNotSet);
    EXPECT_EQ(onAnother(), "");
    session.list().LoadEmployees();
    EXPECT_TRUE(session.isInForce());
}

TEST(HostSession, RefusesWhatItCannotOpen) {
    const auto path = std::filesystem::temp_directory_path() / "ledgerwick-no-such-company.db";
    EXPECT_EQ(raisedBy([&] { HostSession(path.string(), today); }), error_number::fileNotFound);
    EXPECT_FALSE(std::filesystem::exists(path));
    HostSettings settings;
    settings.pcId = "1; DROP TABLE PRPay";  // stands in the name of a table
    EXPECT_EQ(raisedBy([&] { HostSession(companyOfYear16(), today, settings); }),
              error_number::invalidCall);
}

TEST(KitHostState, FollowsTheControlRecordAndTheParameters) {
    HostSession session(companyOfYear16(), today);
    Recordset& control = session.state().g_rsPRControl();
    control.Edit();
    control.Value(field::PRCFCurrentYear, 17);
    control.Update();
    EXPECT_EQ(DLLGlobal::currentPayrollYear(), 17);

    EXPECT_EQ(session.state().strCurFormat(), "#,##0.00");
    EXPECT_EQ(session.state().g_iAEPRPStartDay(), 0);
    session.parameters().Set("AEPRPStartDay", std::int16_t{2});
    session.parameters().Set("prnexpd_m1", std::int16_t{15});  // replaces the row of that name
    session.parameters().Reload();
    EXPECT_EQ(DLLGlobal::pf().GetParameterField("PRNExpD_M1").toInt16(), 15);
    EXPECT_EQ(session.state().g_iAEPRPStartDay(), 2);
    const Told missing = errorOf([] { DLLGlobal::pf().GetParameterField("Unheard"); });
    EXPECT_EQ(missing.number, error_number::noSuchItem);
    EXPECT_NE(missing.description.find("Unheard"), std::string::npos);
}

TEST(KitProgramFunctions, WritesDatesMonthFirstPadsByCharactersAndDropsEqualElements) {
    KitProgramFunctions functions(nullptr);
    EXPECT_EQ(functions.DateToUSstr(Date::fromYmd(2016, 4, 29)), "4/29/2016");
    EXPECT_EQ(functions.DateToUSstr(Date::fromYmdHms(2016, 12, 5, 23, 5, 9)), "12/5/2016 23:05:09");
    EXPECT_EQ(functions.padstring("ÅØ", 3, '.'), ".ÅØ");
    EXPECT_EQ(functions.padstring("1234", 3, ' '), "123");
    EXPECT_EQ(functions.padstring("7", -1, ' '), "");
    VariantArray array(2, 4);
    array.at(2) = "";
    array.at(3) = "a";
    functions.DeleteFromArray(array, "");
    ASSERT_EQ(array.upperBound(), 3);  // the empty variant at the end is not the empty text
    EXPECT_EQ(array.at(2), Variant("a"));
}

TEST(KitFileFunctions, MakesTheFolderBelowTheProgram) {
    const auto program = std::filesystem::temp_directory_path() / "ledgerwick-services-test";
    std::filesystem::create_directory(program);
    KitFileFunctions files(program.string() + "/");
    files.checkBackupDir("AE Letter Templates");
    EXPECT_TRUE(std::filesystem::is_directory(program / "AE Letter Templates"));
    std::filesystem::remove_all(program);
    files.checkBackupDir("AE Letter Templates");  // no program folder: nothing is made, no error
    EXPECT_FALSE(std::filesystem::exists(program));
}

TEST(TerminalText, CannotSteerTheTerminal) {
    EXPECT_EQ(withoutControls("Ann\x1b[2J\r\nLee\x7f"), "Ann [2J  Lee ");
    EXPECT_EQ(withoutControls("Zoë \xC2\x9B"), "Zoë   ");
    EXPECT_EQ(withoutControls("a\u202Eb\u2069c\u202F"), "a   b   c\u202F");
}

}  // namespace
}  // namespace ledgerwick
