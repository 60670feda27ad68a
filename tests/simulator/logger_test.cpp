#include "simulator/logger.h"

#include <gtest/gtest.h>

#include "tests/simulator/logger_bench.h"

namespace vireon::simulator::tests {
namespace {

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

TEST(DataLogger, RecordsEveryFunctionAtItsSampleTime) {
  for (const char function : kFunctionDigits) {
    Bench bench;
    bench.ask(std::string("SCK07-12-21 14:00:00;DFN1") + function + ";DPS0,20,0,9;DPC04");
    run(bench, 65s);
    const auto records = download(bench);
    ASSERT_EQ(records.size(), 3U) << function;
    EXPECT_EQ(records[0].substr(0, 14), "00000 14:00:20");
    EXPECT_EQ(records[1].substr(0, 14), "00001 14:00:40");
    EXPECT_EQ(records[2].substr(0, 14), "00002 14:01:00");
  }
}

TEST(DataLogger, ALiveRecordOfEveryFunctionIs5And8And8AdjacentCharacters) {
  const char* readings[] = {"  4.80 V", "  5.88 V", " 1.500kO", " 1.500kO",
                            "  50.0Hz", " 3000rpm", "  8.00mS", "   40.0%"};
  for (const char function : kFunctionDigits) {
    Bench bench;
    bench.ask(std::string("SCK07-12-21 14:05:09;DFN1") + function + ";DPC04");
    run(bench, 1s);
    const std::string item = bench.ask("DRT??");
    ASSERT_EQ(item.size(), 4U + 21);
    EXPECT_EQ(item.substr(0, 9), "drt:00000");
    EXPECT_EQ(item.substr(9, 8), "14:05:10");
    EXPECT_EQ(item.substr(17, 8), readings[function - '0']);
  }
}

TEST(DataLogger, TheSampleMethodSetBySmmIsTheOneOfTheNextRun) {
  Bench bench;
  bench.instrument.meterInput().drift = 0.1;
  bench.ask("DRGmn;DFN10;DPS0,60,0,9;SMM01;DPC04");
  bench.clock.advance(60s);
  EXPECT_EQ(download(bench).at(0).substr(15, 6), "  5.28");
  bench.ask("SMM00;DPC04");
  bench.clock.advance(60s);
  EXPECT_NE(download(bench).at(0).substr(15, 6), "  5.28");
}

TEST(DataLogger, RecordsThatWaitWhenTheHostEndsTheRunAreStillGivenInOrder) {
  Bench bench;
  bench.ask("DFN10;DPC04");
  run(bench, 3s);
  EXPECT_EQ(bench.ask("DPC04;STS??"), "sts:40");
  for (const char* number : {"drt:00000", "drt:00001", "drt:00002"}) {
    EXPECT_EQ(bench.ask("DRT??").substr(0, 9), number);
  }
  EXPECT_EQ(bench.ask("STS??"), "sts:00");
}

TEST(DataLogger, Dpc00LeavesTheRunGoingOn) {
  Bench bench;
  bench.ask("DFN10;DPC04");
  run(bench, 2s);
  EXPECT_EQ(bench.ask("DPC00;STS??"), "sts:50");
  run(bench, 2s);
  EXPECT_EQ(download(bench).size(), 4U);
}

TEST(DataLogger, Dpc02EndsAPause) {
  Bench bench;
  bench.ask("DFN20;DPC01");
  EXPECT_EQ(bench.ask("STS??"), "sts:08");
  EXPECT_EQ(bench.ask("DPC02;STS??"), "sts:00");
  bench.ask("DFN10;DPC04;DPC01");
  EXPECT_EQ(bench.ask("DPC02;STS??"), "sts:00");
}

TEST(DataLogger, EveryFunctionSettingEndsARunAndAQueryDoesNot) {
  for (const char* setting : {"DFN10", "DFN17", "DFN20", "DFN50", "DFN00"}) {
    Bench bench;
    bench.ask("DFN10;DPC04");
    EXPECT_EQ(bench.ask("DFN??;STS??"), "dfn:10,sts:10");
    EXPECT_EQ(bench.ask(std::string(setting) + ";STS??"), "sts:00") << setting;
    run(bench, 5s);
    EXPECT_EQ(bench.instrument.logger().recordCount(), 0U) << setting;
  }
}

TEST(DataLogger, ATrendLeavesTheRecordsInTheMemory) {
  Bench bench;
  bench.ask("DFN10;DPC04");
  run(bench, 3s);
  bench.ask("DFN50;DPC04");
  run(bench, 10s);
  EXPECT_EQ(download(bench).size(), 3U);
}

TEST(DataLogger, EmptyingTheMemoryLeavesNothingThatWaits) {
  Bench bench;
  bench.ask("DFN10;DPC04");
  run(bench, 3s);
  EXPECT_EQ(bench.ask("DRC01;STS??"), "sts:00");
  EXPECT_EQ(bench.ask("DRT??"), kAck);
}

TEST(DataLogger, QueriesOfTrendDataAndOfTheMemoryAreAcknowledgedInEveryMode) {
  for (const char* mode : {"DFN10", "DFN20", "DFN30", "DFN40", "DFN50"}) {
    Bench bench;
    bench.ask(mode);
    EXPECT_EQ(bench.ask("TRD??"), kAck) << mode;
    EXPECT_EQ(bench.ask("SMM??"), kAck) << mode;
    EXPECT_EQ(bench.ask("SMM01"), kAck) << mode;
  }
}

}  // namespace
}  // namespace vireon::simulator::tests
