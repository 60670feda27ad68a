#include "simulator/meter.h"

#include <gtest/gtest.h>

#include "tests/simulator/bench.h"

namespace vireon::simulator::tests {
namespace {

MeterInput pulseInput() {
  MeterInput input;
  input.signal = {.shape = Shape::kPulse, .amplitude = 6.0, .offset = 6.0, .frequency = 50.0, .duty = 0.4};
  input.drift = 0.0;
  input.flicker = 0.0;
  return input;
}

std::string liveOf(const MeterInput& input, Function function) {
  return liveText(measure(input, {.function = function}, 0.0));
}

TEST(Meter, EveryFunctionReadsItsQuantityInTenCharacters) {
  const MeterInput input = pulseInput();
  EXPECT_EQ(liveOf(input, Function::kDcv), "  4.80 V  ");
  EXPECT_EQ(liveOf(input, Function::kAcv), "  5.88 V  ");
  EXPECT_EQ(liveOf(input, Function::kOhm), "1.500kOhm ");
  EXPECT_EQ(liveOf(input, Function::kContinuity), "1.500kOhm ");
  EXPECT_EQ(liveOf(input, Function::kFrequency), "  50.0 Hz ");
  EXPECT_EQ(liveOf(input, Function::kRpm), "  3000rpm ");
  EXPECT_EQ(liveOf(input, Function::kPulseWidth), "  8.00 mS ");
  EXPECT_EQ(liveOf(input, Function::kDuty), "  40.0 %  ");
  EXPECT_EQ(liveOf(input, Function::kDwell), "  36.0deg ");
}

TEST(Meter, AutomaticRangePicksTheFinestThatHoldsTheValue) {
  EXPECT_EQ(liveText(readingOf(Function::kDcv, -0.1999)), "-199.9 mV ");
  EXPECT_EQ(liveText(readingOf(Function::kDcv, -1.234)), "-1.234 V  ");
  EXPECT_EQ(liveText(readingOf(Function::kDcv, 123.4)), " 123.4 V  ");
  EXPECT_EQ(liveText(readingOf(Function::kDcv, 999.0)), "   999 V  ");
  EXPECT_EQ(liveText(readingOf(Function::kFrequency, 1234567.0)), " 1.235MHz ");
  EXPECT_EQ(liveText(readingOf(Function::kOhm, 1.5e6)), "1.500MOhm ");
  EXPECT_EQ(liveText(readingOf(Function::kRpm, 60000.0)), " 60.0krpm ");
}

TEST(Meter, AValueBeyondTheLastRangeIsAnOverload) {
  EXPECT_EQ(liveText(readingOf(Function::kDcv, 1000.0)), "   O.L V  ");
  EXPECT_EQ(liveText(readingOf(Function::kOhm, 2e6)), "  O.LMOhm ");
  EXPECT_TRUE(readingOf(Function::kDcv, std::numeric_limits<double>::quiet_NaN()).overload);
}

TEST(Meter, ZeroHasNoSign) {
  EXPECT_EQ(liveText(readingOf(Function::kDcv, -1e-6)), "   0.0 mV ");
}

TEST(Meter, ASteadyVoltageHasNoAlternatingPartAndNoFrequency) {
  MeterInput input = pulseInput();
  input.signal = {.offset = -1.5, .frequency = 0.0};
  EXPECT_EQ(liveOf(input, Function::kDcv), "-1.500 V  ");
  EXPECT_EQ(liveOf(input, Function::kAcv), "   0.0 mV ");
  EXPECT_EQ(liveOf(input, Function::kFrequency), "   0.0 Hz ");
  EXPECT_EQ(liveOf(input, Function::kPulseWidth), "   0.0 uS ");
  EXPECT_EQ(liveOf(input, Function::kDuty), "   0.0 %  ");
}

TEST(Meter, AlternatingVoltsAreTheRootMeanSquareOfTheShape) {
  MeterInput input = pulseInput();
  input.signal = {.shape = Shape::kSine, .amplitude = 1.0, .offset = 5.0};
  EXPECT_EQ(liveOf(input, Function::kAcv), " 0.707 V  ");
  input.signal.shape = Shape::kSquare;
  EXPECT_EQ(liveOf(input, Function::kAcv), " 1.000 V  ");
  input.signal.shape = Shape::kTriangle;
  EXPECT_EQ(liveOf(input, Function::kAcv), " 0.577 V  ");
}

TEST(Meter, AListTextHasEightCharactersForEveryFunctionAndRange) {
  for (int function = 0; function < kFunctionCount; ++function) {
    for (double value = 1e-5; value < 1e8; value *= 3.7) {
      const Reading reading = readingOf(static_cast<Function>(function), value);
      EXPECT_EQ(listText(reading).size(), 8U);
      EXPECT_EQ(recordText(reading).size(), 8U);
      EXPECT_EQ(liveText(reading).size(), 10U);
      EXPECT_EQ(liveText(reading).find(','), std::string::npos);
    }
  }
}

TEST(Meter, ARecordEndsInTheCodeOfItsFunction) {
  EXPECT_EQ(recordText(readingOf(Function::kDcv, -0.0123)), " -12.3mV");
  for (const double volts : {1.8, 18.0, 180.0, 800.0}) {
    EXPECT_EQ(recordText(readingOf(Function::kDcv, volts)).substr(6), "V\x95");
    EXPECT_EQ(recordText(readingOf(Function::kAcv, volts)).substr(6), "V\x96");
  }
  EXPECT_EQ(recordText(readingOf(Function::kDcv, 4.8)), "  4.80V\x95");
  EXPECT_EQ(recordText(readingOf(Function::kAcv, 4.8)), "  4.80V\x96");
  EXPECT_EQ(recordText(readingOf(Function::kOhm, 1500.0)), " 1.500k ");
  EXPECT_EQ(recordText(readingOf(Function::kOhm, 1.5e6)), " 1.500M\x8C");
  EXPECT_EQ(recordText(readingOf(Function::kFrequency, 50.0)), "  50.0Hz");
  EXPECT_EQ(recordText(readingOf(Function::kRpm, 3000.0)), "  3000\x9C ");
  EXPECT_EQ(recordText(readingOf(Function::kPulseWidth, 0.008)), "  8.00mS");
  EXPECT_EQ(recordText(readingOf(Function::kPulseWidth, 0.8)), " 0.800S ");
  EXPECT_EQ(recordText(readingOf(Function::kDuty, 40.0)), "  40.0% ");
}

TEST(Meter, ReadingsChangeOnceAReadingPeriodAndStayWithinTheDrift) {
  MeterInput input = pulseInput();
  input.drift = 0.02;
  const MeterSettings settings;
  EXPECT_EQ(measure(input, settings, 10.0).value, measure(input, settings, 10.24).value);
  EXPECT_NE(measure(input, settings, 10.0).value, measure(input, settings, 10.25).value);
  double lowest = 1e9;
  double highest = 0.0;
  for (int i = 0; i < 240; ++i) {
    const double value = measure(input, settings, 0.25 * i).value;
    lowest = std::min(lowest, value);
    highest = std::max(highest, value);
  }
  EXPECT_NEAR(lowest, 4.8 * 0.98, 0.001);
  EXPECT_NEAR(highest, 4.8 * 1.02, 0.001);
}

TEST(MeterCommands, TheReadingIsTenCharacters) {
  Bench bench;
  EXPECT_EQ(bench.ask("DRM??"), "drm:  4.80 V  ");
  EXPECT_EQ(bench.ask("DFN04;DRM??"), "drm:  50.0 Hz ");
}

TEST(MeterCommands, RangeBitsTellTheCodeAndBit3Automatic) {
  Bench bench;
  EXPECT_EQ(bench.ask("DRG??"), "drg:0A");
  EXPECT_EQ(bench.ask("DRGmn;DRG??"), "drg:02");
  EXPECT_EQ(bench.ask("DRGat;DRGup;DRG??"), "drg:03");
  EXPECT_EQ(bench.ask("DRM??"), "drm:   4.8 V  ");
  EXPECT_EQ(bench.ask("DRGup;DRGup;DRGup;DRG??"), "drg:04");
  EXPECT_EQ(bench.ask("DRGdn;DRGdn;DRGdn;DRG??"), "drg:01");
  EXPECT_EQ(bench.ask("DRM??"), "drm:   O.L V  ");
  EXPECT_EQ(bench.ask("DRGdn;DRGdn;DRG??"), "drg:00");
  EXPECT_EQ(bench.ask("DRGat;DRG??"), "drg:0A");
}

TEST(MeterCommands, EachFunctionKeepsItsOwnRange) {
  Bench bench;
  EXPECT_EQ(bench.ask("DRGmn;DFN04;DRG??;DFN00;DRG??"), "drg:00,drg:02");
}

TEST(MeterCommands, HoldKeepsTheReading) {
  Bench bench;
  bench.ask("DHDon");
  bench.instrument.signal(Channel::kMeter).offset = 0.0;
  EXPECT_EQ(bench.ask("DRM??"), "drm:  4.80 V  ");
  EXPECT_EQ(bench.frame().reading(), "  4.80 V  ");
  bench.ask("DHDof");
  EXPECT_EQ(bench.ask("DRM??"), "drm:-1.200 V  ");
}

TEST(MeterCommands, AnotherFunctionWhileHeldIsReadOnceAndHeld) {
  Bench bench;
  EXPECT_EQ(bench.ask("DHDon;DFN04;DRM??"), "drm:  50.0 Hz ");
  bench.instrument.signal(Channel::kMeter).frequency = 60.0;
  EXPECT_EQ(bench.ask("DRM??"), "drm:  50.0 Hz ");
}

}  // namespace
}  // namespace vireon::simulator::tests
