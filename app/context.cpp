#include "app/context.h"

#include <chrono>
#include <ctime>
#include <iostream>

#include "hostkit/audit/explain.h"
#include "hostkit/office/company.h"
#include "hostkit/services/terminal_label.h"
#include "hostkit/store/open.h"

namespace ledgerwick::app {

namespace {

Date dayOfClock() {
    const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    const std::tm local = *std::localtime(&now);
    return Date::fromYmd(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
}

}  // namespace

Date Context::today() const {
    return fixedToday ? *fixedToday : dayOfClock();
}

std::shared_ptr<store::CompanyStore> openFile(const Context& context, const std::string& path) {
    if (!store::exists(path)) throw Refusal("there is no database " + path);
    auto database = store::open(path, {.durability = context.durability});
    requireCompany(*database);
    return database;
}

std::unique_ptr<HostSession> sessionOn(const Context& context, std::shared_ptr<Database> database,
                                       const std::string& programPath) {
    HostSettings settings;
    settings.programPath = programPath;
    settings.messages = [&err = context.err](const std::string& caption, const std::string& text) {
        err << caption << ": " << text << '\n';
    };
    return std::make_unique<HostSession>(std::move(database), context.today(), std::move(settings));
}

std::unique_ptr<HostSession> openCompany(const Context& context, const std::string& path,
                                         const std::string& programPath) {
    return loadCompany(context, openFile(context, path), programPath);
}

std::unique_ptr<HostSession> openCompanyOfNewcomers(const Context& context,
                                                    const std::string& path) {
    auto session = sessionOn(context, openFile(context, path));
    audit::explaining([&] { office::loadEmployed(*session, std::make_shared<TerminalLabel>()); });
    return session;
}

std::unique_ptr<HostSession> loadCompany(const Context& context, std::shared_ptr<Database> database,
                                         const std::string& programPath) {
    auto session = sessionOn(context, std::move(database), programPath);
    audit::explaining([&] { session->list().LoadEmployees(std::make_shared<TerminalLabel>()); });
    return session;
}

std::shared_ptr<cEmployee> employeeOf(HostSession& session, std::int32_t naid) {
    auto employee = session.list().GetEmployeeByNAID(naid);
    if (!employee) throw Refusal("there is no employee " + std::to_string(naid));
    return employee;
}

}  // namespace ledgerwick::app
