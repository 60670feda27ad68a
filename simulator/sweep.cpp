#include "simulator/sweep.h"

#include <algorithm>
#include <cmath>

#include "simulator/crossing.h"
#include "simulator/scales.h"

namespace vireon::simulator {
namespace {

constexpr double kLevelZero = 128.0;
constexpr double kExternalVoltsPerDivision = 1.0;

struct Source {
  const Signal& signal;
  double removed = 0.0;  // V taken away by the coupling
  double voltsPerDivision = kExternalVoltsPerDivision;
};

double removedBy(const ChannelSettings& channel, const Signal& signal) {
  return channel.alternating ? meanVoltage(signal) : 0.0;
}

Source sourceOf(const Settings& settings, const Inputs& inputs) {
  switch (settings.trigger.source) {
    case TriggerSource::kA:
      return {inputs.a, removedBy(settings.a, inputs.a), voltsPerDivision(settings.a.scale)};
    case TriggerSource::kB:
      return {inputs.b, removedBy(settings.b, inputs.b), voltsPerDivision(settings.b.scale)};
    case TriggerSource::kExternal:
      break;
  }
  return {inputs.external};
}

double levelOf(const Source& source, const TriggerSettings& trigger) {
  const double steps = static_cast<double>(trigger.level) - kLevelZero;
  return steps / kStepsPerVoltDivision * source.voltsPerDivision + source.removed;
}

struct Line {
  double origin = 0.0;  // sample value of 0 V before the coupling
  double stepsPerVolt = 0.0;
  std::uint8_t at(double volts) const {
    const double sample = origin - stepsPerVolt * volts;
    // Also true for a sample that is no number.
    if (!(sample < kLowestOnScreen)) return kLowestOnScreen;
    return static_cast<std::uint8_t>(std::lround(std::max<double>(sample, kHighestOnScreen)));
  }
};

Line lineOf(const ChannelSettings& channel, double removed) {
  const double stepsPerVolt = kStepsPerVoltDivision / voltsPerDivision(channel.scale);
  return {static_cast<double>(channel.position) + stepsPerVolt * removed, stepsPerVolt};
}

void fill(Samples& samples, std::size_t acquired, const Signal& signal, const ChannelSettings& channel,
          double start, double step, Random& random) {
  const Line line = lineOf(channel, removedBy(channel, signal));
  for (std::size_t i = 0; i < acquired; ++i) {
    const double volts = voltageAt(signal, start + static_cast<double>(i) * step);
    samples[i] = line.at(signal.noise > 0.0 ? volts + signal.noise * random.deviation() : volts);
  }
}

}  // namespace

double sampleStep(const TimeBaseSettings& timeBase) {
  return secondsPerDivision(timeBase.scale) / kStepsPerTimeDivision;
}

std::uint8_t sampleOf(double volts, const ChannelSettings& channel) {
  return lineOf(channel, 0.0).at(volts);
}

std::optional<double> triggerBefore(const Settings& settings, const Inputs& inputs, double seconds) {
  const Source source = sourceOf(settings, inputs);
  return crossingBefore(source.signal, levelOf(source, settings.trigger), settings.trigger.falling, seconds);
}

std::optional<double> triggerAfter(const Settings& settings, const Inputs& inputs, double seconds) {
  const Source source = sourceOf(settings, inputs);
  return crossingAfter(source.signal, levelOf(source, settings.trigger), settings.trigger.falling, seconds);
}

Trace blankTrace(const Settings& settings) {
  Trace trace;
  trace.a.fill(kGap);
  trace.b.fill(sampleOf(0.0, settings.b));
  return trace;
}

void sweep(Trace& trace, const Settings& settings, const Inputs& inputs, double start, double now,
           Random& random) {
  const double step = sampleStep(settings.timeBase);
  // Half a step of tolerance: the last point of a window that ends at `now` is there.
  const double points = std::floor((now - start) / step + 1.5);
  const auto acquired = static_cast<std::size_t>(std::clamp(points, 0.0, static_cast<double>(kTraceLength)));
  fill(trace.a, acquired, inputs.a, settings.a, start, step, random);
  fill(trace.b, acquired, inputs.b, settings.b, start, step, random);
}

}  // namespace vireon::simulator
