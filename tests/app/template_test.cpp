// The check of templates agrees with the letters that are made from them.
#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>

#include "app/autoenrol.h"
#include "app/exchange.h"

namespace ledgerwick::app {
namespace {

namespace fs = std::filesystem;

TEST(Templates, APlaceholderThatALetterLeavesIsNamedByTheCheck) {
    std::string name = (fs::path(testing::TempDir()) / "templatesXXXXXX").string();
    const fs::path folder = ::mkdtemp(name.data());
    const auto database = openDatabaseFile(":memory:");
    importCompany(*database, SAMPLE_COMPANY);
    database->exec("DELETE FROM Parameters WHERE ParName IN ('LELWeek', 'AETriggerAge')");
    HostSettings settings;
    settings.programPath = folder.string();
    HostSession session(database, Date::fromYmd(2026, 1, 30), settings);
    session.list().LoadEmployees();

    for (const auto type : {PR_AELT_ENROLMENT, PR_AELT_POSTPONEMENT, PR_AELT_NOT_ELIGIBLE,
                            PR_AELT_RE_ENROLMENT, PR_AELT_ENROLMENT_ATTACH}) {
        CAELetterDetail kind;
        kind.LetterType(type);
        ASSERT_EQ(letterTypeOfTemplate(kind.LetterTypeText() + ".txt"), type);
        for (const auto& placeholder : letterPlaceholders) {
            std::string bytes(placeholder.text);
            if (const auto at = bytes.find("£"); at != bytes.npos) bytes.replace(at, 2, "\xA3");
            std::ofstream(folder / (kind.LetterTypeText() + ".txt"), std::ios::binary) << bytes;
            bool isLeft = false;
            for (const auto& worker : recipients(session, type)) {
                isLeft |= letterTo(session, *worker, type).find(placeholder.text) != bytes.npos;
            }
            EXPECT_EQ(isLeft, !whyUnfilled(placeholder.value, type, &session.parameters()).empty())
                << kind.LetterTypeText() << " " << placeholder.text;
        }
    }
    fs::remove_all(folder);
}

}  // namespace
}  // namespace ledgerwick::app
