// A company written down in a test: people, employments and pay on a database in memory, linked to
// the library by the kit's services.
//
//   Company company;                                          // payroll year 17, from 6 April 2016
//   company.employee(7).named("Mr John Smith").weekly().closed(weeks(1, 3));
//   company.employee(8).monthly().started("2016-05-09").closed(month(2)).open(month(3));
//   company.load();
//   company.at(7).CurEmployment()->LastWeekNo();              // 3
//
// Every call writes to the database at once, so that a test can go on building after a load.
// Columns that have no call of their own are set by SQL: `.details("PREGroup = 3")`.
//
// A week's row ends two days before its pay date, which is the last day of its tax week. A month's
// row is paid on the 28th and ends with the calendar month, as the parameters say.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "hostkit/services/host_session.h"
#include "hostkit/sqlite/database.h"
#include "ledgerwick/employee/employee_list.h"
#include "ledgerwick/host/enums.h"
#include "ledgerwick/host/host.h"
#include "ledgerwick/host/payroll_functions.h"

namespace ledgerwick::test {

// Pay periods by tax week or, on a monthly row, by tax month.
struct Periods {
    std::int32_t first;
    std::int32_t last;
};
constexpr Periods weeks(std::int32_t first, std::int32_t last) {
    return {first, last};
}
constexpr Periods week(std::int32_t number) {
    return {number, number};
}
constexpr Periods month(std::int32_t number) {
    return {number, number};
}

// The dates of the pay row of a period.
struct PeriodDates {
    Date payDate;
    Date epeDate;
    Date nextPayDate;
    Date nextEPEDate;
};
PeriodDates datesOf(PR_Pay_Freq frequency, std::int32_t payrollYear, std::int32_t period);

// A date written as ISO or day first; a test with a wrong one fails.
Date day(std::string_view text);

class Company;

// One person in the making. The employment calls, and `closed` and `open`, speak of the employment
// added last; `pay` of the rows that the last call laid down.
class Person {
  public:
    // ---- who
    Person& named(std::string_view name);
    Person& nino(std::string_view number);
    Person& customer(std::string_view columns);  // "NATown = 'Leeds', NASeq = 'SMITH'"
    Person& details(std::string_view columns);   // "PREGroup = 3"
    Person& originallyJoined(std::string_view date);
    Person& inScheme(std::int32_t psid, bool useSchemeRates = true);

    // ---- how often
    Person& paid(PR_Pay_Freq frequency);
    Person& weekly() { return paid(PFREQ_1Weekly); }
    Person& monthly() { return paid(PFREQ_Monthly); }

    // ---- the employment: a new person has number 1 of the current payroll year, begun with it
    Person& employment(std::int32_t payrollYear, std::int32_t count = 1);
    Person& withoutEmployment();
    Person& casual();
    Person& started(std::string_view date);
    Person& left(std::string_view date);
    Person& row(std::string_view columns);  // "PRTContinuation = True"

    // ---- the pay
    Person& closed(Periods periods);
    Person& open(Periods periods);
    Person& pay(std::string_view columns);  // "PRPStatus = 2, PRPStudentLoan = 1"

  private:
    friend class Company;
    Person(Company& company, std::int32_t naid) : company_(company), naid_(naid) {}

    Person& lay(Periods periods, bool closed);
    void addPayRow(std::int32_t weekNo, std::int32_t paymentPeriod, const PeriodDates& dates,
                   bool closed);
    Person& set(std::string_view table, std::string_view columns, const std::string& where);

    Company& company_;
    std::int32_t naid_;
    PR_Pay_Freq frequency_ = PFREQ_1Weekly;
    std::int32_t payrollYear_ = 0;
    std::int32_t count_ = 0;
    std::int32_t prtid_ = 0;
    std::int32_t employments_ = 0;
    std::int32_t firstPRPID_ = 0;  // of the rows that were laid down last
};

// Writes down what a load shows.
struct CaptionLog : Label {
    std::vector<std::string> captions;
    int turns = 0;  // how often the host's event loop got one

    void Caption(std::string_view caption) override { captions.emplace_back(caption); }
    void DoEvents() override { ++turns; }
};

// Answers from the tables of the company.
class CompanyDataAccess : public DataAccess {
  public:
    explicit CompanyDataAccess(std::shared_ptr<sqlite::SqliteDatabase> database)
        : database_(std::move(database)) {}
    bool TempTableExists(std::string_view name) override { return database_->TableExists(name); }
    void NoNullRecordLine(RecordsetRef& recordset) override {
        if (replacement) recordset = replacement;
    }

    // Stands for the recordset from its next row on, when a test sets it.
    RecordsetRef replacement;

  private:
    std::shared_ptr<sqlite::SqliteDatabase> database_;
};

using Message = std::pair<std::string, std::string>;  // caption, text

class Company {
  public:
    explicit Company(std::int32_t payrollYear = 17);
    ~Company();
    Company(const Company&) = delete;
    Company& operator=(const Company&) = delete;

    // Makes this payroll year the current one. What was loaded is let go.
    Company& year(std::int32_t payrollYear);
    std::int32_t year() const noexcept { return year_; }
    Company& today(std::string_view date);
    Company& parameter(std::string_view name, std::int32_t value);

    // The person of that NAID, who is new at the first call. The PRTIDs of the employments count
    // from ten times the NAID: 70, 71, ... for employee 7.
    Person& employee(std::int32_t naid);

    Company& scheme(std::int32_t psid, std::string_view description, double employeePercent,
                    double employerPercent, std::int32_t deductionsType = 1,
                    bool appliesTaxRelief = false);
    Company& importedPay(std::int32_t naid, double pay);
    // An item sold in a unit of purchase of so many units of use.
    Company& item(std::int32_t dsid, std::string_view description, double conversion,
                  std::string_view unitOfPurchase);
    Company& order(std::int32_t ordId, std::int32_t naid, std::int32_t dsid, std::string_view date,
                   double quantity, double price, std::int32_t status = 2, double discount = 0);

    // Runs SQLite's own statements, for damage and for what has no call: dates are day counts there
    // and True is -1.
    Company& exec(const std::string& sql);
    // A field of the first row of `SELECT field FROM ...`, and the number of rows.
    Variant value(std::string_view field, std::string_view from);
    std::int32_t count(std::string_view from);

    // Loads all employees into an emptied list, with `label`.
    CEmployeeList& load();
    CEmployeeList& list() { return session().list(); }
    CPayrollFunctions& payroll() { return session().payroll(); }
    KitHostState& state() { return session().state(); }
    sqlite::SqliteDatabase& database() noexcept { return *database_; }
    // Puts `database` in the way of everything that the library reads and writes. Comes before the
    // first load.
    void useDatabase(std::shared_ptr<Database> database) { linked_ = std::move(database); }

    // A loaded employee, and the employment that is in force.
    // Errors: 91 when there is none.
    cEmployee& at(std::int32_t naid);
    cEmployment& current(std::int32_t naid) { return *at(naid).CurEmployment(); }

    std::shared_ptr<CaptionLog> label = std::make_shared<CaptionLog>();
    std::shared_ptr<CompanyDataAccess> dataAccess;
    std::vector<Message> messages;

  private:
    friend class Person;
    // `INSERT INTO where VALUES (...)`.
    Company& insert(std::string_view where, std::initializer_list<Variant> values);
    // Made when it is first asked for, so that the services find the company as it then is.
    HostSession& session();

    std::shared_ptr<sqlite::SqliteDatabase> database_;
    std::shared_ptr<Database> linked_;
    std::vector<std::unique_ptr<Person>> people_;
    std::int32_t year_ = 0;
    Date today_;
    std::int32_t units_ = 0;
    std::unique_ptr<HostSession> session_;
};

}  // namespace ledgerwick::test
