#include "simulator/logger_statistics.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>

#include "simulator/logger_parameters.h"
#include "simulator/padding.h"
#include "simulator/quantity.h"
#include "simulator/wall_clock.h"

namespace vireon::simulator {
namespace {

constexpr std::size_t kPercentWidth = 7;
constexpr std::size_t kCountWidth = 6;
constexpr double kLargestPercent = 999.9;
constexpr const char* kNoReading = "  ------";

double quantityOr0(const std::string& text) {
  return parseQuantity(text).value_or(0.0);
}

std::string fixed(double value, int decimals) {
  std::array<char, 32> digits{};
  const auto end =
      std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed, decimals);
  return {digits.data(), end.ptr};
}

// "+12.34%" in 7 characters.
std::string percentText(double percent) {
  const double shown = std::clamp(percent, -kLargestPercent, kLargestPercent);
  const std::string number = fixed(std::abs(shown), std::abs(shown) < 99.995 ? 2 : 1);
  const bool isZero = number.find_first_of("123456789") == std::string::npos;
  return rightAligned((shown < 0.0 && !isZero ? "-" : "+") + number + "%", kPercentWidth);
}

double percentOff(double value, double reference) {
  return reference == 0.0 ? 0.0 : 100.0 * (value - reference) / std::abs(reference);
}

}  // namespace

void LoggerStatistics::add(const Reading& reading, const std::string& timeOfDay,
                           const LoggerParameters& parameters) {
  if (reading.overload) return;
  latest_ = {reading, timeOfDay};
  if (count_ == 0 || reading.value > highest_.reading.value) highest_ = latest_;
  if (count_ == 0 || reading.value < lowest_.reading.value) lowest_ = latest_;
  ++count_;
  sum_ += reading.value;
  errorSum_ += percentOff(reading.value, quantityOr0(parameters.reference));
  const bool passes =
      reading.value <= quantityOr0(parameters.highLimit) && reading.value >= quantityOr0(parameters.lowLimit);
  if (passes) ++passed_;
}

std::string LoggerStatistics::recordText() const {
  const auto stamped = [this](const Stamped& entry) {
    return (count_ > 0 ? listText(entry.reading) : kNoReading) + (" " + entry.timeOfDay);
  };
  const double mean = count_ > 0 ? sum_ / static_cast<double>(count_) : 0.0;
  const Stamped average{readingOf(latest_.reading.function, mean), latest_.timeOfDay};
  return stamped(highest_) + stamped(average) + stamped(lowest_) +
         rightAligned(std::to_string(std::min(count_, 999999L)), kCountWidth);
}

std::string LoggerStatistics::relativeText(const LoggerParameters& parameters) const {
  const double reference = quantityOr0(parameters.reference);
  const Reading& latest = latest_.reading;
  const std::string difference =
      count_ > 0 ? listText(readingOf(latest.function, latest.value - reference)) : kNoReading;
  const double error = count_ > 0 ? percentOff(latest.value, reference) : 0.0;
  const double meanError = count_ > 0 ? errorSum_ / static_cast<double>(count_) : 0.0;
  return leftAligned(parameters.reference, kQuantityWidth) + difference + percentText(error) +
         percentText(meanError);
}

std::string LoggerStatistics::compareText(const LoggerParameters& parameters) const {
  const double share = count_ > 0 ? 100.0 * static_cast<double>(passed_) / static_cast<double>(count_) : 0.0;
  return leftAligned(parameters.highLimit, kQuantityWidth) +
         leftAligned(parameters.lowLimit, kQuantityWidth) +
         (count_ > 0 ? listText(latest_.reading) : kNoReading) +
         rightAligned(fixed(share, 1) + "%", kCountWidth);
}

std::string LoggerStatistics::text(LoggerMode mode, const LoggerParameters& parameters) const {
  switch (mode) {
    case LoggerMode::kRecord:
      return recordText() + durationText(elapsed_);
    case LoggerMode::kRelative:
      return relativeText(parameters) + durationText(elapsed_);
    case LoggerMode::kCompare:
      return compareText(parameters) + durationText(elapsed_);
    case LoggerMode::kOff:
    case LoggerMode::kDataLogger:
    case LoggerMode::kTrend:
      break;
  }
  return {};
}

}  // namespace vireon::simulator
