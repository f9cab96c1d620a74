#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <utility>

#include "hostkit/forwarding/forwarding_database.h"
#include "hostkit/office/letters.h"
#include "ledgerwick/autoenrol/ae_letter_detail.h"
#include "ledgerwick/host/host.h"
#include "ledgerwick/host/identify.h"
#include "tests/support/company.h"
#include "tests/support/errors.h"
#include "tests/support/expect.h"

namespace ledgerwick::test {
namespace {

namespace fs = std::filesystem;

struct Files : FileFunctions {
    std::function<void(std::string_view)> onCheck = [](std::string_view) {};
    void checkBackupDir(std::string_view name) override { onCheck(name); }
};

struct Global : HostGlobal {
    struct : HostApp {
        std::string path;
        std::string Path() override { return path; }
    } app;
    HostApp& App() override { return app; }
};

fs::path newFolder() {
    std::string name = (fs::path(testing::TempDir()) / "lettersXXXXXX").string();
    return ::mkdtemp(name.data());
}

using Filling = std::function<void(CAELetterDetail&)>;

// A host whose program folder is a new one for each test. Template texts are the bytes of the file.
class Letter : public testing::Test {
  protected:
    Letter() {
        moveProgram(folder);
        identify.Setfp(files);
    }
    ~Letter() override {
        identify.SetCallerGlobal(nullptr);
        identify.Setfp(nullptr);
        fs::remove_all(folder);
    }

    void moveProgram(const fs::path& path) {
        const auto global = std::make_shared<Global>();
        global->app.path = path.string();
        identify.SetCallerGlobal(global);
    }
    void write(const fs::path& file, const std::string& bytes) const {
        fs::create_directories((folder / file).parent_path());
        std::ofstream(folder / file, std::ios::binary) << bytes;
    }
    std::string enrolmentText(const Filling& fill = [](CAELetterDetail&) {}) const {
        CAELetterDetail letter;
        letter.LetterType(PR_AELT_ENROLMENT);
        fill(letter);
        return letter.LetterText();
    }

    fs::path folder = newFolder();
    std::shared_ptr<Files> files = std::make_shared<Files>();
    Identify identify;
};

TEST_F(Letter, FillsItsPlaceholders) {
    struct Case {
        const char* reason;
        const char* bytes;
        Filling fill;
        const char* expected;
    };
    for (const Case& c : std::vector<Case>{
             {"each value has its picture",
              "%AETrigger\xA3M%|%AETrigger\xA3W%|%AEMinContrib%|%AEMinEmployerContrib%|%"
              "PayDateFull%",
              [](CAELetterDetail& letter) {
                  letter.AETriggerGBP_M(Currency::fromWhole(10000));
                  letter.AETriggerGBP_W(Currency::fromDouble(192.49));
                  letter.AEMinContribPct(2.5F);
                  letter.AEMinEmployerContribPct(0.0F);
                  letter.PayDateFull(on(9, 4, 2016));
              },
              "10000|192|3|0| 09 April 2016"},
             {"the first value set counts, though the get gives the last",
              "%AETrigger\xA3W% %Forename% %Forename%",
              [](CAELetterDetail& letter) {
                  letter.AETriggerGBP_W(Currency::fromWhole(192));
                  letter.AETriggerGBP_W(Currency::fromWhole(200));
                  letter.EmployeeForename("");
                  letter.EmployeeForename("Ann");
                  EXPECT_EQ(letter.AETriggerGBP_W(), Currency::fromWhole(200));
                  EXPECT_EQ(letter.EmployeeForename(), "Ann");
              },
              "192  "},
             {"they are filled in the order in which they were set",
              "%Forename%; %PensionProvider%",
              [](CAELetterDetail& letter) {
                  letter.PensionProvider("for %Forename%");
                  letter.EmployeeForename("of %PensionProvider%");
              },
              "of %PensionProvider%; for of %PensionProvider%"},
             {"what has no value stays, and case counts", "%LEL\xA3M%, %forename%\r\n",
              [](CAELetterDetail& letter) { letter.EmployeeForename("Ann"); },
              "%LEL£M%, %forename%\r\n"},
             {"single typographic quotes become apostrophes",
              "\x91your\x92 %PensionProvider% \x93plan\x94",
              [](CAELetterDetail& letter) { letter.PensionProvider("O’Hara‘s"); },
              "'your' O'Hara's “plan”"},
             {"before the year block goes, with its copies",
              "$Pre16_18Text$[Dear %Forename%]$Pre16_18Text$[Dear Ann]!",
              [](CAELetterDetail& letter) {
                  letter.PayrollYear(18);
                  letter.EmployeeForename("Ann");
              },
              "!"}}) {
        write("AE Letter Templates/Enrolment.txt", c.bytes);
        EXPECT_EQ(enrolmentText(c.fill), c.expected) << c.reason;
    }
}

TEST_F(Letter, PrefersTheTemplateFolderWhichTheHostChecksFirst) {
    EXPECT_EQ(enrolmentText(), "");
    write("Enrolment.txt", "plain");
    EXPECT_EQ(enrolmentText(), "plain");
    files->onCheck = [&](std::string_view name) {
        EXPECT_EQ(name, "AE Letter Templates");
        write("AE Letter Templates/Enrolment.txt", "just made");
    };
    EXPECT_EQ(enrolmentText(), "just made");
}

TEST_F(Letter, TellsATemplateThatCannotBeRead) {
    const fs::path unreadable = "/proc/self/mem";  // a regular file whose first byte is never there
    if (!fs::is_regular_file(unreadable)) GTEST_SKIP();
    fs::create_symlink(unreadable, folder / "Enrolment.txt");
    EXPECT_EQ(raisedBy([&] { enrolmentText(); }), error_number::fileError);
}

TEST_F(Letter, KeepsOrDeletesTheYearBlock) {
    struct Case {
        const char* reason;
        std::int16_t payrollYear;
        const char* text;
        const char* expected;
    };
    const Case cases[] = {
        {"the block is for years before 18", 17, "a $Pre16_18Text$[b ]c", "a b c"},
        {"18 itself is not before 18", 18, "a $Pre16_18Text$[b ]c", "a c"},
        {"the first number is not read", 17, "$Pre99_18Text$[b]", "b"},
        {"an empty block", 17, "a$Pre16_18Text$[]c", "ac"},
        {"tags are told by case", 18, "$pre16_18Text$[b]", "$pre16_18Text$[b]"},
        {"the text ends inside the tag", 18, "[a] $Pre16_18Text", "[a] $Pre16_18Text"},
        {"a letter for a digit", 18, "$Pre1x_18Text$[b]", "$Pre1x_18Text$[b]"},
        {"broken tags in front are passed over", 18, "$Pre1$Pre16_1$Pre16_18Text$[b]c",
         "$Pre1$Pre16_1c"},

        {"not ended, earlier year", 17, "a] $Pre16_18Text$[b", "a] $Pre16_18Text$[b"},
        {"not ended, later year", 18, "a] $Pre16_18Text$[b", "a] $Pre16_18Text$[b"},
        {"the text ends behind the tag", 18, "$Pre16_18Text$", "$Pre16_18Text$"},
        {"not opened at once, earlier year", 17, "$Pre16_18Text$ [b]", "$Pre16_18Text$ [b]"},
        {"not opened at once, later year", 18, "$Pre16_18Text$ [b]", "$Pre16_18Text$ [b]"},
        {"a malformed block hides a sound one", 18, "$Pre16_18Text$ $Pre16_19Text$[b]",
         "$Pre16_18Text$ $Pre16_19Text$[b]"},

        {"the first ] ends it, later year", 18, "$Pre16_18Text$[a [b] c]", " c]"},
        {"the first ] ends it, earlier year", 17, "$Pre16_18Text$[a [b] c]", "a [b c]"},
        {"copies of the block go too", 18, "$Pre16_18Text$[a]-$Pre16_18Text$[a]", "-"},
        {"another block stays", 18, "$Pre16_18Text$[a]-$Pre16_18Text$[b]", "-$Pre16_18Text$[b]"},
        {"each of its openings goes, one end", 17, "$Pre16_18Text$[a]-$Pre16_18Text$[b]", "a-b]"},
        {"only the first tag is worked", 18, "$Pre16_18Text$[a]-$Pre16_17Text$[b]",
         "-$Pre16_17Text$[b]"},
    };
    for (const Case& c : cases) {
        write("AE Letter Templates/Enrolment.txt", c.text);
        const auto inYear = [&](CAELetterDetail& letter) { letter.PayrollYear(c.payrollYear); };
        EXPECT_EQ(enrolmentText(inYear), c.expected) << c.reason;
    }
}

TEST_F(Letter, TakesTheSignatureFromTheProgramFolderOfItsMaking) {
    identify.SetCallerGlobal(nullptr);
    CAELetterDetail early;  // made without a program
    EXPECT_THROW(early.SignatureFile(), Error);
    moveProgram(folder);
    CAELetterDetail letter;
    moveProgram("/elsewhere");
    EXPECT_EQ(letter.SignatureFile(), (folder / "Graphics" / "Signature.gif").string());
    EXPECT_EQ(early.SignatureFile(), "/elsewhere/Graphics/Signature.gif");
    letter.SignatureFile("");
    EXPECT_EQ(letter.SignatureFile(), "");
}

TEST(LetterHeading, NamesTheSchemeAndTheType) {
    CAELetterDetail letter;
    for (const auto& [type, text] :
         {std::pair(0, "*** No Letter Type Set ***"), std::pair(1, "Enrolment"),
          std::pair(2, "Postponement"), std::pair(3, "Non-Qualifying"),
          std::pair(4, "Re-Enrolment"), std::pair(500, "Enrolment Attachment"),
          std::pair(5, "*** No Letter Type Set ***")}) {
        letter.LetterType(static_cast<PR_AE_LETTER_TYPES>(type));
        EXPECT_EQ(letter.LetterHeadingText(), text);
    }
    letter.EmployerSchemeName("Oak Plan");
    EXPECT_EQ(letter.LetterHeadingText(), "Oak Plan - *** No Letter Type Set ***");
}

TEST(LetterAddress, LosesEmptyLinesAtItsStartOnly) {
    CAELetterDetail letter;
    EXPECT_EQ(letter.EmployeeAddress(), "");
    for (const char* line : {"", "", "1 Low Road", "", "Ely", ""}) letter.AddAddressLine(line);
    EXPECT_EQ(letter.EmployeeAddress(), "1 Low Road\r\n\r\nEly\r\n");
}

TEST(Recipients, OfAPostponementAreThoseWhoseLastDayIsToday) {
    Company company;
    company.employee(7).weekly().details("PREPensionPostponementDate = #5/1/2016#");
    const auto database = std::make_shared<ForwardingDatabase>(company.database());
    for (const auto& [today, count] : {std::pair{"2016-05-01", 1U}, std::pair{"2016-05-02", 0U}}) {
        HostSession session(database, day(today));
        session.list().LoadEmployees();
        EXPECT_EQ(office::recipients(session, PR_AELT_POSTPONEMENT).size(), count) << today;
    }
}

}  // namespace
}  // namespace ledgerwick::test
