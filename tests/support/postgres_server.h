// The private PostgreSQL server of the tests.
//
// It is the one that LEDGERWICK_TEST_SERVER names, a folder in which `postgres-server start` has
// started one, or a server that this process starts when it first asks and stops at its end.
#pragma once

#include <string>

namespace ledgerwick::test {

// Whether there is a server; if not, why, printed once.
bool hasServer();

// The folder of the server, with its socket, log and data.
const std::string& serverFolder();

// A name for a company that no other test has.
std::string newCompanyName();
// The address of the company of that name; `more` is put behind it, as "&lock_timeout=...".
std::string companyAddress(const std::string& company, const std::string& more = {});

// A new company's address. The company is dropped with this object.
class ServerCompany {
  public:
    ServerCompany();
    ~ServerCompany();
    ServerCompany(const ServerCompany&) = delete;
    ServerCompany& operator=(const ServerCompany&) = delete;

    const std::string& address() const noexcept { return address_; }

  private:
    std::string address_;
};

}  // namespace ledgerwick::test
