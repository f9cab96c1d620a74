#include "bench/bare.h"

#include <array>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "bench/company.h"

namespace bench {
namespace {

class Statement {
  public:
    Statement(sqlite3* db, const std::string& sql) {
        if (sqlite3_prepare_v2(db, sql.c_str(), -1, &statement_, nullptr) != SQLITE_OK) {
            std::cerr << sqlite3_errmsg(db) << "\n" << sql << "\n";
            std::exit(1);
        }
    }
    ~Statement() { sqlite3_finalize(statement_); }
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    operator sqlite3_stmt*() const { return statement_; }
    bool step() const { return sqlite3_step(statement_) == SQLITE_ROW; }
    void reset() const { sqlite3_reset(statement_); }
    int column(const char* name) const {
        const int columns = sqlite3_column_count(statement_);
        for (int i = 0; i < columns; ++i) {
            if (std::strcmp(sqlite3_column_name(statement_, i), name) == 0) return i;
        }
        std::cerr << "no column " << name << "\n";
        std::exit(1);
    }

  private:
    sqlite3_stmt* statement_ = nullptr;
};

// The columns of a statement, found once, in the order of the list given.
template <std::size_t N>
std::array<int, N> columnsOf(const Statement& statement, const std::array<const char*, N>& names) {
    std::array<int, N> columns{};
    for (std::size_t i = 0; i < N; ++i) columns[i] = statement.column(names[i]);
    return columns;
}

struct Run {
    bool current = false;
    int count = 0;
    void take(double amount) {
        current = amount != 0;
        count = current ? count + static_cast<int>(amount) : 0;
    }
};

struct Employment {
    int prtid = 0, year = 0, count = 0, type = 0;
    double startDate = 0, endDate = 0, nextPay = 0, nextEpe = 0, lastExpected = 0;
    double lastPay = 0, lastEpe = 0, firstEpe = 0;
    int lastWeek = 0, lastFrequency = 0, lastMonth = 0, lastRow = 0, firstRow = 0;
    bool continuation = false, active = false, paymentsExist = false;
    std::string statusStart, statusNow;
    Run maternity, adoption, paternity, shared;
    int loan = 0, lastPlan = 0;
    bool postgraduate = false, postgraduateEver = false, reported = false;
    struct {
        int count = 0, year = 0, partner = 0, frequency = 0, period = 0, row = 0;
        double sharedDays = 0, payDate = 0, week1 = 0, hours = 0;
        std::string worksNo, officialId, taxCode;
    } last;
};

struct Employee {
    int naid = 0, frequency = 0, group = 0, scheme = 0;
    std::array<std::string, 14> texts;
    std::array<double, 5> dates{};
    std::array<double, 3> rates{};
    bool director = false, hourly = false;
    std::vector<std::unique_ptr<Employment>> employments;
};

std::string text(sqlite3_stmt* s, int column) {
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(s, column));
    return {bytes, static_cast<std::size_t>(sqlite3_column_bytes(s, column))};
}

void assignText(std::string& target, sqlite3_stmt* s, int column) {
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(s, column));
    target.assign(bytes, static_cast<std::size_t>(sqlite3_column_bytes(s, column)));
}

void loadEmployees(sqlite3* db, std::vector<std::unique_ptr<Employee>>& employees,
                   std::unordered_map<int, Employee*>& byNaid) {
    const Statement rows(
        db,
        "SELECT Customers.*, PREmployeeDetails.*, PREmployments.*, PensionSchemes.* FROM "
        "(((PREmployeeDetails LEFT JOIN Customers ON Customers.NAID = PREmployeeDetails.PRENAID) "
        "LEFT JOIN PREmployments ON PREmployments.PRTNAID = PREmployeeDetails.PRENAID) LEFT JOIN "
        "PensionSchemes ON PensionSchemes.PSID = PREmployeeDetails.PREPenWorkplaceSchemeID) "
        "ORDER BY PRTNAID, PRTPayrollYear, PRTPYEmployCount");
    const auto texts =
        columnsOf<14>(rows, {"NASeq", "NABusName", "NAUserRef", "PRESex", "NAAdd1", "NAAdd2",
                             "NAVillage", "NATown", "NACounty", "NAPostCode", "NACountry",
                             "NAEMailADD", "PRENINO", "PRETaxCode"});
    const auto dates = columnsOf<5>(rows, {"PREDoB", "PREPensionJoinedDate", "PREPensionOptInDate",
                                           "PREPensionOptOutDate", "PREPensionPostponementDate"});
    const auto rates = columnsOf<3>(rows, {"PREStdHourlyRate", "PREStdPeriodRate", "PREHDays"});
    const auto details = columnsOf<7>(rows, {"NAID", "PREPayFrequency", "PREGroup", "PREDirector",
                                             "PREHourlyPaid", "PRENITable", "PSID"});
    const auto work =
        columnsOf<8>(rows, {"PRTID", "PRTPayrollYear", "PRTPYEmployCount", "PRTStartDate",
                            "PRTEndDateLong", "PRTAEStatus", "PRTContinuation", "PRTType"});
    Employee* employee = nullptr;
    while (rows.step()) {
        const int naid = sqlite3_column_int(rows, details[0]);
        if (employee == nullptr || employee->naid != naid) {
            employee = employees.emplace_back(std::make_unique<Employee>()).get();
            employee->naid = naid;
            byNaid.emplace(naid, employee);
            for (std::size_t i = 0; i < texts.size(); ++i) {
                assignText(employee->texts[i], rows, texts[i]);
            }
            for (std::size_t i = 0; i < dates.size(); ++i) {
                employee->dates[i] = sqlite3_column_double(rows, dates[i]);
            }
            for (std::size_t i = 0; i < rates.size(); ++i) {
                employee->rates[i] = sqlite3_column_double(rows, rates[i]);
            }
            employee->frequency = sqlite3_column_int(rows, details[1]);
            employee->group = sqlite3_column_int(rows, details[2]);
            employee->director = sqlite3_column_int(rows, details[3]) != 0;
            employee->hourly = sqlite3_column_int(rows, details[4]) != 0;
            employee->texts[13] += text(rows, details[5]);
            employee->scheme = sqlite3_column_int(rows, details[6]);
        }
        auto& employment = *employee->employments.emplace_back(std::make_unique<Employment>());
        employment.prtid = sqlite3_column_int(rows, work[0]);
        employment.year = sqlite3_column_int(rows, work[1]);
        employment.count = sqlite3_column_int(rows, work[2]);
        employment.startDate = sqlite3_column_double(rows, work[3]);
        employment.endDate = sqlite3_column_double(rows, work[4]);
        assignText(employment.statusStart, rows, work[5]);
        employment.statusNow = employment.statusStart;
        employment.continuation = sqlite3_column_int(rows, work[6]) != 0;
        employment.type = sqlite3_column_int(rows, work[7]);
        employment.active = employment.endDate == 0 && employment.year == payrollYear;
    }
}

// Columns of a pay row, in the order of the names in loadPayments.
enum Pay : std::size_t {
    Naid,
    Prtid,
    Updated,
    RtiDate,
    Epe,
    Period,
    NextPay,
    NextEpe,
    Week,
    Calculation,
    RowId,
    Status,
    MatHigh,
    MatLow,
    AdoHigh,
    AdoLow,
    Paternity,
    Aspp,
    Loan,
    Postgrad,
    Progress,
    Count,
    WorksNo,
    OfficialId,
    Partner,
    Year,
    TaxCode,
    Week1,
    Hours,
    PayColumns
};

void fold(Employment& e, sqlite3_stmt* s, const std::array<int, PayColumns>& at) {
    const auto number = [&](Pay column) { return sqlite3_column_int(s, at[column]); };
    const auto real = [&](Pay column) { return sqlite3_column_double(s, at[column]); };
    if (number(Updated) == 0) return;
    e.lastPay = real(RtiDate);
    e.lastEpe = real(Epe);
    const int period = number(Period);
    e.lastFrequency = period < 0 ? 4 : period;
    e.lastExpected = e.nextPay;
    e.nextPay = real(NextPay);
    e.lastWeek = number(Week);
    if (period < 0) e.lastMonth = -period;
    if (e.active) e.nextEpe = real(NextEpe);
    if (number(Calculation) != 0) {
        e.paymentsExist = true;
        if (e.firstRow == 0) {
            e.firstRow = number(RowId);
            e.firstEpe = e.lastEpe;
        }
        assignText(e.statusNow, s, at[Status]);
        e.maternity.take(real(MatHigh) + real(MatLow));
        e.adoption.take(real(AdoHigh) + real(AdoLow));
        e.paternity.take(real(Paternity));
        e.shared.take(real(Aspp));
        e.loan = number(Loan);
        if (e.loan != 0) e.lastPlan = e.loan;
        e.postgraduate = number(Postgrad) != 0;
        e.postgraduateEver = e.postgraduateEver || e.postgraduate;
    }
    e.lastRow = number(RowId);
    if (number(Progress) >= 3 && e.type != 2) {
        e.reported = true;
        e.last.count = number(Count);
        assignText(e.last.worksNo, s, at[WorksNo]);
        assignText(e.last.officialId, s, at[OfficialId]);
        e.last.partner = number(Partner);
        e.last.sharedDays = real(Aspp);
        e.last.year = number(Year);
        e.last.payDate = e.lastPay;
        e.last.frequency = period;
        e.last.period = e.lastWeek;
        assignText(e.last.taxCode, s, at[TaxCode]);
        e.last.week1 = real(Week1);
        e.last.hours = real(Hours);
        e.last.row = e.lastRow;
    }
}

void loadPayments(sqlite3* db, const std::unordered_map<int, Employee*>& byNaid) {
    const Statement rows(
        db,
        "SELECT * FROM PRPay LEFT JOIN PREmployments ON PREmployments.PRTNAID = PRPay.PRPNAID AND "
        "PREmployments.PRTPYEmployCount = PRPay.PRPPYEmployCount AND PREmployments.PRTPayrollYear "
        "= PRPay.PRPPayrollYear ORDER BY PRPNAID, PRPPayrollYear, PRPPYEmployCount, PRPWeekNo, "
        "PRPRTIPayDate, PRPID");
    const auto at = columnsOf<PayColumns>(rows, {"PRPNAID",
                                                 "PRTID",
                                                 "PRPPeriodUpdated",
                                                 "PRPRTIPayDate",
                                                 "PRPEPEDate",
                                                 "PRPPaymentPeriod",
                                                 "PRPNExpPayDate",
                                                 "PRPNExpEPEDate",
                                                 "PRPWeekNo",
                                                 "PRPCalculationUsed",
                                                 "PRPID",
                                                 "PRPAEStatus",
                                                 "PRPMaternityHighWeeks",
                                                 "PRPMaternityLowWeeks",
                                                 "PRPAdoptionHighWeeks",
                                                 "PRPAdoptionLowWeeks",
                                                 "PRPPaternityWeeks",
                                                 "PRPASPPDays",
                                                 "PRPStudentLoan",
                                                 "PRPPostgradLoan",
                                                 "PRPStatus",
                                                 "PRPPYEmployCount",
                                                 "PRPWorksNo",
                                                 "PRPOfficialIDNo",
                                                 "PRPPartnerNAID",
                                                 "PRPPayrollYear",
                                                 "PRPTaxCode",
                                                 "PRPWeek1",
                                                 "PRPMinNormHours"});
    int naid = 0;
    Employee* employee = nullptr;
    while (rows.step()) {
        const int rowNaid = sqlite3_column_int(rows, at[Naid]);
        if (rowNaid != naid) {
            naid = rowNaid;
            employee = byNaid.at(naid);
        }
        const int prtid = sqlite3_column_int(rows, at[Prtid]);
        for (auto& employment : employee->employments) {
            if (employment->prtid == prtid) fold(*employment, rows, at);
        }
    }
}

}  // namespace

double bareLoad(sqlite3* db) {
    std::vector<std::unique_ptr<Employee>> employees;
    std::unordered_map<int, Employee*> byNaid;
    loadEmployees(db, employees, byNaid);
    loadPayments(db, byNaid);
    double sum = 0;
    for (const auto& employee : employees) {
        for (const auto& employment : employee->employments) {
            sum += employment->nextPay + employment->lastWeek;
        }
    }
    return sum;
}

namespace {

// Field of PRPay, and the expression over the employee's joined row that it takes.
struct Copy {
    const char* field;
    const char* source;
};

// What opening writes at the creation of a row, beside the fields given by number.
std::vector<Copy> creationCopies() {
    static std::vector<std::string> names;
    names.reserve(200);
    std::vector<Copy> copies;
    const auto keep = [&](std::string name) {
        names.push_back(std::move(name));
        return names.back().c_str();
    };
    for (const auto& [to, from] : {std::pair{"PRPPreTax", "PREStdPreTax"},
                                   {"PRPAfterTax", "PREStdAfterTax"},
                                   {"PRPPreTaxComment", "PREStdPreTaxComment"},
                                   {"PRPAfterTaxComment", "PREStdAfterTaxComment"},
                                   {"PRPPreTaxNom", "PREPreTaxNom"},
                                   {"PRPAfterTaxNom", "PREAfterTaxNom"},
                                   {"PRPPreTaxCost", "PREPreTaxCost"},
                                   {"PRPAfterTaxCost", "PREAfterTaxCost"}}) {
        for (int i = 1; i <= 5; ++i) {
            copies.push_back({keep(to + std::to_string(i)), keep(from + std::to_string(i))});
        }
    }
    return copies;
}

constexpr std::array<Copy, 33> updateCopies{{
    {"PRPPeriodPaid", "PREHourlyPaid"},
    {"PRPNetPaid", "PREInputNetPay"},
    {"PRPNITable", "PRENITable"},
    {"PRPTaxCode", "PRETaxCode"},
    {"PRPWeek1", "PREWeek1"},
    {"PRPDirector", "PREDirector"},
    {"PRPNoQualifyingDays", "PREQualSickDay1"},
    {"PRPAvPayForSickMaternity", "PREAverageEarningsForSickPay"},
    {"PRPStudentLoan", "PREStudentLoan"},
    {"PRPPostgradLoan", "PREPostgradLoan"},
    {"PRPStdHourlyRate", "PREStdHourlyRate"},
    {"PRPPeriodPay", "PREStdPeriodRate"},
    {"PRPStdHours", "PRENormHours1"},
    {"PRPOT1HourlyRate", "PREOT1HourlyRate"},
    {"PRPOT2HourlyRate", "PREOT2HourlyRate"},
    {"PRPPenPrivateProviderNAID", "PREPenPrivateProviderNAID"},
    {"PRPPenPrivateAfterTax", "PREQualSickDay2"},
    {"PRPPenPrivateEEDeductFlat", "PREPenPrivateEEDeductFlat"},
    {"PRPPenPrivateEEDeductPerC", "PREPenPrivateEEDeductPerC"},
    {"PRPPenPrivateERDeductFlat", "PREPenPrivateERDeductFlat"},
    {"PRPPenPrivateERDeductPerC", "PREPenPrivateERDeductPerC"},
    {"PRPPenWorkplaceSchemeID", "PREPenWorkplaceSchemeID"},
    {"PRPPenWorkplaceDeductionsType", "ifnull(PSDeductionsType, 0)"},
    {"PRPPenWorkplaceSchemeAppTxRelief", "ifnull(PSSchemeAppliesTaxRelief, 0)"},
    {"PRPPenWorkplaceEEDeductFlat", "PREPenWorkplaceEEDeductFlat"},
    {"PRPPenWorkplaceEEDeductPerC", "PREPenWorkplaceEEDeductPerC"},
    {"PRPPenWorkplaceERDeductFlat", "PREPenWorkplaceERDeductFlat"},
    {"PRPPenWorkplaceERDeductPerC", "PREPenWorkplaceERDeductPerC"},
    {"PRPMinNormHours", "PREMinNormHours"},
    {"PRPOfficialIDNo", "PREOfficialIDNo"},
    {"PRPWorksNo", "NAUserRef"},
    {"PRPHasBeenVisited", "PREQualSickDay3"},
    {"PRPStatus", "PREQualSickDay4"},
}};

void execute(sqlite3* db, const char* sql) {
    char* message = nullptr;
    if (sqlite3_exec(db, sql, nullptr, nullptr, &message) != SQLITE_OK) {
        std::cerr << message << "\n";
        std::exit(1);
    }
}

void bindColumns(sqlite3_stmt* to, int first, sqlite3_stmt* from, int columns) {
    for (int i = 0; i < columns; ++i) {
        sqlite3_bind_value(to, first + i, sqlite3_column_value(from, i));
    }
}

std::vector<int> allEmployees(sqlite3* db) {
    const Statement rows(db, "SELECT PRENAID FROM PREmployeeDetails ORDER BY PRENAID");
    std::vector<int> naids;
    while (rows.step()) naids.push_back(sqlite3_column_int(rows, 0));
    return naids;
}

template <class Copies>
std::string joined(const Copies& copies, const char* Copy::*part, const char* ending = "") {
    std::string list;
    for (const Copy& copy : copies) {
        list += std::string(list.empty() ? "" : ", ") + copy.*part + ending;
    }
    return list;
}

const char* const openRows =
    "SELECT PRPID FROM PRPay WHERE PRPNAID = ?1 AND PRPPayrollYear = ?2 AND PRPPeriodUpdated = 0 "
    "ORDER BY PRPNAID, PRPPayrollYear, PRPPYEmployCount, PRPWeekNo, PRPRTIPayDate, PRPID";

}  // namespace

std::int64_t bareOpen(sqlite3* db) {
    const auto created = creationCopies();
    const Statement open(db, openRows);
    const Statement details(db, "SELECT " + joined(created, &Copy::source) +
                                    " FROM PREmployeeDetails WHERE PRENAID = ?");
    const Statement present(
        db,
        "SELECT " + joined(updateCopies, &Copy::source) +
            " FROM ((PREmployeeDetails LEFT JOIN Customers ON Customers.NAID = "
            "PREmployeeDetails.PRENAID) LEFT JOIN PensionSchemes ON "
            "PREmployeeDetails.PREPenWorkplaceSchemeID = PensionSchemes.PSID) WHERE PRENAID = ?");
    std::string marks;
    for (std::size_t i = 0; i < created.size() + 8; ++i) marks += i == 0 ? "?" : ", ?";
    const Statement insert(
        db,
        "INSERT INTO PRPay (PRPNAID, PRPCalculationUsed, PRPPeriodUpdated, PRPPYEmployCount, "
        "PRPPayrollYear, PRPPayDate, PRPWeekNo, PRPStdHours, " +
            joined(created, &Copy::field) + ") VALUES (" + marks + ")");
    const Statement read(db, "SELECT * FROM PRPay WHERE PRPID = ?");
    const Statement update(
        db, "UPDATE PRPay SET " + joined(updateCopies, &Copy::field, " = ?") +
                ", PRPWeekNo = ?, PRPPayDate = ?, PRPEPEDate = ?, PRPNExpPayDate = ?, "
                "PRPNExpEPEDate = ?, PRPCalculationUsed = ?, PRPPaymentPeriod = ?, PRPRTIPayDate = "
                "? WHERE PRPID = ?");
    const int copied = static_cast<int>(updateCopies.size());
    std::int64_t rows = 0;
    execute(db, "BEGIN IMMEDIATE");
    for (const int naid : allEmployees(db)) {
        sqlite3_bind_int(open, 1, naid);
        sqlite3_bind_int(open, 2, payrollYear);
        std::int64_t row = open.step() ? sqlite3_column_int64(open, 0) : 0;
        open.reset();
        if (row == 0) {
            sqlite3_bind_int(details, 1, naid);
            details.step();
            const int fixed[] = {naid, 34, 0, 1, payrollYear, dueDate, 52, 0};
            for (int i = 0; i < 8; ++i) sqlite3_bind_int(insert, i + 1, fixed[i]);
            bindColumns(insert, 9, details, static_cast<int>(created.size()));
            details.reset();
            sqlite3_step(insert);
            insert.reset();
            row = sqlite3_last_insert_rowid(db);
        }
        sqlite3_bind_int64(read, 1, row);
        read.step();
        rows += sqlite3_column_int(read, 4) > 0 ? 1 : 0;
        read.reset();
        sqlite3_bind_int(present, 1, naid);
        present.step();
        bindColumns(update, 1, present, copied);
        present.reset();
        const int given[] = {52, dueDate, dueDate - 2, dueDate + 7, dueDate + 5, 34, 1, dueDate};
        for (int i = 0; i < 8; ++i) sqlite3_bind_int(update, copied + 1 + i, given[i]);
        sqlite3_bind_int64(update, copied + 9, row);
        sqlite3_step(update);
        update.reset();
    }
    execute(db, "COMMIT");
    return rows;
}

std::int64_t bareClose(sqlite3* db) {
    const Statement open(db,
                         "SELECT PRPID FROM PRPay WHERE PRPPaymentPeriod <> 0 AND PRPPeriodUpdated "
                         "= 0 AND PRPPayDate <= ?1 AND PRPNAID = ?2 ORDER BY PRPNAID, "
                         "PRPPayrollYear, PRPPYEmployCount, PRPWeekNo, PRPRTIPayDate, PRPID");
    const Statement update(db, "UPDATE PRPay SET PRPPeriodUpdated = -1 WHERE PRPID = ?");
    std::int64_t rows = 0;
    execute(db, "BEGIN IMMEDIATE");
    for (const int naid : allEmployees(db)) {
        sqlite3_bind_int(open, 1, dueDate);
        sqlite3_bind_int(open, 2, naid);
        std::vector<std::int64_t> keys;
        while (open.step()) keys.push_back(sqlite3_column_int64(open, 0));
        open.reset();
        for (const std::int64_t key : keys) {
            sqlite3_bind_int64(update, 1, key);
            sqlite3_step(update);
            update.reset();
            ++rows;
        }
    }
    execute(db, "COMMIT");
    return rows;
}

}  // namespace bench
