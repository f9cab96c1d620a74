// A host in one file: makes a company of one employee, loads it, opens a pay run and closes it.
//
//   example_host company.db
#include <hostkit/services/host_session.h>
#include <hostkit/sqlite/database.h>
#include <hostkit/sqlite/store_kind.h>
#include <ledgerwick/ledgerwick.h>

#include <filesystem>
#include <iostream>
#include <string>

using namespace ledgerwick;

namespace {

// What an accounts suite has in its database already: the control record, the end of the last
// payroll year, a person, and the standing payroll details.
void layDownCompany(const std::string& path) {
    std::filesystem::remove(path);
    const auto database = sqlite::SqliteDatabase::open(path);
    database->createSchema();
    database->exec(R"(
        INSERT INTO PRControl (PRCFCurrentYear, PRCFPensionAfterTax) VALUES (17, 0);
        INSERT INTO PRYearEnds (PRYEYear, PRYEDate) VALUES (16, 42465);
        INSERT INTO Customers (NAID, NASeq, NABusName, NAUserRef)
        VALUES (1, 'SMI', 'Mr John Smith', 'SMI01');
        INSERT INTO PREmployeeDetails (PRENAID, PREPYEmployCount, PREPayFrequency, PRENITable,
                                       PRETaxCode, PREStdPeriodRate)
        VALUES (1, 1, 1, 'A', '1100L', 412.5);)");
}

void run(const std::string& path) {
    layDownCompany(path);
    HostSession session(path, Date::fromYmd(2016, 4, 8));
    CPayrollFunctions& payroll = session.payroll();

    // The employment, and the row from which its pay history starts: the first week ends on Sunday
    // 10 April and is paid on Friday the 8th.
    payroll.C_CreateNewEmploymentRecord(1, 0, PR_ET_Regular, "6 April 2016");
    payroll.C_CreateStartingPayRecord(1, 0, Date::fromYmd(2016, 4, 3), Date::fromYmd(2016, 4, 8),
                                      Date::fromYmd(2016, 4, 10));
    session.list().LoadEmployees();

    const Date due = payroll.C_Next_Expected_Pay_Date();
    std::int32_t employees = 0;
    payroll.C_Count_for_Pay_Date(due, &employees);
    std::cout << employees << " employee is due on " << due.toText() << "\n";

    Variant columns;
    payroll.C_InputHoursInit(due, PFREQ_SelAll, 0, 0, &columns);
    std::cout << "pay row " << columns.array().at(2, 1).toText() << " is open for week "
              << columns.array().at(7, 1).toText() << "\n";

    payroll.C_UpdatePayPeriod(1, due);
    session.list().ReLoadEmployee(1);
    std::cout << "closed; pay falls due next on "
              << session.list().GetEmployeeByNAID(1)->CurEmployment()->NExpPayDate().toText()
              << "\n";
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: example_host FILE\n";
        return 2;
    }
    try {
        sqlite::registerStore();
        run(argv[1]);
        return 0;
    } catch (const Error& error) {
        std::cerr << error.what() << "\n";
        return 1;
    }
}
