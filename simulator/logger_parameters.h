#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "simulator/settings.h"

namespace vireon::simulator {

inline constexpr int kLoggerCapacity = 10000;

// Characters of a voltage or the like among the parameters, its unit included.
inline constexpr std::size_t kQuantityWidth = 8;

// What the host sets up before a run.
struct LoggerParameters {
  int method = 0;                        // 0 every sample time, 1 the peak of each sample time
  double sampleTime = 1.0;               // s, 0.1 to 99999
  std::string sampleTimeText = "00001";  // as the host wrote it
  int firstAddress = 0;                  // 0 to lastAddress
  int lastAddress = 999;                 // up to kLoggerCapacity - 1
  int plotMode = 0;                      // 0 line, 1 dot; for the host's eyes alone
  std::string trendOffset = "4.800V";    // up to 8 characters
  std::string trendDivision = "100mV";
  int trendSpan = 0;  // span code, 0 to 11
  std::string reference = "4.800V";
  std::string highLimit = "4.850V";
  std::string lowLimit = "4.750V";
};

// `parameters` with the comma-separated fields of a mode taken in; nothing when a field is missing,
// superfluous, too long or not a number. Record mode has no fields and accepts none.
std::optional<LoggerParameters> withFields(const LoggerParameters& parameters, LoggerMode mode,
                                           std::string_view fields);

// The parameters of a mode, each padded to its width and parted by ":".
std::string parameterText(const LoggerParameters& parameters, LoggerMode mode);

// Seconds between two points of a trend: a twelfth of a span code's time.
double trendStep(int spanCode);

}  // namespace vireon::simulator
