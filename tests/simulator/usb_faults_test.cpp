#include <gtest/gtest.h>

#include "tests/simulator/cable.h"

namespace vireon::simulator::tests {
namespace {

using End = UsbHost::End;

TEST(UsbFaults, SilenceGivesNoAnswerThoughTheCommandWasCarriedOut) {
  Cable cable;
  cable.endpoint.setFaults({.silence = true});
  EXPECT_EQ(cable.exchange("VDAup;VDA??"), End::kTimedOut);
  EXPECT_EQ(cable.exchange("VDA??"), End::kTimedOut);
  cable.endpoint.setFaults({});
  EXPECT_EQ(cable.exchange("VDA??"), End::kAnswered);
  EXPECT_EQ(cable.host.text(), "vda:45");
}

TEST(UsbFaults, AFaultOnceIsGoneAfterOneExchange) {
  Cable cable;
  cable.endpoint.setFaults({.once = true, .silence = true});
  EXPECT_EQ(cable.exchange("VDA??"), End::kTimedOut);
  EXPECT_EQ(cable.exchange("VDA??"), End::kAnswered);
}

TEST(UsbFaults, RefusalIsAnsweredAndTheCommandNotCarriedOutButLogged) {
  Cable cable;
  cable.endpoint.setFaults({.once = true, .refuse = true});
  EXPECT_EQ(cable.exchange("VDAup;VDA??"), End::kAnswered);
  EXPECT_EQ(cable.host.text(), kRefused);
  cable.exchange("VDA??");
  EXPECT_EQ(cable.host.text(), "vda:44");
  EXPECT_EQ(cable.instrument.log().front(), "VDAup;VDA??");
}

TEST(UsbFaults, AnAnswerLaterThanTheTimeoutTimesThatReadOutAndComesAfterwards) {
  Cable cable;
  cable.endpoint.setFaults({.once = true, .lateBy = 7s});
  EXPECT_EQ(cable.exchange("HPO??"), End::kTimedOut);
  EXPECT_EQ(cable.endpoint.read(cable.report, 500ms).outcome, ReadResult::kTimedOut);
  EXPECT_EQ(cable.endpoint.read(cable.report, 6000ms).outcome, ReadResult::kReport);
  EXPECT_EQ(cable.clock.now(), 17s);
}

TEST(UsbFaults, AnAnswerLateWithinTheTimeoutArrives) {
  Cable cable;
  cable.endpoint.setFaults({.lateBy = 100ms});
  EXPECT_EQ(cable.exchange("DRS??"), End::kAnswered);
  EXPECT_EQ(cable.clock.now(), 10s + 500ms);
}

TEST(UsbFaults, ALateReportIsForgottenWhenTheHostDrains) {
  Cable cable;
  cable.endpoint.setFaults({.once = true, .lateBy = 7s});
  cable.exchange("HPO??");
  cable.clock.advance(10s);
  cable.endpoint.discardInput();
  EXPECT_EQ(cable.exchange("VDA??"), End::kAnswered);
  EXPECT_EQ(cable.host.text(), "vda:44");
}

TEST(UsbFaults, AnAnswerCutAfterAnyNumberOfBytesNeverEnds) {
  for (std::size_t bytes = 0; bytes < 290; ++bytes) {
    Cable cable;
    cable.exchange("STS??");
    cable.endpoint.setFaults({.cutAfterBytes = bytes});
    ASSERT_EQ(cable.exchange("DRS??"), End::kTimedOut) << bytes;
    ASSERT_EQ(cable.host.received.size(), (bytes + 63) / 64 * 64) << bytes;
    ASSERT_EQ(cable.host.received.find('\x03'), std::string::npos) << bytes;
  }
}

TEST(UsbFaults, AnAnswerCutAfterAnyReportStopsThere) {
  for (std::size_t reports = 0; reports < 5; ++reports) {
    Cable cable;
    cable.endpoint.setFaults({.cutAfterReports = reports});
    EXPECT_EQ(cable.exchange("DRS??"), End::kTimedOut);
    EXPECT_EQ(cable.host.reports, static_cast<int>(reports));
  }
}

TEST(UsbFaults, GarbageOfAnyLengthHasItsEndMarkLastOrNone) {
  for (const std::size_t length : {1U, 63U, 64U, 65U, 300U, 600U}) {
    Cable cable;
    cable.endpoint.setFaults({.garbage = Garbage{.seed = 5, .length = length}});
    EXPECT_EQ(cable.exchange("DRS??"), End::kAnswered);
    EXPECT_EQ(cable.host.received.size(), length);
    const std::string first = cable.host.received;
    cable.exchange("DRS??");
    EXPECT_EQ(cable.host.received, first);
    cable.endpoint.setFaults({.garbage = Garbage{.seed = 6, .length = length, .ends = false}});
    EXPECT_NE(cable.exchange("DRS??"), End::kAnswered);
    EXPECT_EQ(cable.host.received.find('\x03'), std::string::npos);
  }
}

TEST(UsbFaults, GarbageMayBeLongerThanAHostCanTake) {
  Cable cable;
  cable.endpoint.setFaults({.garbage = Garbage{.length = 2000}});
  EXPECT_EQ(cable.exchange("DRS??"), End::kOverflow);
}

TEST(UsbFaults, ADroppedReportIsMissingFromTheAnswer) {
  Cable cable;
  const std::string whole = "\x02" + cable.ask("DRS??") + "\x03";
  for (std::size_t number = 1; number <= 4; ++number) {
    cable.endpoint.setFaults({.dropReport = number});
    EXPECT_EQ(cable.exchange("DRS??"), End::kAnswered);
    EXPECT_EQ(cable.host.received, std::string(whole).erase(64 * (number - 1), 64));
  }
  cable.endpoint.setFaults({.dropReport = 5});
  EXPECT_EQ(cable.exchange("DRS??"), End::kTimedOut);
}

TEST(UsbFaults, ADoubledReportComesTwiceInARow) {
  Cable cable;
  const std::string whole = "\x02" + cable.ask("DRS??") + "\x03";
  for (std::size_t number = 1; number <= 4; ++number) {
    cable.endpoint.discardInput();
    cable.endpoint.setFaults({.doubleReport = number});
    EXPECT_EQ(cable.exchange("DRS??"), End::kAnswered);
    const std::size_t first = 64 * (number - 1);
    EXPECT_EQ(cable.host.received, std::string(whole).insert(first, whole.substr(first, 64)));
  }
}

TEST(UsbFaults, ASwappedReportChangesPlacesWithTheNext) {
  Cable cable;
  const std::string whole = "\x02" + cable.ask("DRS??") + "\x03";
  for (std::size_t number = 1; number <= 3; ++number) {
    cable.endpoint.setFaults({.swapReport = number});
    EXPECT_EQ(cable.exchange("DRS??"), End::kAnswered);
    const std::size_t first = 64 * (number - 1);
    std::string expected = whole;
    expected.replace(first, 128, whole.substr(first + 64, 64) + whole.substr(first, 64));
    EXPECT_EQ(cable.host.received, expected);
  }
}

TEST(UsbFaults, AShortenedReportTellsItsLength) {
  Cable cable;
  cable.endpoint.setFaults({.shortReport = ShortReport{.report = 1, .length = 10}});
  cable.host.send("DRS??");
  const auto result = cable.endpoint.read(cable.report, 1ms);
  EXPECT_EQ(result.outcome, ReadResult::kReport);
  EXPECT_EQ(result.length, 10U);
}

TEST(UsbFaults, TheDeviceCanGoAtEveryReportOfAnExchangeAndComesBackWhole) {
  for (std::size_t number = 1; number <= 10; ++number) {
    Cable cable;
    cable.endpoint.setFaults({.once = true, .unplugAtReport = number});
    EXPECT_EQ(cable.exchange("DRS??"), End::kGone) << number;
    EXPECT_EQ(cable.endpoint.exchangeReports(), number);
    EXPECT_FALSE(cable.endpoint.plugged());
    cable.endpoint.plug();
    EXPECT_EQ(cable.exchange("DRS??"), End::kAnswered) << number;
    EXPECT_EQ(cable.host.text(), cable.ask("DRS??"));
  }
}

TEST(UsbFaults, ARepeatedUnplugGoesAgainAfterPluggingIn) {
  Cable cable;
  cable.endpoint.setFaults({.unplugAtReport = 2});
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(cable.exchange("STS??"), End::kGone);
    cable.endpoint.plug();
  }
}

TEST(UsbFaults, AnUnplugBeyondTheExchangeDoesNothing) {
  Cable cable;
  cable.endpoint.setFaults({.unplugAtReport = 3});
  EXPECT_EQ(cable.exchange("STS??"), End::kAnswered);
  EXPECT_TRUE(cable.endpoint.plugged());
}

}  // namespace
}  // namespace vireon::simulator::tests
