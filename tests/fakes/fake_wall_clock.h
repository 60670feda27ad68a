#pragma once

#include "platform/wall_clock.h"

namespace vireon::tests {

// A clock that stands at `time` until a test moves it.
class FakeWallClock final : public platform::WallClock {
 public:
  FakeWallClock() = default;
  explicit FakeWallClock(const platform::CalendarTime& start) : time(start) {}

  platform::CalendarTime now() const override { return time; }

  platform::CalendarTime time;
};

}  // namespace vireon::tests
