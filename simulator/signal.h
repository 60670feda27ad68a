#pragma once

namespace vireon::simulator {

enum class Shape { kSine, kSquare, kTriangle, kSawtooth, kPulse };

// A periodic voltage. Sine, square, triangle and pulse rise through their middle at phase 0.
struct Signal {
  Shape shape = Shape::kSine;
  double amplitude = 1.0;     // V, half of peak to peak
  double offset = 0.0;        // V, middle between both peaks
  double frequency = 1000.0;  // Hz; 0 or below: the steady voltage `offset`
  double phase = 0.0;         // periods
  double duty = 0.5;          // share of the period spent high, 0.01 to 0.99, pulse only
  double rise = 0.02;         // share of the period an edge takes: square, pulse, fall of the sawtooth
  double noise = 0.0;         // V, largest deviation; seen by the samples, never by the trigger
};

struct Extent {
  double low = 0.0;   // V
  double high = 0.0;  // V
};

// True while the signal moves at all.
bool alternates(const Signal& signal);

// Voltage without noise at a time in seconds, any sign.
double voltageAt(const Signal& signal, double seconds);

// Mean over one period, in volts.
double meanVoltage(const Signal& signal);

// Root mean square of what is left without the mean, in volts.
double alternatingRms(const Signal& signal);

// Lowest and highest voltage without noise.
Extent extent(const Signal& signal);

// Share of the period above the middle: the duty of a pulse, a half of anything else that moves, or 0.
double highShare(const Signal& signal);

}  // namespace vireon::simulator
