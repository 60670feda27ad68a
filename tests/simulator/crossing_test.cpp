#include "simulator/crossing.h"

#include <gtest/gtest.h>

namespace vireon::simulator::tests {
namespace {

TEST(Crossing, IsFoundOnEveryShapeWithBothSlopesAndSigns) {
  for (const Shape shape :
       {Shape::kSine, Shape::kSquare, Shape::kTriangle, Shape::kSawtooth, Shape::kPulse}) {
    for (const double amplitude : {1.5, -1.5}) {
      for (const bool falling : {false, true}) {
        for (const double level : {-0.9, 0.0, 1.7}) {
          const Signal signal{.shape = shape,
                              .amplitude = amplitude,
                              .offset = 0.4,
                              .frequency = 333.0,
                              .phase = 0.77,
                              .duty = 0.05};
          const double time = crossingBefore(signal, level, falling, 12.0).value();
          const double little = 1e-5 / 333.0;
          EXPECT_LE(time, 12.0);
          EXPECT_GT(time, 12.0 - 1.001 / 333.0);
          EXPECT_NEAR(voltageAt(signal, time), level, 1e-4);
          EXPECT_EQ(voltageAt(signal, time + little) < voltageAt(signal, time - little), falling);
          EXPECT_NEAR(crossingAfter(signal, level, falling, 12.0).value() - time, 1.0 / 333.0, 1e-9);
        }
      }
    }
  }
}

TEST(Crossing, IsNowhereWhereTheSignalDoesNotReachOrDoesNotMove) {
  const Signal signal{.amplitude = 1.0, .offset = 1.0};
  EXPECT_FALSE(crossingBefore(signal, 2.0, false, 0.0).has_value());
  EXPECT_FALSE(crossingAfter(signal, -0.1, true, 0.0).has_value());
  EXPECT_FALSE(crossingAfter({.amplitude = 0.0}, 0.0, false, 0.0).has_value());
  EXPECT_FALSE(crossingAfter({.frequency = 0.0}, 0.0, false, 0.0).has_value());
}

}  // namespace
}  // namespace vireon::simulator::tests
