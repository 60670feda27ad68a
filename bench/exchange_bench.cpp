#include <benchmark/benchmark.h>

#include "bench/bench_rig.h"

namespace {

void wholePollExchange(benchmark::State& state) {
  vireon::bench::Rig rig;
  for (auto _ : state) {
    rig.clock.advance(std::chrono::milliseconds(10));
    rig.program.form.tmrInt.tick();
  }
}
BENCHMARK(wholePollExchange);

void theSimulatorsShareOfAPoll(benchmark::State& state) {
  vireon::bench::Rig rig;
  for (auto _ : state) {
    rig.clock.advance(std::chrono::milliseconds(10));
    benchmark::DoNotOptimize(rig.instrument.answer("DRS??"));
  }
}
BENCHMARK(theSimulatorsShareOfAPoll);

}  // namespace
