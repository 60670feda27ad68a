#include "simulator/meter.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <string_view>

#include "simulator/meter_ranges.h"
#include "simulator/random.h"

namespace vireon::simulator {
namespace {

constexpr std::size_t kLiveLength = 10;
constexpr std::size_t kListLength = 8;
constexpr double kDegreesPerCylinder = 90.0;  // four cylinders

double steadyValue(const MeterInput& input, Function function) {
  const Signal& signal = input.signal;
  const double frequency = alternates(signal) ? signal.frequency : 0.0;
  switch (function) {
    case Function::kDcv:
      return meanVoltage(signal);
    case Function::kAcv:
      return alternatingRms(signal);
    case Function::kOhm:
    case Function::kContinuity:
      return input.resistance;
    case Function::kFrequency:
      return frequency;
    case Function::kRpm:
      return 60.0 * frequency;
    case Function::kPulseWidth:
      return frequency > 0.0 ? highShare(signal) / frequency : 0.0;
    case Function::kDuty:
      return 100.0 * highShare(signal);
    case Function::kDwell:
      break;
  }
  return kDegreesPerCylinder * highShare(signal);
}

// Share by which the reading taken at a time in seconds differs from the steady value.
double wander(const MeterInput& input, double seconds) {
  double share = 0.0;
  if (input.driftPeriod > 0.0) {
    share += input.drift * std::sin(2.0 * std::numbers::pi * seconds / input.driftPeriod);
  }
  if (input.readingPeriod > 0.0) {
    const double number = std::clamp(seconds / input.readingPeriod, -1e15, 1e15);
    share += input.flicker * Random(static_cast<std::uint64_t>(std::llround(number))).deviation();
  }
  return share;
}

double readingTime(const MeterInput& input, double seconds) {
  if (!(input.readingPeriod > 0.0)) return seconds;
  // A due time that is a whole number of periods must not fall into the period before by rounding.
  return std::floor(seconds / input.readingPeriod + 1e-6) * input.readingPeriod;
}

int finestRange(Function function, double value) {
  const auto ranges = rangesOf(function);
  const auto holds = [value](const MeterRange& range) { return std::abs(value) < range.fullScale; };
  const auto found = std::find_if(ranges.begin(), ranges.end(), holds);
  return static_cast<int>(std::min(found - ranges.begin(), std::ssize(ranges) - 1));
}

const MeterRange& rangeOf(const Reading& reading) {
  const auto ranges = rangesOf(reading.function);
  const auto last = static_cast<int>(ranges.size()) - 1;
  return ranges[static_cast<std::size_t>(std::clamp(reading.range, 0, last))];
}

Reading inRange(Function function, int range, double value) {
  Reading reading{function, range, value, false};
  reading.overload = !(std::abs(value) < rangeOf(reading).fullScale);
  return reading;
}

std::string numberText(const Reading& reading) {
  if (reading.overload) return "O.L";
  const MeterRange& range = rangeOf(reading);
  std::array<char, 32> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), reading.value * range.factor,
                                 std::chars_format::fixed, range.decimals);
  std::string text(digits.data(), end.ptr);
  const bool isZero = text.find_first_of("123456789") == std::string::npos;
  if (isZero && text.front() == '-') text.erase(0, 1);
  return text;
}

std::string fieldText(const std::string& number, std::string_view unit, std::size_t length) {
  const std::size_t places = length - unit.size();
  std::string text(places > number.size() ? places - number.size() : 0, ' ');
  text.append(number, 0, places);
  return text.append(unit);
}

}  // namespace

int rangeCount(Function function) {
  return static_cast<int>(rangesOf(function).size());
}

std::size_t rangeSlot(Function function) {
  return static_cast<std::size_t>(function == Function::kContinuity ? Function::kOhm : function);
}

Reading measure(const MeterInput& input, const MeterSettings& settings, double seconds) {
  const Function function = settings.function;
  const double value = steadyValue(input, function) * (1.0 + wander(input, readingTime(input, seconds)));
  return settings.automatic ? readingOf(function, value)
                            : inRange(function, settings.range[rangeSlot(function)], value);
}

Reading readingOf(Function function, double value) {
  return inRange(function, finestRange(function, value), value);
}

std::string liveText(const Reading& reading) {
  return fieldText(numberText(reading), rangeOf(reading).live, kLiveLength);
}

std::string listText(const Reading& reading) {
  return fieldText(numberText(reading), rangeOf(reading).list, kListLength);
}

std::string recordText(const Reading& reading) {
  return fieldText(numberText(reading), rangeOf(reading).record, kListLength);
}

std::string functionText(Function function) {
  constexpr std::array<std::string_view, kFunctionCount> kNames{"DC VOLTAGE",  "AC VOLTAGE", "RESISTANCE",
                                                                "CONTINUITY",  "FREQUENCY",  "ENGINE SPEED",
                                                                "PULSE WIDTH", "DUTY CYCLE", "DWELL ANGLE"};
  std::string text(kNames[static_cast<std::size_t>(function)]);
  text.resize(15, ' ');
  return text;
}

}  // namespace vireon::simulator
