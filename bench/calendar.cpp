// What one calendar operation costs.
#include <benchmark/benchmark.h>

#include <cstdint>

#include "ledgerwick/calendar/next_expected.h"
#include "ledgerwick/calendar/tax_calendar.h"

namespace {

using ledgerwick::Date;
namespace calendar = ledgerwick::calendar;

// Days that follow each other irregularly over two centuries.
class Days {
  public:
    Date next() {
        state_ = state_ * 1664525U + 1013904223U;
        return Date(static_cast<double>(2000 + (state_ >> 8) % 72000));
    }

  private:
    std::uint32_t state_ = 1;
};

void TaxWeek(benchmark::State& state) {
    Days days;
    for (auto _ : state) benchmark::DoNotOptimize(calendar::taxWeek(days.next()));
}
BENCHMARK(TaxWeek);

void TaxMonth(benchmark::State& state) {
    Days days;
    for (auto _ : state) benchmark::DoNotOptimize(calendar::taxMonth(days.next()));
}
BENCHMARK(TaxMonth);

void TaxPeriodOfAWeek(benchmark::State& state) {
    Days days;
    for (auto _ : state) benchmark::DoNotOptimize(calendar::taxPeriod(days.next(), 1, "bench"));
}
BENCHMARK(TaxPeriodOfAWeek);

void TaxPeriodOfAMonth(benchmark::State& state) {
    Days days;
    for (auto _ : state) benchmark::DoNotOptimize(calendar::taxPeriod(days.next(), -1, "bench"));
}
BENCHMARK(TaxPeriodOfAMonth);

void PayReferencePeriod(benchmark::State& state) {
    Days days;
    for (auto _ : state) benchmark::DoNotOptimize(calendar::payReferencePeriod(days.next(), 1, 2));
}
BENCHMARK(PayReferencePeriod);

// By the controller of the rule: the last day, a day of the month, the last Friday.
void NextMonthlyDate(benchmark::State& state) {
    Days days;
    const calendar::MonthlyRule rule{.controller = static_cast<std::int32_t>(state.range(0))};
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            calendar::nextExpectedDate(days.next(), ledgerwick::PFREQ_Monthly, rule));
    }
}
BENCHMARK(NextMonthlyDate)->Arg(0)->Arg(28)->Arg(-6);

void NextWeeklyDate(benchmark::State& state) {
    Days days;
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            calendar::nextExpectedDate(days.next(), ledgerwick::PFREQ_1Weekly));
    }
}
BENCHMARK(NextWeeklyDate);

}  // namespace

BENCHMARK_MAIN();
