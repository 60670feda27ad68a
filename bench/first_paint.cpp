// vireon_bench_first_paint PROGRAM [ARGUMENT...]: starts the program, prints the seconds from there until its
// first window of its own is mapped and until at least half of that window is painted, and ends the program.
#include <spawn.h>
#include <sys/wait.h>

#include <csignal>
#include <exception>
#include <map>
#include <string>

#include "bench/measured.h"
#include "bench/x11_watch.h"

namespace {

using Clock = std::chrono::steady_clock;
using vireon::bench::X11Watch;
using vireon::bench::XEvent;

constexpr std::chrono::seconds kPatience(30);

// A window as the server tells of it.
struct Seen {
  bool mapped = false;
  long area = 0;     // pixels
  long painted = 0;  // pixels, those painted twice counted twice
};

struct FirstPaint {
  explicit FirstPaint(X11Watch& watch) : watch_(watch) {
    watch_.select(watch_.root(), XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
  }

  // Reads events until a window is painted; False when that takes too long.
  bool wait() {
    const auto begin = Clock::now();
    while (Clock::now() - begin < kPatience) {
      const XEvent event = watch_.next(std::chrono::milliseconds(100));
      if (event && take(event)) {
        painted = Clock::now();
        return true;
      }
    }
    return false;
  }

  Clock::time_point mapped;
  Clock::time_point painted;

 private:
  static constexpr long kLeastArea = 100L * 100;  // pixels; smaller ones are the toolkits' helpers

  // Whether a window is painted now. A window manager's frames override redirection, programs' windows do
  // not.
  bool take(const XEvent& event) {
    if (watch_.isPainting(event)) {
      const auto& told = reinterpret_cast<const xcb_damage_notify_event_t&>(*event);
      Seen& window = windows_[told.drawable];
      window.painted += static_cast<long>(told.area.width) * told.area.height;
      return window.mapped && 2 * window.painted >= window.area;
    }
    switch (X11Watch::kindOf(event)) {
      case XCB_CREATE_NOTIFY: {
        const auto& told = reinterpret_cast<const xcb_create_notify_event_t&>(*event);
        if (told.parent == watch_.root() && told.override_redirect == 0 && told.width > 1) {
          windows_[told.window].area = static_cast<long>(told.width) * told.height;
          watch_.select(told.window, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
          watch_.watchPainting(told.window, XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
        }
        break;
      }
      case XCB_CONFIGURE_NOTIFY: {
        const auto& told = reinterpret_cast<const xcb_configure_notify_event_t&>(*event);
        if (const auto window = windows_.find(told.window); window != windows_.end()) {
          window->second.area = static_cast<long>(told.width) * told.height;
        }
        break;
      }
      case XCB_MAP_NOTIFY: {
        const auto& told = reinterpret_cast<const xcb_map_notify_event_t&>(*event);
        const auto window = windows_.find(told.window);
        if (window != windows_.end() && !window->second.mapped && window->second.area >= kLeastArea) {
          window->second.mapped = true;
          mapped = Clock::now();
        }
        break;
      }
      default:
        break;
    }
    return false;
  }

  X11Watch& watch_;
  std::map<xcb_window_t, Seen> windows_;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::fputs("usage: vireon_bench_first_paint PROGRAM [ARGUMENT...]\n", stderr);
    return 2;
  }
  try {
    X11Watch watch;
    FirstPaint first(watch);
    const auto begin = Clock::now();
    pid_t child = 0;
    if (posix_spawnp(&child, argv[1], nullptr, nullptr, argv + 1, environ) != 0) {
      std::perror(argv[1]);
      return 1;
    }
    const bool painted = first.wait();
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    if (!painted) {
      std::fputs("its window was not painted\n", stderr);
      return 1;
    }
    using Seconds = std::chrono::duration<double>;
    vireon::bench::measured("mapped", Seconds(first.mapped - begin).count(), "s");
    vireon::bench::measured("painted", Seconds(first.painted - begin).count(), "s");
  } catch (const std::exception& fault) {
    std::fprintf(stderr, "%s\n", fault.what());
    return 1;
  }
  return 0;
}
