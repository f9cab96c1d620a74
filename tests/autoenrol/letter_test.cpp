#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <functional>

#include "ledgerwick/autoenrol/ae_letter_detail.h"
#include "tests/support/errors.h"
#include "tests/support/expect.h"
#include "tests/support/memory_host.h"

namespace ledgerwick::test {
namespace {

namespace fs = std::filesystem;

class Files : public FileFunctions {
  public:
    std::function<void(std::string_view)> onCheck = [](std::string_view) {};
    void checkBackupDir(std::string_view name) override { onCheck(name); }
};

class Global : public HostGlobal {
  public:
    explicit Global(std::string path) : app_(std::move(path)) {}
    HostApp& App() override { return app_; }

  private:
    class OneApp : public HostApp {
      public:
        explicit OneApp(std::string path) : path_(std::move(path)) {}
        std::string Path() override { return path_; }

      private:
        std::string path_;
    } app_;
};

// The program folder and the file functions of the host, for as long as the object lives.
class ProgramFolder {
  public:
    explicit ProgramFolder(const fs::path& path) {
        move(path);
        identify_.Setfp(files);
    }
    ~ProgramFolder() {
        identify_.SetCallerGlobal(nullptr);
        identify_.Setfp(nullptr);
    }
    ProgramFolder(const ProgramFolder&) = delete;
    ProgramFolder& operator=(const ProgramFolder&) = delete;

    void move(const fs::path& path) {
        identify_.SetCallerGlobal(std::make_shared<Global>(path.string()));
    }

    std::shared_ptr<Files> files = std::make_shared<Files>();

  private:
    Identify identify_;
};

fs::path newFolder() {
    std::string name = (fs::path(testing::TempDir()) / "lettersXXXXXX").string();
    return ::mkdtemp(name.data());
}

// A host whose program folder is a new one for each test. Template texts are the bytes of the file.
class Letter : public testing::Test {
  protected:
    ~Letter() override { fs::remove_all(folder); }

    void write(const fs::path& file, const std::string& bytes) const {
        fs::create_directories((folder / file).parent_path());
        std::ofstream(folder / file, std::ios::binary) << bytes;
    }

    std::string enrolmentText(const std::string& bytes, std::int16_t payrollYear = 17) const {
        write("AE Letter Templates/Enrolment.txt", bytes);
        CAELetterDetail letter;
        letter.LetterType(PR_AELT_ENROLMENT);
        letter.PayrollYear(payrollYear);
        return letter.LetterText();
    }

    fs::path folder = newFolder();
    ProgramFolder program{folder};
};

TEST_F(Letter, ShowsEachValueInItsPicture) {
    write("AE Letter Templates/Postponement.txt",
          "%Forename%|%AETrigger\xA3M%|%AETrigger\xA3"
          "A%|%AETrigger\xA3W%|%AEMinContrib%|%AEMinEmployerContrib%|%AEMinEmployeeContrib%|"
          "%PensionProvider%|%LEL\xA3M%|%LEL\xA3W%|%AETriggerAge%|%PayDateFull%|"
          "%AEPostponementEndDate%|\xA3\r\n");
    CAELetterDetail letter;
    letter.LetterType(PR_AELT_POSTPONEMENT);
    letter.EmployeeForename("Zoë");
    letter.AETriggerGBP_M(Currency::fromWhole(10000));
    letter.AETriggerGBP_A(Currency::fromWhole(10000));
    letter.AETriggerGBP_W(Currency::fromDouble(192.49));
    letter.AEMinContribPct(2.5F);
    letter.AEMinEmployerContribPct(0.0F);
    letter.AEMinEmployeeContribPct(0.8F);
    letter.PensionProvider("Oak & Ash");
    letter.LELGBP_M(Currency::fromWhole(486));
    letter.LELGBP_W(Currency::fromWhole(112));
    letter.AETriggerAge(22);
    letter.PayDateFull(on(9, 4, 2016));
    letter.AEPostponementEndDate(on(31, 12, 2016));
    EXPECT_EQ(letter.LetterText(),
              "Zoë|10000|10,000|192|3|0|1|Oak & Ash|486|112| 22| 09 April 2016| 31 December 2016|£"
              "\r\n");
}

TEST_F(Letter, ShowsTheFirstValueSetWhileTheGetGivesTheLast) {
    write("AE Letter Templates/Enrolment.txt", "%AETrigger\xA3W% %Forename% %Forename%");
    CAELetterDetail letter;
    letter.LetterType(PR_AELT_ENROLMENT);
    letter.AETriggerGBP_W(Currency::fromWhole(192));
    letter.AETriggerGBP_W(Currency::fromWhole(200));
    letter.EmployeeForename("");
    letter.EmployeeForename("Ann");
    EXPECT_EQ(letter.AETriggerGBP_W(), Currency::fromWhole(200));
    EXPECT_EQ(letter.EmployeeForename(), "Ann");
    EXPECT_EQ(letter.LetterText(), "192  ");
}

TEST_F(Letter, FillsPlaceholdersInTheOrderInWhichTheyWereSet) {
    write("AE Letter Templates/Enrolment.txt", "%Forename%; %PensionProvider%");
    CAELetterDetail letter;
    letter.LetterType(PR_AELT_ENROLMENT);
    letter.PensionProvider("for %Forename%");
    letter.EmployeeForename("of %PensionProvider%");
    EXPECT_EQ(letter.LetterText(), "of %PensionProvider%; for of %PensionProvider%");
}

TEST_F(Letter, LeavesPlaceholdersWithoutAValue) {
    EXPECT_EQ(enrolmentText("Dear %Forename%, %forename%"), "Dear %Forename%, %forename%");
}

TEST_F(Letter, TurnsTypographicQuotesIntoApostrophes) {
    write("Enrolment.txt", "\x91your\x92 %PensionProvider% \x93plan\x94");
    CAELetterDetail letter;
    letter.LetterType(PR_AELT_ENROLMENT);
    letter.PensionProvider("O’Hara‘s");
    EXPECT_EQ(letter.LetterText(), "'your' O'Hara's “plan”");
}

TEST_F(Letter, PrefersTheTemplateFolder) {
    CAELetterDetail letter;
    letter.LetterType(PR_AELT_NOT_ELIGIBLE);
    EXPECT_EQ(letter.LetterText(), "");
    write("Non-Qualifying.txt", "plain");
    EXPECT_EQ(letter.LetterText(), "plain");
    write("AE Letter Templates/Non-Qualifying.txt", "");
    EXPECT_EQ(letter.LetterText(), "");
}

TEST_F(Letter, HasTheHostCheckTheFolderFirst) {
    program.files->onCheck = [&](std::string_view name) {
        EXPECT_EQ(name, "AE Letter Templates");
        write("AE Letter Templates/Enrolment Attachment.txt", "just made");
    };
    CAELetterDetail letter;
    letter.LetterType(PR_AELT_ENROLMENT_ATTACH);
    EXPECT_EQ(letter.LetterText(), "just made");
}

TEST_F(Letter, TellsATemplateThatCannotBeRead) {
    const fs::path unreadable = "/proc/self/mem";  // a regular file whose first byte is never there
    if (!fs::is_regular_file(unreadable)) GTEST_SKIP();
    fs::create_symlink(unreadable, folder / "Enrolment.txt");
    CAELetterDetail letter;
    letter.LetterType(PR_AELT_ENROLMENT);
    EXPECT_EQ(raisedBy([&] { letter.LetterText(); }), error_number::fileError);
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
        {"nor is 19", 19, "$Pre16_18Text$[b]", ""},
        {"the first number is not read", 17, "$Pre99_18Text$[b]", "b"},
        {"an empty block", 17, "a$Pre16_18Text$[]c", "ac"},
        {"no tag", 17, "a [b] $Pre c", "a [b] $Pre c"},
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
        {"never opened", 18, "$Pre16_18Text$]", "$Pre16_18Text$]"},
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
    for (const Case& c : cases)
        EXPECT_EQ(enrolmentText(c.text, c.payrollYear), c.expected) << c.reason;
}

TEST_F(Letter, FillsPlaceholdersInsideTheYearBlockFirst) {
    write("AE Letter Templates/Enrolment.txt",
          "$Pre16_18Text$[Dear %Forename%]$Pre16_18Text$[Dear Ann]!");
    CAELetterDetail letter;
    letter.LetterType(PR_AELT_ENROLMENT);
    letter.PayrollYear(18);
    letter.EmployeeForename("Ann");
    EXPECT_EQ(letter.LetterText(), "!");
}

TEST_F(Letter, TakesTheSignatureFromTheProgramFolder) {
    const std::string expected = (folder / "Graphics" / "Signature.gif").string();
    CAELetterDetail letter;
    program.move("/elsewhere");
    EXPECT_EQ(letter.SignatureFile(), expected);
    letter.SignatureFile("");
    EXPECT_EQ(letter.SignatureFile(), "");
}

TEST_F(Letter, DatesFromTodayUntilItsDateIsSet) {
    MemoryHost host;
    host.state->today = on(3, 5, 2016);
    CAELetterDetail letter;
    EXPECT_EQ(letter.LetterDate(), on(3, 5, 2016));
    letter.LetterDate(on(29, 2, 2016));
    EXPECT_EQ(letter.LetterDate(), on(29, 2, 2016));
}

TEST(LetterWithoutAHost, CanBeMadeAndFilled) {
    CAELetterDetail letter;
    letter.PensionProvider("Oak");
    EXPECT_EQ(letter.LetterType(), PR_AELT_NONE);
    EXPECT_EQ(letter.PensionProvider(), "Oak");
    EXPECT_THROW(letter.SignatureFile(), Error);
    const ProgramFolder program("/accounts");
    EXPECT_EQ(letter.SignatureFile(), fs::path("/accounts/Graphics/Signature.gif").string());
}

TEST(LetterHeading, NamesTheSchemeAndTheType) {
    const std::pair<int, const char*> types[] = {
        {0, "*** No Letter Type Set ***"},
        {1, "Enrolment"},
        {2, "Postponement"},
        {3, "Non-Qualifying"},
        {4, "Re-Enrolment"},
        {500, "Enrolment Attachment"},
        {5, "*** No Letter Type Set ***"},
    };
    CAELetterDetail letter;
    for (const auto& [type, text] : types) {
        letter.LetterType(static_cast<PR_AE_LETTER_TYPES>(type));
        EXPECT_EQ(letter.LetterTypeText(), text);
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

}  // namespace
}  // namespace ledgerwick::test
