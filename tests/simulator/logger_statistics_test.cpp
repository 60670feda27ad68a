#include "simulator/logger_statistics.h"

#include <gtest/gtest.h>

#include "tests/simulator/logger_bench.h"

namespace vireon::simulator::tests {
namespace {

TEST(Statistics, RecordModeGivesHighestMeanLowestCountAndTime) {
  Bench bench;
  bench.instrument.meterInput().drift = 0.1;
  bench.ask("SCK07-12-21 14:00:00;DFN20");
  run(bench, 60s);
  EXPECT_EQ(bench.ask("DRP??"), "drp:  5.28 V 14:00:05  4.80 V 14:01:00  4.32 V 14:00:35   24100:01:00");
}

TEST(Statistics, RelativeModeComparesWithTheReference) {
  Bench bench;
  EXPECT_EQ(bench.ask("DFN30;DPS5V"), kAck);
  run(bench, 2s);
  EXPECT_EQ(bench.ask("DRP??"), "drp:5V      -200.0mV -4.00% -4.00%00:00:02");
}

TEST(Statistics, CompareModeGivesTheShareThatPassed) {
  Bench bench;
  bench.ask("DFN40;DPS5V,4V");
  run(bench, 1s);
  EXPECT_EQ(bench.ask("DRP??"), "drp:5V      4V        4.80 V100.0%00:00:01");
  bench.instrument.signal(Channel::kMeter).offset = 0.0;
  run(bench, 1s);
  EXPECT_EQ(bench.ask("DRP??").substr(28, 6), " 55.6%");
}

TEST(Statistics, HaveTheSameWidthBeforeTheFirstReading) {
  EXPECT_EQ(LoggerStatistics().text(LoggerMode::kRecord, {}).size(), 65U);
  EXPECT_EQ(LoggerStatistics().text(LoggerMode::kRelative, {}).size(), 38U);
  EXPECT_EQ(LoggerStatistics().text(LoggerMode::kCompare, {}).size(), 38U);
}

TEST(Statistics, ShowNoReadingBeforeTheFirst) {
  EXPECT_EQ(LoggerStatistics().text(LoggerMode::kRecord, {}),
            "  ------ 00:00:00  ------ 00:00:00  ------ 00:00:00     000:00:00");
}

TEST(Statistics, Dpc00ZeroesThemAndGoesOn) {
  Bench bench;
  bench.ask("DFN40");
  run(bench, 10s);
  EXPECT_EQ(bench.ask("DPC00;DRP??").substr(34), "00:00:00");
  run(bench, 3s);
  EXPECT_EQ(bench.ask("DRP??").substr(34), "00:00:03");
}

TEST(Statistics, APauseStopsThem) {
  Bench bench;
  bench.ask("DFN40");
  run(bench, 2s);
  EXPECT_EQ(bench.ask("DPC01;STS??"), "sts:08");
  run(bench, 60s);
  bench.ask("DPC01");
  run(bench, 1s);
  EXPECT_EQ(bench.ask("DRP??").substr(34), "00:00:03");
}

TEST(Statistics, APauseTakesNoReadings) {
  Bench bench;
  bench.ask("DFN20");
  run(bench, 2s);
  bench.ask("DPC01");
  run(bench, 60s);
  bench.ask("DPC01");
  EXPECT_EQ(bench.ask("DRP??").substr(55, 6), "     9");
}

TEST(Statistics, AreEmptyInTheOtherModes) {
  Bench bench;
  EXPECT_EQ(bench.ask("DRP??;DFN10;DRP??;DFN50;DRP??"), "drp:,drp:,drp:");
}

TEST(Statistics, EachFieldStandsWhereAHostLooksForIt) {
  Bench bench;
  bench.instrument.meterInput().drift = 0.1;
  bench.ask("SCK07-12-21 14:00:00;DFN20");
  run(bench, 60s);
  const std::string record = bench.ask("DRP??").substr(4);
  EXPECT_EQ(record.substr(0, 17), "  5.28 V 14:00:05");
  EXPECT_EQ(record.substr(17, 17), "  4.80 V 14:01:00");
  EXPECT_EQ(record.substr(34, 17), "  4.32 V 14:00:35");
  EXPECT_EQ(record.substr(51, 6), "   241");
  EXPECT_EQ(record.substr(57), "00:01:00");
  bench.instrument.meterInput().drift = 0.0;
  bench.ask("DFN30;DPS5V");
  run(bench, 2s);
  const std::string relative = bench.ask("DRP??").substr(4);
  EXPECT_EQ(relative.substr(0, 8), "5V      ");
  EXPECT_EQ(relative.substr(8, 8), "-200.0mV");
  EXPECT_EQ(relative.substr(16, 7), " -4.00%");
  EXPECT_EQ(relative.substr(23, 7), " -4.00%");
  EXPECT_EQ(relative.substr(30), "00:00:02");
  bench.ask("DFN40;DPS5V,4V");
  run(bench, 2s);
  const std::string compare = bench.ask("DRP??").substr(4);
  EXPECT_EQ(compare.substr(0, 8), "5V      ");
  EXPECT_EQ(compare.substr(8, 8), "4V      ");
  EXPECT_EQ(compare.substr(16, 8), "  4.80 V");
  EXPECT_EQ(compare.substr(24, 6), "100.0%");
  EXPECT_EQ(compare.substr(30), "00:00:02");
}

TEST(Statistics, KeepTheirWidthInEveryFunction) {
  for (const char function : kFunctionDigits) {
    Bench bench;
    const auto length = [&](const char* mode) {
      bench.ask(mode + std::string(1, function));
      run(bench, 2s);
      return bench.ask("DRP??").size();
    };
    EXPECT_EQ(length("DFN2"), 4U + 65) << function;
    EXPECT_EQ(length("DFN3"), 4U + 38) << function;
    EXPECT_EQ(length("DFN4"), 4U + 38) << function;
  }
}

TEST(Statistics, AReferenceSetMeanwhileCountsFromTheNextReading) {
  Bench bench;
  bench.ask("DFN30;DPS4.8V");
  run(bench, 1s);
  EXPECT_EQ(bench.ask("DRP??").substr(4, 30), "4.8V       0.0mV +0.00% +0.00%");
  bench.ask("DPS6V;DPC00");
  run(bench, 1s);
  EXPECT_EQ(bench.ask("DRP??").substr(4, 30), "6V      -1.200 V-20.00%-20.00%");
}

TEST(Statistics, AnErrorThatRoundsToZeroHasNoMinus) {
  Bench bench;
  bench.ask("DFN30;DPS4.80001V");
  run(bench, 1s);
  EXPECT_EQ(bench.ask("DRP??").substr(20, 7), " +0.00%");
}

TEST(Statistics, Dpc02ZeroesThem) {
  Bench bench;
  bench.ask("DFN20");
  run(bench, 10s);
  bench.ask("DPC02");
  run(bench, 2s);
  EXPECT_EQ(bench.ask("DRP??").substr(55), "     800:00:02");
}

}  // namespace
}  // namespace vireon::simulator::tests
