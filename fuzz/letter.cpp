// Letters: what stands outside placeholders and the year block is kept, whatever its bytes.
//
// Input: a payroll year (0 to 9 stand for 10 to 19), a forename, and the bytes of the template.
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "fuzz/harness.h"
#include "ledgerwick/autoenrol/ae_letter_detail.h"
#include "ledgerwick/host/host.h"
#include "ledgerwick/host/identify.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick::fuzz {

namespace {

namespace fs = std::filesystem;

struct Files : FileFunctions {
    void checkBackupDir(std::string_view) override {}
};

struct Global : HostGlobal {
    struct : HostApp {
        std::string path;
        std::string Path() override { return path; }
    } app;
    HostApp& App() override { return app; }
};

// A program folder of this process, which goes with it.
struct Office {
    Office() {
        fs::create_directories(folder);
        global->app.path = folder.string();
        identify.SetCallerGlobal(global);
        identify.Setfp(std::make_shared<Files>());
    }
    ~Office() {
        identify.SetCallerGlobal(nullptr);
        identify.Setfp(nullptr);
        std::error_code ignored;
        fs::remove_all(folder, ignored);
    }
    std::string letter(std::string_view bytes, std::int16_t year, const std::string& forename) {
        std::ofstream(folder / "Enrolment.txt", std::ios::binary) << bytes;
        CAELetterDetail letter;
        letter.LetterType(PR_AELT_ENROLMENT);
        letter.PayrollYear(year);
        letter.EmployeeForename(forename);
        return letter.LetterText();
    }
    fs::path folder =
        fs::temp_directory_path() / ("ledgerwick-fuzz-letter-" + std::to_string(getpid()));
    std::shared_ptr<Global> global = std::make_shared<Global>();
    Identify identify;
};

std::string withApostrophes(std::string_view text) {
    return replaceAll(replaceAll(text, "\u2019", "'"), "\u2018", "'");
}

}  // namespace

void fuzzOne(Input input) {
    static Office office;
    const auto year = static_cast<std::int16_t>(10 + input.choice(10));
    const std::string forename = input.line();
    const std::string bytes = input.rest();
    const std::string text = office.letter(bytes, year, forename);

    // The template read by hand, its placeholders filled.
    const std::string filled = replaceAll(windows1252ToUtf8(bytes), "%Forename%", forename);
    const std::string expected = withApostrophes(filled);
    const std::size_t tag = filled.find("$Pre");
    if (tag == std::string::npos) {
        CHECK(text == expected, text);
        return;
    }
    // What stands in front of the first block stays (its copies stand after it), and nothing grows
    // by the block.
    const std::string front = withApostrophes(filled.substr(0, tag));
    CHECK(text.starts_with(front), text);
    CHECK(text.size() <= expected.size(), text);
    if (filled.find(']', tag) == std::string::npos) CHECK(text == expected, text);
    CHECK(office.letter(bytes, year, forename) == text, text);
}

}  // namespace ledgerwick::fuzz
