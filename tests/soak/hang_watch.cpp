#include "tests/soak/hang_watch.h"

#include <execinfo.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>

namespace vireon::soak {
namespace {

constexpr int kHangCode = 70;  // of the process

void showStack(int /*signal*/) {
  std::array<void*, 100> frames{};
  const int depth = ::backtrace(frames.data(), static_cast<int>(frames.size()));
  ::backtrace_symbols_fd(frames.data(), depth, STDERR_FILENO);
  ::_exit(kHangCode);
}

}  // namespace

HangWatch::HangWatch(const ActLog& log) : log_(log), thread_([this] { watch(); }) {
  std::signal(SIGUSR1, showStack);
}

HangWatch::~HangWatch() {
  {
    const std::lock_guard lock(mutex_);
    ending_ = true;
  }
  changed_.notify_all();
  thread_.join();
}

void HangWatch::watch() {
  std::unique_lock lock(mutex_);
  std::uint64_t seen = beats_;
  auto since = std::chrono::steady_clock::now();
  while (!changed_.wait_for(lock, std::chrono::seconds(1), [this] { return ending_; })) {
    const auto now = std::chrono::steady_clock::now();
    if (const std::uint64_t beats = beats_; beats != seen) {
      seen = beats;
      since = now;
    } else if (now - since > std::chrono::seconds(kPatience)) {
      std::fprintf(stderr, "HANG: nothing has happened for %d s. The last acts:\n%s", kPatience,
                   log_.tail().c_str());
      ::pthread_kill(watched_, SIGUSR1);
      return;
    }
  }
}

}  // namespace vireon::soak
