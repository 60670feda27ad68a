#pragma once

#include <string>
#include <string_view>

#include "simulator/settings.h"
#include "simulator/sweep.h"

namespace vireon::simulator {

inline constexpr std::size_t kWaveformLength = 288;

struct WaveformContent {
  std::string_view key;  // "drs" or "mem"
  int scaleA = 0;        // what channel A's setting byte shows: volts/div or ohm range code
  const Samples& a;
  const Samples& b;
  bool reference = false;    // `b` is the stored reference trace
  std::string_view reading;  // 10 characters
};

// Text of a waveform frame, 288 bytes.
std::string waveformText(const WaveformContent& content, const Settings& settings);

// Text of the frame stored in a memory 0 to 15, which differ in settings and signals and never change.
std::string memoryText(int number);

}  // namespace vireon::simulator
