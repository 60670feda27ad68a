#include <gtest/gtest.h>

#include "tests/link/serial_fixture.h"

namespace vireon::link {
namespace {

using tests::onLine;
using Texts = std::vector<std::string>;

// Commands that are given, and bytes that arrive, while others are under way.
class SerialParking : public tests::SerialFixture {
 protected:
  void SetUp() override { openPort(); }

  void parkTwo() {
    whileWaiting([this] {
      connection.transKcmd("VDAup");
      connection.transKcmd("VDBup");
    });
  }
};

TEST_F(SerialParking, OfTwoCommandsGivenInAWaitTheSecondIsSentAfterTheFirstAnswer) {
  parkTwo();
  std::string command = "DFN??";
  connection.serial().trans_rs2(command);
  EXPECT_EQ(serialPort.commands, (Texts{"DFN??", "VDBup"}));
  EXPECT_EQ(command, "VDBup");
  EXPECT_FALSE(link.cmdPending);
  EXPECT_FALSE(link.linkBusy);
  EXPECT_TRUE(link.rxDone);
  EXPECT_EQ(beeper.beeps, 2);
}

TEST_F(SerialParking, ACommandGivenInTheWaitOfAParkedOneFollowsThat) {
  whileWaiting([this] { connection.transKcmd("VDAup"); });
  whileWaiting([this] { serialPort.deliver(); });
  whileWaiting([this] { connection.transKcmd("VDBup"); });
  send("DFN??");
  EXPECT_EQ(serialPort.commands, (Texts{"DFN??", "VDAup", "VDBup"}));
}

TEST_F(SerialParking, ACommandSentDirectlyInAWaitIsParkedToo) {
  whileWaiting([this] {
    EXPECT_TRUE(connection.trans_usb("VDAup"));
    EXPECT_EQ(serialPort.commands, Texts{"DFN??"});
    EXPECT_TRUE(link.cmdPending);
  });
  send("DFN??");
  EXPECT_EQ(serialPort.commands, (Texts{"DFN??", "VDAup"}));
}

TEST_F(SerialParking, AfterARefusalTheParkedCommandIsSent) {
  answer({onLine("\5")});
  parkTwo();
  send("DFN??");
  EXPECT_EQ(serialPort.commands, (Texts{"DFN??", "VDBup"}));
}

TEST_F(SerialParking, AfterATimeOutTheParkedCommandIsDroppedForGood) {
  silence();
  parkTwo();
  send("DFN??");
  EXPECT_EQ(serialPort.commands, Texts{"DFN??"});
  EXPECT_FALSE(link.cmdPending);
  expectOneTimeOutMessage();

  openPort();
  expectExchangeWorks();
}

TEST_F(SerialParking, AParkedCommandThatIsNotAnsweredIsOneMessage) {
  serialPort.instrument = [](int, int, const std::string& command) {
    return command == "DFN??" ? Texts{onLine("\6")} : Texts{};
  };
  parkTwo();
  send("DFN??");
  EXPECT_EQ(serialPort.commands, (Texts{"DFN??", "VDBup"}));
  expectOneTimeOutMessage();
  expectDisconnectedAndClosed();
}

TEST_F(SerialParking, DuringASearchAParkedCommandIsSentAfterATimeOut) {
  silence();
  link.portSearch = true;
  parkTwo();
  send("SIM??");
  EXPECT_EQ(serialPort.commands, (Texts{"SIM??", "VDBup"}));
  EXPECT_FALSE(link.cmdPending);
  EXPECT_EQ(messages.count(), 0U);
  EXPECT_TRUE(serialPort.isOpen());
}

TEST_F(SerialParking, AnEndedWaitDropsTheParkedCommandWithoutAMessage) {
  parkTwo();
  whileWaiting([this] { connection.endWait(); });
  send("DFN??");
  EXPECT_EQ(serialPort.commands, Texts{"DFN??"});
  EXPECT_TRUE(link.rxTimeout);
  EXPECT_FALSE(link.cmdPending);
  EXPECT_FALSE(link.linkBusy);
  EXPECT_EQ(messages.count(), 0U);
  EXPECT_EQ(form.Txled[0].fillColor(), form::kWhite);
}

TEST_F(SerialParking, BytesThatArriveWhileTheHandlerPumpsBelongToTheSameAnswer) {
  answer({"\2dfn"});
  pump.atPump.push_back([this] { serialPort.receive(":0"); });
  pump.atPump.push_back([this] { serialPort.receive("0\3"); });
  send("DFN??");
  EXPECT_EQ(frames, Texts{"dfn:00"});
  EXPECT_EQ(pump.timeOuts, 0U);
}

TEST_F(SerialParking, ATimeOutThatPassesWhileTheHandlerPumpsEndsTheExchange) {
  answer({onLine("dfn:00")});
  pump.atPump.push_back([this] { form.tmrCom.tick(); });
  send("DFN??");
  EXPECT_TRUE(link.rxTimeout);
  EXPECT_TRUE(frames.empty());
  expectOneTimeOutMessage();
}

TEST_F(SerialParking, ACommandGivenWhileTheHandlerPumpsIsParked) {
  answer({onLine("dfn:00")});
  pump.atPump.push_back([this] { connection.transKcmd("VDAup"); });
  send("DFN??");
  EXPECT_EQ(serialPort.commands, (Texts{"DFN??", "VDAup"}));
  EXPECT_EQ(frames, (Texts{"dfn:00", "dfn:00"}));
}

TEST_F(SerialParking, AnAnswerWithoutAQuestionIsHandedOver) {
  serialPort.receive(onLine("vda:03"));
  EXPECT_EQ(frames, Texts{"vda:03"});
  EXPECT_EQ(form.Txled[1].fillColor(), form::kWhite);
  expectExchangeWorks();
}

TEST_F(SerialParking, HalfAnAnswerWithoutAQuestionDoesNotSpoilTheNextExchange) {
  serialPort.receive("\2vda");
  EXPECT_TRUE(frames.empty());
  expectExchangeWorks();
}

TEST_F(SerialParking, ACommandGivenWhileBytesWithoutAQuestionAreTakenIsAnswered) {
  answer({onLine("dfn:00")});
  pump.atPump.push_back([this] { connection.transKcmd("DFN??"); });
  serialPort.receive("x");
  EXPECT_EQ(serialPort.commands, Texts{"DFN??"});
  EXPECT_EQ(frames, Texts{"dfn:00"});
  EXPECT_EQ(messages.count(), 0U);
}

TEST_F(SerialParking, AnAnswerThatComesAfterItsTimeOutIsNotTakenForTheNextOne) {
  connectSerial();
  silence();
  send("DFN??");
  serialPort.send(onLine("vda:03"));
  ASSERT_EQ(messages.count(), 1U);
  expectReconnects();
}

TEST_F(SerialParking, EventsOtherThanArrivalsAreIgnored) {
  connection.serial().Mcom_OnComm();
  EXPECT_EQ(pump.pumps, 0U);
  EXPECT_EQ(form.Txled[1].fillColor(), form::kWhite);
}

}  // namespace
}  // namespace vireon::link
