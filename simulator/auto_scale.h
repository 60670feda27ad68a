#pragma once

#include "simulator/settings.h"
#include "simulator/signal.h"

namespace vireon::simulator {

// Volts/div code at which the signal, as coupled, reaches at most two divisions from its zero line.
int fittingVoltScale(const Signal& signal, const ChannelSettings& channel);

// Time/div code that shows at least two periods on ten divisions, as few as possible; `current` for a
// signal that does not move.
int fittingTimeScale(const Signal& signal, int current);

}  // namespace vireon::simulator
