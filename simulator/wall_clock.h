#pragma once

#include <string>
#include <string_view>

namespace vireon::simulator {

// True for a date and time as "YY-MM-DD HH:MM:SS" that the calendar knows.
bool isDateTime(std::string_view text);

// The instrument's time of day, set by the host.
class WallClock {
 public:
  // Takes over a date and time for which isDateTime() holds, at an instrument time in seconds.
  void set(std::string_view dateTime, double now);

  // "HH:MM:SS" at an instrument time in seconds; starts at noon.
  std::string timeOfDay(double now) const;

 private:
  double midnight_ = -12.0 * 3600.0;
};

// A duration in seconds as "HH:MM:SS", from 00:00:00 to 99:59:59.
std::string durationText(double seconds);

}  // namespace vireon::simulator
