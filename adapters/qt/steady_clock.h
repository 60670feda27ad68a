#pragma once

#include <chrono>

#include "platform/steady_clock.h"

namespace vireon::adapters {

// The system's monotonic clock.
class SystemSteadyClock : public platform::SteadyClock {
 public:
  std::chrono::milliseconds now() const override {
    return std::chrono::duration_cast<std::chrono::milliseconds>(
        std::chrono::steady_clock::now().time_since_epoch());
  }
};

}  // namespace vireon::adapters
