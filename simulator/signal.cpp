#include "simulator/signal.h"

#include <cmath>
#include <numbers>

#include "simulator/shape.h"

namespace vireon::simulator {

bool alternates(const Signal& signal) {
  return signal.frequency > 0.0 && signal.amplitude != 0.0;
}

double voltageAt(const Signal& signal, double seconds) {
  if (!alternates(signal)) return signal.offset;
  return signal.offset + signal.amplitude * shapeAt(signal, signal.frequency * seconds + signal.phase);
}

double meanVoltage(const Signal& signal) {
  if (!alternates(signal) || signal.shape != Shape::kPulse) return signal.offset;
  return signal.offset + signal.amplitude * (2.0 * dutyOf(signal) - 1.0);
}

double alternatingRms(const Signal& signal) {
  if (!alternates(signal)) return 0.0;
  const double amplitude = std::abs(signal.amplitude);
  switch (signal.shape) {
    case Shape::kSine:
      return amplitude / std::numbers::sqrt2;
    case Shape::kTriangle:
    case Shape::kSawtooth:
      return amplitude / std::numbers::sqrt3;
    case Shape::kSquare:
    case Shape::kPulse:
      break;
  }
  const double duty = dutyOf(signal);
  return 2.0 * amplitude * std::sqrt(duty * (1.0 - duty));
}

Extent extent(const Signal& signal) {
  const double reach = alternates(signal) ? std::abs(signal.amplitude) : 0.0;
  return {signal.offset - reach, signal.offset + reach};
}

double highShare(const Signal& signal) {
  return alternates(signal) ? dutyOf(signal) : 0.0;
}

}  // namespace vireon::simulator
