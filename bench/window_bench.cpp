#include <benchmark/benchmark.h>

#include <QApplication>
#include <QWidget>

#include "app/executables/session.h"
#include "bench/bench_rig.h"
#include "protocol/vocabulary.h"

namespace {

struct WindowRig : vireon::bench::Bench {
  vireon::bench::NoSerialPort serialPort;
  vireon::app::MemoryFileStore files;
  vireon::adapters::ModalGate gate;
  vireon::app::Session session{{hid, serialPort, files}, "", gate};

  WindowRig() {
    session.show();
    form().cmdBttn[0].click();
    form().tmrInt.setInterval(0);
    form().tmrInt.setEnabled(true);
    program().sampling.tmrInt_Timer();
    paint();
  }

  vireon::app::Program& program() { return session.program(); }
  vireon::form::MainForm& form() { return program().form; }

  void receive(const std::string& text) {
    program().state.rxBuf[0] = 2;
    std::copy(text.begin(), text.end(), program().state.rxBuf.begin() + 1);
    program().state.rxLen = static_cast<int>(text.size());
    program().dispatcher.dspRcv();
  }

  void paint() {
    session.window().binder().flush();
    QApplication::sendPostedEvents();
    QApplication::processEvents();
  }
};

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
