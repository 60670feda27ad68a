#include <gtest/gtest.h>

#include "simulator/logger.h"
#include "tests/simulator/logger_bench.h"

namespace vireon::simulator::tests {
namespace {

TEST(Trend, GivesPoints000To119AndLogsUntilOneIsLeft) {
  Bench bench;
  bench.ask("DFN50;DPC04");
  int points = 0;
  std::string status;
  for (int tick = 0; tick < 1000 && status != "sts:00"; ++tick) {
    bench.clock.advance(500ms);
    status = bench.ask("STS??");
    const bool waits = status == "sts:50" || status == "sts:40";
    if (status == "sts:40") {
      EXPECT_EQ(points, 119);
    }
    if (!waits) continue;
    const std::string number = std::to_string(1000 + points).substr(1);
    EXPECT_EQ(bench.ask("DRT??"), "drt:" + number + ":14");
    ++points;
  }
  EXPECT_EQ(points, 120);
  EXPECT_EQ(bench.ask("DRT??"), kAck);
}

TEST(Trend, LogsUntilOnePointIsLeftHoweverLateTheHostFetches) {
  Bench bench;
  bench.ask("DFN50;DPC04");
  bench.clock.advance(1h);
  for (int point = 0; point < 119; ++point) {
    EXPECT_EQ(bench.ask("STS??"), "sts:50");
    bench.ask("DRT??");
  }
  EXPECT_EQ(bench.ask("STS??"), "sts:40");
  EXPECT_EQ(bench.ask("DRT??"), "drt:119:14");
  EXPECT_EQ(bench.ask("STS??"), "sts:00");
}

TEST(Trend, PointsAre0To40WithTheOffsetInTheMiddleAndTenStepsADivision) {
  const std::pair<double, const char*> cases[] = {{0.0, "14"}, {1.0, "1E"},  {-1.0, "0A"},
                                                  {2.0, "28"}, {50.0, "28"}, {-50.0, "00"}};
  for (const auto& [volts, point] : cases) {
    Bench bench;
    bench.instrument.signal(Channel::kMeter) = {.offset = volts, .frequency = 0.0};
    bench.ask("DFN50;DPS0,0V,1V;DPC04");
    bench.ask("STS??");
    EXPECT_EQ(bench.ask("DRT??"), std::string("drt:000:") + point);
  }
}

TEST(Trend, APointTakesATwelfthOfItsSpan) {
  Bench bench;
  bench.instrument.logger().parameters().trendSpan = 2;  // 60 s
  bench.ask("DFN50;DPC04");
  bench.clock.advance(26s);
  bench.ask("STS??");
  EXPECT_EQ(bench.instrument.logger().waiting(), 6U);
}

TEST(Trend, EndedByTheHostItIsOverAtOnce) {
  Bench bench;
  bench.ask("DFN50;DPC04");
  run(bench, 10s);
  EXPECT_EQ(bench.ask("DPC04;STS??"), "sts:40");
  EXPECT_EQ(bench.ask("DPC02;STS??"), "sts:00");
}

TEST(Trend, APauseTakesNoPoints) {
  Bench bench;
  bench.ask("DFN50;DPC04");
  run(bench, 5s);
  bench.ask("DPC01");
  const std::size_t before = bench.instrument.logger().waiting();
  run(bench, 60s);
  EXPECT_EQ(bench.ask("STS??"), "sts:58");
  EXPECT_EQ(bench.instrument.logger().waiting(), before);
}

TEST(Trend, AStartBeginsAtPoint000Again) {
  Bench bench;
  bench.ask("DFN50;DPC04");
  run(bench, 20s);
  bench.ask("DRT??");
  bench.ask("DPC04;DPC04");
  run(bench, 1s);
  EXPECT_EQ(bench.ask("DRT??"), "drt:000:14");
  EXPECT_EQ(bench.ask("DRT??"), kAck);
}

TEST(Trend, WhatEveryFunctionMeasuresIsPlotted) {
  const char* settings[] = {"4.8V", "5.88V", "1.5k", "1.5k", "50Hz", "3000", "8mS", "40%"};
  for (const char function : kFunctionDigits) {
    Bench bench;
    bench.ask(std::string("DFN5") + function + ";DPS0," + settings[function - '0'] + ",100;DPC04");
    bench.ask("STS??");
    EXPECT_EQ(bench.ask("DRT??"), "drt:000:14") << function;
  }
}

}  // namespace
}  // namespace vireon::simulator::tests
