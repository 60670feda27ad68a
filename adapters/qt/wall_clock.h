#pragma once

#include "platform/wall_clock.h"

namespace vireon::adapters {

// The desktop's local time.
class QtWallClock : public platform::WallClock {
 public:
  platform::CalendarTime now() const override;
};

}  // namespace vireon::adapters
