#pragma once

#include <chrono>

namespace vireon::platform {

// Time that passes evenly, whatever is done to the computer's date.
class SteadyClock {
 public:
  SteadyClock() = default;
  SteadyClock(const SteadyClock&) = delete;
  SteadyClock& operator=(const SteadyClock&) = delete;
  virtual ~SteadyClock() = default;

  // Since some moment in the past, the same for the whole run.
  virtual std::chrono::milliseconds now() const = 0;
};

}  // namespace vireon::platform
