#include <gtest/gtest.h>

#include <cmath>

#include "tests/simulator/bench.h"

namespace vireon::simulator::tests {
namespace {

TEST(Trace, TheStartSettingsShowTwoDifferentStableTracesInTheirOwnHalves) {
  ManualClock clock;
  Instrument instrument(Model::kK7310, clock);
  const Frame first(instrument.answer("DRS??"));
  clock.advance(12345678ns);
  const Frame second(instrument.answer("DRS??"));
  EXPECT_EQ(first.field(9), "44");
  EXPECT_EQ(first.field(11), "43");
  EXPECT_LE(highest(first.a()), 63);
  EXPECT_GE(lowest(first.b()), 61);
  EXPECT_GE(span(first.a()), 50);
  EXPECT_GE(span(first.b()), 50);
  for (std::size_t i = 0; i < 125; ++i) {
    EXPECT_NEAR(first.a()[i], second.a()[i], 2);
    EXPECT_NEAR(first.b()[i], second.b()[i], 2);
  }
}

TEST(Trace, TwoVoltsPeakToPeakAtOneVoltPerDivisionSpan28Steps) {
  Bench bench;
  bench.a() = {.shape = Shape::kSquare, .amplitude = 1.0};
  bench.ask("VPA3E");
  const auto samples = bench.frame().a();
  EXPECT_EQ(lowest(samples), 62 - 14);
  EXPECT_EQ(highest(samples), 62 + 14);
}

TEST(Trace, TheSpanFollowsEveryVoltScale) {
  constexpr double kVolts[] = {0.05, 0.1, 0.2, 0.5, 1, 2, 5, 10, 20, 50, 100, 200, 500};
  Bench bench;
  bench.ask("VPA78;VPB78;TRGsb");
  for (int code = 0; code < 13; ++code) {
    bench.instrument.settings().a.scale = code;
    bench.instrument.settings().b.scale = code;
    bench.a() = {.shape = Shape::kSquare, .amplitude = 3.0 * kVolts[code]};
    bench.b() = {.shape = Shape::kTriangle, .amplitude = 2.0 * kVolts[code]};
    const Frame frame = bench.frame();
    EXPECT_EQ(span(frame.a()), 84) << code;
    EXPECT_NEAR(span(frame.b()), 56, 1) << code;
  }
}

TEST(Trace, APeriodTakesTwelveAndAHalfSamplesPerTimeDivisionAtEveryTimeBase) {
  constexpr double kSeconds[] = {1e-6, 2e-6, 5e-6, 1e-5, 2e-5, 5e-5, 1e-4, 2e-4, 5e-4, 1e-3, 2e-3,
                                 5e-3, 1e-2, 2e-2, 5e-2, 0.1,  0.2,  0.5,  1,    2,    5};
  Bench bench;
  bench.clock.advance(1h);
  bench.ask("VPA3E;HPO00");
  for (int code = 0; code < 21; ++code) {
    bench.instrument.settings().timeBase.scale = code;
    bench.a() = {.shape = Shape::kTriangle, .amplitude = 3.0, .frequency = 1.0 / (2.0 * kSeconds[code])};
    bench.clock.advance(5min);
    bench.frame();
    const auto samples = bench.frame().a();
    // A period of two divisions, 25 samples: the course repeats after 25.
    for (std::size_t i = 0; i + 25 < 60; ++i) EXPECT_NEAR(samples[i], samples[i + 25], 1) << code << " " << i;
    EXPECT_GT(std::abs(samples[6] - samples[18]), 60) << code;
  }
}

TEST(Trace, TwoPeriodsOfOneKilohertzStandOnTenDivisionsOfTwoTenthsOfAMillisecond) {
  Bench bench;
  bench.a() = {.shape = Shape::kSine, .amplitude = 2.0, .frequency = 1000.0};
  EXPECT_EQ(risesThrough(bench.frame().a(), 24), 2);
  bench.ask("HDVup");
  EXPECT_EQ(risesThrough(bench.frame().a(), 24), 5);
}

TEST(Trace, AcCouplingRemovesTheOffsetAndDcCouplingShowsIt) {
  Bench bench;
  bench.a() = {.shape = Shape::kSquare, .amplitude = 0.5, .offset = 1.0};
  bench.ask("VPA3E");
  EXPECT_EQ(highest(bench.frame().a()), 62 - 7);
  EXPECT_EQ(lowest(bench.frame().a()), 62 - 21);
  bench.ask("VDAac");
  EXPECT_EQ(highest(bench.frame().a()), 62 + 7);
  EXPECT_EQ(lowest(bench.frame().a()), 62 - 7);
}

TEST(Trace, AcCouplingRemovesTheMeanOfAnUnevenPulse) {
  Bench bench;
  bench.a() = {.shape = Shape::kPulse, .amplitude = 1.0, .duty = 0.25};
  bench.ask("VPA3E;VDAac");
  EXPECT_EQ(lowest(bench.frame().a()), 62 - 21);
  EXPECT_EQ(highest(bench.frame().a()), 62 + 7);
}

TEST(Trace, APulseIsHighForItsDuty) {
  Bench bench;
  bench.a() = {.shape = Shape::kPulse, .amplitude = 1.0, .frequency = 500.0, .duty = 0.2, .rise = 0.001};
  const auto samples = bench.frame().a();
  const auto high = std::count_if(samples.begin(), samples.end(), [](int sample) { return sample < 34; });
  EXPECT_NEAR(static_cast<double>(high), 25.0, 1.0);
}

TEST(Trace, ASawtoothRisesSlowlyAndFallsFast) {
  Bench bench;
  bench.a() = {.shape = Shape::kSawtooth, .amplitude = 1.0, .frequency = 500.0};
  const auto samples = bench.frame().a();
  int rising = 0;
  for (std::size_t i = 1; i < samples.size(); ++i) rising += samples[i] <= samples[i - 1] ? 1 : 0;
  EXPECT_GE(rising, 115);
}

TEST(Trace, ASteadyVoltageIsALineAtItsHeight) {
  Bench bench;
  bench.a() = {.offset = 1.5, .frequency = 0.0};
  const auto samples = bench.frame().a();
  EXPECT_EQ(lowest(samples), 34 - 21);
  EXPECT_EQ(highest(samples), 34 - 21);
}

TEST(Trace, MovingAChannelMovesItsTraceByTheSameSteps) {
  Bench bench;
  const auto before = bench.frame();
  bench.ask("VPA32;VPB50");
  const auto after = bench.frame();
  for (std::size_t i = 0; i < 125; ++i) {
    EXPECT_EQ(after.a()[i], before.a()[i] + 16);
    EXPECT_EQ(after.b()[i], before.b()[i] - 10);
  }
}

TEST(Trace, SamplesStayFrom4To239) {
  Bench bench;
  bench.a() = {.shape = Shape::kSquare, .amplitude = 300.0};
  bench.b() = {.shape = Shape::kSquare, .amplitude = 300.0, .phase = 0.5};
  const Frame frame = bench.frame();
  for (const auto& samples : {frame.a(), frame.b()}) {
    EXPECT_EQ(lowest(samples), 4);
    EXPECT_EQ(highest(samples), 239);
  }
}

TEST(Trace, NoiseMovesSamplesFromFrameToFrameByNoMoreThanItsSize) {
  Bench bench;
  bench.a().noise = 0.2;
  const auto first = bench.frame().a();
  const auto second = bench.frame().a();
  EXPECT_NE(first, second);
  bench.a().noise = 0.0;
  const auto clean = bench.frame().a();
  for (std::size_t i = 0; i < 125; ++i) EXPECT_NEAR(first[i], clean[i], 4);
}

TEST(Trace, TheSameInstrumentTimeGivesTheSameFrames) {
  ManualClock clock;
  Instrument one(Model::kK7310, clock);
  Instrument other(Model::kK7310, clock);
  for (int i = 0; i < 5; ++i) {
    clock.advance(33ms);
    EXPECT_EQ(one.answer("DRS??"), other.answer("DRS??"));
  }
}

}  // namespace
}  // namespace vireon::simulator::tests
