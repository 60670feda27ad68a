#include "simulator/usb_endpoint.h"

#include <gtest/gtest.h>

#include "tests/simulator/cable.h"

namespace vireon::simulator::tests {
namespace {

TEST(UsbEndpoint, AnswersACommandWithStartMarkTextAndEndMark) {
  Cable cable;
  EXPECT_EQ(cable.exchange("VDA??"), UsbHost::End::kAnswered);
  EXPECT_EQ(cable.host.received, "\x02vda:44\x03");
  EXPECT_EQ(cable.host.reports, 1);
}

TEST(UsbEndpoint, ControlAnswersAreOneByteBetweenTheMarks) {
  Cable cable;
  cable.exchange("VDAup");
  EXPECT_EQ(cable.host.received, "\x02\x06\x03");
  cable.exchange("VDAxx");
  EXPECT_EQ(cable.host.received, "\x02\x05\x03");
}

TEST(UsbEndpoint, ACommandOf63CharactersHasItsEndMarkAloneInASecondReport) {
  Cable cable;
  const std::string command = "SCK07-12-21 14:05:09;DPS0,00001,00000,9;VPA11;VPA11;VPB22;TRGsa";
  ASSERT_EQ(command.size(), 63U);
  EXPECT_EQ(cable.exchange(command), UsbHost::End::kAnswered);
  EXPECT_EQ(cable.host.sentReports, 2);
  EXPECT_EQ(cable.host.text(), kAck);
  EXPECT_EQ(cable.instrument.log().back(), command);
}

TEST(UsbEndpoint, AWaveformComesInFiveReportsOfWhichEachButTheFirstIsAskedFor) {
  Cable cable;
  EXPECT_EQ(cable.exchange("DRS??"), UsbHost::End::kAnswered);
  EXPECT_EQ(cable.host.received.size(), 290U);
  EXPECT_EQ(cable.host.reports, 5);
  EXPECT_EQ(cable.endpoint.exchangeReports(), 10U);
  EXPECT_EQ(cable.host.text(), cable.ask("DRS??"));
}

TEST(UsbEndpoint, NothingMoreComesUntilItIsAskedFor) {
  Cable cable;
  cable.host.send("DRS??");
  EXPECT_EQ(cable.endpoint.read(cable.report, 10ms).outcome, ReadResult::kReport);
  EXPECT_EQ(cable.endpoint.read(cable.report, 10ms).outcome, ReadResult::kTimedOut);
}

TEST(UsbEndpoint, ARequestAfterTheLastReportGivesNothing) {
  Cable cable;
  cable.exchange("VDA??");
  cable.report[0] = 4;
  EXPECT_TRUE(cable.endpoint.write(cable.report));
  EXPECT_EQ(cable.endpoint.read(cable.report, 10ms).outcome, ReadResult::kTimedOut);
}

TEST(UsbEndpoint, ANewCommandDropsTheRestOfAnEarlierAnswer) {
  Cable cable;
  cable.host.send("DRS??");
  cable.endpoint.discardInput();
  EXPECT_EQ(cable.exchange("HPO??"), UsbHost::End::kAnswered);
  EXPECT_EQ(cable.host.text(), "hpo:3E");
  cable.report[0] = 4;
  cable.endpoint.write(cable.report);
  EXPECT_EQ(cable.endpoint.read(cable.report, 10ms).outcome, ReadResult::kTimedOut);
}

TEST(UsbEndpoint, BytesBehindTheEndMarkAreFiller) {
  Cable cable;
  cable.exchange("VDA??;VDB??;VPA??;VPB??");
  cable.exchange("HPO??");
  EXPECT_EQ(cable.host.text(), "hpo:3E");
  EXPECT_EQ(cable.instrument.log().back(), "HPO??");
}

TEST(UsbEndpoint, ANewCommandInPartAlreadyDropsTheEarlierAnswer) {
  Cable cable;
  cable.host.send("DRS??");
  cable.endpoint.discardInput();
  cable.report = {2, 'V', 'D', 'A'};
  cable.endpoint.write(cable.report);
  cable.report[0] = 4;
  cable.endpoint.write(cable.report);
  EXPECT_EQ(cable.endpoint.read(cable.report, 10ms).outcome, ReadResult::kTimedOut);
}

TEST(UsbEndpoint, BehindTheEndMarkOfAnAnswerStandsWhatTheReportBeforeLeftThere) {
  Cable cable;
  cable.exchange("VDA??;VDB??");
  cable.host.send("VDA??");
  cable.endpoint.read(cable.report, 10ms);
  const std::string bytes(cable.report.begin(), cable.report.begin() + 15);
  EXPECT_EQ(bytes, "\x02vda:44\x03vdb:43\x03");
}

TEST(UsbEndpoint, TheDormantPrefixIsSkipped) {
  Cable cable;
  cable.host.send("HPO??", true);
  cable.endpoint.read(cable.report, 10ms);
  EXPECT_EQ(cable.instrument.log().back(), "HPO??");
}

TEST(UsbEndpoint, AReportThatBelongsToNoCommandIsIgnored) {
  Cable cable;
  cable.report.fill('V');
  cable.report[10] = 2;
  cable.report[20] = 3;
  EXPECT_TRUE(cable.endpoint.write(cable.report));
  EXPECT_TRUE(cable.instrument.log().empty());
}

TEST(UsbEndpoint, AnOverlongCommandIsRefused) {
  Cable cable;
  EXPECT_EQ(cable.exchange(std::string(5000, 'V')), UsbHost::End::kAnswered);
  EXPECT_EQ(cable.host.text(), kRefused);
}

TEST(UsbEndpoint, ACommandWithoutEndMarkIsNeverAnswered) {
  Cable cable;
  cable.report.fill('V');
  cable.report[0] = 2;
  cable.endpoint.write(cable.report);
  EXPECT_EQ(cable.endpoint.read(cable.report, 6000ms).outcome, ReadResult::kTimedOut);
  EXPECT_EQ(cable.exchange("HPO??"), UsbHost::End::kAnswered);
}

TEST(UsbEndpoint, AReportOfAnotherSizeIsNotTaken) {
  Cable cable;
  const std::array<std::uint8_t, 65> tooLong{2, 'G', 'T', 'L', 3};
  EXPECT_FALSE(cable.endpoint.write(tooLong));
  EXPECT_FALSE(cable.endpoint.write(std::span(tooLong).first(63)));
  EXPECT_TRUE(cable.instrument.log().empty());
}

TEST(UsbEndpoint, AReadThatGetsNothingTakesItsWholeTimeout) {
  Cable cable;
  const auto before = cable.clock.now();
  EXPECT_EQ(cable.endpoint.read(cable.report, 6000ms).outcome, ReadResult::kTimedOut);
  EXPECT_EQ(cable.clock.now() - before, 6000ms);
}

TEST(UsbEndpoint, AReportThatIsThereTakesNoTime) {
  Cable cable;
  const auto before = cable.clock.now();
  cable.exchange("DRS??");
  EXPECT_EQ(cable.clock.now(), before);
}

TEST(UsbEndpoint, TheSystemKeepsTheOldest63UnreadReports) {
  Cable cable;
  for (int i = 0; i < 70; ++i) cable.host.send(i == 0 ? "HPO11;HPO??" : "HPO22;HPO??");
  int reports = 0;
  while (cable.endpoint.read(cable.report, 0ms).outcome == ReadResult::kReport) {
    if (reports == 0) {
      EXPECT_EQ(cable.report[5], '1');
    }
    ++reports;
  }
  EXPECT_EQ(reports, 63);
}

TEST(UsbEndpoint, AfterUnpluggingEveryCallSaysGoneAtOnce) {
  Cable cable;
  cable.host.send("DRS??");
  cable.endpoint.unplug();
  const auto before = cable.clock.now();
  EXPECT_FALSE(cable.endpoint.plugged());
  EXPECT_FALSE(cable.endpoint.write(cable.report));
  EXPECT_EQ(cable.endpoint.read(cable.report, 6000ms).outcome, ReadResult::kGone);
  EXPECT_EQ(cable.clock.now(), before);
}

TEST(UsbEndpoint, PluggedInAgainItWorksWithTheSameSettingsAndWithoutOldReports) {
  Cable cable;
  cable.exchange("VDAup");
  cable.host.send("DRS??");
  cable.endpoint.unplug();
  cable.endpoint.plug();
  EXPECT_EQ(cable.endpoint.read(cable.report, 1ms).outcome, ReadResult::kTimedOut);
  EXPECT_EQ(cable.exchange("VDA??"), UsbHost::End::kAnswered);
  EXPECT_EQ(cable.host.text(), "vda:45");
}

}  // namespace
}  // namespace vireon::simulator::tests
