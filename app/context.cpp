#include "app/context.h"

#include <array>
#include <chrono>
#include <ctime>
#include <filesystem>
#include <iostream>

#include "hostkit/office/company.h"
#include "hostkit/services/terminal_label.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick::app {

namespace {

struct FrequencyName {
    PR_Pay_Freq frequency;
    std::string_view name;
};

constexpr std::array frequencyTable{
    FrequencyName{PFREQ_1Weekly, "weekly"},      FrequencyName{PFREQ_2Weekly, "fortnightly"},
    FrequencyName{PFREQ_4Weekly, "four-weekly"}, FrequencyName{PFREQ_Monthly, "monthly"},
    FrequencyName{PFREQ_Quarterly, "quarterly"}, FrequencyName{PFREQ_BiAnnual, "half-yearly"},
    FrequencyName{PFREQ_Annual, "yearly"},       FrequencyName{PFREQ_Casual, "casual"},
    FrequencyName{PFREQ_SelAll, "all"},
};

Date dayOfClock() {
    const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    const std::tm local = *std::localtime(&now);
    return Date::fromYmd(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
}

std::unique_ptr<HostSession> openUnloaded(const Context& context, const std::string& path,
                                          const std::string& programPath) {
    if (!std::filesystem::exists(path)) throw Refusal("there is no database " + path);
    HostSettings settings;
    settings.programPath = programPath;
    settings.messages = [&err = context.err](const std::string& caption, const std::string& text) {
        err << caption << ": " << text << '\n';
    };
    const auto database = sqlite::SqliteDatabase::open(path, {.durability = context.durability});
    return std::make_unique<HostSession>(database, context.today(), std::move(settings));
}

}  // namespace

Date Context::today() const {
    return fixedToday ? *fixedToday : dayOfClock();
}

std::unique_ptr<HostSession> openCompany(const Context& context, const std::string& path,
                                         const std::string& programPath) {
    auto session = openUnloaded(context, path, programPath);
    session->list().LoadEmployees(std::make_shared<TerminalLabel>());
    return session;
}

std::unique_ptr<HostSession> openCompanyOfNewcomers(const Context& context,
                                                    const std::string& path) {
    auto session = openUnloaded(context, path, {});
    office::loadEmployed(*session, std::make_shared<TerminalLabel>());
    return session;
}

sqlite::SqliteDatabase& storeOf(HostSession& session) {
    return dynamic_cast<sqlite::SqliteDatabase&>(session.database());
}

std::shared_ptr<cEmployee> employeeOf(HostSession& session, std::int32_t naid) {
    auto employee = session.list().GetEmployeeByNAID(naid);
    if (!employee) throw Refusal("there is no employee " + std::to_string(naid));
    return employee;
}

std::string frequencyName(std::int16_t frequency) {
    for (const auto& entry : frequencyTable) {
        if (entry.frequency == frequency) return std::string(entry.name);
    }
    return std::to_string(frequency);
}

std::optional<PR_Pay_Freq> frequencyOf(std::string_view name) {
    for (const auto& entry : frequencyTable) {
        if (equalsIgnoringCase(entry.name, name)) return entry.frequency;
    }
    return std::nullopt;
}

std::string frequencyNames() {
    std::string names;
    for (const auto& entry : frequencyTable) {
        if (!names.empty()) names += ", ";
        names += entry.name;
    }
    return names;
}

std::string counted(std::int64_t count, std::string_view what) {
    return std::to_string(count) + " " + std::string(what) + (count == 1 ? "" : "s");
}

}  // namespace ledgerwick::app
