#include <gtest/gtest.h>

#include "tests/simulator/bench.h"

namespace vireon::simulator::tests {
namespace {

// Sample value at which the trigger stands.
int levelSample(const Bench& bench, int position) {
  return position - (bench.instrument.settings().trigger.level - 128);
}

long gaps(const Frame& frame) {
  const auto samples = frame.a();
  return std::count(samples.begin(), samples.end(), 240);
}

TEST(Trigger, TheTraceCrossesTheLevelAtTheHorizontalPositionWithTheChosenSlope) {
  for (const bool falling : {false, true}) {
    for (const int position : {1, 31, 62, 100, 123}) {
      for (const int level : {110, 128, 140}) {
        Bench bench;
        auto& settings = bench.instrument.settings();
        settings.timeBase.position = static_cast<std::uint8_t>(position);
        settings.trigger.level = static_cast<std::uint8_t>(level);
        settings.trigger.falling = falling;
        bench.clock.advance(1234567ns);
        const auto samples = bench.frame().a();
        const auto at = static_cast<std::size_t>(position);
        EXPECT_NEAR(samples[at], levelSample(bench, 34), 1) << position << " " << level;
        EXPECT_EQ(samples[at + 1] > samples[at - 1], falling) << position << " " << level;
      }
    }
  }
}

TEST(Trigger, ChannelBTriggersByItsOwnScaleAndPosition) {
  Bench bench;
  bench.b() = {.shape = Shape::kTriangle, .amplitude = 1.0, .frequency = 730.0};
  bench.ask("TRGsb;TLV8E");
  bench.clock.advance(777us);
  const auto samples = bench.frame().b();
  EXPECT_NEAR(samples[62], 90 - 14, 1);
  EXPECT_LT(samples[63], samples[61]);
}

TEST(Trigger, TheExternalSourceHoldsASignalOfItsFrequencyStill) {
  Bench bench;
  bench.a() = {.frequency = 1234.5, .phase = 0.25};
  bench.instrument.signal(Channel::kExternal) = {
      .shape = Shape::kSine, .amplitude = 2.0, .frequency = 1234.5};
  bench.ask("TRGse");
  const auto first = bench.frame().a();
  bench.clock.advance(345678ns);
  EXPECT_EQ(bench.frame().a(), first);
  EXPECT_NEAR(first[62], 34 - 14, 1);
}

TEST(Trigger, TheTraceStandsStillWhateverTheTime) {
  Bench bench;
  bench.a() = {.shape = Shape::kSine, .amplitude = 2.0, .frequency = 997.3};
  const auto first = bench.frame().a();
  for (int i = 0; i < 200; ++i) {
    bench.clock.advance(1234567ns);
    const auto next = bench.frame().a();
    for (std::size_t k = 0; k < 125; ++k) ASSERT_NEAR(next[k], first[k], 1);
  }
}

TEST(Trigger, AnotherSourceThanTheSignalsOwnLetsItRun) {
  Bench bench;
  bench.a().frequency = 1234.5;
  bench.ask("TRGsb");
  const auto first = bench.frame().a();
  bench.clock.advance(3333us);
  EXPECT_NE(bench.frame().a(), first);
}

TEST(Trigger, APositionBeyondTheScreenShowsWhatWasBeforeTheTrigger) {
  Bench bench;
  bench.ask("HPOFF");
  const auto before = bench.frame().a();
  // 255 samples of 16 us are 4.08 periods before the rising zero crossing.
  EXPECT_NEAR(before[5], 34, 1);
  EXPECT_LT(before[7], before[5]);
}

TEST(Trigger, AutomaticModeRunsFreeWhereNothingCrossesTheLevel) {
  Bench bench;
  bench.ask("TLVFF");
  const auto first = bench.frame().a();
  EXPECT_GT(span(first), 50);
  bench.clock.advance(345678ns);
  EXPECT_NE(bench.frame().a(), first);
}

TEST(Trigger, AutomaticModeDoesNotWaitForATriggerThatIsLongAgo) {
  Bench bench;
  bench.a().frequency = 0.01;
  const auto first = bench.frame().a();
  bench.clock.advance(5s);
  const auto second = bench.frame().a();
  EXPECT_LE(span(first), 1);
  EXPECT_NE(first, second);
}

TEST(Trigger, NormalModeKeepsTheLastTriggeredPicture) {
  Bench bench;
  bench.ask("TRGnr");
  const auto triggered = bench.frame().a();
  bench.a().amplitude = 0.0;
  bench.clock.advance(1s);
  EXPECT_EQ(bench.frame().a(), triggered);
  bench.a().amplitude = 1.0;
  EXPECT_NE(bench.frame().a(), triggered);
}

TEST(Trigger, NormalModeWithoutAnyTriggerYetShowsAGapOnAAndTheZeroLineOnB) {
  Bench bench;
  bench.ask("TRGnr;TLVFF");
  const Frame frame = bench.frame();
  EXPECT_EQ(frame.a(), std::vector<int>(125, 240));
  EXPECT_EQ(frame.b(), std::vector<int>(125, 90));
}

TEST(Trigger, ASingleShotTakesTheNextTriggerAndHolds) {
  Bench bench;
  bench.frame();
  EXPECT_EQ(bench.ask("TRGso;STS??"), "sts:02");
  bench.clock.advance(5ms);
  EXPECT_EQ(bench.ask("STS??"), "sts:03");
  const auto captured = bench.frame().a();
  EXPECT_NEAR(captured[62], 34, 1);
  bench.a().amplitude = 0.3;
  bench.clock.advance(1s);
  EXPECT_EQ(bench.frame().a(), captured);
  EXPECT_EQ(bench.ask("TRGsf;STS??"), "sts:00");
  EXPECT_NE(bench.frame().a(), captured);
}

TEST(Trigger, ASingleShotWaitsWhileNothingTriggers) {
  Bench bench;
  bench.ask("TLVFF;TRGso");
  bench.clock.advance(10s);
  EXPECT_EQ(bench.ask("STS??"), "sts:02");
  bench.ask("TLV80");
  EXPECT_EQ(bench.ask("STS??"), "sts:03");
}

TEST(Trigger, ASingleShotWaitsForItsTriggerThoughAllItShowsIsThere) {
  Bench bench;
  bench.clock.advance(100us);
  EXPECT_EQ(bench.ask("HPOFF;TRGso;STS??"), "sts:02");
  bench.clock.advance(1ms);
  EXPECT_EQ(bench.ask("STS??"), "sts:03");
}

TEST(Trigger, ReleasingTheHoldOfASingleShotArmsTheNextOne) {
  Bench bench;
  bench.ask("TRGso");
  bench.clock.advance(5ms);
  ASSERT_EQ(bench.ask("STS??"), "sts:03");
  EXPECT_EQ(bench.ask("DHDof;STS??"), "sts:02");
  bench.clock.advance(5ms);
  EXPECT_EQ(bench.ask("STS??"), "sts:03");
}

TEST(Trigger, HoldFreezesThePictureOfItsMoment) {
  Bench bench;
  bench.a().frequency = 1234.5;
  bench.ask("TRGsb");
  const auto running = bench.frame().a();
  bench.clock.advance(3333us);
  bench.ask("DHDon");
  const auto held = bench.frame().a();
  EXPECT_NE(held, running);
  bench.clock.advance(3333us);
  EXPECT_EQ(bench.frame().a(), held);
  bench.ask("DHDof");
  EXPECT_NE(bench.frame().a(), held);
}

TEST(SlowSweep, PointsThatAreNotYetAcquiredAreGapsOnAAndTheZeroLineOnB) {
  Bench bench;
  bench.a() = {.amplitude = 2.0, .frequency = 0.0};
  while (bench.instrument.settings().timeBase.scale < 18) bench.ask("HDVup");
  bench.clock.advance(4s);
  const Frame frame = bench.frame();
  const auto a = frame.a();
  // 1 s/div: 80 ms a sample.
  for (std::size_t i = 0; i <= 50; ++i) EXPECT_NE(a[i], 240) << i;
  for (std::size_t i = 51; i < 125; ++i) {
    EXPECT_EQ(a[i], 240) << i;
    EXPECT_EQ(frame.b()[i], 90) << i;
  }
}

TEST(SlowSweep, IsFullWhenItsTimeHasPassedAndTheNextOneRunsOverIt) {
  Bench bench;
  bench.a() = {.offset = 1.0, .frequency = 0.0};
  while (bench.instrument.settings().timeBase.scale < 18) bench.ask("HDVup");
  bench.clock.advance(9920ms);
  EXPECT_EQ(bench.frame().a(), std::vector<int>(125, 20));
  bench.a().offset = 2.0;
  bench.clock.advance(800ms);
  const auto samples = bench.frame().a();
  EXPECT_EQ(std::count(samples.begin(), samples.end(), 6), 11);
  EXPECT_EQ(std::count(samples.begin(), samples.end(), 20), 114);
}

TEST(SlowSweep, AnotherTimeBaseBeginsOnABlankPicture) {
  Bench bench;
  while (bench.instrument.settings().timeBase.scale < 18) bench.ask("HDVup");
  bench.clock.advance(20s);
  EXPECT_EQ(gaps(bench.frame()), 0);
  bench.ask("HDVup");
  bench.clock.advance(10ms);
  EXPECT_EQ(gaps(bench.frame()), 124);
}

TEST(SlowSweep, APictureThatIsHeldStaysWhenTheTimeBaseChanges) {
  Bench bench;
  bench.ask("DHDon");
  const auto held = bench.frame().a();
  while (bench.instrument.settings().timeBase.scale < 18) bench.ask("HDVup");
  EXPECT_EQ(bench.frame().a(), held);
}

TEST(SlowSweep, TriggersLikeAFastOne) {
  Bench bench;
  bench.a() = {.amplitude = 2.0, .frequency = 0.3};
  bench.ask("HPO0A");
  while (bench.instrument.settings().timeBase.scale < 17) bench.ask("HDVup");
  for (int i = 0; i < 20; ++i) {
    bench.clock.advance(3100ms);
    const auto samples = bench.frame().a();
    if (samples[11] == 240) continue;
    EXPECT_NEAR(samples[10], 34, 1);
    EXPECT_LT(samples[11], samples[9]);
  }
}

}  // namespace
}  // namespace vireon::simulator::tests
