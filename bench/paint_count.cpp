// vireon_bench_paint_count WINDOW SECONDS: how often a second that window of another program is painted. What
// is painted within 4 ms counts as one.
#include <cstdlib>
#include <exception>
#include <thread>

#include "bench/measured.h"
#include "bench/x11_watch.h"

namespace {

using Clock = std::chrono::steady_clock;
using vireon::bench::X11Watch;

constexpr std::chrono::milliseconds kOnePaint(4);

int paintsOf(xcb_window_t window, std::chrono::duration<double> time) {
  X11Watch watch;
  const auto damage = watch.watchPainting(window, XCB_DAMAGE_REPORT_LEVEL_NON_EMPTY);
  const auto begin = Clock::now();
  int paints = 0;
  while (Clock::now() - begin < time) {
    const auto event = watch.next(std::chrono::milliseconds(20));
    if (event && watch.isPainting(event)) {
      ++paints;
      std::this_thread::sleep_for(kOnePaint);
      watch.takeDamage(damage);
    }
  }
  return paints;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fputs("usage: vireon_bench_paint_count WINDOW SECONDS\n", stderr);
    return 2;
  }
  const double seconds = std::atof(argv[2]);
  try {
    const auto window = static_cast<xcb_window_t>(std::strtoul(argv[1], nullptr, 0));
    vireon::bench::measured("paints", paintsOf(window, std::chrono::duration<double>(seconds)) / seconds,
                            "per second");
  } catch (const std::exception& fault) {
    std::fprintf(stderr, "%s\n", fault.what());
    return 1;
  }
  return 0;
}
