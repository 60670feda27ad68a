#include <benchmark/benchmark.h>
#include <spawn.h>
#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <string>

// From process start to the visible window: each program ends as soon as its window is on the screen.
namespace {

void runUntilShown(benchmark::State& state, const char* program) {
  std::string path(program);
  std::string option("--until-shown");
  for (auto _ : state) {
    std::array<char*, 3> arguments{path.data(), option.data(), nullptr};
    pid_t child = 0;
    int status = 1;
    if (posix_spawn(&child, program, nullptr, nullptr, arguments.data(), environ) != 0 ||
        waitpid(child, &status, 0) < 0 || status != 0) {
      state.SkipWithError("the program did not run");
      break;
    }
  }
}

void startOfTheWindow(benchmark::State& state) {
  runUntilShown(state, VIREON_DEMO);
}
BENCHMARK(startOfTheWindow)->UseRealTime()->Unit(benchmark::kMillisecond)->MinWarmUpTime(0.5);

void startWithAnExistingSettingsFile(benchmark::State& state) {
  runUntilShown(state, VIREON_LATER_START);
}
BENCHMARK(startWithAnExistingSettingsFile)->UseRealTime()->Unit(benchmark::kMillisecond)->MinWarmUpTime(0.5);

void startOfAnEmptyWindow(benchmark::State& state) {
  runUntilShown(state, VIREON_EMPTY_WINDOW);
}
BENCHMARK(startOfAnEmptyWindow)->UseRealTime()->Unit(benchmark::kMillisecond)->MinWarmUpTime(0.5);

}  // namespace
