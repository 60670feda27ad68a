#include <gtest/gtest.h>

#include "tests/simulator/cable.h"
#include "tests/simulator/line.h"

namespace vireon::simulator::tests {
namespace {

using End = UsbHost::End;

// Ten seconds of records, read out from their beginning.
struct RecordedCable : Cable {
  RecordedCable() {
    ask("DFN10;DPC04");
    clock.advance(10s);
    ask("DPC02");
  }
};

TEST(DumpFaults, ADumpThatNeverEndsGivesFullFramesInPlaceOfItsEndRecord) {
  RecordedCable cable;
  cable.endpoint.setFaults({.endlessDump = true});
  EXPECT_EQ(cable.exchange("DPC03"), End::kAnswered);
  EXPECT_EQ(cable.host.text().size(), 4U + 10 * 24);
  for (int i = 0; i < 100; ++i) {
    EXPECT_EQ(cable.exchange("DPC03"), End::kAnswered);
    EXPECT_EQ(cable.host.text().size(), 4U + 24 * 24);
    EXPECT_EQ(cable.host.text().find("--EOD"), std::string::npos);
  }
  EXPECT_EQ(cable.host.text().substr(4, 24), "00000 00:00:00   0.00V\x95 ");
}

TEST(DumpFaults, ADumpThatNeverEndsNeedsNoRecords) {
  Cable cable;
  cable.endpoint.setFaults({.endlessDump = true});
  EXPECT_EQ(cable.exchange("DPC03"), End::kAnswered);
  EXPECT_EQ(cable.host.text().size(), 4U + 24 * 24);
}

TEST(DumpFaults, ADumpMayListNoRecord) {
  RecordedCable cable;
  cable.endpoint.setFaults({.emptyDump = true});
  for (int i = 0; i < 5; ++i) {
    EXPECT_EQ(cable.exchange("DPC03"), End::kAnswered);
    EXPECT_EQ(cable.host.text(), "lgd:");
  }
}

TEST(DumpFaults, TouchNoOtherAnswer) {
  for (const char* command : {"STS??", "DRS??", "MEM01", "DPC02", "DPS??"}) {
    Cable plain;
    Cable spoilt;
    plain.exchange(command);
    spoilt.endpoint.setFaults({.emptyDump = true, .endlessDump = true});
    spoilt.exchange(command);
    EXPECT_EQ(spoilt.host.text(), plain.host.text()) << command;
  }
}

TEST(FaultsOnACommand, LeaveTheOthersAlone) {
  RecordedCable cable;
  cable.endpoint.setFaults({.onlyOn = "DPC03", .refuse = true});
  cable.exchange("DPC02");
  EXPECT_EQ(cable.host.text(), kAck);
  cable.exchange("DPC02;STS??");
  EXPECT_EQ(cable.host.text(), "sts:00");
  for (int i = 0; i < 3; ++i) {
    cable.exchange("DPC03");
    EXPECT_EQ(cable.host.text(), kRefused);
  }
}

TEST(FaultsOnACommand, TakeItByItsBeginning) {
  Line line;
  line.endpoint.setFaults({.onlyOn = "DRM??", .silence = true});
  EXPECT_EQ(line.exchange("DRM??;STS??"), "");
  EXPECT_EQ(line.exchange("STS??;DRM??"), framed("sts:00,drm:  4.80 V  "));
}

TEST(FaultsOnACommand, OnceWaitsForTheCommand) {
  Line line;
  line.endpoint.setFaults({.once = true, .onlyOn = "VDA", .refuse = true});
  EXPECT_EQ(line.exchange("STS??"), framed("sts:00"));
  EXPECT_EQ(line.exchange("VDA??"), framed(kRefused));
  EXPECT_EQ(line.exchange("VDA??"), framed("vda:44"));
}

TEST(FaultsOnACommand, OnceWaitsForTheCommandOnUsbToo) {
  Cable cable;
  cable.endpoint.setFaults({.once = true, .onlyOn = "VDA", .silence = true});
  EXPECT_EQ(cable.exchange("STS??"), End::kAnswered);
  EXPECT_EQ(cable.exchange("VDA??"), End::kTimedOut);
  EXPECT_EQ(cable.exchange("VDA??"), End::kAnswered);
}

TEST(FaultsOnACommand, MayLetSomeOfThemGoWell) {
  RecordedCable cable;
  cable.endpoint.setFaults({.onlyOn = "DPC03", .skip = 2, .unplugAtReport = 2});
  EXPECT_EQ(cable.exchange("DPC03"), End::kAnswered);
  EXPECT_EQ(cable.exchange("STS??"), End::kAnswered);
  EXPECT_EQ(cable.exchange("DPC03"), End::kAnswered);
  EXPECT_EQ(cable.exchange("DPC03"), End::kGone);
  EXPECT_EQ(cable.endpoint.exchangeReports(), 2U);
}

TEST(FaultsOnACommand, UnplugAtTheCommandBeforeItIsCarriedOut) {
  Cable cable;
  cable.endpoint.setFaults({.onlyOn = "VDA", .unplugAtReport = 1});
  EXPECT_EQ(cable.exchange("VDAup"), End::kGone);
  EXPECT_FALSE(cable.endpoint.plugged());
  EXPECT_EQ(cable.ask("VDA??"), "vda:44");
}

TEST(FaultsAfterSomeExchanges, LetTheFirstOnesGoWell) {
  Line line;
  line.endpoint.setFaults({.skip = 2, .refuse = true});
  EXPECT_EQ(line.exchange("VDA??"), framed("vda:44"));
  EXPECT_EQ(line.exchange("STS??"), framed("sts:00"));
  EXPECT_EQ(line.exchange("VDA??"), framed(kRefused));
  EXPECT_EQ(line.exchange("STS??"), framed(kRefused));
}

TEST(FaultsAfterSomeExchanges, CountAnewWhenTheyAreChosenAnew) {
  Line line;
  for (int i = 0; i < 2; ++i) {
    line.endpoint.setFaults({.skip = 1, .silence = true});
    EXPECT_EQ(line.exchange("VDA??"), framed("vda:44"));
    EXPECT_EQ(line.exchange("VDA??"), "");
  }
}

}  // namespace
}  // namespace vireon::simulator::tests
