#include "simulator/scales.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace vireon::simulator {
namespace {

constexpr std::array<double, kVoltScales> kVolts{0.05, 0.1,  0.2,  0.5,   1.0,   2.0,  5.0,
                                                 10.0, 20.0, 50.0, 100.0, 200.0, 500.0};
constexpr std::array<double, kTimeScales> kSeconds{1e-6,   2e-6,   5e-6, 10e-6, 20e-6, 50e-6, 0.1e-3,
                                                   0.2e-3, 0.5e-3, 1e-3, 2e-3,  5e-3,  10e-3, 20e-3,
                                                   50e-3,  0.1,    0.2,  0.5,   1.0,   2.0,   5.0};

}  // namespace

double voltsPerDivision(int code) {
  return kVolts[static_cast<std::size_t>(std::clamp(code, 0, kVoltScales - 1))];
}

double secondsPerDivision(int code) {
  return kSeconds[static_cast<std::size_t>(std::clamp(code, 0, kTimeScales - 1))];
}

}  // namespace vireon::simulator
