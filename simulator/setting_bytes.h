#pragma once

#include <cstdint>
#include <string>

#include "simulator/settings.h"

namespace vireon::simulator {

// Two upper-case hexadecimal digits of a value 0 to 255.
std::string hexByte(unsigned value);

// Bits 0 to 3 `scale`, 4 AC coupling, 5 automatic, 6 channel on.
std::uint8_t channelByte(const ChannelSettings& channel, int scale);

// Bits 0 to 4 time/div code, 6 automatic.
std::uint8_t timeBaseByte(const TimeBaseSettings& timeBase);

// Bits 0 and 1 source, 2 falling slope, 5 automatic.
std::uint8_t triggerByte(const TriggerSettings& trigger);

// High digit logger mode, low digit function.
std::uint8_t functionByte(const MeterSettings& meter);

// Bits 0 to 2 range code, 3 automatic.
std::uint8_t rangeByte(const MeterSettings& meter);

struct Status {
  bool hold = false;
  bool single = false;
  bool paused = false;
  bool logging = false;
  bool waiting = false;
};

// Bits 0 hold, 1 single shot, 3 pause, 4 logging, 6 a point or record waits.
std::uint8_t statusByte(const Status& status);

}  // namespace vireon::simulator
