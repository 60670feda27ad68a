#pragma once

#include <array>
#include <cstdint>

namespace vireon::simulator {

struct ChannelSettings {
  int scale = 4;             // volts/div code, 0 to 12
  bool alternating = false;  // AC coupling
  bool automatic = false;    // picks its scale itself
  bool on = true;
  std::uint8_t position = 62;  // sample value of the zero level
};

struct TimeBaseSettings {
  int scale = 7;               // time/div code, 0 to 20
  bool automatic = false;      // picks its scale itself
  std::uint8_t position = 62;  // sample index at which the trigger stands; beyond 124 it is off the screen
};

enum class TriggerSource { kA, kB, kExternal };

struct TriggerSettings {
  TriggerSource source = TriggerSource::kA;
  bool falling = false;
  bool automatic = true;     // runs free where nothing triggers
  std::uint8_t level = 128;  // 128 is the source's zero, one up is one sample step up
};

enum class Function { kDcv, kAcv, kOhm, kContinuity, kFrequency, kRpm, kPulseWidth, kDuty, kDwell };

inline constexpr int kFunctionCount = 9;

constexpr bool measuresOhms(Function function) {
  return function == Function::kOhm || function == Function::kContinuity;
}

enum class LoggerMode { kOff, kDataLogger, kRecord, kRelative, kCompare, kTrend };

struct MeterSettings {
  Function function = Function::kDcv;
  LoggerMode mode = LoggerMode::kOff;
  bool automatic = true;                    // picks its range itself
  std::array<int, kFunctionCount> range{};  // range code of each function; continuity uses that of ohms
};

struct Settings {
  ChannelSettings a{.position = 34};
  ChannelSettings b{.scale = 3, .position = 90};
  TimeBaseSettings timeBase;
  TriggerSettings trigger;
  MeterSettings meter;
  bool hold = false;    // picture and reading stand still
  bool single = false;  // one capture, then hold
};

}  // namespace vireon::simulator
