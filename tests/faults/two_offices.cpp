// Two offices on one company, by the thousand: two_offices [ROUNDS] [SEED]
//
// Opened twice at once: two processes load a company and open its run in the same moment. Stale: an
// office has loaded the company; another one changes it, in a way drawn at random; then the first
// opens, closes or fills, with the kit's office and without it. Each outcome must be that of an
// office that loaded after the change, row by row; without the kit's office it may be refused
// instead, and then nothing is written. Prints a table and ends with 1 when a row is double or
// missing.
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <iterator>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "hostkit/office/pay_run.h"
#include "hostkit/sqlite/database.h"
#include "tests/support/company.h"

namespace ledgerwick::test {
namespace {

using sqlite::SqliteDatabase;
using store::Durability;
namespace fs = std::filesystem;

const Date today = day("2016-05-31");
const Date payDate = day("2016-05-28");
constexpr int staff = 16;

struct Setting {
    Durability durability;
    const char* name;
};
constexpr Setting settings[] = {{Durability::EachUpdate, "each-update"},
                                {Durability::Batched, "batched"},
                                {Durability::Relaxed, "relaxed"}};

// ---- companies in files -------------------------------------------------------------------------

// Weekly and monthly people with a history, of whom one has skipped a week.
void layDown(const std::string& path) {
    Company company;
    for (int naid = 1; naid <= staff; ++naid) {
        if (naid % 3 == 0) {
            company.employee(naid).monthly().closed(month(1));
        } else if (naid == 5) {
            company.employee(naid).weekly().closed(week(1)).closed(weeks(4, 5));
        } else {
            company.employee(naid).weekly().closed(weeks(1, 5));
        }
    }
    company.exec("VACUUM INTO '" + path + "'");
}

void copyCompany(const std::string& from, const std::string& to) {
    for (const char* ending : {"", "-wal", "-shm"}) fs::remove(to + ending);
    SqliteDatabase::open(from)->exec("VACUUM INTO '" + to + "'");
    SqliteDatabase::open(to);  // from here on with a write-ahead log
}

struct Office {
    explicit Office(const std::string& path, Durability durability = Durability::Relaxed)
        : database(SqliteDatabase::open(path, {.durability = durability})),
          session(database, today) {
        session.list().LoadEmployees();
    }
    std::shared_ptr<SqliteDatabase> database;
    HostSession session;
};

// The pay rows of a company, sorted as text.
std::vector<std::string> payRows(const std::string& path) {
    const auto database = SqliteDatabase::open(path);
    const auto rows = database->OpenRecordset(
        "SELECT PRPNAID, PRPPayrollYear, PRPPYEmployCount, PRPWeekNo, PRPPaymentPeriod, "
        "PRPPayDate, "
        "PRPEPEDate, PRPNExpPayDate, PRPNExpEPEDate, PRPPeriodUpdated, PRPCalculationUsed FROM "
        "PRPay",
        RecordsetType::Snapshot);
    std::vector<std::string> texts;
    for (; !rows->Eof(); rows->MoveNext()) {
        std::string text;
        for (const FieldName& name :
             {field::PRPNAID, field::PRPPayrollYear, field::PRPPYEmployCount, field::PRPWeekNo,
              field::PRPPaymentPeriod, field::PRPPayDate, field::PRPEPEDate, field::PRPNExpPayDate,
              field::PRPNExpEPEDate, field::PRPPeriodUpdated, field::PRPCalculationUsed}) {
            text += (rows->IsNull(name) ? "Null" : rows->Value(name).toText()) + "|";
        }
        texts.push_back(std::move(text));
    }
    std::sort(texts.begin(), texts.end());
    return texts;
}

struct Outcome {
    int tries = 0;
    int doubled = 0;  // rows that should not be there
    int skipped = 0;  // rows that are missing
    int refused = 0;

    void compare(const std::vector<std::string>& is, const std::vector<std::string>& should) {
        std::vector<std::string> more;
        std::vector<std::string> less;
        std::set_difference(is.begin(), is.end(), should.begin(), should.end(),
                            std::back_inserter(more));
        std::set_difference(should.begin(), should.end(), is.begin(), is.end(),
                            std::back_inserter(less));
        doubled += static_cast<int>(more.size());
        skipped += static_cast<int>(less.size());
        ++tries;
    }
};

// ---- what an office does ------------------------------------------------------------------------

void openRun(Office& office) {
    office::openRun(office.session, {.payDate = payDate});
}

void closeRun(Office& office) {
    office::closeRun(office.session, {.payDate = payDate});
}

void fill(Office& office) {
    office::fillMissing(office.session);
}

// The same by the library alone.
void openBare(Office& office) {
    office.session.payroll().C_InputHoursInit(payDate, PFREQ_SelAll, 0, 0);
}

void closeBare(Office& office) {
    for (int naid = 1; naid <= staff; ++naid) {
        office.session.payroll().C_UpdatePayPeriod(naid, payDate);
    }
}

void fillBare(Office& office) {
    office.session.payroll().AutoFillMissingPeriods();
}

struct Step {
    const char* name;
    void (*work)(Office&);
    void (*bare)(Office&);
    bool onOpenRun;  // whether the run is open already
};
const Step steps[] = {{"opening", openRun, openBare, false},
                      {"closing", closeRun, closeBare, true},
                      {"fill", fill, fillBare, false}};

// ---- what another office may do meanwhile; `naid` is drawn ---------------------------------------

std::string ofLastRow(int naid) {
    const std::string number = std::to_string(naid);
    return " WHERE PRPID = (SELECT PRPID FROM PRPay WHERE PRPPeriodUpdated AND PRPNAID = " +
           number + " ORDER BY PRPWeekNo DESC LIMIT 1)";
}

using Change = void (*)(Office& office, int naid);
const Change changes[] = {
    [](Office&, int) {},
    [](Office& office, int) { openRun(office); },
    [](Office& office, int) {
        openRun(office);
        closeRun(office);
        office::openRun(office.session, {.payDate = payDate.addWeeks(1)});
    },
    [](Office& office, int) { closeRun(office); },
    [](Office& office, int naid) { office.session.payroll().C_UpdatePayPeriod(naid, payDate); },
    [](Office& office, int) { fill(office); },
    [](Office& office, int naid) {
        const auto now = office.session.list().GetEmployeeByNAID(naid)->CurEmployment();
        now->NExpPayDate(now->NExpPayDate().addWeeks(1));
    },
    [](Office& office, int naid) {
        office.database->exec("UPDATE PRPay SET PRPNExpEPEDate = PRPNExpEPEDate + 7" +
                              ofLastRow(naid));
    },
    [](Office& office, int naid) {
        office.database->exec("UPDATE PRPay SET PRPPeriodUpdated = 0" + ofLastRow(naid));
    },
    [](Office& office, int naid) { office.database->exec("DELETE FROM PRPay" + ofLastRow(naid)); },
    [](Office& office, int naid) {
        office.database->exec("UPDATE PREmployments SET PRTEndDateLong = 42520 WHERE PRTNAID = " +
                              std::to_string(naid));
    },
    [](Office& office, int naid) {
        office.database->exec("UPDATE PREmployeeDetails SET PREPayFrequency = 4 WHERE PRENAID = " +
                              std::to_string(naid));
    },
    [](Office& office, int naid) {
        office.database->exec("UPDATE Customers SET NATown = 'Leeds' WHERE NAID = " +
                              std::to_string(naid));
    },
    [](Office& office, int naid) {  // somebody new, as the one drawn
        const std::string number = std::to_string(naid);
        for (const auto& [table, who] :
             {std::pair{"Customers", "NAID"}, std::pair{"PREmployeeDetails", "PRENAID"},
              std::pair{"PREmployments", "PRTNAID"}, std::pair{"PRPay", "PRPNAID"}}) {
            office.database->exec("CREATE TEMP TABLE One AS SELECT * FROM " + std::string(table) +
                                  " WHERE " + who + " = " + number + "; UPDATE One SET " + who +
                                  " = 90 + " + number + ";");
            for (const char* key : {"PRTID", "PRPID"}) {
                if (std::string_view(table) == (key[2] == 'T' ? "PREmployments" : "PRPay")) {
                    office.database->exec("UPDATE One SET " + std::string(key) + " = NULL");
                }
            }
            office.database->exec("INSERT INTO " + std::string(table) +
                                  " SELECT * FROM One; DROP TABLE One;");
        }
    },
};

// ---- the two parts ------------------------------------------------------------------------------

// Both children load, tell so, and wait for the word to go.
class Gate {
  public:
    Gate() {
        if (pipe(ready_) != 0 || pipe(go_) != 0) std::abort();
    }
    ~Gate() {
        for (const int end : {ready_[0], ready_[1], go_[0], go_[1]}) close(end);
    }
    void pass() {
        char byte = 'r';
        if (write(ready_[1], &byte, 1) != 1 || read(go_[0], &byte, 1) != 1) std::abort();
    }
    void open(int children) {
        char byte = 'g';
        for (int i = 0; i < children; ++i) {
            if (read(ready_[0], &byte, 1) != 1) std::abort();
        }
        for (int i = 0; i < children; ++i) {
            if (write(go_[1], &byte, 1) != 1) std::abort();
        }
    }

  private:
    int ready_[2]{};
    int go_[2]{};
};

int inChild(const std::function<void()>& work) {
    const pid_t child = fork();
    if (child != 0) return child;
    try {
        work();
        std::_Exit(0);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        std::_Exit(1);
    }
}

// The number of the error, 0 for none.
int errorOf(const std::function<void()>& work) {
    try {
        work();
        return 0;
    } catch (const Error& error) {
        return error.Number();
    }
}

Outcome openTwiceAtOnce(const std::string& folder, Durability durability, int rounds) {
    const std::string base = folder + "/base.db";
    const std::string path = folder + "/shared.db";
    copyCompany(base, path);
    {
        Office alone(path);
        openRun(alone);
    }
    const auto should = payRows(path);
    Outcome outcome;
    for (int round = 0; round < rounds; ++round) {
        copyCompany(base, path);
        Gate gate;
        for (int i = 0; i < 2; ++i) {
            inChild([&] {
                std::optional<Office> office;
                const int fails = errorOf([&] { office.emplace(path, durability); });
                gate.pass();
                if (fails != 0) std::_Exit(1);
                openRun(*office);
            });
        }
        gate.open(2);
        for (int i = 0; i < 2; ++i) {
            int status = 0;
            wait(&status);
            outcome.refused += status != 0;
        }
        outcome.compare(payRows(path), should);
    }
    return outcome;
}

Outcome onAStaleList(const std::string& folder, const Step& step, int rounds, std::mt19937& draw) {
    const std::string base = folder + (step.onOpenRun ? "/open.db" : "/base.db");
    const std::string path = folder + "/shared.db";
    const std::string control = folder + "/control.db";
    Outcome outcome;
    for (int round = 0; round < rounds; ++round) {
        copyCompany(base, path);
        Office stale(path, settings[round % 3].durability);
        {
            Office other(path);
            const auto naid = static_cast<int>(draw() % staff) + 1;
            changes[draw() % std::size(changes)](other, naid);
        }
        copyCompany(path, control);
        const auto before = payRows(path);
        int failsFresh = 0;
        {
            Office fresh(control);
            failsFresh = errorOf([&] { step.work(fresh); });
        }
        // Without the kit's office every other time.
        if (round % 2 == 0 && errorOf([&] { step.bare(stale); }) == error_number::listOutdated) {
            ++outcome.refused;
            outcome.doubled += step.bare == openBare && payRows(path) != before;
        }
        const int fails = errorOf([&] { step.work(stale); });
        if (fails != failsFresh) std::printf("error %d, and fresh %d\n", fails, failsFresh);
        outcome.doubled += fails != failsFresh;
        outcome.compare(payRows(path), payRows(control));
    }
    return outcome;
}

int run(int rounds, unsigned seed) {
    const std::string folder = fs::temp_directory_path() / ("offices" + std::to_string(getpid()));
    fs::create_directories(folder);
    layDown(folder + "/base.db");
    copyCompany(folder + "/base.db", folder + "/open.db");
    {
        Office office(folder + "/open.db");
        openRun(office);
    }
    std::mt19937 draw(seed);
    std::printf(
        "seed %u\n| what | tries | double rows | skipped rows | refused |\n|---|---|---|---|---|\n",
        seed);
    Outcome all;
    const auto tell = [&](const std::string& what, const Outcome& outcome) {
        all.tries += outcome.tries;
        all.doubled += outcome.doubled;
        all.skipped += outcome.skipped;
        std::printf("| %s | %d | %d | %d | %d |\n", what.c_str(), outcome.tries, outcome.doubled,
                    outcome.skipped, outcome.refused);
        std::fflush(stdout);
    };
    for (const auto& [durability, name] : settings) {
        tell(std::string("two processes open one run, ") + name,
             openTwiceAtOnce(folder, durability, rounds));
    }
    for (const Step& step : steps) {
        tell(std::string(step.name) + " on a stale list", onAStaleList(folder, step, rounds, draw));
    }
    fs::remove_all(folder);
    std::printf("\n%d tries of two offices: %d double rows, %d skipped\n", all.tries, all.doubled,
                all.skipped);
    return all.doubled == 0 && all.skipped == 0 ? 0 : 1;
}

}  // namespace
}  // namespace ledgerwick::test

int main(int argc, char** argv) {
    const int rounds = argc > 1 ? std::atoi(argv[1]) : 20;
    const unsigned seed = argc > 2 ? static_cast<unsigned>(std::atol(argv[2])) : 17;
    return ledgerwick::test::run(rounds, seed);
}
