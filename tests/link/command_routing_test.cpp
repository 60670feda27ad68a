#include <gtest/gtest.h>

#include "tests/link/connection_fixture.h"

namespace vireon::link {
namespace {

using Texts = std::vector<std::string>;

class CommandRouting : public tests::ConnectionFixture {
 protected:
  void useSerial(const char* port) {
    link.comPort = port;
    link.baudRate = "9600";
    if (!link.onUsb()) {
      connection.serial().com_open();
    }
    serialPort.commands.clear();
  }
};

TEST_F(CommandRouting, ACommandBeepsOnceAndGoesOverUsb) {
  EXPECT_TRUE(connection.transKcmd("VDAup;VDA??"));
  EXPECT_EQ(beeper.beeps, 1);
  EXPECT_EQ(hid.commands, Texts{"VDAup;VDA??"});
  EXPECT_FALSE(link.cmdPending);
}

TEST_F(CommandRouting, TheBeepComesBeforeTheCommand) {
  hid.instrument = [this](const std::string&) {
    EXPECT_EQ(beeper.beeps, 1);
    return tests::framed("\6");
  };
  connection.transKcmd("VDAup;VDA??");
}

TEST_F(CommandRouting, AFailureOfTheLinkIsTold) {
  hid.nodes.clear();
  EXPECT_FALSE(connection.transKcmd("VDAup;VDA??"));
  EXPECT_EQ(beeper.beeps, 1);
  EXPECT_EQ(messages.count(), 1U);
}

TEST_F(CommandRouting, ACommandGivenDuringASerialExchangeIsParked) {
  useSerial("1");
  link.linkBusy = true;
  EXPECT_TRUE(connection.transKcmd("VDAup;VDA??"));
  EXPECT_TRUE(serialPort.commands.empty());
  EXPECT_TRUE(link.cmdPending);
  EXPECT_EQ(link.pendingCmd, "VDAup;VDA??");
  EXPECT_EQ(beeper.beeps, 1);
}

TEST_F(CommandRouting, OfSeveralParkedCommandsTheLatestIsKept) {
  useSerial("1");
  link.linkBusy = true;
  connection.transKcmd("VDAup;VDA??");
  connection.transKcmd("VDBdn;VDB??");
  EXPECT_EQ(link.pendingCmd, "VDBdn;VDB??");
  EXPECT_TRUE(link.cmdPending);
  EXPECT_EQ(beeper.beeps, 2);
}

TEST_F(CommandRouting, EveryPortButZeroIsSerial) {
  for (const char* port : {"1", "2", "3", "4"}) {
    useSerial(port);
    EXPECT_TRUE(connection.transKcmd("HDVup;HDV??"));
    EXPECT_TRUE(connection.trans_usb("DFN??"));
    EXPECT_EQ(serialPort.commands, (Texts{"HDVup;HDV??", "DFN??"})) << port;
  }
  EXPECT_EQ(hid.opens, 0U);
}

TEST_F(CommandRouting, PortZeroIsUsb) {
  useSerial("0");
  connection.trans_usb("DFN??");
  EXPECT_TRUE(serialPort.commands.empty());
  EXPECT_EQ(hid.commands, Texts{"DFN??"});
}

TEST_F(CommandRouting, AFailureOfTheSerialLinkIsTold) {
  useSerial("2");
  serialPort.instrument = [](int, int, const std::string&) { return Texts{}; };
  EXPECT_FALSE(connection.transKcmd("DFN??"));
  EXPECT_EQ(messages.count(), 1U);
}

TEST_F(CommandRouting, OverASerialPortThatIsNotOpenNothingIsSentAndNothingIsSaid) {
  link.comPort = "1";
  EXPECT_FALSE(connection.trans_usb("DFN??"));
  EXPECT_TRUE(link.rxTimeout);
  EXPECT_FALSE(link.linkBusy);
  EXPECT_TRUE(serialPort.written.empty());
  EXPECT_EQ(messages.count(), 0U);
  EXPECT_EQ(hid.opens, 0U);
}

TEST_F(CommandRouting, AUsbOnlyCommandGoesOverUsbWithoutASound) {
  EXPECT_TRUE(connection.transUsbOnly("DRGup;DRG??"));
  EXPECT_EQ(hid.commands, Texts{"DRGup;DRG??"});
  EXPECT_EQ(beeper.beeps, 0);
  EXPECT_EQ(form.StatusBar1.panel(1), "");
}

TEST_F(CommandRouting, AUsbOnlyCommandOnASerialLinkSendsNothingAndPanelOneTells) {
  useSerial("1");
  form.StatusBar1.setPanel(2, "COM1:9600");
  EXPECT_TRUE(connection.transUsbOnly("DRGup;DRG??"));
  EXPECT_TRUE(serialPort.commands.empty());
  EXPECT_EQ(hid.opens, 0U);
  EXPECT_EQ(messages.count(), 0U);
  EXPECT_EQ(form.StatusBar1.panel(1), "Works over USB only");
  EXPECT_EQ(form.StatusBar1.panel(2), "COM1:9600");
}

TEST_F(CommandRouting, TheHintThatSomethingWorksOverUsbOnlyGoesWithTheNextCommand) {
  useSerial("1");
  connection.transUsbOnly("DRGup;DRG??");
  connection.transKcmd("VDAup;VDA??");
  EXPECT_EQ(form.StatusBar1.panel(1), "");
}

TEST_F(CommandRouting, WhatBecomesOfAnAskedCommandIsTold) {
  struct Row {
    std::string wire;
    Outcome outcome;
  };
  connection.onFrame([this] { state.enqSeen = state.enqSeen || state.rxBuf[1] == 5; });
  for (const Row& row :
       {Row{tests::framed("\6"), Outcome::kAnswered}, Row{tests::framed("sts:00"), Outcome::kAnswered},
        Row{tests::framed("\5"), Outcome::kRefused}, Row{tests::framed("\6"), Outcome::kAnswered},
        Row{"\2" + std::string(700, 'x') + "\3", Outcome::kIncomplete}, Row{"", Outcome::kFailed}}) {
    hid.answerAll(row.wire);
    EXPECT_EQ(connection.ask("DPC02"), row.outcome) << row.wire;
  }
  EXPECT_EQ(beeper.beeps, 0);
}

TEST_F(CommandRouting, OnASerialLinkNothingIsAskedAndPanelOneTells) {
  useSerial("1");
  EXPECT_EQ(connection.ask("DPC02"), Outcome::kFailed);
  EXPECT_TRUE(serialPort.commands.empty());
  EXPECT_EQ(messages.count(), 0U);
  EXPECT_EQ(form.StatusBar1.panel(1), "Works over USB only");
}

TEST_F(CommandRouting, AFailureOfAUsbOnlyCommandIsTold) {
  hid.nodes.clear();
  EXPECT_FALSE(connection.transUsbOnly("DRGup;DRG??"));
}

}  // namespace
}  // namespace vireon::link
