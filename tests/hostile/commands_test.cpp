// Hostile texts on the command line and in what the command shows.
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <sstream>

#include "app/command_line.h"
#include "hostkit/exchange/company_files.h"
#include "hostkit/exchange/csv.h"
#include "ledgerwick/values/text.h"
#include "tests/hostile/texts.h"

namespace ledgerwick::test {
namespace {

namespace fs = std::filesystem;

class Command : public testing::Test {
  protected:
    Command() {
        fs::remove_all(folder_);
        fs::create_directories(folder_);
        exchange::importCompany(*exchange::openOrCreate(path_), SAMPLE_COMPANY);
    }
    ~Command() override { fs::remove_all(folder_); }

    int run(std::vector<std::string> arguments) {
        out_.str({});
        err_.str({});
        return app::runCommandLine(std::move(arguments), out_, err_);
    }
    static bool isPlain(const std::string& said) {
        for (const char* marks : {"\u009b", "\u202E", "\u2066"}) {
            if (said.find(marks) != std::string::npos) return false;
        }
        return std::none_of(said.begin(), said.end(), [](char c) {
            return (static_cast<unsigned char>(c) < 0x20 && c != '\n') || c == 0x7f;
        });
    }

    fs::path folder_ =
        fs::temp_directory_path() / ("ledgerwick-command-" + std::to_string(getpid()));
    std::string path_ = (folder_ / "company.db").string();
    std::ostringstream out_, err_;
};

TEST_F(Command, RefusesThemInPlainWordsWhereTheyAreNoValue) {
    const std::vector<std::vector<std::string>> lines{
        {"@"},
        {"employees", "@"},
        {"employees", path_, "--today", "@"},
        {"employee", path_, "@"},
        {"import", path_, "@"},
        {"calendar", "@"},
        {"run", "open", path_, "--date", "@"},
        {"run", "open", path_, "--frequency", "@"},
        {"ae", "letters", path_, "--type", "@", "--out", folder_.string()},
        {"employment", "add", path_, "--employee", "101", "--start", "@"},
        {"employment", "add", path_, "--employee", "101", "--start", "2025-05-01", "--form", "@"}};
    const auto size = fs::file_size(path_);
    for (const auto& line : lines) {
        for (const std::string& text : hostileTexts()) {
            std::vector<std::string> arguments;
            for (const std::string& each : line) arguments.push_back(each == "@" ? text : each);
            EXPECT_NE(run(arguments), 0) << line[0] << testing::PrintToString(text.substr(0, 60));
            EXPECT_GT(err_.str().size(), 10U) << line[0];
            EXPECT_TRUE(isPlain(err_.str())) << testing::PrintToString(err_.str().substr(0, 200));
            EXPECT_LT(err_.str().size(), 6000U) << line[0];
        }
    }
    EXPECT_EQ(fs::file_size(path_), size);
}

TEST_F(Command, ShowsThemWithoutTheirTeethAndHandsThemOnWhole) {
    const auto database = exchange::openOrCreate(path_);
    const auto& texts = hostileTexts();
    for (std::size_t next = 0; next < texts.size();) {
        std::vector<std::string> put;  // a reference for each customer
        const auto rs =
            database->OpenRecordset("SELECT NAUserRef FROM Customers", RecordsetType::Dynaset);
        for (; !rs->Eof(); rs->MoveNext()) {
            put.push_back(next < texts.size() ? texts[next++] : "plain");
            rs->Edit();
            rs->Value("NAUserRef", put.back());
            rs->Update();
        }
        rs->Close();
        EXPECT_EQ(run({"employees", path_}), 0) << err_.str();
        EXPECT_TRUE(isPlain(out_.str()));
        EXPECT_EQ(run({"employees", path_, "--json"}), 0);
        const auto list = nlohmann::json::parse(out_.str());
        EXPECT_EQ(run({"employees", path_, "--csv"}), 0);
        std::vector<std::string> read;
        std::istringstream in(out_.str());
        EXPECT_FALSE(
            exchange::CsvReader::read(in, [&](std::size_t, const std::vector<std::string>& row) {
                read.push_back(exchange::unguarded(row.at(1)));
            }));
        ASSERT_EQ(read.size(), list.size() + 1);
        for (std::size_t i = 0; i < list.size(); ++i) {
            EXPECT_NE(std::find(put.begin(), put.end(), read[i + 1]), put.end()) << read[i + 1];
            if (isText(read[i + 1])) {
                EXPECT_EQ(list[i].at("reference").get<std::string>(), read[i + 1]);
            }
        }
    }
}

}  // namespace
}  // namespace ledgerwick::test
