#include "simulator/auto_scale.h"

#include <algorithm>
#include <cmath>

#include "simulator/scales.h"

namespace vireon::simulator {
namespace {

constexpr double kReach = 2.0;   // divisions
constexpr double kWidth = 10.0;  // divisions
constexpr double kPeriods = 2.0;
constexpr double kRounding = 1e-9;

}  // namespace

int fittingVoltScale(const Signal& signal, const ChannelSettings& channel) {
  const Extent volts = extent(signal);
  const double removed = channel.alternating ? meanVoltage(signal) : 0.0;
  const double reach = std::max(std::abs(volts.high - removed), std::abs(volts.low - removed));
  int code = 0;
  while (code < kVoltScales - 1 && reach > kReach * voltsPerDivision(code) * (1.0 + kRounding)) ++code;
  return code;
}

int fittingTimeScale(const Signal& signal, int current) {
  if (!alternates(signal)) return current;
  const double wanted = kPeriods / signal.frequency;
  int code = 0;
  while (code < kTimeScales - 1 && wanted > kWidth * secondsPerDivision(code) * (1.0 + kRounding)) ++code;
  return code;
}

}  // namespace vireon::simulator
