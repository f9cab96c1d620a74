// Whole operations against the same work by hand, in one run: `bench_whole_run [employees] [rounds]`.
//
// Builds its own company, then takes turns: bare, library, bare, library ... and prints each time
// with its ratio to the bare loop's median. Times are of the process's own clock; quote the ratios.
#include <malloc.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "bench/bare.h"
#include "bench/company.h"
#include "hostkit/services/host_session.h"
#include "hostkit/sqlite/database.h"

namespace {

using ledgerwick::Date;
using ledgerwick::HostSession;

double secondsOf(const auto& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

void report(const char* what, const std::vector<double>& bare, const std::vector<double>& library) {
    const double by = median(bare);
    std::printf("%-10s bare %8.3f s   library %8.3f s   ratio %.2f\n", what, by, median(library),
                median(library) / by);
    std::fflush(stdout);
}

// A copy of the company, so that each turn starts from the same rows.
std::string freshCopy(const std::string& company, const char* name) {
    const std::string copy = company + "." + name;
    for (const char* tail : {"", "-wal", "-shm"}) std::filesystem::remove(copy + tail);
    std::filesystem::copy_file(company, copy);
    return copy;
}

std::shared_ptr<ledgerwick::sqlite::SqliteDatabase> openKit(const std::string& path) {
    ledgerwick::sqlite::OpenOptions options;
    options.durability = ledgerwick::sqlite::Durability::Relaxed;
    return ledgerwick::sqlite::SqliteDatabase::open(path, options);
}

// The heap without what the database holds for itself, its page cache above all.
std::int64_t heapInUse() {
    const auto all = mallinfo2();
    return static_cast<std::int64_t>(all.uordblks + all.hblkhd) - sqlite3_memory_used();
}

void measureLoad(const std::string& company, int rounds, int employees) {
    std::vector<double> bare;
    std::vector<double> library;
    double perEmployee = 0;
    for (int i = 0; i < rounds; ++i) {
        sqlite3* db = bench::openBare(company);
        bare.push_back(secondsOf([&] { bench::bareLoad(db); }));
        sqlite3_close(db);
        HostSession session(openKit(company), Date(bench::dueDate));
        const std::int64_t before = heapInUse();
        library.push_back(secondsOf([&] { session.list().LoadEmployees(); }));
        perEmployee = static_cast<double>(heapInUse() - before) / employees;
        if (session.list().EmployeeCount() != employees) std::exit(1);
    }
    report("load", bare, library);
    std::printf("%-10s %.0f bytes of heap for an employee with one employment\n", "memory",
                perEmployee);

    HostSession session(openKit(company), Date(bench::dueDate));
    session.list().LoadEmployees();
    constexpr int reloads = 200;
    const double seconds = secondsOf([&] {
        for (int i = 0; i < reloads; ++i) session.list().ReLoadEmployee(1 + i * 7919 % employees);
    });
    std::printf("%-10s %.3f ms each in a list of %d\n", "reload", seconds / reloads * 1000,
                employees);
}

void measureRun(const std::string& company, int rounds, int employees) {
    std::vector<double> bareOpen, bareClose, open, close;
    for (int i = 0; i < rounds; ++i) {
        sqlite3* db = bench::openBare(freshCopy(company, "bare"));
        bareOpen.push_back(secondsOf([&] { bench::bareOpen(db); }));
        bareClose.push_back(secondsOf([&] { bench::bareClose(db); }));
        sqlite3_close(db);

        auto kit = openKit(freshCopy(company, "library"));
        HostSession session(kit, Date(bench::dueDate));
        session.list().LoadEmployees();
        ledgerwick::Variant columns;
        open.push_back(secondsOf([&] {
            session.payroll().C_InputHoursInit(Date(bench::dueDate), ledgerwick::PFREQ_SelAll, 0, 0,
                                               &columns);
        }));
        if (columns.array().upperBound(2) != employees) std::exit(1);
        close.push_back(secondsOf([&] {
            // As a host does that closes a whole run: one batch around all of it.
            ledgerwick::inOneBatch(*kit, [&] {
                for (const auto& employee : session.list().Employees()) {
                    session.payroll().C_UpdatePayPeriod(employee->NAID(), Date(bench::dueDate));
                }
            });
        }));
    }
    report("open", bareOpen, open);
    report("close", bareClose, close);
}

}  // namespace

int main(int argc, char** argv) {
    const int employees = argc > 1 ? std::atoi(argv[1]) : 20000;
    const int rounds = argc > 2 ? std::atoi(argv[2]) : 5;
    const auto folder = std::filesystem::temp_directory_path() / "ledgerwick-bench";
    std::filesystem::create_directories(folder);
    const std::string company = folder / "company.db";
    bench::layDownCompany(company, employees);
    std::printf("%d employees, %d closed weekly rows each, SQLite %s\n", employees,
                bench::closedWeeks, sqlite3_libversion());
    measureLoad(company, rounds, employees);
    measureRun(company, rounds, employees);
    std::filesystem::remove_all(folder);
}
