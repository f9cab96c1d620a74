#include "tests/support/postgres_server.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <iostream>

#include "hostkit/store/open.h"

namespace ledgerwick::test {

namespace {

// The server, started here if nobody else has started one.
class Server {
  public:
    Server() {
        if (const char* given = std::getenv("LEDGERWICK_TEST_SERVER")) {
            folder_ = given;
            if (std::filesystem::exists(folder_ + "/socket")) return;
        }
        std::string pattern = "/tmp/ledgerwick-server.XXXXXX";
        if (!mkdtemp(pattern.data())) return;
        folder_ = pattern;
        isOurs_ = true;
        runs_ = run("start");
    }
    ~Server() {
        if (isOurs_) run("stop");
    }
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    bool runs() const noexcept { return runs_; }
    const std::string& folder() const noexcept { return folder_; }

  private:
    bool run(const std::string& verb) const {
        const std::string command = LEDGERWICK_SERVER_SCRIPT " " + verb + " " + folder_;
        return std::system(command.c_str()) == 0;
    }

    std::string folder_;
    bool isOurs_ = false;
    bool runs_ = true;
};

const Server& server() {
    static const Server one;
    return one;
}

}  // namespace

bool hasServer() {
    return server().runs();
}

const std::string& serverFolder() {
    return server().folder();
}

std::string newCompanyName() {
    static int count = 0;
    return "t" + std::to_string(getpid()) + "_" + std::to_string(++count);
}

std::string companyAddress(const std::string& company, const std::string& more) {
    return "postgresql://ledgerwick@/postgres?host=" + serverFolder() +
           "/socket&company=" + company + more;
}

ServerCompany::ServerCompany() : address_(companyAddress(newCompanyName())) {}

ServerCompany::~ServerCompany() {
    store::remove(address_);
}

}  // namespace ledgerwick::test
