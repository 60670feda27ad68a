#include "simulator/acquisition.h"

#include <algorithm>

namespace vireon::simulator {
namespace {

constexpr double kLastPoint = static_cast<double>(kTraceLength - 1);
// From here on the picture is built up point by point, as the time base runs.
constexpr double kSlowStep = 0.2 / kStepsPerTimeDivision;
// Longest wait for a trigger in automatic mode, beside one screen.
constexpr double kAutoWait = 0.1;

double beforeTrigger(const Settings& settings) {
  return static_cast<double>(settings.timeBase.position) * sampleStep(settings.timeBase);
}

double afterTrigger(const Settings& settings) {
  const double points = kLastPoint - static_cast<double>(settings.timeBase.position);
  return std::max(points, 0.0) * sampleStep(settings.timeBase);
}

double screenTime(const Settings& settings) {
  return kLastPoint * sampleStep(settings.timeBase);
}

}  // namespace

bool Acquisition::update(const Settings& settings, const Inputs& inputs, double now) {
  if (blank_) trace_ = blankTrace(settings);
  blank_ = false;
  if (settings.hold) return false;
  if (settings.single) return updateSingle(settings, inputs, now);
  if (sampleStep(settings.timeBase) < kSlowStep * 0.999) {
    updateFast(settings, inputs, now);
  } else {
    updateSlow(settings, inputs, now);
  }
  return false;
}

void Acquisition::restart(double now) {
  sweepFrom_ = now;
  firstSweep_ = true;
}

void Acquisition::armSingle(double now) {
  singleFrom_ = now;
}

// The last whole picture whose points all lie before now.
void Acquisition::updateFast(const Settings& settings, const Inputs& inputs, double now) {
  const double latest = now - afterTrigger(settings);
  const auto trigger = triggerBefore(settings, inputs, latest);
  const double patience = kAutoWait + screenTime(settings);
  if (trigger && (!settings.trigger.automatic || latest - *trigger <= patience)) {
    sweep(trace_, settings, inputs, *trigger - beforeTrigger(settings), now, random_);
  } else if (settings.trigger.automatic) {
    sweep(trace_, settings, inputs, now - screenTime(settings), now, random_);
  }
}

std::optional<double> Acquisition::slowSweepStart(const Settings& settings, const Inputs& inputs) const {
  const double earliest = sweepFrom_ + beforeTrigger(settings);
  const auto trigger = triggerAfter(settings, inputs, earliest);
  const double patience = kAutoWait + screenTime(settings);
  if (trigger && (!settings.trigger.automatic || *trigger - earliest <= patience)) {
    return *trigger - beforeTrigger(settings);
  }
  if (settings.trigger.automatic) return sweepFrom_;
  return std::nullopt;
}

void Acquisition::updateSlow(const Settings& settings, const Inputs& inputs, double now) {
  // Pictures that nobody looked at in the meantime are passed over.
  sweepFrom_ = std::max(sweepFrom_, now - 4.0 * screenTime(settings) - 2.0 * beforeTrigger(settings));
  while (const auto start = slowSweepStart(settings, inputs)) {
    if (*start > now) return;
    if (firstSweep_) trace_ = blankTrace(settings);
    firstSweep_ = false;
    sweep(trace_, settings, inputs, *start, now, random_);
    const double end = *start + std::max(screenTime(settings), beforeTrigger(settings));
    if (end > now) return;
    sweepFrom_ = end;
  }
}

bool Acquisition::updateSingle(const Settings& settings, const Inputs& inputs, double now) {
  const auto trigger = triggerAfter(settings, inputs, singleFrom_);
  if (!trigger || *trigger + afterTrigger(settings) > now) return false;
  sweep(trace_, settings, inputs, *trigger - beforeTrigger(settings), now, random_);
  return true;
}

}  // namespace vireon::simulator
