#pragma once

#include <sys/time.h>

#include <chrono>
#include <csignal>

namespace vireon::tests {

// Interrupts the process by a signal again and again while this object lives.
class IntervalTimer {
 public:
  explicit IntervalTimer(std::chrono::milliseconds every) {
    struct sigaction action {};
    action.sa_handler = [](int) {};
    ::sigaction(SIGALRM, &action, &before_);
    const auto microseconds = std::chrono::microseconds(every).count();
    const itimerval interval{{0, microseconds}, {0, microseconds}};
    ::setitimer(ITIMER_REAL, &interval, nullptr);
  }
  IntervalTimer(const IntervalTimer&) = delete;
  IntervalTimer& operator=(const IntervalTimer&) = delete;
  ~IntervalTimer() {
    const itimerval off{};
    ::setitimer(ITIMER_REAL, &off, nullptr);
    ::sigaction(SIGALRM, &before_, nullptr);
  }

 private:
  struct sigaction before_ {};
};

}  // namespace vireon::tests
