// Whole operations against the same work by hand, in one run, as rows of a table:
//
//   bench_whole_run 20000 5         employees, rounds: times and their ratios
//   bench_whole_run memory 20000    what a loaded list holds, and the peak of the process
//
// Builds its own company, then takes turns: bare, library, bare, library ... Each row has the medians
// of the process's time and their ratio; the last column is the ratio by the clock on the wall.
#include <malloc.h>
#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <ctime>
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

// What a piece of work took, by the process's own time and by the clock on the wall.
struct Taken {
    double cpu;
    double wall;
};

double secondsBy(clockid_t clock) {
    timespec now{};
    clock_gettime(clock, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

Taken secondsOf(const auto& work) {
    const Taken start{secondsBy(CLOCK_PROCESS_CPUTIME_ID), secondsBy(CLOCK_MONOTONIC)};
    work();
    return {secondsBy(CLOCK_PROCESS_CPUTIME_ID) - start.cpu,
            secondsBy(CLOCK_MONOTONIC) - start.wall};
}

double median(const std::vector<Taken>& taken, double Taken::*which) {
    std::vector<double> values;
    for (const Taken& one : taken) values.push_back(one.*which);
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

void report(const char* what, int employees, const std::vector<Taken>& bare,
            const std::vector<Taken>& library) {
    const double bareCpu = median(bare, &Taken::cpu);
    const double libraryCpu = median(library, &Taken::cpu);
    std::printf("| %s | %d | %.3f s | %.3f s | %.1f µs | **%.2f** | %.2f |\n", what, employees,
                bareCpu, libraryCpu, libraryCpu / employees * 1e6, libraryCpu / bareCpu,
                median(library, &Taken::wall) / median(bare, &Taken::wall));
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
    ledgerwick::store::OpenOptions options;
    options.durability = ledgerwick::store::Durability::Relaxed;
    return ledgerwick::sqlite::SqliteDatabase::open(path, options);
}

// The heap without what the database holds for itself, its page cache above all.
std::int64_t heapInUse() {
    const auto all = mallinfo2();
    return static_cast<std::int64_t>(all.uordblks + all.hblkhd) - sqlite3_memory_used();
}

void measureLoad(const std::string& company, int rounds, int employees) {
    std::vector<Taken> bare;
    std::vector<Taken> library;
    for (int i = 0; i < rounds; ++i) {
        sqlite3* db = bench::openBare(company);
        bare.push_back(secondsOf([&] { bench::bareLoad(db); }));
        sqlite3_close(db);
        HostSession session(openKit(company), Date(bench::dueDate));
        library.push_back(secondsOf([&] { session.list().LoadEmployees(); }));
        if (session.list().EmployeeCount() != employees) std::exit(1);
    }
    report("`LoadEmployees`", employees, bare, library);

    HostSession session(openKit(company), Date(bench::dueDate));
    session.list().LoadEmployees();
    constexpr int reloads = 1000;
    const Taken taken = secondsOf([&] {
        for (int i = 0; i < reloads; ++i) session.list().ReLoadEmployee(1 + i * 7919 % employees);
    });
    std::printf("| `ReLoadEmployee` | %d | | %.3f ms | | | |\n", employees,
                taken.cpu / reloads * 1000);
    std::fflush(stdout);
}

void measureRun(const std::string& company, int rounds, int employees) {
    std::vector<Taken> bareOpen, bareClose, open, close;
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
    report("opening a run", employees, bareOpen, open);
    report("closing it", employees, bareClose, close);
}

// The bytes of a loaded list, by employee.
double bytesPerEmployee(const std::string& company, int employees, int employments) {
    bench::layDownCompany(company, employees, employments);
    HostSession session(openKit(company), Date(bench::dueDate));
    const std::int64_t before = heapInUse();
    session.list().LoadEmployees();
    return static_cast<double>(heapInUse() - before) / employees;
}

long peakMegabytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024;
}

void measureMemory(const std::string& company, int employees) {
    const double one = bytesPerEmployee(company, employees, 1);
    const double three = bytesPerEmployee(company, employees, 3);
    std::printf("| %d | %.0f | %.0f | %.0f |", employees, one, three, (three - one) / 2);
    std::fflush(stdout);
}

// In a process of its own: creating a company takes more memory than loading it.
void measurePeak(const std::string& company) {
    HostSession session(openKit(company), Date(bench::dueDate));
    session.list().LoadEmployees();
    std::printf(" %ld MB |\n", peakMegabytes());
}

}  // namespace

int main(int argc, char** argv) {
    const bool memory = argc > 1 && std::strcmp(argv[1], "memory") == 0;
    const char* const loadOnly = argc > 2 && std::strcmp(argv[1], "peak") == 0 ? argv[2] : nullptr;
    if (loadOnly) {
        measurePeak(loadOnly);
        return 0;
    }
    const int employees = argc > 1 + memory ? std::atoi(argv[1 + memory]) : 20000;
    const int rounds = argc > 2 ? std::atoi(argv[2]) : 5;
    const auto folder = std::filesystem::temp_directory_path() / "ledgerwick-bench";
    std::filesystem::create_directories(folder);
    const std::string company = folder / "company.db";
    if (memory) {
        measureMemory(company, employees);
        bench::layDownCompany(company, employees);
        const std::string again = "\"" + std::string(argv[0]) + "\" peak \"" + company + "\"";
        if (std::system(again.c_str()) != 0) return 1;
    } else {
        bench::layDownCompany(company, employees);
        measureLoad(company, rounds, employees);
        measureRun(company, rounds, employees);
    }
    std::filesystem::remove_all(folder);
}
