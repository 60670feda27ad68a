#include "simulator/shape.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace vireon::simulator {
namespace {

double partOfPeriod(double phase) {
  return phase - std::floor(phase);
}

double edgeOf(const Signal& signal, double longest) {
  return std::clamp(signal.rise, 1e-6, longest);
}

double pulseEdge(const Signal& signal) {
  const double duty = dutyOf(signal);
  return edgeOf(signal, std::min(duty, 1.0 - duty));
}

double pulseAt(const Signal& signal, double phase) {
  const double duty = dutyOf(signal);
  const double edge = pulseEdge(signal);
  const double part = partOfPeriod(phase + edge / 2.0);
  if (part < edge) return -1.0 + 2.0 * part / edge;
  if (part < duty) return 1.0;
  if (part < duty + edge) return 1.0 - 2.0 * (part - duty) / edge;
  return -1.0;
}

double sawtoothAt(const Signal& signal, double phase) {
  const double fall = edgeOf(signal, 0.5);
  const double part = partOfPeriod(phase + 0.5);
  if (part < 1.0 - fall) return -1.0 + 2.0 * part / (1.0 - fall);
  return 1.0 - 2.0 * (part - (1.0 - fall)) / fall;
}

double triangleAt(double phase) {
  const double part = partOfPeriod(phase + 0.25);
  return part < 0.5 ? 4.0 * part - 1.0 : 3.0 - 4.0 * part;
}

}  // namespace

double dutyOf(const Signal& signal) {
  return signal.shape == Shape::kPulse ? std::clamp(signal.duty, 0.01, 0.99) : 0.5;
}

double shapeAt(const Signal& signal, double phase) {
  switch (signal.shape) {
    case Shape::kSine:
      return std::sin(2.0 * std::numbers::pi * partOfPeriod(phase));
    case Shape::kTriangle:
      return triangleAt(phase);
    case Shape::kSawtooth:
      return sawtoothAt(signal, phase);
    case Shape::kSquare:
    case Shape::kPulse:
      break;
  }
  return pulseAt(signal, phase);
}

std::array<double, 5> turnsOf(const Signal& signal) {
  switch (signal.shape) {
    case Shape::kSine:
    case Shape::kTriangle:
      return {-0.25, 0.25, 0.75, 0.75, 0.75};
    case Shape::kSawtooth:
      return {-0.5, 0.5 - edgeOf(signal, 0.5), 0.5, 0.5, 0.5};
    case Shape::kSquare:
    case Shape::kPulse:
      break;
  }
  const double duty = dutyOf(signal);
  const double half = pulseEdge(signal) / 2.0;
  return {-half, half, duty - half, duty + half, 1.0 - half};
}

}  // namespace vireon::simulator
