#include "hostkit/postgres/target.h"

#include <libpq-fe.h>

#include <algorithm>
#include <array>
#include <memory>
#include <mutex>

#include "ledgerwick/values/error.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick::postgres {

namespace {

constexpr std::size_t longestCompany = 63;

struct FreeOptions {
    void operator()(PQconninfoOption* options) const noexcept { PQconninfoFree(options); }
};

[[noreturn]] void refuse(const std::string& why) {
    raise(error_number::invalidCall, "Database", why);
}

char lowered(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// Schemas that are the server's, or this store's own.
bool isReserved(std::string_view company) {
    static constexpr std::array<std::string_view, 3> names{"public", "information_schema",
                                                           "lw_ext"};
    return company.substr(0, 3) == "pg_" ||
           std::find(names.begin(), names.end(), company) != names.end();
}

std::string companyOf(std::string_view text) {
    std::string company(text);
    std::transform(company.begin(), company.end(), company.begin(), lowered);
    const bool sound = !company.empty() && company.size() <= longestCompany &&
                       company.front() >= 'a' && company.front() <= 'z' &&
                       std::all_of(company.begin(), company.end(), [](char c) {
                           return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_';
                       });
    if (!sound || isReserved(company)) {
        refuse("\"" + std::string(text) +
               "\" cannot be the name of a company: a letter, then letters, digits and _, at most "
               "63 of them, and no name that the server keeps for itself");
    }
    return company;
}

// Takes `keyword=value` out of the address, and gives the value.
bool takeParameter(std::string& address, std::string_view keyword, std::string& value) {
    std::size_t at = address.find('?');
    while (at != std::string::npos) {
        const std::size_t end = std::min(address.find('&', at + 1), address.size());
        const std::string_view part(address.data() + at + 1, end - at - 1);
        const std::size_t equals = part.find('=');
        if (part.substr(0, equals) == keyword && equals != std::string_view::npos) {
            value = part.substr(equals + 1);
            const bool last = end == address.size();
            address.erase(last ? at : at + 1, end - at);
            return true;
        }
        at = end == address.size() ? std::string::npos : end;
    }
    return false;
}

bool isSet(const char* value) {
    return value && *value != '\0';
}

// Over a network the server proves who it is, unless the host decides otherwise.
void secure(Target& target) {
    const std::string_view host = target.setting("host");
    const bool network = (!host.empty() && host.front() != '/' && host.front() != '@') ||
                         !target.setting("hostaddr").empty();
    if (!network || !target.setting("sslmode").empty() || !target.setting("service").empty()) {
        return;
    }
    target.settings.emplace_back("sslmode", "verify-full");
    if (target.setting("channel_binding").empty() && target.setting("sslcert").empty()) {
        target.settings.emplace_back("channel_binding", "require");
    }
}

std::mutex passwordMutex;

PasswordSource& sourceOfPasswords() {
    static PasswordSource source;
    return source;
}

}  // namespace

std::string_view Target::setting(std::string_view keyword) const noexcept {
    for (const auto& [name, value] : settings) {
        if (name == keyword) return value;
    }
    return {};
}

Target parseTarget(const std::string& name, bool companyNeeded) {
    Target target;
    std::string address = name;
    std::string company;
    if (takeParameter(address, "company", company)) target.company = companyOf(company);
    char* words = nullptr;
    const std::unique_ptr<PQconninfoOption, FreeOptions> options(
        PQconninfoParse(address.c_str(), &words));
    PQfreemem(words);  // they may show the password
    if (!options) refuse("a server is named as in postgresql://HOST/DATABASE?company=NAME");
    for (const PQconninfoOption* option = options.get(); option->keyword; ++option) {
        if (!isSet(option->val)) continue;
        if (equalsIgnoringCase(option->keyword, "password")) {
            refuse(
                "a password does not belong into the name of a database, which others can see: put "
                "it into the password file (~/.pgpass) or a service file");
        }
        target.settings.emplace_back(option->keyword, option->val);
    }
    target.shown = name;
    if (companyNeeded && target.company.empty()) {
        refuse("which company? Add company=NAME: " + name);
    }
    secure(target);
    return target;
}

void usePasswords(PasswordSource source) {
    const std::scoped_lock lock(passwordMutex);
    sourceOfPasswords() = std::move(source);
}

PasswordSource passwordSource() {
    const std::scoped_lock lock(passwordMutex);
    return sourceOfPasswords();
}

}  // namespace ledgerwick::postgres
