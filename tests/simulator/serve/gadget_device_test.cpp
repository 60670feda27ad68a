#include "simulator/serve/gadget_device.h"

#include <gtest/gtest.h>
#include <poll.h>

#include <csignal>
#include <fstream>

#include "simulator/usage_error.h"
#include "tests/fakes/temporary_folder.h"
#include "tests/simulator/bench.h"
#include "tests/simulator/serve/gadget_node.h"

namespace vireon::simulator::tests {
namespace {

const std::string kRequest = "\x04" + std::string(63, '\x03');

class Gadget : public testing::Test, protected Bench {
 protected:
  Gadget() {
    std::signal(SIGPIPE, SIG_IGN);
    std::ofstream(udcPath) << "controller.0\n";
    device.emplace(
        endpoint, clock, "node", [this] { return node.open(); }, UdcFile(udcPath));
  }

  std::string udc() const {
    std::string text;
    std::getline(std::ifstream(udcPath), text);
    return text;
  }

  // The text of the answer to a command, as far as it comes.
  std::string exchange(std::string_view command) {
    if (!node.put("\x02" + std::string(command) + "\x03")) return "not taken";
    std::string answer;
    for (;;) {
      device->serve();
      const auto report = node.fetch();
      if (!report) return answer;
      answer += *report;
      const std::size_t end = answer.find('\x03');
      if (end != std::string::npos) return answer.substr(1, end - 1);
      node.put(kRequest);
    }
  }

  vireon::tests::TemporaryFolder folder;
  std::filesystem::path udcPath = folder / "UDC";
  GadgetNode node;
  UsbEndpoint endpoint{instrument, clock};
  std::optional<GadgetDevice> device;
};

TEST_F(Gadget, AnswersInOneReportOrInSeveralOnRequest) {
  EXPECT_EQ(exchange("SIM??"), "sim:K7310 ");
  EXPECT_EQ(exchange("DRS??").size(), 288U);
}

TEST_F(Gadget, ACommandOfSeveralReportsIsOneCommand) {
  std::string command = "VDA??";
  while (command.size() < 100) command += ";VDA??";
  ASSERT_TRUE(node.put("\x02" + command.substr(0, 63)));
  ASSERT_TRUE(node.put(command.substr(63) + "\x03"));
  device->serve();
  ASSERT_EQ(instrument.commandCount(), 1U);
  EXPECT_EQ(instrument.log().back(), command);
  EXPECT_EQ(node.fetch()->substr(0, 8), "\x02vda:44,");
}

TEST_F(Gadget, AReportOfAnotherLengthIsPassedOver) {
  ASSERT_TRUE(node.putShort("\x02SIM??\x03"));
  device->serve();
  EXPECT_EQ(instrument.commandCount(), 0U);
  EXPECT_EQ(exchange("SIM??"), "sim:K7310 ");
}

TEST_F(Gadget, WaitsForReportsAloneWhileNothingIsDue) {
  const Wake wake = device->wake();
  EXPECT_GE(wake.descriptor, 0);
  EXPECT_EQ(wake.events, POLLIN);
  EXPECT_FALSE(wake.at);
}

TEST_F(Gadget, ALateAnswerIsWaitedForAndComesWhenItIsDue) {
  device->setFaults({.lateBy = 300ms});
  EXPECT_EQ(exchange("SIM??"), "");
  EXPECT_EQ(device->wake().at, clock.now() + 300ms);
  EXPECT_EQ(device->wake().events, POLLIN);
  clock.advance(300ms);
  EXPECT_EQ(device->wake().events, POLLIN | POLLOUT);
  device->serve();
  EXPECT_TRUE(node.fetch());
}

TEST_F(Gadget, AShortReportIsSentShort) {
  device->setFaults({.shortReport = ShortReport{1, 5}});
  node.put("\x02SIM??\x03");
  device->serve();
  EXPECT_EQ(node.fetch(), "\x02sim:");
}

TEST_F(Gadget, WhileItStallsTheHostsReportsStayWhereTheyAre) {
  device->setFaults({.stall = true});
  EXPECT_EQ(exchange("SIM??"), "");
  EXPECT_EQ(instrument.commandCount(), 0U);
  EXPECT_EQ(device->wake().descriptor, -1);
  device->setFaults({});
  device->serve();
  EXPECT_EQ(instrument.commandCount(), 1U);
}

TEST_F(Gadget, ReportsThatTheHostDoesNotFetchForASecondAreLost) {
  device->setFaults({.doubleReport = 1});
  int unanswered = 0;
  while (!endpoint.nextDue() && unanswered < 1000) {
    node.put("\x02SIM??\x03");
    device->serve();
    ++unanswered;
  }
  ASSERT_LT(unanswered, 1000);
  EXPECT_EQ(device->wake().at, clock.now() + 1s);
  clock.advance(999ms);
  device->serve();
  EXPECT_TRUE(endpoint.nextDue());
  clock.advance(1ms);
  device->serve();
  EXPECT_FALSE(endpoint.nextDue());
  EXPECT_TRUE(device->plugged());
}

TEST_F(Gadget, AHostThatGoesAndComesBackFindsNothingOfTheOldExchange) {
  device->setFaults({.lateBy = 300ms});
  EXPECT_EQ(exchange("SIM??"), "");
  node.put("\x02VDA");
  device->serve();
  device->setFaults({});
  node.detach();
  device->serve();
  EXPECT_EQ(device->wake().descriptor, -1);
  EXPECT_EQ(device->wake().at, clock.now() + GadgetDevice::kRetryAfter);
  clock.advance(1s);
  device->serve();
  EXPECT_FALSE(node.fetch());
  node.put("??\x03");
  device->serve();
  EXPECT_EQ(instrument.commandCount(), 1U);
  EXPECT_EQ(exchange("SIM??"), "sim:K7310 ");
}

TEST_F(Gadget, ANodeThatIsGoneIsTriedAgainAndNoMoreOftenThanItsTime) {
  node.detach();
  node.present = false;
  device->serve();
  ASSERT_EQ(node.openings, 1);
  for (int i = 0; i < 5; ++i) device->serve();
  EXPECT_EQ(node.openings, 1);
  clock.advance(GadgetDevice::kRetryAfter);
  for (int i = 0; i < 5; ++i) device->serve();
  EXPECT_EQ(node.openings, 2);
  node.present = true;
  clock.advance(GadgetDevice::kRetryAfter);
  device->serve();
  EXPECT_EQ(exchange("SIM??"), "sim:K7310 ");
}

TEST_F(Gadget, ANodeThatCannotBeOpenedAtTheStartIsAnError) {
  EXPECT_THROW(GadgetDevice(
                   endpoint, clock, "node", [] { return adapters::FileDescriptor(); }, std::nullopt),
               std::runtime_error);
}

TEST_F(Gadget, UnpluggingClosesTheNodeAndEmptiesTheUdcFile) {
  device->unplug();
  EXPECT_FALSE(device->plugged());
  EXPECT_EQ(udc(), "");
  EXPECT_FALSE(node.put("x"));
  EXPECT_EQ(device->wake().descriptor, -1);
  EXPECT_FALSE(device->wake().at);
  device->plug();
  EXPECT_EQ(udc(), "controller.0");
  device->serve();
  EXPECT_EQ(exchange("SIM??"), "sim:K7310 ");
}

TEST_F(Gadget, TheDeviceGoesAtEveryReportOfAnExchangeAndComesBackByPlugging) {
  for (std::size_t report = 1; report <= 10; ++report) {
    device->setFaults({.once = true, .unplugAtReport = report});
    exchange("DRS??");
    EXPECT_FALSE(device->plugged()) << report;
    EXPECT_EQ(udc(), "") << report;
    device->plug();
    device->serve();
    EXPECT_EQ(exchange("DRS??").size(), 288U) << report;
  }
}

TEST_F(Gadget, WithoutAUdcFileNothingCanBeUnplugged) {
  GadgetDevice fixed(
      endpoint, clock, "node", [this] { return node.open(); }, std::nullopt);
  EXPECT_THROW(fixed.unplug(), UsageError);
  EXPECT_THROW(fixed.setFaults({.unplugAtReport = 1}), UsageError);
  EXPECT_TRUE(fixed.plugged());
}

TEST_F(Gadget, AnEmptyUdcFileIsAnError) {
  std::ofstream(folder / "empty") << "\n";
  EXPECT_THROW(UdcFile(folder / "empty"), std::runtime_error);
  EXPECT_THROW(UdcFile(folder / "missing"), std::runtime_error);
}

}  // namespace
}  // namespace vireon::simulator::tests
