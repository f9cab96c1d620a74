#include "ledgerwick/shell/host.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "tests/support/expect.h"

namespace ledgerwick {
namespace {

using test::errorOf;
using test::Told;

TEST(Host, AMemberThatIsLeftOutIsToldByItsName) {
    HostState g;
    ProgramFunctions pf;
    FileFunctions fp;
    HostGlobal global;
    HostApp app;
    DataAccess dataAccess;
    CustomerFunctions customers;
    VariantArray array;
    std::vector<std::int32_t> numbers;
    RecordsetRef recordset;
    std::string text;
    std::int32_t number = 0;
    struct {
        const char* member;
        std::function<void()> use;
    } const members[] = {
        {"DBDll", [&] { g.DBDll(); }},
        {"g_rsPRControl", [&] { g.g_rsPRControl(); }},
        {"g_dicPRYears", [&] { g.g_dicPRYears(); }},
        {"g_dtmToday", [&] { g.g_dtmToday(); }},
        {"g_iAEPRPStartDay", [&] { g.g_iAEPRPStartDay(); }},
        {"g_strPCID", [&] { g.g_strPCID(); }},
        {"g_strProgName", [&] { g.g_strProgName(); }},
        {"strCurFormat", [&] { g.strCurFormat(); }},
        {"g_blnPRSchUp", [&] { g.g_blnPRSchUp(); }},
        {"g_blnPRSchUp", [&] { g.g_blnPRSchUp(true); }},
        {"C_customerFunctions", [&] { g.C_customerFunctions(); }},
        {"DateToUSstr", [&] { pf.DateToUSstr(Date()); }},
        {"GetParameterField", [&] { pf.GetParameterField("PRNExpD_M1"); }},
        {"DaysInMonth", [&] { pf.DaysInMonth(Date()); }},
        {"DeleteFromArray", [&] { pf.DeleteFromArray(array, 1); }},
        {"BubbleSortLongArray", [&] { pf.BubbleSortLongArray(numbers); }},
        {"padstring", [&] { pf.padstring("7", 3, '0'); }},
        {"checkBackupDir", [&] { fp.checkBackupDir("AE Letter Templates"); }},
        {"App", [&] { global.App(); }},
        {"Path", [&] { app.Path(); }},
        {"TempTableExists", [&] { dataAccess.TempTableExists("PRPayImport"); }},
        {"NoNullRecordLine", [&] { dataAccess.NoNullRecordLine(recordset); }},
        {"SplitContactName",
         [&] { customers.SplitContactName("", text, text, text, text, text, number); }},
    };
    for (const auto& row : members) {
        EXPECT_EQ(errorOf(row.use), (Told{error_number::noSuchMember, row.member}));
    }
}

TEST(Host, ACriticalMessageGoesToTheErrorStreamByDefault) {
    testing::internal::CaptureStderr();
    HostState().ShowCriticalMessage("Payroll - Error", "Unable to set Next Pay Date!");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Payroll - Error: Unable to set Next Pay Date!\n");
}

}  // namespace
}  // namespace ledgerwick
