#include "tests/support/company.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "ledgerwick/calendar/frequency.h"
#include "ledgerwick/calendar/tax_calendar.h"
#include "ledgerwick/host/identify.h"
#include "ledgerwick/records/statement.h"
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

// A value as SQLite keeps it.
std::string literal(const Variant& value) {
    if (value.kind() == VariantKind::Text) return "'" + replaceAll(value.toText(), "'", "''") + "'";
    return numberText(value.toDouble());
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
    return set("Customers", columns, "NAID = " + literal(naid_));
}

Person& Person::details(std::string_view columns) {
    return set("PREmployeeDetails", columns, "PRENAID = " + literal(naid_));
}

Person& Person::row(std::string_view columns) {
    return set("PREmployments", columns, "PRTID = " + literal(prtid_));
}

Person& Person::pay(std::string_view columns) {
    return set("PRPay", columns,
               statement("PRPID >= @ AND PRPNAID = @", {literal(firstPRPID_), literal(naid_)}));
}

Person& Person::named(std::string_view name) {
    return customer("NABusName = " + literal(name));
}

Person& Person::nino(std::string_view number) {
    return details("PRENINO = " + literal(number));
}

Person& Person::originallyJoined(std::string_view date) {
    return details("PREOriginallyJoined = " + literal(day(date)));
}

Person& Person::inScheme(std::int32_t psid, bool useSchemeRates) {
    return details(statement("PREPenWorkplaceSchemeID = @, PREPenWorkplaceUseSchemeRates = @",
                             {literal(psid), literal(useSchemeRates)}));
}

Person& Person::paid(PR_Pay_Freq frequency) {
    frequency_ = frequency;
    return details("PREPayFrequency = " + literal(std::int32_t{frequency}));
}

Person& Person::employment(std::int32_t payrollYear, std::int32_t count) {
    payrollYear_ = payrollYear;
    count_ = count;
    prtid_ = naid_ * 10 + employments_++;
    company_.insert(
        "PREmployments (PRTID, PRTNAID, PRTPayrollYear, PRTPYEmployCount, PRTStartDate, PRTType)",
        {prtid_, naid_, payrollYear, count, firstDay(payrollYear), std::int32_t{PR_ET_Regular}});
    return details("PREPYEmployCount = " + literal(count));
}

Person& Person::withoutEmployment() {
    company_.exec("DELETE FROM PREmployments WHERE PRTNAID = " + literal(naid_));
    employments_ = 0;
    return *this;
}

Person& Person::casual() {
    row("PRTType = " + literal(std::int32_t{PR_ET_Casual}));
    return paid(PFREQ_Casual);
}

Person& Person::started(std::string_view date) {
    row("PRTStartDate = " + literal(day(date)));
    return employments_ == 1 ? originallyJoined(date) : *this;
}

Person& Person::left(std::string_view date) {
    return row("PRTEndDateLong = " + literal(day(date).dayNumber()));
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

void Person::addPayRow(std::int32_t weekNo, std::int32_t paymentPeriod, const PeriodDates& dates,
                       bool closed) {
    company_.insert(
        R"(PRPay (PRPNAID, PRPPayrollYear, PRPPYEmployCount, PRPWeekNo, PRPPaymentPeriod,
                  PRPPayDate, PRPRTIPayDate, PRPEPEDate, PRPNExpPayDate, PRPNExpEPEDate,
                  PRPPeriodUpdated, PRPCalculationUsed, PRPStatus))",
        {naid_, payrollYear_, count_, weekNo, paymentPeriod, dates.payDate, dates.payDate,
         dates.epeDate, dates.nextPayDate, dates.nextEPEDate, closed, calculationUsed,
         closed ? reportedStatus : 0});
    if (firstPRPID_ == 0) firstPRPID_ = company_.value("max(PRPID)", "PRPay").toInt32();
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
    insert("PRControl (PRCFCurrentYear)", {payrollYear});
    for (const std::int32_t ended : {payrollYear - 1, payrollYear})
        insert("PRYearEnds (PRYEYear, PRYEDate)", {ended, firstDay(ended + 1).addDays(-1)});
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
        exec(statement("DELETE FROM Parameters WHERE ParName = @", {literal(name)}));
        insert("Parameters (ParName, ParValue)", {name, std::to_string(value)});
    }
    return *this;
}

Person& Company::employee(std::int32_t naid) {
    for (const auto& person : people_)
        if (person->naid_ == naid) return *person;

    const std::string number = std::to_string(naid);
    insert("Customers (NAID, NASeq, NABusName)", {naid, "E" + number, "Employee " + number});
    insert("PREmployeeDetails (PRENAID, PREOriginallyJoined)", {naid, firstDay(year_)});
    people_.push_back(std::unique_ptr<Person>(new Person(*this, naid)));
    return people_.back()->weekly().employment(year_);
}

Company& Company::scheme(std::int32_t psid, std::string_view description, double employeePercent,
                         double employerPercent, std::int32_t deductionsType,
                         bool appliesTaxRelief) {
    return insert("PensionSchemes", {psid, description, deductionsType, appliesTaxRelief,
                                     employeePercent, employerPercent});
}

Company& Company::importedPay(std::int32_t naid, double pay) {
    if (!database_->TableExists("PRPayImport")) database_->createPayImportTable();
    return insert("PRPayImport (PRPINAID, PRPIPay)", {naid, pay});
}

Company& Company::item(std::int32_t dsid, std::string_view description, double conversion,
                       std::string_view unitOfPurchase) {
    insert("UoM (UoMNo, UoMCode)", {++units_, unitOfPurchase});
    return insert("Deadstock (DSIDNo, DSDesc, DSUoMConv, DSPurchUoM)",
                  {dsid, description, conversion, units_});
}

Company& Company::order(std::int32_t ordId, std::int32_t naid, std::int32_t dsid,
                        std::string_view date, double quantity, double price, std::int32_t status,
                        double discount) {
    return insert(
        "Orders (OrdID, OrdNAID, OrdDSID, OrdActionDate, OrdQty, OrdPrice, OrdDiscount, OrdStatus)",
        {ordId, naid, dsid, day(date), quantity, price, discount, status});
}

Company& Company::insert(std::string_view where, std::initializer_list<Variant> values) {
    std::string list;
    for (const Variant& value : values) list += (list.empty() ? "" : ", ") + literal(value);
    return exec(statement("INSERT INTO @ VALUES (@)", {where, list}));
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
