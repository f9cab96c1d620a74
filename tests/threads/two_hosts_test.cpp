// Host threads side by side, each with references, list and database of its own. Worth most under
// ThreadSanitizer.
#include <gtest/gtest.h>

#include <filesystem>
#include <latch>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "hostkit/services/host_session.h"
#include "hostkit/sqlite/database.h"
#include "ledgerwick/host/class_factory.h"
#include "ledgerwick/ledgerwick.h"
#include "ledgerwick/values/format.h"

namespace ledgerwick {
namespace {

constexpr int hosts = 2;
constexpr int runs = 4;

// A company of two, paid by the week and by the month, in payroll year 17.
std::shared_ptr<sqlite::SqliteDatabase> newCompany(const std::string& path) {
    auto database = sqlite::SqliteDatabase::open(path);
    database->createSchema();
    database->exec(R"(
        INSERT INTO PRControl (PRCFCurrentYear) VALUES (17);
        INSERT INTO PRYearEnds (PRYEYear, PRYEDate) VALUES (16, 42465), (17, 42830);
        INSERT INTO Parameters (ParName, ParValue) VALUES ('PRNExpD_M1', '0'), ('PREPED_M1', '0');
        INSERT INTO Customers (NAID, NASeq, NABusName) VALUES (7, '1', 'Mr Al Ng'), (8, '2', 'Bo');
        INSERT INTO PREmployeeDetails (PRENAID, PREPYEmployCount, PREPayFrequency, PRENINO)
            VALUES (7, 1, 1, 'QQ1'), (8, 1, 4, 'QQ2');
        INSERT INTO PREmployments (PRTNAID, PRTPayrollYear, PRTPYEmployCount, PRTStartDate, PRTType)
            VALUES (7, 17, 1, 42466, 1), (8, 17, 1, 42466, 1);)");
    return database;
}

Date payDay(int run) {
    return Date::fromYmd(2016, 4 + run, 30);
}

template <class Class>
std::shared_ptr<Class> created(const std::string& name) {
    return std::dynamic_pointer_cast<Class>(CreateObject("Ledgerwick." + name));
}

// The whole road of a host: link, load, open, close, fill, assess; objects by name on the way.
// What the company comes to, as text.
std::string wholeRoad(const std::shared_ptr<Database>& database) {
    HostSession session(database, Date::fromYmd(2016, 4, 29));
    CPayrollFunctions& payroll = session.payroll();
    payroll.C_CreateStartingPayRecord(7, 0, Date::fromYmd(2016, 4, 5), Date::fromYmd(2016, 4, 8),
                                      Date::fromYmd(2016, 4, 12));
    payroll.C_CreateStartingPayRecord(8, 0, Date::fromYmd(2016, 3, 31), Date::fromYmd(2016, 4, 30),
                                      Date::fromYmd(2016, 4, 30));
    session.list().LoadEmployees();
    std::string text;
    for (int run = 0; run < runs; ++run) {
        const Date payDate = payDay(run);
        Variant columns;
        payroll.C_InputHoursInit(payDate, PFREQ_SelAll, 0, 0, &columns);
        text += std::to_string(columns.array().upperBound(2)) + " columns\n";
        for (const std::int32_t naid : {7, 8}) {
            payroll.C_UpdatePayPeriod(naid, payDate);
            session.list().ReLoadEmployee(naid);
            const auto employment = session.list().GetEmployeeByNAID(naid)->CurEmployment();
            text +=
                employment->NExpPayDate().toIso() + formatNumber(1234.5 * run, "#,##0.00") + "\n";
        }
    }
    payroll.AutoFillMissingPeriods();
    const auto list = created<CEmployeeList>("CEmployeeList");
    Identify().SetEmployeeList(list);
    list->LoadEmployees();
    text += list->GetEmployeeByNINO("QQ1")->BusName();
    text += created<Identify>("Identify")->version();
    return text + std::to_string(payroll.GetAEStatus(payDay(runs), 17, true).RecordCount());
}

std::vector<std::string> sideBySide(const std::vector<std::shared_ptr<Database>>& databases) {
    std::vector<std::string> texts(databases.size());
    std::latch start(static_cast<std::ptrdiff_t>(databases.size()));
    {
        std::vector<std::jthread> threads;
        for (std::size_t i = 0; i < databases.size(); ++i) {
            threads.emplace_back([&, i] {
                start.arrive_and_wait();
                texts[i] = wholeRoad(databases[i]);
            });
        }
    }
    return texts;
}

TEST(TwoHosts, GoTheWholeRoadSideBySideAndComeToTheSame) {
    const std::string alone = wholeRoad(newCompany(":memory:"));
    std::vector<std::shared_ptr<Database>> databases;
    for (int i = 0; i < hosts; ++i) databases.push_back(newCompany(":memory:"));
    for (const std::string& text : sideBySide(databases)) EXPECT_EQ(text, alone);
}

}  // namespace
}  // namespace ledgerwick
