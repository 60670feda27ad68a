#include <algorithm>
#include <array>
#include <cstddef>

#include "simulator/auto_scale.h"
#include "simulator/meter.h"
#include "simulator/waveform_frame.h"

namespace vireon::simulator {
namespace {

constexpr std::array<Shape, 5> kShapes{Shape::kSine, Shape::kTriangle, Shape::kSquare, Shape::kSawtooth,
                                       Shape::kPulse};
constexpr std::array<double, 4> kFrequencies{50.0, 400.0, 2500.0, 20000.0};  // Hz
constexpr std::array<double, 4> kAmplitudes{0.4, 1.5, 5.0, 12.0};            // V

template <typename List>
auto pick(const List& list, int number) {
  return list[static_cast<std::size_t>(number) % list.size()];
}

}  // namespace

std::string memoryText(int number) {
  Inputs inputs = startInputs();
  inputs.a = {.shape = pick(kShapes, number),
              .amplitude = pick(kAmplitudes, number),
              .frequency = pick(kFrequencies, number / 4),
              .duty = 0.3};
  inputs.b = {.shape = pick(kShapes, number + 2),
              .amplitude = pick(kAmplitudes, number + 1),
              .frequency = 2.0 * inputs.a.frequency,
              .duty = 0.2};
  Settings settings;
  settings.a.scale = fittingVoltScale(inputs.a, settings.a);
  settings.b.scale = fittingVoltScale(inputs.b, settings.b);
  settings.timeBase.scale = fittingTimeScale(inputs.a, settings.timeBase.scale);
  const double start = triggerBefore(settings, inputs, 0.0).value_or(0.0) -
                       settings.timeBase.position * sampleStep(settings.timeBase);
  Random random(static_cast<std::uint64_t>(number));
  Trace trace;
  sweep(trace, settings, inputs, start, start + 1e6, random);
  const std::string reading = liveText(readingOf(Function::kDcv, 0.1 * number));
  return waveformText({"mem", settings.a.scale, trace.a, trace.b, false, reading}, settings);
}

}  // namespace vireon::simulator
