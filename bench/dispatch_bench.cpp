#include <benchmark/benchmark.h>

#include <string>

#include "bench/bench_rig.h"
#include "protocol/vocabulary.h"

namespace {

// Two frames in turn, so that each one brings new samples.
void dispatchOfOneWaveformFrame(benchmark::State& state) {
  vireon::bench::Rig rig;
  rig.clock.advance(std::chrono::milliseconds(1));
  const std::string frames[] = {rig.instrument.answer("DRS??"), rig.instrument.answer("DRS??")};
  std::size_t frame = 0;
  for (auto _ : state) {
    rig.receive(frames[frame++ % 2]);
    rig.program.dispatcher.dspRcv();
    benchmark::DoNotOptimize(rig.program.form.picScope.lines().size());
  }
}
BENCHMARK(dispatchOfOneWaveformFrame);

void dispatchOfOneSettingsReply(benchmark::State& state) {
  vireon::bench::Rig rig;
  const std::string reply = rig.instrument.answer(vireon::protocol::kQueryScope);
  for (auto _ : state) {
    rig.receive(reply);
    rig.program.dispatcher.dspRcv();
    benchmark::DoNotOptimize(rig.program.form.lblHd.caption().data());
  }
}
BENCHMARK(dispatchOfOneSettingsReply);

}  // namespace
