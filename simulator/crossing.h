#pragma once

#include <optional>

#include "simulator/signal.h"

namespace vireon::simulator {

// Last time at or before, and first time at or after `seconds` at which the signal passes a voltage with
// the given slope, to a billionth of its period; nothing when it never does.
std::optional<double> crossingBefore(const Signal& signal, double volts, bool falling, double seconds);
std::optional<double> crossingAfter(const Signal& signal, double volts, bool falling, double seconds);

}  // namespace vireon::simulator
