#include "simulator/meter_ranges.h"

#include <array>

namespace vireon::simulator {
namespace {

// 8C is the sign for ohms, 95 that for direct and 96 that for alternating volts, 9C turns, B0 degrees.
constexpr std::array<MeterRange, 5> kDcv{{{0.2, 1e3, 1, " mV ", "mV", "mV"},
                                          {2.0, 1.0, 3, " V  ", " V", "V\x95"},
                                          {20.0, 1.0, 2, " V  ", " V", "V\x95"},
                                          {200.0, 1.0, 1, " V  ", " V", "V\x95"},
                                          {1000.0, 1.0, 0, " V  ", " V", "V\x95"}}};
constexpr std::array<MeterRange, 5> kAcv{{{0.2, 1e3, 1, " mV ", "mV", "mV"},
                                          {2.0, 1.0, 3, " V  ", " V", "V\x96"},
                                          {20.0, 1.0, 2, " V  ", " V", "V\x96"},
                                          {200.0, 1.0, 1, " V  ", " V", "V\x96"},
                                          {1000.0, 1.0, 0, " V  ", " V", "V\x96"}}};
// The live unit begins in the number's last place, so that all of it is among the first nine characters.
constexpr std::array<MeterRange, 4> kOhm{{{2e3, 1e-3, 3, "kOhm ", "kO", "k "},
                                          {20e3, 1e-3, 2, "kOhm ", "kO", "k "},
                                          {200e3, 1e-3, 1, "kOhm ", "kO", "k "},
                                          {2e6, 1e-6, 3, "MOhm ", "MO", "M\x8C"}}};
constexpr std::array<MeterRange, 5> kFrequency{{{200.0, 1.0, 1, " Hz ", "Hz", "Hz"},
                                                {2e3, 1e-3, 3, "kHz ", "kHz", "kHz"},
                                                {20e3, 1e-3, 2, "kHz ", "kHz", "kHz"},
                                                {200e3, 1e-3, 1, "kHz ", "kHz", "kHz"},
                                                {2e6, 1e-6, 3, "MHz ", "MHz", "MHz"}}};
constexpr std::array<MeterRange, 3> kRpm{{{2e3, 1.0, 0, "rpm ", "rpm", "\x9C "},
                                          {20e3, 1.0, 0, "rpm ", "rpm", "\x9C "},
                                          {200e3, 1e-3, 1, "krpm ", "krpm", "k\x9C "}}};
constexpr std::array<MeterRange, 5> kPulseWidth{{{200e-6, 1e6, 1, " uS ", "uS", "uS"},
                                                 {2e-3, 1e3, 3, " mS ", "mS", "mS"},
                                                 {20e-3, 1e3, 2, " mS ", "mS", "mS"},
                                                 {200e-3, 1e3, 1, " mS ", "mS", "mS"},
                                                 {2.0, 1.0, 3, " S  ", " S", "S "}}};
constexpr std::array<MeterRange, 1> kDuty{{{100.1, 1.0, 1, " %  ", "%", "% "}}};
constexpr std::array<MeterRange, 1> kDwell{{{360.1, 1.0, 1, "deg ", "deg", " \xB0"}}};

}  // namespace

std::span<const MeterRange> rangesOf(Function function) {
  switch (function) {
    case Function::kDcv:
      return kDcv;
    case Function::kAcv:
      return kAcv;
    case Function::kOhm:
    case Function::kContinuity:
      return kOhm;
    case Function::kFrequency:
      return kFrequency;
    case Function::kRpm:
      return kRpm;
    case Function::kPulseWidth:
      return kPulseWidth;
    case Function::kDuty:
      return kDuty;
    case Function::kDwell:
      break;
  }
  return kDwell;
}

}  // namespace vireon::simulator
