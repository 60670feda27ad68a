#include "simulator/inputs.h"

namespace vireon::simulator {

Inputs startInputs() {
  Inputs inputs;
  inputs.a = {.shape = Shape::kSine, .amplitude = 2.0, .frequency = 1000.0, .noise = 0.01};
  inputs.b = {.shape = Shape::kSquare, .amplitude = 1.0, .frequency = 1000.0, .rise = 0.04, .noise = 0.005};
  inputs.external = {.shape = Shape::kSquare, .amplitude = 2.5, .offset = 2.5, .frequency = 1000.0};
  inputs.meter.signal = {
      .shape = Shape::kPulse, .amplitude = 6.0, .offset = 6.0, .frequency = 50.0, .duty = 0.4};
  return inputs;
}

}  // namespace vireon::simulator
