#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <fstream>
#include <string>

#include "app/executables/session.h"
#include "bench/bench_rig.h"

namespace {

constexpr int kSeconds = 4;
constexpr int kFrames = 1000000;
// To see that it runs at all.
constexpr int kFewSeconds = 1;
constexpr int kFewFrames = 10000;

double processorSeconds() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
  };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

double residentMegabytes() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with("VmRSS:")) {
      return std::stod(line.substr(6)) / 1024;
    }
  }
  return 0;
}

// The window on a simulated instrument that runs with the computer's clock.
struct LiveRig {
  vireon::simulator::SteadyClock clock;
  vireon::simulator::Instrument instrument{vireon::simulator::Model::kK7310, clock};
  vireon::simulator::UsbEndpoint endpoint{instrument, clock};
  vireon::app::SimulatedHid hid{endpoint, vireon::simulator::Model::kK7310};
  vireon::bench::NoSerialPort serialPort;
  vireon::app::MemoryFileStore files;
  vireon::adapters::ModalGate gate;
  vireon::app::Session session{{hid, serialPort, files}, "", gate};

  LiveRig() { session.show(); }

  vireon::form::MainForm& form() { return session.program().form; }

  void start(const char* samplingTime) {
    form().cmdBttn[0].click();
    form().txtSTime.setText(samplingTime);
    form().cmdStart.click();
  }

  // Runs the event loop for so many seconds; returns the share of one core that the process used meanwhile,
  // in percent.
  double run(std::int64_t seconds) {
    const double before = processorSeconds();
    QElapsedTimer time;
    time.start();
    QTimer::singleShot(std::chrono::seconds(seconds), qApp, &QApplication::quit);
    QApplication::exec();
    return 100 * (processorSeconds() - before) / (static_cast<double>(time.elapsed()) / 1000);
  }
};

void processorWhileDisconnected(benchmark::State& state) {
  for (auto _ : state) {
    LiveRig rig;
    state.counters["percent_of_a_core"] = rig.run(state.range(0));
  }
}
BENCHMARK(processorWhileDisconnected)
    ->Arg(kSeconds)
    ->Arg(kFewSeconds)
    ->Iterations(1)
    ->Unit(benchmark::kSecond);

void processorAt60FramesASecond(benchmark::State& state) {
  for (auto _ : state) {
    LiveRig rig;
    rig.start("0.0167");
    const std::uint64_t before = rig.instrument.commandCount();
    state.counters["percent_of_a_core"] = rig.run(state.range(0));
    state.counters["frames_per_second"] =
        static_cast<double>(rig.instrument.commandCount() - before) / static_cast<double>(state.range(0));
  }
}
BENCHMARK(processorAt60FramesASecond)
    ->Arg(kSeconds)
    ->Arg(kFewSeconds)
    ->Iterations(1)
    ->Unit(benchmark::kSecond);

// A sampling time of 1 ms, with a user who clicks ten times a second.
void framesAtOneMillisecond(benchmark::State& state) {
  for (auto _ : state) {
    LiveRig rig;
    rig.start("0.001");
    qint64 slowest = 0;
    QElapsedTimer sinceClick;
    QTimer user;
    QObject::connect(&user, &QTimer::timeout, [&] {
      sinceClick.start();
      QMetaObject::invokeMethod(
          qApp,
          [&] {
            rig.form().cmdVu[0].click();
            slowest = std::max(slowest, sinceClick.nsecsElapsed());
          },
          Qt::QueuedConnection);
    });
    user.start(100);
    const std::uint64_t before = rig.instrument.commandCount();
    state.counters["percent_of_a_core"] = rig.run(state.range(0));
    state.counters["frames_per_second"] =
        static_cast<double>(rig.instrument.commandCount() - before) / static_cast<double>(state.range(0));
    state.counters["slowest_click_ms"] = static_cast<double>(slowest) / 1e6;
  }
}
BENCHMARK(framesAtOneMillisecond)->Arg(kSeconds)->Arg(kFewSeconds)->Iterations(1)->Unit(benchmark::kSecond);

void memoryOverManyFrames(benchmark::State& state) {
  for (auto _ : state) {
    LiveRig rig;
    rig.start("0.5");
    rig.form().tmrInt.setInterval(0);
    const auto frames = [&](std::int64_t count) {
      for (std::int64_t frame = 0; frame < count; ++frame) {
        rig.session.program().sampling.tmrInt_Timer();
        if (frame % 10 == 0) {
          QApplication::processEvents();
        }
      }
    };
    frames(10000);
    const double before = residentMegabytes();
    frames(state.range(0));
    state.counters["resident_MB"] = residentMegabytes();
    state.counters["grown_MB"] = residentMegabytes() - before;
  }
}
BENCHMARK(memoryOverManyFrames)->Arg(kFrames)->Arg(kFewFrames)->Iterations(1)->Unit(benchmark::kSecond);

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QApplication::setStyle(QStringLiteral("Fusion"));
  QApplication::setQuitOnLastWindowClosed(false);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
