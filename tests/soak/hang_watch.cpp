#include "tests/soak/hang_watch.h"

#include <execinfo.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>

namespace vireon::soak {
namespace {

constexpr int kHangCode = 70;  // of the process

void showStack(int /*signal*/) {
  std::array<void*, 100> frames{};
  const int depth = ::backtrace(frames.data(), static_cast<int>(frames.size()));
  ::backtrace_symbols_fd(frames.data(), depth, STDERR_FILENO);
  ::_exit(kHangCode);
}

// The system's word on a thread's state, e.g. 'D' where it waits for the disk.
char stateOf(const std::string& thread) {
  std::ifstream file(thread + "/stat");
  std::string text;
  std::getline(file, text);
  const std::size_t name = text.rfind(')');
  return name == std::string::npos || name + 2 >= text.size() ? '?' : text[name + 2];
}

// The system call it is in, and what its first argument names if that is a file.
std::string callOf(const std::string& thread) {
  std::ifstream file(thread + "/syscall");
  std::string number;
  std::string argument;
  file >> number >> argument;
  std::error_code none;
  const std::string descriptor = std::to_string(std::strtoll(argument.c_str(), nullptr, 16));
  return number + " at " + std::filesystem::read_symlink("/proc/self/fd/" + descriptor, none).string();
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
    const char state = stateOf(task_);
    if (const std::uint64_t beats = beats_; beats != seen) {
      seen = beats;
      since = now;
    } else if (state == 'D') {
      since += std::chrono::seconds(1);  // the computer's doing
    } else if (now - since > std::chrono::seconds(kPatience)) {
      std::fprintf(stderr, "HANG: nothing has happened for %d s, state %c, call %s. The last acts:\n%s",
                   kPatience, state, callOf(task_).c_str(), log_.tail().c_str());
      ::pthread_kill(watched_, SIGUSR1);
      return;
    }
  }
}

}  // namespace vireon::soak
