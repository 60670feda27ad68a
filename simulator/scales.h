#pragma once

namespace vireon::simulator {

inline constexpr int kVoltScales = 13;
inline constexpr int kTimeScales = 21;

// Volts per division of a code 0 to 12: 50 mV to 500 V. A code beyond is taken as the nearest end.
double voltsPerDivision(int code);

// Seconds per division of a code 0 to 20: 1 us to 5 s. A code beyond is taken as the nearest end.
double secondsPerDivision(int code);

}  // namespace vireon::simulator
