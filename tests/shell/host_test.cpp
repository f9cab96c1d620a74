#include "ledgerwick/shell/host.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "tests/support/expect.h"

namespace ledgerwick {
namespace {

using test::errorOf;
using test::Told;

TEST(Host, AMemberThatIsLeftOutIsToldByItsName) {
    VariantArray array;
    std::string text;
    std::int32_t number = 0;
    struct {
        const char* member;
        std::function<void()> use;
    } const members[] = {
        {"g_rsPRControl", [] { HostState().g_rsPRControl(); }},
        {"g_blnPRSchUp", [] { HostState().g_blnPRSchUp(true); }},
        {"GetParameterField", [] { ProgramFunctions().GetParameterField("PRNExpD_M1"); }},
        {"DeleteFromArray", [&] { ProgramFunctions().DeleteFromArray(array, 1); }},
        {"checkBackupDir", [] { FileFunctions().checkBackupDir("AE Letter Templates"); }},
        {"App", [] { HostGlobal().App(); }},
        {"Path", [] { HostApp().Path(); }},
        {"TempTableExists", [] { DataAccess().TempTableExists("PRPayImport"); }},
        {"SplitContactName",
         [&] { CustomerFunctions().SplitContactName("", text, text, text, text, text, number); }},
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
