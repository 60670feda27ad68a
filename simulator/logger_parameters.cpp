#include "simulator/logger_parameters.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>
#include <vector>

#include "simulator/padding.h"
#include "simulator/quantity.h"

namespace vireon::simulator {
namespace {

constexpr std::size_t kNumberWidth = 5;
constexpr int kLastSpan = 11;
constexpr double kShortestSampleTime = 0.1;  // s

std::vector<std::string_view> fieldsOf(std::string_view text) {
  std::vector<std::string_view> fields;
  for (;;) {
    const auto comma = text.find(',');
    fields.push_back(trimmed(text.substr(0, comma)));
    if (comma == std::string_view::npos) return fields;
    text.remove_prefix(comma + 1);
  }
}

bool isQuantity(std::string_view field) {
  return field.size() <= kQuantityWidth && parseQuantity(field).has_value();
}

bool takeChoice(int& choice, std::string_view field) {
  if (field != "0" && field != "1") return false;
  choice = field.front() - '0';
  return true;
}

bool takeAddress(int& address, std::string_view field) {
  const auto value = parseDecimal(field, kNumberWidth);
  if (!value || field.find('.') != std::string_view::npos || *value >= kLoggerCapacity) return false;
  address = static_cast<int>(*value);
  return true;
}

bool takeSampleTime(LoggerParameters& parameters, std::string_view field) {
  const auto value = parseDecimal(field, kNumberWidth);
  if (!value || *value < kShortestSampleTime) return false;
  parameters.sampleTime = *value;
  parameters.sampleTimeText = field;
  return true;
}

bool takeQuantity(std::string& quantity, std::string_view field) {
  if (!isQuantity(field)) return false;
  quantity = field;
  return true;
}

bool takeDataLogger(LoggerParameters& parameters, const std::vector<std::string_view>& fields) {
  return fields.size() == 4 && takeChoice(parameters.method, fields[0]) &&
         takeSampleTime(parameters, fields[1]) && takeAddress(parameters.firstAddress, fields[2]) &&
         takeAddress(parameters.lastAddress, fields[3]) && parameters.firstAddress <= parameters.lastAddress;
}

bool takeRelative(LoggerParameters& parameters, const std::vector<std::string_view>& fields) {
  return fields.size() == 1 && takeQuantity(parameters.reference, fields[0]);
}

bool takeCompare(LoggerParameters& parameters, const std::vector<std::string_view>& fields) {
  return fields.size() == 2 && takeQuantity(parameters.highLimit, fields[0]) &&
         takeQuantity(parameters.lowLimit, fields[1]);
}

bool takeTrend(LoggerParameters& parameters, const std::vector<std::string_view>& fields) {
  return fields.size() == 3 && takeChoice(parameters.plotMode, fields[0]) &&
         takeQuantity(parameters.trendOffset, fields[1]) &&
         takeQuantity(parameters.trendDivision, fields[2]) && *parseQuantity(fields[2]) > 0.0;
}

std::string numberField(std::string digits) {
  return zeroPadded(std::move(digits), kNumberWidth);
}

std::string quantityField(std::string quantity) {
  return leftAligned(std::move(quantity), kQuantityWidth);
}

}  // namespace

std::optional<LoggerParameters> withFields(const LoggerParameters& parameters, LoggerMode mode,
                                           std::string_view fields) {
  LoggerParameters changed = parameters;
  const auto parts = fieldsOf(fields);
  bool taken = false;
  switch (mode) {
    case LoggerMode::kOff:
    case LoggerMode::kDataLogger:
      taken = takeDataLogger(changed, parts);
      break;
    case LoggerMode::kRecord:
      break;
    case LoggerMode::kRelative:
      taken = takeRelative(changed, parts);
      break;
    case LoggerMode::kCompare:
      taken = takeCompare(changed, parts);
      break;
    case LoggerMode::kTrend:
      taken = takeTrend(changed, parts);
      break;
  }
  if (!taken) return std::nullopt;
  return changed;
}

std::string parameterText(const LoggerParameters& parameters, LoggerMode mode) {
  switch (mode) {
    case LoggerMode::kRecord:
      return {};
    case LoggerMode::kRelative:
      return quantityField(parameters.reference);
    case LoggerMode::kCompare:
      return quantityField(parameters.highLimit) + ":" + quantityField(parameters.lowLimit);
    case LoggerMode::kTrend:
      return std::to_string(parameters.plotMode) + ":" + quantityField(parameters.trendOffset) + ":" +
             quantityField(parameters.trendDivision) + ":" +
             "0123456789AB"[std::clamp(parameters.trendSpan, 0, kLastSpan)];
    case LoggerMode::kOff:
    case LoggerMode::kDataLogger:
      break;
  }
  return std::to_string(parameters.method) + ":" + numberField(parameters.sampleTimeText) + ":" +
         numberField(std::to_string(parameters.firstAddress)) + ":" +
         numberField(std::to_string(parameters.lastAddress));
}

double trendStep(int spanCode) {
  constexpr std::array<double, 12> kSpans{20.0,   40.0,   60.0,   120.0,  300.0,   600.0,
                                          1200.0, 3000.0, 3600.0, 7200.0, 18000.0, 36000.0};
  return kSpans[static_cast<std::size_t>(std::clamp(spanCode, 0, kLastSpan))] / 12.0;
}

}  // namespace vireon::simulator
