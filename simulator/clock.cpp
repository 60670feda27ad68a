#include "simulator/clock.h"

#include <algorithm>
#include <thread>

namespace vireon::simulator {

void ManualClock::advance(std::chrono::nanoseconds duration) {
  now_ += std::max(duration, std::chrono::nanoseconds{0});
}

std::chrono::nanoseconds SteadyClock::now() const {
  return std::chrono::steady_clock::now() - start_;
}

void SteadyClock::wait(std::chrono::nanoseconds duration) {
  std::this_thread::sleep_for(duration);
}

}  // namespace vireon::simulator
