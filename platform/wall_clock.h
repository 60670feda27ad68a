#pragma once

namespace vireon::platform {

// Local calendar time: year 1970 on, month 1 to 12, day 1 to 31, 24-hour time, seconds 0 to 60.
struct CalendarTime {
  int year = 1970;
  int month = 1;
  int day = 1;
  int hour = 0;
  int minute = 0;
  int second = 0;
};

// The computer's date and time.
class WallClock {
 public:
  WallClock() = default;
  WallClock(const WallClock&) = delete;
  WallClock& operator=(const WallClock&) = delete;
  virtual ~WallClock() = default;

  // Local time now, as the user's desktop shows it.
  virtual CalendarTime now() const = 0;
};

}  // namespace vireon::platform
