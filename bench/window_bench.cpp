#include <benchmark/benchmark.h>

#include "bench/window_rig.h"
#include "protocol/vocabulary.h"

namespace {

using vireon::bench::WindowRig;

// Dispatch, controls and painting together: the program's whole share of a live frame.
void oneLiveFrameIntoTheWindow(benchmark::State& state) {
  WindowRig rig;
  std::string frames[2];
  for (std::string& frame : frames) {
    rig.clock.advance(std::chrono::milliseconds(1));
    frame = rig.instrument.answer(vireon::protocol::kPollWaveform);
  }
  std::size_t frame = 0;
  for (auto _ : state) {
    rig.receive(frames[frame++ % 2]);
    rig.paint();
  }
}
BENCHMARK(oneLiveFrameIntoTheWindow)->Unit(benchmark::kMicrosecond);

// The poll as it runs live, at the highest rate that the simulated instrument and the window reach.
void oneLivePollOfTheWindow(benchmark::State& state) {
  WindowRig rig;
  for (auto _ : state) {
    rig.clock.advance(std::chrono::milliseconds(1));
    rig.program().sampling.tmrInt_Timer();
    QApplication::processEvents();
  }
}
BENCHMARK(oneLivePollOfTheWindow)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QApplication::setStyle(QStringLiteral("Fusion"));
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
