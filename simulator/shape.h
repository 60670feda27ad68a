#pragma once

#include <array>

#include "simulator/signal.h"

namespace vireon::simulator {

// Course of one period, from -1 to 1, at a phase in periods of any sign.
double shapeAt(const Signal& signal, double phase);

// Phases in rising order, one period from first to last, between which the course only rises, only falls
// or stands still.
std::array<double, 5> turnsOf(const Signal& signal);

// Share of the period that a square or pulse is high, 0.01 to 0.99.
double dutyOf(const Signal& signal);

}  // namespace vireon::simulator
