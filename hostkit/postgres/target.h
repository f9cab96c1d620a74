// The name of a company on a server, taken apart.
//
//   postgresql://payroll.example/offices?company=shop
//   postgresql:///offices?host=/run/postgresql&company=shop&connect_timeout=5
//
// What libpq reads stands as in its own addresses; `company` is the schema that holds the tables.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "hostkit/postgres/export.h"

namespace ledgerwick::postgres {

// Where a company is, without its password.
struct Target {
    std::vector<std::pair<std::string, std::string>> settings;  // what libpq is given
    std::string company;  // the schema, in lower case; empty for the server itself
    std::string shown;    // the name as messages may show it

    // The value of a setting; empty when it is not given.
    std::string_view setting(std::string_view keyword) const noexcept;
};

// Errors: 5 for a name that is no address, names no company where one is needed, or holds a
//         password, which then stands in no message.
Target parseTarget(const std::string& name, bool companyNeeded = true);

// Asked for a password when the server wants one and neither the password file nor the service
// file has it. Returns an empty text for none.
using PasswordSource = std::function<std::string(const std::string& user, const std::string& host)>;

// From now on, for every thread, passwords come from `source` where the server wants one.
LEDGERWICK_POSTGRES_API void usePasswords(PasswordSource source);
// What was given last; empty when nothing was.
PasswordSource passwordSource();

}  // namespace ledgerwick::postgres
