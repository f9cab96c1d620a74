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

}  // namespace

BENCHMARK_MAIN();
