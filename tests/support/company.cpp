#include "tests/support/company.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "ledgerwick/calendar/pr_functions.h"
#include "ledgerwick/calendar/tax_calendar.h"
#include "ledgerwick/shell/identify.h"
#include "ledgerwick/shell/statement.h"
#include "ledgerwick/values/date.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick::test {

namespace {

// How long after the end of a weekly pay period its pay date falls.
constexpr double daysToPayDate = 2;
constexpr int monthlyPayDay = 28;
// The set of calculations on the rows of a run, and the status of a row that is reported.
constexpr std::int32_t calculationUsed = 34;
constexpr std::int32_t reportedStatus = 3;

std::string number(std::int32_t value) {
    return std::to_string(value);
}
std::string number(double value) {
    return numberText(value);
}
std::string number(Date date) {
    return numberText(date.serial());
}
std::string boolean(bool value) {
    return value ? "-1" : "0";
}
std::string text(std::string_view value) {
    return "'" + replaceAll(value, "'", "''") + "'";
}

Date firstDay(std::int32_t payrollYear) {
    return Date::fromYmd(payrollYear + 1999, 4, 6);
}

// The pay date and the end of the pay period of a tax month.
std::pair<Date, Date> monthDates(std::int32_t payrollYear, std::int32_t taxMonth) {
    const int year = payrollYear + 1999;
    return {Date::fromYmd(year, 3 + taxMonth, monthlyPayDay), Date::fromYmd(year, 4 + taxMonth, 0)};
}

}  // namespace

PeriodDates datesOf(PR_Pay_Freq frequency, std::int32_t payrollYear, std::int32_t period) {
    if (frequency == PFREQ_Monthly) {
        const auto [payDate, epeDate] = monthDates(payrollYear, period);
        const auto [nextPayDate, nextEPEDate] = monthDates(payrollYear, period + 1);
        return {payDate, epeDate, nextPayDate, nextEPEDate};
    }
    const Date payDate = firstDay(payrollYear).addWeeks(period).addDays(-1);
    const Date epeDate = payDate.addDays(-daysToPayDate);
    const std::int16_t step = PR_Convert_PayFreq_to_PayPeriod(frequency);
    return {payDate, epeDate, payDate.addWeeks(step), epeDate.addWeeks(step)};
}

Date day(std::string_view text) {
    Date date;
    if (!parseDate(text, date)) throw std::invalid_argument("no date: " + std::string(text));
    return date;
}

// ---- person -------------------------------------------------------------------------------------

Person& Person::set(std::string_view table, std::string_view columns, const std::string& where) {
    company_.database().Execute(statement("UPDATE @ SET @ WHERE @", {table, columns, where}),
                                failOnError);
    return *this;
}

Person& Person::customer(std::string_view columns) {
    return set("Customers", columns, "NAID = " + number(naid_));
}

Person& Person::details(std::string_view columns) {
    return set("PREmployeeDetails", columns, "PRENAID = " + number(naid_));
}

Person& Person::row(std::string_view columns) {
    return set("PREmployments", columns, "PRTID = " + number(prtid_));
}

Person& Person::pay(std::string_view columns) {
    return set("PRPay", columns,
               statement("PRPID >= @ AND PRPNAID = @", {number(firstPRPID_), number(naid_)}));
}

Person& Person::named(std::string_view name) {
    return customer("NABusName = " + text(name));
}

Person& Person::nino(std::string_view number) {
    return details("PRENINO = " + text(number));
}

Person& Person::originallyJoined(std::string_view date) {
    return details("PREOriginallyJoined = " + number(day(date)));
}

Person& Person::inScheme(std::int32_t psid, bool useSchemeRates) {
    return details(statement("PREPenWorkplaceSchemeID = @, PREPenWorkplaceUseSchemeRates = @",
                             {number(psid), boolean(useSchemeRates)}));
}

Person& Person::paid(PR_Pay_Freq frequency) {
    frequency_ = frequency;
    return details("PREPayFrequency = " + number(std::int32_t{frequency}));
}

Person& Person::employment(std::int32_t payrollYear, std::int32_t count) {
    payrollYear_ = payrollYear;
    count_ = count;
    prtid_ = naid_ * 10 + employments_++;
    company_.exec(statement(
        R"(INSERT INTO PREmployments
             (PRTID, PRTNAID, PRTPayrollYear, PRTPYEmployCount, PRTStartDate, PRTType)
           VALUES (@, @, @, @, @, @))",
        {number(prtid_), number(naid_), number(payrollYear), number(count),
         number(firstDay(payrollYear)), number(std::int32_t{PR_ET_Regular})}));
    return details("PREPYEmployCount = " + number(count));
}

Person& Person::withoutEmployment() {
    company_.exec("DELETE FROM PREmployments WHERE PRTNAID = " + number(naid_));
    employments_ = 0;
    return *this;
}

Person& Person::casual() {
    row("PRTType = " + number(std::int32_t{PR_ET_Casual}));
    return paid(PFREQ_Casual);
}

Person& Person::started(std::string_view date) {
    row("PRTStartDate = " + number(day(date)));
    return employments_ == 1 ? originallyJoined(date) : *this;
}

Person& Person::left(std::string_view date) {
    return row("PRTEndDateLong = " + number(day(date).dayNumber()));
}

Person& Person::closed(Periods periods) {
    return lay(periods, true);
}

Person& Person::open(Periods periods) {
    return lay(periods, false);
}

Person& Person::lay(Periods periods, bool closed) {
    firstPRPID_ = 0;
    const bool monthly = frequency_ == PFREQ_Monthly;
    const std::int32_t code = PR_Convert_PayFreq_to_PayPeriod(frequency_);
    const std::int32_t step = monthly || code == 0 ? 1 : code;
    for (std::int32_t period = periods.first; period <= periods.last; period += step) {
        const PeriodDates dates = datesOf(frequency_, payrollYear_, period);
        addPayRow(monthly ? calendar::taxWeek(dates.epeDate) : period, monthly ? -period : step,
                  dates, closed);
    }
    return *this;
}

Person& Person::starting(std::int32_t weekNo) {
    firstPRPID_ = 0;
    addPayRow(weekNo, 0, datesOf(PFREQ_1Weekly, payrollYear_, weekNo), true);
    return pay("PRPCalculationUsed = 0, PRPStatus = 0");
}

void Person::addPayRow(std::int32_t weekNo, std::int32_t paymentPeriod, const PeriodDates& dates,
                       bool closed) {
    company_.exec(statement(
        R"(INSERT INTO PRPay
             (PRPNAID, PRPPayrollYear, PRPPYEmployCount, PRPWeekNo, PRPPaymentPeriod,
              PRPPayDate, PRPRTIPayDate, PRPEPEDate, PRPNExpPayDate, PRPNExpEPEDate,
              PRPPeriodUpdated, PRPCalculationUsed, PRPStatus)
           VALUES (@, @, @, @, @, @, @, @, @, @, @, @, @))",
        {number(naid_), number(payrollYear_), number(count_), number(weekNo), number(paymentPeriod),
         number(dates.payDate), number(dates.payDate), number(dates.epeDate),
         number(dates.nextPayDate), number(dates.nextEPEDate), boolean(closed),
         number(calculationUsed), number(closed ? reportedStatus : 0)}));
    if (firstPRPID_ == 0) firstPRPID_ = company_.value("max(PRPID)", "PRPay").toInt32();
}

// ---- host ---------------------------------------------------------------------------------------

bool CompanyDataAccess::TempTableExists(std::string_view name) {
    return database_->tableExists(name);
}

void CompanyDataAccess::NoNullRecordLine(RecordsetRef& recordset) {
    ++rowsShown;
    if (replacement) recordset = replacement;
}

// ---- company ------------------------------------------------------------------------------------

Company::Company(std::int32_t payrollYear)
    : database_(sqlite::SqliteDatabase::open(":memory:")),
      linked_(database_),
      today_(firstDay(payrollYear).addDays(23)) {
    database_->createSchema();
    dataAccess = std::make_shared<CompanyDataAccess>(database_);
    parameter("PRNExpD_M1", monthlyPayDay);
    parameter("PREPED_M1", 0);
    year(payrollYear);
}

Company::~Company() {
    Identify().SetDAO_ADO(nullptr);
}

Company& Company::year(std::int32_t payrollYear) {
    session_.reset();
    year_ = payrollYear;
    exec("DELETE FROM PRControl");
    exec("DELETE FROM PRYearEnds");
    exec("INSERT INTO PRControl (PRCFCurrentYear) VALUES (" + number(payrollYear) + ")");
    for (const std::int32_t ended : {payrollYear - 1, payrollYear})
        exec(statement("INSERT INTO PRYearEnds (PRYEYear, PRYEDate) VALUES (@, @)",
                       {number(ended), number(firstDay(ended + 1).addDays(-1))}));
    return *this;
}

Company& Company::today(std::string_view date) {
    today_ = day(date);
    if (session_) state().g_dtmToday(today_);
    return *this;
}

Company& Company::parameter(std::string_view name, std::int32_t value) {
    if (session_) {
        session_->parameters().Set(name, value);
    } else {
        exec(statement("INSERT OR REPLACE INTO Parameters (ParName, ParValue) VALUES (@, @)",
                       {text(name), text(number(value))}));
    }
    return *this;
}

Person& Company::employee(std::int32_t naid) {
    for (const auto& person : people_)
        if (person->naid_ == naid) return *person;

    exec(statement("INSERT INTO Customers (NAID, NASeq, NABusName) VALUES (@, @, @)",
                   {number(naid), text("E" + number(naid)), text("Employee " + number(naid))}));
    exec(statement("INSERT INTO PREmployeeDetails (PRENAID, PREOriginallyJoined) VALUES (@, @)",
                   {number(naid), number(firstDay(year_))}));
    people_.push_back(std::unique_ptr<Person>(new Person(*this, naid)));
    return people_.back()->weekly().employment(year_);
}

Company& Company::scheme(std::int32_t psid, std::string_view description, double employeePercent,
                         double employerPercent, std::int32_t deductionsType,
                         bool appliesTaxRelief) {
    return exec(
        statement("INSERT INTO PensionSchemes VALUES (@, @, @, @, @, @)",
                  {number(psid), text(description), number(deductionsType),
                   boolean(appliesTaxRelief), number(employeePercent), number(employerPercent)}));
}

Company& Company::importedPay(std::int32_t naid, double pay) {
    if (!database_->tableExists("PRPayImport")) database_->createPayImportTable();
    return exec(statement("INSERT INTO PRPayImport (PRPINAID, PRPIPay) VALUES (@, @)",
                          {number(naid), number(pay)}));
}

Company& Company::item(std::int32_t dsid, std::string_view description, double conversion,
                       std::string_view unitOfPurchase) {
    const std::string unit = number(++units_);
    exec(statement("INSERT INTO UoM (UoMNo, UoMCode) VALUES (@, @)", {unit, text(unitOfPurchase)}));
    return exec(statement(
        "INSERT INTO Deadstock (DSIDNo, DSDesc, DSUoMConv, DSPurchUoM) VALUES (@, @, @, @)",
        {number(dsid), text(description), number(conversion), unit}));
}

Company& Company::order(std::int32_t ordId, std::int32_t naid, std::int32_t dsid,
                        std::string_view date, double quantity, double price, std::int32_t status,
                        double discount) {
    return exec(statement(
        R"(INSERT INTO Orders
             (OrdID, OrdNAID, OrdDSID, OrdActionDate, OrdQty, OrdPrice, OrdDiscount, OrdStatus)
           VALUES (@, @, @, @, @, @, @, @))",
        {number(ordId), number(naid), number(dsid), number(day(date)), number(quantity),
         number(price), number(discount), number(status)}));
}

Company& Company::exec(const std::string& sql) {
    database_->exec(sql);
    return *this;
}

Variant Company::value(std::string_view field, std::string_view from) {
    const auto rs = database_->OpenRecordset(statement("SELECT @ AS Answer FROM @", {field, from}),
                                             RecordsetType::Snapshot);
    return rs->Value("Answer");
}

std::int32_t Company::count(std::string_view from) {
    return value("count(*)", from).toInt32();
}

HostSession& Company::session() {
    if (!session_) {
        HostSettings settings;
        settings.messages = [this](const std::string& caption, const std::string& line) {
            messages.emplace_back(caption, line);
        };
        session_ = std::make_unique<HostSession>(linked_, today_, std::move(settings));
        Identify().SetDAO_ADO(dataAccess);
    }
    return *session_;
}

CEmployeeList& Company::load() {
    list().Clear();
    list().LoadEmployees(label);
    return list();
}

cEmployee& Company::at(std::int32_t naid) {
    const auto employee = list().GetEmployeeByNAID(naid);
    if (!employee) raise(error_number::objectNotSet, "Company.at", std::to_string(naid));
    return *employee;
}

}  // namespace ledgerwick::test
