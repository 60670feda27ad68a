#include "simulator/logger.h"

#include <gtest/gtest.h>

#include "tests/simulator/bench.h"

namespace vireon::simulator::tests {
namespace {

const std::string kEndRecord = "lgd:      --EOD---          ";

// The records of a whole dump, the end record left out.
std::vector<std::string> download(Bench& bench) {
  std::vector<std::string> records;
  EXPECT_EQ(bench.ask("DPC02"), kAck);
  for (int i = 0; i < 1000; ++i) {
    const std::string text = bench.ask("DPC03");
    EXPECT_LE(text.size(), 599U);
    if (text == kEndRecord) return records;
    for (std::size_t first = 4; first < text.size(); first += 24) records.push_back(text.substr(first, 24));
  }
  ADD_FAILURE() << "a dump without end";
  return records;
}

void run(Bench& bench, std::chrono::seconds duration) {
  for (auto passed = 0s; passed < duration; passed += 1s) {
    bench.clock.advance(1s);
    bench.ask("STS??");
  }
}

TEST(LoggerParameters, EachModeShowsItsFieldsPaddedAndPartedByColons) {
  Bench bench;
  EXPECT_EQ(bench.ask("DFN10;DPS??"), "dps:0:00001:00000:00999");
  EXPECT_EQ(bench.ask("DFN20;DPS??"), "dps:");
  EXPECT_EQ(bench.ask("DFN30;DPS??"), "dps:4.800V  ");
  EXPECT_EQ(bench.ask("DFN40;DPS??"), "dps:4.850V  :4.750V  ");
  EXPECT_EQ(bench.ask("DFN50;DPS??"), "dps:0:4.800V  :100mV   :0");
}

TEST(LoggerParameters, EachModeTakesItsFieldsAndShowsThemAgain) {
  Bench bench;
  EXPECT_EQ(bench.ask("DFN10;DPS1,0.5,10,20;DPS??"), "dps:1:000.5:00010:00020");
  EXPECT_EQ(bench.ask("DPS0,00002,00000,09999;DPS??"), "dps:0:00002:00000:09999");
  EXPECT_EQ(bench.ask("DFN30;DPS-1.234mV;DPS??"), "dps:-1.234mV");
  EXPECT_EQ(bench.ask("DFN40;DPS-010.0mV,-1.234mV;DPS??"), "dps:-010.0mV:-1.234mV");
  EXPECT_EQ(bench.ask("DFN50;DPS1,+1V,200mV;DPS??"), "dps:1:+1V     :200mV   :0");
}

TEST(LoggerParameters, FieldsOfAnotherModeAreRefused) {
  Bench bench;
  EXPECT_EQ(bench.ask("DFN20;DPS0,1,0,9"), kRefused);
  EXPECT_EQ(bench.ask("DFN30;DPS1V,2V"), kRefused);
  EXPECT_EQ(bench.ask("DFN40;DPS1V"), kRefused);
  EXPECT_EQ(bench.ask("DFN50;DPS1,1V"), kRefused);
  EXPECT_EQ(bench.ask("DFN30;DPS123456789"), kRefused);
  EXPECT_EQ(bench.ask("DFN30;DPSvolts"), kRefused);
  EXPECT_EQ(bench.ask("DFN30;DPS1.2.3V"), kRefused);
  EXPECT_EQ(bench.ask("DFN50;DPS1,1V,0V"), kRefused);
  EXPECT_EQ(bench.ask("DFN??"), "dfn:00");
}

TEST(LoggerParameters, TheSampleMethodIsTheFirstField) {
  Bench bench;
  EXPECT_EQ(bench.ask("DFN10;SMM01;DPS??"), "dps:1:00001:00000:00999");
  EXPECT_EQ(bench.ask("SMM00;DPS??"), "dps:0:00001:00000:00999");
}

TEST(DataLogger, AnEmptyMemoryGivesTheEndRecordAgainAndAgain) {
  for (const Model model : {Model::kK7310, Model::kK7210, Model::kK7201, Model::kK7900}) {
    Bench bench(model);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(bench.ask("DPC03"), kEndRecord);
  }
}

TEST(DataLogger, RecordsAReadingEverySampleTimeUntilItIsEnded) {
  Bench bench;
  bench.ask("SCK07-12-21 14:05:09;DFN10;DPC04");
  EXPECT_EQ(bench.ask("STS??"), "sts:10");
  run(bench, 3s);
  EXPECT_EQ(bench.ask("DPC04;STS??"), "sts:40");
  run(bench, 5s);
  EXPECT_EQ(download(bench),
            (std::vector<std::string>{"00000 14:05:10   4.80V\x95 ", "00001 14:05:11   4.80V\x95 ",
                                      "00002 14:05:12   4.80V\x95 "}));
}

TEST(DataLogger, ADumpHasUpTo24RecordsAndTheEndRecordComesAlone) {
  Bench bench;
  bench.ask("DFN14;DPS0,1,0,49;DPC04");
  run(bench, 60s);
  bench.ask("DPC02");
  EXPECT_EQ(bench.ask("DPC03").size(), 4U + 24 * 24);
  EXPECT_EQ(bench.ask("DPC03").size(), 4U + 24 * 24);
  EXPECT_EQ(bench.ask("DPC03").size(), 4U + 2 * 24);
  EXPECT_EQ(bench.ask("DPC03"), kEndRecord);
  EXPECT_EQ(download(bench).size(), 50U);
}

TEST(DataLogger, FillsTheAddressesItWasGivenAndEndsByItself) {
  Bench bench;
  bench.ask("DFN10;DPS0,1,100,104;DPC04");
  run(bench, 20s);
  const auto records = download(bench);
  ASSERT_EQ(records.size(), 5U);
  EXPECT_EQ(records.front().substr(0, 5), "00100");
  EXPECT_EQ(records.back().substr(0, 5), "00104");
}

TEST(DataLogger, LiveRecordsWaitInOrderAndNoneIsSkipped) {
  Bench bench;
  bench.ask("SCK07-12-21 14:05:09;DFN12;DPS0,1,0,9;DPC04");
  run(bench, 3s);
  EXPECT_EQ(bench.ask("STS??"), "sts:50");
  EXPECT_EQ(bench.ask("DRT??"), "drt:0000014:05:10 1.500kO");
  EXPECT_EQ(bench.ask("DRT??"), "drt:0000114:05:11 1.500kO");
  EXPECT_EQ(bench.ask("DRT??"), "drt:0000214:05:12 1.500kO");
  EXPECT_EQ(bench.ask("DRT??"), kAck);
  EXPECT_EQ(bench.ask("STS??"), "sts:10");
}

TEST(DataLogger, ARunThatEndedByItselfLogsUntilOneRecordIsLeft) {
  Bench bench;
  bench.ask("DFN10;DPS0,1,0,2;DPC04");
  run(bench, 10s);
  EXPECT_EQ(bench.ask("STS??"), "sts:50");
  EXPECT_EQ(bench.ask("DRT??").substr(0, 9), "drt:00000");
  EXPECT_EQ(bench.ask("STS??"), "sts:50");
  EXPECT_EQ(bench.ask("DRT??").substr(0, 9), "drt:00001");
  EXPECT_EQ(bench.ask("STS??"), "sts:40");
  EXPECT_EQ(bench.ask("DRT??").substr(0, 9), "drt:00002");
  EXPECT_EQ(bench.ask("STS??"), "sts:00");
}

TEST(DataLogger, AStartOverwritesTheOldRun) {
  Bench bench;
  bench.ask("DFN10;DPC04");
  run(bench, 5s);
  bench.ask("DPC04");
  bench.ask("DPC04");
  run(bench, 2s);
  EXPECT_EQ(download(bench).size(), 2U);
}

TEST(DataLogger, APauseTakesNoRecordsAndIsStatusBit3) {
  Bench bench;
  bench.ask("DFN10;DPC04");
  run(bench, 2s);
  EXPECT_EQ(bench.ask("DPC01;STS??"), "sts:58");
  run(bench, 10s);
  EXPECT_EQ(bench.ask("DPC01;STS??"), "sts:50");
  run(bench, 2s);
  EXPECT_EQ(download(bench).size(), 4U);
}

TEST(DataLogger, TheReadOutEndsARunAndRewindsAndKeepsTheMemory) {
  Bench bench;
  bench.ask("DFN10;DPC04");
  run(bench, 2s);
  EXPECT_EQ(bench.ask("DPC02;STS??"), "sts:00");
  EXPECT_EQ(download(bench).size(), 2U);
  EXPECT_EQ(download(bench).size(), 2U);
}

TEST(DataLogger, OnlyDrc01EmptiesTheMemory) {
  Bench bench;
  bench.ask("DFN10;DPC04");
  run(bench, 2s);
  for (const char* command : {"DPC00", "DPC02", "DFN20", "DFN00", "DFN10", "TRD??", "GTL"})
    bench.ask(command);
  EXPECT_EQ(download(bench).size(), 2U);
  EXPECT_EQ(bench.ask("DRC01"), kAck);
  EXPECT_EQ(download(bench).size(), 0U);
}

TEST(DataLogger, AFunctionSettingEndsARun) {
  Bench bench;
  bench.ask("DFN10;DPC04");
  run(bench, 2s);
  EXPECT_EQ(bench.ask("DFN11;STS??"), "sts:00");
  run(bench, 5s);
  EXPECT_EQ(download(bench).size(), 2U);
}

TEST(DataLogger, NothingStartsOutsideALoggerMode) {
  Bench bench;
  EXPECT_EQ(bench.ask("DPC04;STS??"), "sts:00");
  run(bench, 5s);
  EXPECT_EQ(bench.instrument.logger().recordCount(), 0U);
}

TEST(DataLogger, ThePeakMethodRecordsTheLargestReadingOfEachSampleTime) {
  Bench bench;
  bench.instrument.meterInput().drift = 0.1;
  bench.ask("DRGmn;DFN10;DPS1,60,0,9;DPC04");
  bench.clock.advance(60s);
  EXPECT_EQ(download(bench).at(0).substr(15, 6), "  5.28");
}

TEST(DataLogger, RecordsEveryFunctionWithItsCode) {
  const std::pair<const char*, const char*> cases[] = {
      {"DFN10", "V\x95"}, {"DFN11", "V\x96"}, {"DFN12", "k "}, {"DFN13", "k "},
      {"DFN14", "Hz"},    {"DFN15", "\x9C "}, {"DFN16", "mS"}, {"DFN17", "% "}};
  for (const auto& [command, code] : cases) {
    Bench bench;
    bench.ask(std::string(command) + ";DPC04");
    run(bench, 2s);
    EXPECT_EQ(download(bench).at(0).substr(21, 2), code) << command;
  }
}

TEST(DataLogger, AClockThatJumpsForHoursFillsTheMemoryOnce) {
  Bench bench;
  bench.ask("DFN10;DPS0,0.1,0,9999;DPC04");
  bench.clock.advance(10000h);
  bench.ask("STS??");
  EXPECT_EQ(bench.instrument.logger().recordCount(), 10000U);
}

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

}  // namespace
}  // namespace vireon::simulator::tests
