#include "simulator/signal.h"

#include <gtest/gtest.h>

#include <cmath>

namespace vireon::simulator::tests {
namespace {

TEST(Signal, MeanAndRmsAgreeWithTheSampledCourse) {
  for (const Shape shape :
       {Shape::kSine, Shape::kSquare, Shape::kTriangle, Shape::kSawtooth, Shape::kPulse}) {
    const Signal signal{
        .shape = shape, .amplitude = 2.0, .offset = 0.5, .frequency = 1.0, .duty = 0.3, .rise = 1e-4};
    double sum = 0.0;
    double squares = 0.0;
    constexpr int kPoints = 100000;
    for (int i = 0; i < kPoints; ++i) {
      const double volts = voltageAt(signal, static_cast<double>(i) / kPoints);
      sum += volts;
      squares += volts * volts;
    }
    const double mean = sum / kPoints;
    EXPECT_NEAR(meanVoltage(signal), mean, 1e-3);
    EXPECT_NEAR(alternatingRms(signal), std::sqrt(squares / kPoints - mean * mean), 1e-3);
  }
}

}  // namespace
}  // namespace vireon::simulator::tests
