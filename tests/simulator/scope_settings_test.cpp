#include <gtest/gtest.h>

#include "tests/simulator/bench.h"

namespace vireon::simulator::tests {
namespace {

TEST(ScopeSettings, VoltsPerDivisionStepsThrough13CodesAndStopsAtBothEnds) {
  Bench bench;
  for (int i = 0; i < 20; ++i) bench.ask("VDAdn;VDBdn");
  EXPECT_EQ(bench.ask("VDA??;VDB??"), "vda:40,vdb:40");
  for (int code = 1; code <= 12; ++code) {
    bench.ask("VDAup;VDBup");
    EXPECT_EQ(bench.instrument.settings().a.scale, code);
    EXPECT_EQ(bench.instrument.settings().b.scale, code);
  }
  EXPECT_EQ(bench.ask("VDAup;VDBup;VDA??;VDB??"), "vda:4C,vdb:4C");
}

TEST(ScopeSettings, TimePerDivisionStepsThrough21CodesAndStopsAtBothEnds) {
  Bench bench;
  for (int i = 0; i < 30; ++i) bench.ask("HDVdn");
  EXPECT_EQ(bench.ask("HDV??"), "hdv:00");
  for (int code = 1; code <= 20; ++code) {
    bench.ask("HDVup");
    EXPECT_EQ(bench.instrument.settings().timeBase.scale, code);
  }
  EXPECT_EQ(bench.ask("HDVup;HDV??"), "hdv:14");
}

TEST(ScopeSettings, ChannelFlagsAreBits4To6) {
  Bench bench;
  EXPECT_EQ(bench.ask("VDAac;VDA??;VDAdc;VDA??"), "vda:54,vda:44");
  EXPECT_EQ(bench.ask("VDAof;VDA??;VDAon;VDA??"), "vda:04,vda:44");
  EXPECT_EQ(bench.ask("VDBac;VDBof;VDB??"), "vdb:13");
  EXPECT_EQ(bench.ask("VDAat;VDA??;VDAmn;VDA??"), "vda:64,vda:44");
}

TEST(ScopeSettings, AutomaticTimeBaseIsBit6) {
  Bench bench;
  EXPECT_EQ(bench.ask("HDVat;HDV??;HDVmn;HDV??"), "hdv:47,hdv:07");
}

TEST(ScopeSettings, TriggerBitsTellSourceSlopeAndMode) {
  Bench bench;
  EXPECT_EQ(bench.ask("TRGsb;TRG??;TRGse;TRG??;TRGsa;TRG??"), "trg:21,trg:22,trg:20");
  EXPECT_EQ(bench.ask("TRGl-;TRG??;TRGl+;TRG??"), "trg:24,trg:20");
  EXPECT_EQ(bench.ask("TRGnr;TRG??;TRGat;TRG??"), "trg:00,trg:20");
}

TEST(ScopeSettings, PositionsAndLevelTakeEveryByte) {
  Bench bench;
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  for (unsigned value = 0; value < 256; ++value) {
    const std::string hex{kDigits[value / 16], kDigits[value % 16]};
    EXPECT_EQ(bench.ask("VPA" + hex + ";VPA??"), "vpa:" + hex);
    EXPECT_EQ(bench.ask("VPB" + hex + ";VPB??"), "vpb:" + hex);
    EXPECT_EQ(bench.ask("HPO" + hex + ";HPO??"), "hpo:" + hex);
    EXPECT_EQ(bench.ask("TLV" + hex + ";TLV??"), "tlv:" + hex);
  }
}

TEST(ScopeSettings, TheTriggerLevelStaysRelativeToTheSourceWhenTheChannelMoves) {
  Bench bench;
  EXPECT_EQ(bench.ask("TLV90;VPA50;VPA??;TLV??"), "vpa:50,tlv:90");
}

TEST(ScopeSettings, HoldIsStatusBit0) {
  Bench bench;
  EXPECT_EQ(bench.ask("DHDon;STS??;DHDof;STS??"), "sts:01,sts:00");
}

TEST(AutomaticScale, VerticalAutoLetsTheSignalReachTwoDivisions) {
  Bench bench;
  const std::pair<double, std::string> cases[] = {{0.05, "vda:60"},  {0.1, "vda:60"}, {0.11, "vda:61"},
                                                  {2.0, "vda:64"},   {2.1, "vda:65"}, {90.0, "vda:69"},
                                                  {5000.0, "vda:6C"}};
  bench.ask("VDAat");
  for (const auto& [amplitude, reply] : cases) {
    bench.a().amplitude = amplitude;
    EXPECT_EQ(bench.ask("VDA??"), reply) << amplitude;
  }
}

TEST(AutomaticScale, DcCouplingCountsTheOffsetAndAcCouplingDoesNot) {
  Bench bench;
  bench.b() = {.amplitude = 0.1, .offset = 10.0};
  EXPECT_EQ(bench.ask("VDBat;VDB??"), "vdb:67");
  EXPECT_EQ(bench.ask("VDBac;VDB??"), "vdb:70");
}

TEST(AutomaticScale, ManualStepSwitchesVerticalAutoOffAndStepsFromTheScaleInForce) {
  Bench bench;
  EXPECT_EQ(bench.ask("VDAat;VDAup;VDA??"), "vda:45");
  EXPECT_EQ(bench.ask("VDBat;VDBdn;VDB??"), "vdb:42");
}

TEST(AutomaticScale, HorizontalAutoShowsAtLeastTwoPeriodsAndAtMostFive) {
  Bench bench;
  bench.ask("HDVat");
  for (const double frequency : {0.1, 1.0, 3.0, 50.0, 440.0, 1000.0, 12345.0, 190000.0}) {
    bench.a().frequency = frequency;
    bench.ask("STS??");
    const double screen = 10.0 * 12.5 * sampleStep(bench.instrument.settings().timeBase);
    EXPECT_GE(screen * frequency, 1.999) << frequency;
    EXPECT_LE(screen * frequency, 5.001) << frequency;
  }
}

TEST(AutomaticScale, ManualStepSwitchesHorizontalAutoOff) {
  Bench bench;
  bench.a().frequency = 50.0;
  EXPECT_EQ(bench.ask("HDVat;HDV??"), "hdv:4B");
  EXPECT_EQ(bench.ask("HDVup;HDV??"), "hdv:0C");
}

TEST(AutomaticScale, HorizontalAutoFollowsTheTriggerSource) {
  Bench bench;
  bench.b().frequency = 50.0;
  EXPECT_EQ(bench.ask("HDVat;HDV??;TRGsb;HDV??"), "hdv:47,hdv:4B");
}

TEST(AutomaticScale, ASteadyVoltageKeepsTheTimeBase) {
  Bench bench;
  bench.a() = {.amplitude = 0.0, .frequency = 50.0};
  EXPECT_EQ(bench.ask("HDVat;HDV??"), "hdv:47");
}

TEST(OhmRange, RidesInTheLowDigitOfChannelAAndLeavesItsScaleAlone) {
  Bench bench;
  EXPECT_EQ(bench.ask("DFN02;VDA??;VDB??"), "vda:40,vdb:43");
  EXPECT_EQ(bench.ask("VDAup;VDA??;DRG??"), "vda:41,drg:01");
  EXPECT_EQ(bench.ask("VDAup;VDAup;VDAup;VDAup;VDA??"), "vda:43");
  EXPECT_EQ(bench.ask("VDAdn;VDA??"), "vda:42");
  EXPECT_EQ(bench.ask("DFN03;VDA??"), "vda:42");
  EXPECT_EQ(bench.ask("DFN00;VDA??"), "vda:44");
}

}  // namespace
}  // namespace vireon::simulator::tests
