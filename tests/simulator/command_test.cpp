#include <gtest/gtest.h>

#include <map>
#include <set>

#include "tests/simulator/bench.h"

namespace vireon::simulator::tests {
namespace {

constexpr Model kModels[] = {Model::kK7310, Model::kK7210, Model::kK7201, Model::kK7900};

const std::string kScopeQueries = "VDA??;VDB??;VPA??;VPB??;HDV??;HPO??;TRG??;DFN??;STS??";

TEST(Commands, EveryReplyItemOfEveryModelBeginsWithTheKeyOfItsQuery) {
  for (const Model model : kModels) {
    for (const std::string key : {"SID", "SIM", "VDA", "VDB", "VPA", "VPB", "HDV", "HPO", "TLV", "TRG", "STS",
                                  "DFN", "DRG", "DPS", "DRM", "DRP", "DRS"}) {
      Bench bench(model);
      std::string lower = key;
      std::transform(lower.begin(), lower.end(), lower.begin(),
                     [](char c) { return static_cast<char>(c + 32); });
      EXPECT_EQ(bench.ask(key + "??").substr(0, 4), lower + ":") << identity(model);
    }
  }
}

TEST(Commands, EverySettingOfEveryModelIsAcknowledged) {
  const char* settings[] = {"VDAup",
                            "VDAdn",
                            "VDAac",
                            "VDAdc",
                            "VDAat",
                            "VDAmn",
                            "VDAon",
                            "VDAof",
                            "VDBup",
                            "VDBdn",
                            "VDBac",
                            "VDBdc",
                            "VDBat",
                            "VDBmn",
                            "VDBon",
                            "VDBof",
                            "VPA00",
                            "VPAFF",
                            "VPB7A",
                            "HDVup",
                            "HDVdn",
                            "HDVat",
                            "HDVmn",
                            "HPO00",
                            "HPOFF",
                            "TLV00",
                            "TLVBF",
                            "TRGnr",
                            "TRGat",
                            "TRGsa",
                            "TRGsb",
                            "TRGse",
                            "TRGl+",
                            "TRGl-",
                            "TRGso",
                            "TRGsf",
                            "DHDon",
                            "DHDof",
                            "DFN00",
                            "DFN07",
                            "DRGup",
                            "DRGdn",
                            "DRGat",
                            "DRGmn",
                            "DPS0,1,0,9",
                            "DPC00",
                            "DPC01",
                            "DPC02",
                            "DPC04",
                            "DRC01",
                            "SMM00",
                            "SMM01",
                            "SCK07-12-21 14:05:09",
                            "GTL"};
  for (const Model model : kModels) {
    for (const char* setting : settings) {
      Bench bench(model);
      EXPECT_EQ(bench.ask(setting), kAck) << identity(model) << " " << setting;
    }
  }
}

TEST(Commands, QueriesWithoutAReplyItemAreAcknowledged) {
  for (const Model model : kModels) {
    Bench bench(model);
    EXPECT_EQ(bench.ask("TRD??"), kAck);
    EXPECT_EQ(bench.ask("SMM??"), kAck);
    EXPECT_EQ(bench.ask("DRT??"), kAck);
    EXPECT_EQ(bench.ask("SMM??;TRG??"), "trg:20");
  }
}

TEST(Commands, IdentityNamesTheModelInSixCharacters) {
  EXPECT_EQ(Bench(Model::kK7310).ask("SIM??"), "sim:K7310 ");
  EXPECT_EQ(Bench(Model::kK7210).ask("SIM??"), "sim:K7210 ");
  EXPECT_EQ(Bench(Model::kK7201).ask("SIM??"), "sim:K7201 ");
  EXPECT_EQ(Bench(Model::kK7900).ask("SIM??"), "sim:K7900 ");
}

TEST(Commands, TheSystemTextIsACaptionOfAtMostThirtyPrintableCharactersWithoutAComma) {
  EXPECT_EQ(Bench().ask("SID??;SIM??"), "sid:Vireon K7310 Scope and Meter,sim:K7310 ");
  for (const Model model : kModels) {
    const std::string text(systemText(model));
    EXPECT_LE(text.size(), 30U);
    EXPECT_EQ(text.find(','), std::string::npos);
    EXPECT_NE(text.find(identity(model)), std::string::npos);
    EXPECT_TRUE(std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c <= '~'; }));
  }
}

TEST(Commands, UsbProductIdentifiersAreE001ToE004) {
  EXPECT_EQ(usbProductId(Model::kK7310), 0xE001);
  EXPECT_EQ(usbProductId(Model::kK7210), 0xE002);
  EXPECT_EQ(usbProductId(Model::kK7201), 0xE003);
  EXPECT_EQ(usbProductId(Model::kK7900), 0xE004);
}

TEST(Commands, ItemsOfOneStringComeInItsOrderJoinedByCommas) {
  Bench bench;
  EXPECT_EQ(bench.ask(kScopeQueries), "vda:44,vdb:43,vpa:22,vpb:5A,hdv:07,hpo:3E,trg:20,dfn:00,sts:00");
}

TEST(Commands, AQueryShowsWhatTheSettingsBeforeItMadeOfIt) {
  Bench bench;
  EXPECT_EQ(bench.ask("VDAup;VDA??;VDAup;VDA??"), "vda:45,vda:46");
  EXPECT_EQ(bench.ask("HPO80;HPO??"), "hpo:80");
}

TEST(Commands, TheFunctionTextIsKnownToTheK7900Alone) {
  Bench bench(Model::kK7900);
  EXPECT_EQ(bench.ask("AFN??"), "afn:DC VOLTAGE     ");
  EXPECT_EQ(bench.ask("DFN08;AFN??"), "afn:DWELL ANGLE    ");
  for (const Model model : {Model::kK7310, Model::kK7210, Model::kK7201}) {
    EXPECT_EQ(Bench(model).ask("AFN??"), kRefused);
  }
}

TEST(Commands, TheK7900NamesEachOfItsFunctionsIn15Characters) {
  Bench bench(Model::kK7900);
  const char* names[] = {"DC VOLTAGE",   "AC VOLTAGE",  "RESISTANCE", "CONTINUITY", "FREQUENCY",
                         "ENGINE SPEED", "PULSE WIDTH", "DUTY CYCLE", "DWELL ANGLE"};
  for (int function = 0; function < kFunctionCount; ++function) {
    std::string text = names[function];
    text.resize(15, ' ');
    EXPECT_EQ(bench.ask("DFN0" + std::to_string(function) + ";AFN??"), "afn:" + text);
  }
  EXPECT_EQ(bench.ask("DFN08;DFN??;DRM??"), "dfn:08,drm:  36.0deg ");
}

TEST(Commands, DwellIsAFunctionOfTheK7900Alone) {
  EXPECT_EQ(Bench(Model::kK7900).ask("DFN08;DFN??"), "dfn:08");
  EXPECT_EQ(Bench(Model::kK7310).ask("DFN08;DFN??"), kRefused);
  EXPECT_EQ(Bench(Model::kK7900).ask("DFN09"), kRefused);
}

TEST(Commands, LoggerModesBelongToTheK7310Alone) {
  EXPECT_EQ(Bench(Model::kK7310).ask("DFN53;DFN??"), "dfn:53");
  EXPECT_EQ(Bench(Model::kK7310).ask("DFN60"), kRefused);
  for (const Model model : {Model::kK7210, Model::kK7201, Model::kK7900}) {
    EXPECT_EQ(Bench(model).ask("DFN10"), kRefused);
  }
}

TEST(Commands, AMalformedStringIsRefusedWhole) {
  const std::string malformed[] = {"",
                                   ";",
                                   " ",
                                   "V",
                                   "VD",
                                   "VDA",
                                   "VDA?",
                                   "VDA???",
                                   "vda??",
                                   "VDA??;",
                                   ";VDA??",
                                   "VDA??;;VDB??",
                                   "VDA ??",
                                   " VDA??",
                                   "VDA?? ",
                                   "VDA??,VDB??",
                                   "VDAUP",
                                   "VDAxx",
                                   "VDAu",
                                   "VDAupp",
                                   "VDAp ",
                                   "VDA d",
                                   "VDAnr",
                                   "HDVac",
                                   "TRGup",
                                   "TRGl",
                                   "DHDat",
                                   "DHD??",
                                   "VPA",
                                   "VPA5",
                                   "VPA0a",
                                   "VPA100",
                                   "VPA-1",
                                   "VPA G",
                                   "HPO5;HPO??",
                                   "TLVG0",
                                   "DFN",
                                   "DFN1",
                                   "DFN0a",
                                   "DFN10;VPA5",
                                   "DPC",
                                   "DPC05",
                                   "DPC0A",
                                   "DPC3",
                                   "DPC??",
                                   "DRC00",
                                   "DRC02",
                                   "DRC??",
                                   "SMM02",
                                   "SMM1",
                                   "MEM10",
                                   "MEM",
                                   "MEM??",
                                   "MEM0",
                                   "MEM0a",
                                   "DRS",
                                   "DRSup",
                                   "SID",
                                   "SIDup",
                                   "STS01",
                                   "DRM",
                                   "DRP1",
                                   "DRT00",
                                   "TRD",
                                   "AFN",
                                   "GTL??",
                                   "GTL1",
                                   "XYZ??",
                                   "SCK",
                                   "SCK07-12-21",
                                   "SCK07-13-21 14:05:09",
                                   "SCK07-02-29 14:05:09",
                                   "SCK07-12-21 24:00:00",
                                   "SCK07-12-21T14:05:09",
                                   "SCK7-12-21 14:05:09 ",
                                   "DPS",
                                   "DPS,",
                                   "DPS2,1,0,9",
                                   "DPS0,0,0,9",
                                   "DPS0,1,9,0",
                                   "DPS0,1,0,10000",
                                   "DPS0,1,0",
                                   "DPS0,1,0,9,",
                                   "DPS0,1,0,9,9",
                                   "DPS0,x,0,9",
                                   std::string("VDA\xFF?"),
                                   std::string("\x80\x81\x82??"),
                                   std::string("VDA??\0", 6),
                                   std::string(1, '\xFF'),
                                   std::string(250, 'V'),
                                   "VPA\xB2\xB2",
                                   "\x06",
                                   "\x02VDA??\x03"};
  for (const std::string& text : malformed) {
    Bench bench;
    EXPECT_EQ(bench.ask(text), kRefused) << "'" << text << "'";
  }
}

TEST(Commands, NothingOfARefusedStringIsCarriedOut) {
  Bench bench;
  const std::string before = bench.ask(kScopeQueries + ";TLV??");
  EXPECT_EQ(bench.ask("VDAup;VPA10;TRGl-;HDVup;DFN13;DHDon;VDAxx"), kRefused);
  EXPECT_EQ(bench.ask(kScopeQueries + ";TLV??"), before);
}

TEST(Commands, AStringOf250CharactersIsTakenAndALongerOneRefused) {
  std::string text = "SCK07-12-21 14:05:09";
  while (text.size() < 242) text += ";VPA11";
  text += ";GTL;GTL";
  ASSERT_EQ(text.size(), 250U);
  EXPECT_EQ(Bench().ask(text), kAck);
  text.replace(text.size() - 3, 3, "VPA1");
  EXPECT_EQ(Bench().ask(text + "1"), kRefused);
}

TEST(Commands, RepliesThatWouldNotFitInOneFrameAreRefused) {
  std::string text = "SID??";
  for (int i = 1; i < 17; ++i) text += ";SID??";
  EXPECT_LE(Bench().ask(text).size(), 599U);
  EXPECT_NE(Bench().ask(text), kRefused);
  EXPECT_EQ(Bench().ask(text + ";SID??"), kRefused);
}

TEST(Commands, AFrameIsTheOnlyAndLastAnswerOfItsString) {
  EXPECT_EQ(Bench().ask("VDAup;HDVup;DRS??").substr(0, 4), "drs:");
  EXPECT_EQ(Bench().ask("DPC02;DPC03").substr(0, 4), "lgd:");
  for (const char* text : {"DRS??;STS??", "STS??;DRS??", "DRS??;DRS??", "DRS??;VDAup", "VDAup;MEM01",
                           "MEM01;VDAup", "MEM01;MEM02", "DPC03;STS??", "STS??;DPC03", "DPC03;DRS??"}) {
    EXPECT_EQ(Bench().ask(text), kRefused) << text;
  }
}

TEST(Commands, GtlReturnsToLocalControlAndAnyOtherCommandLeavesIt) {
  Bench bench;
  EXPECT_FALSE(bench.instrument.remote());
  bench.ask("STS??");
  EXPECT_TRUE(bench.instrument.remote());
  bench.ask("GTL");
  EXPECT_FALSE(bench.instrument.remote());
  bench.ask("nonsense");
  EXPECT_FALSE(bench.instrument.remote());
}

TEST(Commands, TheLogHoldsEveryStringAsItCame) {
  Bench bench;
  bench.ask("VDAup;VDA??");
  bench.ask("rubbish");
  EXPECT_EQ(bench.instrument.log(), (std::vector<std::string>{"VDAup;VDA??", "rubbish"}));
  bench.instrument.clearLog();
  EXPECT_TRUE(bench.instrument.log().empty());
  EXPECT_EQ(bench.instrument.commandCount(), 2U);
}

TEST(Commands, TheLogForgetsItsOlderHalfAtItsBound) {
  Bench bench;
  bench.instrument.setLogCapacity(4);
  for (const char* command : {"VPA00", "VPA01", "VPA02", "VPA03", "VPA04"}) bench.ask(command);
  EXPECT_EQ(bench.instrument.log(), (std::vector<std::string>{"VPA02", "VPA03", "VPA04"}));
  for (int i = 0; i < 1000; ++i) bench.ask("STS??");
  EXPECT_LE(bench.instrument.log().size(), 4U);
  EXPECT_EQ(bench.instrument.commandCount(), 1005U);
}

}  // namespace
}  // namespace vireon::simulator::tests
