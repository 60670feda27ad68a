#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "simulator/inputs.h"
#include "simulator/random.h"
#include "simulator/settings.h"

namespace vireon::simulator {

inline constexpr std::size_t kTraceLength = 125;
inline constexpr double kStepsPerVoltDivision = 14.0;
inline constexpr double kStepsPerTimeDivision = 12.5;
inline constexpr std::uint8_t kHighestOnScreen = 4;
inline constexpr std::uint8_t kLowestOnScreen = 239;
// Channel A's mark for a point that was not acquired.
inline constexpr std::uint8_t kGap = 240;

using Samples = std::array<std::uint8_t, kTraceLength>;

// One picture. Samples are screen positions, larger is lower, 4 to 239.
struct Trace {
  Samples a{};
  Samples b{};
};

// Seconds between two samples.
double sampleStep(const TimeBaseSettings& timeBase);

// Sample value of a voltage at a channel's scale and position, clamped to the screen.
std::uint8_t sampleOf(double volts, const ChannelSettings& channel);

// Last trigger at or before, and first trigger at or after a time in seconds; none where the source never
// crosses the level with the chosen slope.
std::optional<double> triggerBefore(const Settings& settings, const Inputs& inputs, double seconds);
std::optional<double> triggerAfter(const Settings& settings, const Inputs& inputs, double seconds);

// A picture of which nothing is acquired: gaps on channel A, which has a mark for it, and the zero line on
// channel B.
Trace blankTrace(const Settings& settings);

// Puts the points of a picture into `trace`, the first taken at `start`, as far as they lie before `now`;
// the others stay as they are.
void sweep(Trace& trace, const Settings& settings, const Inputs& inputs, double start, double now,
           Random& random);

}  // namespace vireon::simulator
