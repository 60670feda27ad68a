#pragma once

#include "simulator/signal.h"

namespace vireon::simulator {

enum class Channel { kA, kB, kExternal, kMeter };

// What the meter's own jacks are connected to.
struct MeterInput {
  Signal signal;
  double resistance = 1500.0;   // ohms
  double drift = 0.02;          // largest share by which every quantity wanders
  double driftPeriod = 60.0;    // s
  double flicker = 0.0002;      // largest share by which single readings differ
  double readingPeriod = 0.25;  // s between two readings
};

// Everything that is plugged into the instrument.
struct Inputs {
  Signal a;
  Signal b;
  Signal external;
  MeterInput meter;
};

// Two steady traces that look well at the start settings, and an ignition-like pulse at the meter.
Inputs startInputs();

}  // namespace vireon::simulator
