#pragma once

#include "platform/steady_clock.h"

namespace vireon::tests {

// Stands still unless a test moves it.
class FakeSteadyClock final : public platform::SteadyClock {
 public:
  std::chrono::milliseconds time{12345};
  std::chrono::milliseconds now() const override { return time; }
};

}  // namespace vireon::tests
