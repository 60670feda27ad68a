#include "simulator/crossing.h"

#include <cmath>
#include <cstddef>

#include "simulator/shape.h"

namespace vireon::simulator {
namespace {

constexpr int kBisections = 40;

double bisect(const Signal& signal, double height, double below, double above) {
  for (int i = 0; i < kBisections; ++i) {
    const double middle = (below + above) / 2.0;
    (shapeAt(signal, middle) < height ? below : above) = middle;
  }
  return above;
}

// Phase at which the signal passes `volts`, counted as its voltage counts it.
std::optional<double> crossingPhase(const Signal& signal, double volts, bool falling) {
  if (!alternates(signal)) return std::nullopt;
  const double height = (volts - signal.offset) / signal.amplitude;
  if (!(height > -1.0 && height < 1.0)) return std::nullopt;
  const bool shapeFalls = falling != (signal.amplitude < 0.0);
  const auto turns = turnsOf(signal);
  // Inside a stretch: right on a turn, rounding may already give the next stretch's value.
  constexpr double kInside = 1e-12;
  for (std::size_t i = 0; i + 1 < turns.size(); ++i) {
    const double first = turns[i] + kInside;
    const double last = turns[i + 1] - kInside;
    if (last <= first) continue;
    const bool rises = shapeAt(signal, first) < height && height <= shapeAt(signal, last);
    const bool falls = shapeAt(signal, first) >= height && height > shapeAt(signal, last);
    if (!shapeFalls && rises) return bisect(signal, height, first, last);
    if (shapeFalls && falls) return bisect(signal, height, last, first);
  }
  return std::nullopt;
}

double timeOf(const Signal& signal, double phase, double period) {
  return (phase - signal.phase + period) / signal.frequency;
}

}  // namespace

std::optional<double> crossingBefore(const Signal& signal, double volts, bool falling, double seconds) {
  const auto phase = crossingPhase(signal, volts, falling);
  if (!phase) return std::nullopt;
  return timeOf(signal, *phase, std::floor(signal.frequency * seconds + signal.phase - *phase));
}

std::optional<double> crossingAfter(const Signal& signal, double volts, bool falling, double seconds) {
  const auto phase = crossingPhase(signal, volts, falling);
  if (!phase) return std::nullopt;
  return timeOf(signal, *phase, std::ceil(signal.frequency * seconds + signal.phase - *phase));
}

}  // namespace vireon::simulator
