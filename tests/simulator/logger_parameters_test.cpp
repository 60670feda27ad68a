#include "simulator/logger_parameters.h"

#include <gtest/gtest.h>

#include "tests/simulator/logger_bench.h"

namespace vireon::simulator::tests {
namespace {

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

TEST(LoggerParameters, EachFieldStandsWhereAHostLooksForIt) {
  Bench bench;
  const std::string logger = bench.ask("DFN10;DPS1,0.5,10,20;DPS??");
  EXPECT_EQ(logger.substr(4, 1), "1");
  EXPECT_EQ(logger.substr(6, 5), "000.5");
  EXPECT_EQ(logger.substr(12, 5), "00010");
  EXPECT_EQ(logger.substr(18, 5), "00020");
  const std::string relative = bench.ask("DFN30;DPS+1V;DPS??");
  EXPECT_EQ(relative.substr(4, 8), "+1V     ");
  const std::string compare = bench.ask("DFN40;DPS2V,1V;DPS??");
  EXPECT_EQ(compare.substr(4, 8), "2V      ");
  EXPECT_EQ(compare.substr(13, 8), "1V      ");
  bench.instrument.logger().parameters().trendSpan = 11;
  const std::string trend = bench.ask("DFN50;DPS0,0V,50mV;DPS??");
  EXPECT_EQ(trend.substr(4, 1), "0");
  EXPECT_EQ(trend.substr(6, 8), "0V      ");
  EXPECT_EQ(trend.substr(15, 8), "50mV    ");
  EXPECT_EQ(trend.substr(24, 1), "B");
}

TEST(LoggerParameters, ATrendsPlotModeIsNotTheSampleMethod) {
  Bench bench;
  EXPECT_EQ(bench.ask("DFN50;DPS1,0V,1V;DPS??"), "dps:1:0V      :1V      :0");
  EXPECT_EQ(bench.ask("DFN10;DPS??").substr(4, 1), "0");
  EXPECT_EQ(bench.ask("SMM01;DFN50;DPS0,0V,1V;DFN10;DPS??").substr(4, 1), "1");
}

TEST(LoggerParameters, NoReplyOfAnyModeAndFunctionHoldsAComma) {
  for (const char mode : std::string("012345")) {
    for (const char function : kFunctionDigits) {
      Bench bench;
      bench.ask(std::string("DFN") + mode + function + ";DPC04");
      run(bench, 3s);
      for (const char* query : {"DPS??", "DRM??", "DRP??", "DRT??", "STS??", "DFN??", "DRG??"}) {
        EXPECT_EQ(bench.ask(query).find(','), std::string::npos) << mode << function << query;
      }
    }
  }
}

}  // namespace
}  // namespace vireon::simulator::tests
