#include <gtest/gtest.h>

#include "tests/link/serial_fixture.h"

namespace vireon::link {
namespace {

using tests::onLine;
using Texts = std::vector<std::string>;

class SerialDisconnect : public tests::SerialFixture {
 protected:
  void SetUp() override {
    connectSerial();
    sample();
  }
  void click() { connection.cmdBttn_Click(0); }
};

TEST_F(SerialDisconnect, LeaveIsTakenWithOneBeepAndThePortIsClosed) {
  click();
  EXPECT_EQ(serialPort.commands, Texts{"GTL"});
  EXPECT_EQ(beeper.beeps, 1);
  EXPECT_EQ(messages.count(), 0U);
  expectDisconnectedAndClosed();
  expectReconnects();
}

TEST_F(SerialDisconnect, TheWindowIsDisconnectedBeforeTheLeaveTakingAndThePortIsOpenUntilItsAnswer) {
  whileWaiting([this] {
    EXPECT_FALSE(connection.connected());
    EXPECT_FALSE(form.SSTab1.enabled());
    expectIdle();
    EXPECT_TRUE(serialPort.isOpen());
  });
  click();
  EXPECT_FALSE(serialPort.isOpen());
}

TEST_F(SerialDisconnect, LeaveTakingThatIsNotAnsweredIsOneMessage) {
  silence();
  click();
  expectOneTimeOutMessage();
  expectDisconnectedAndClosed();
  expectReconnects();
}

TEST_F(SerialDisconnect, DuringAnExchangeLeaveIsTakenAfterItsAnswer) {
  answer({onLine("dfn:00")});
  whileWaiting([this] {
    click();
    EXPECT_EQ(serialPort.commands, Texts{"VDAup"});
    EXPECT_TRUE(serialPort.isOpen());
    EXPECT_EQ(form.StatusBar1.panel(2), "Disconnected");
  });
  connection.transKcmd("VDAup");
  EXPECT_EQ(serialPort.commands, (Texts{"VDAup", "GTL"}));
  EXPECT_EQ(messages.count(), 0U);
  EXPECT_EQ(beeper.beeps, 2);
  expectDisconnectedAndClosed();
  expectReconnects();
}

TEST_F(SerialDisconnect, DuringAnExchangeThatIsNotAnsweredThePortIsClosedWithOneMessage) {
  silence();
  whileWaiting([this] { click(); });
  connection.transKcmd("VDAup");
  EXPECT_EQ(serialPort.commands, Texts{"VDAup"});
  expectOneTimeOutMessage();
  expectDisconnectedAndClosed();
  expectReconnects();
}

TEST_F(SerialDisconnect, DuringTheLastQueryOfConnectingItDisconnects) {
  click();
  form.SSTab1.setTab(1);
  forget();
  whileWaiting([this] { serialPort.deliver(); });
  whileWaiting([this] { click(); });
  click();
  EXPECT_EQ(serialPort.commands, (Texts{"DFN??", "DPS??", "GTL"}));
  expectDisconnectedAndClosed();
}

TEST_F(SerialDisconnect, AnEndedExchangeIsNoMessageAndKeepsThePort) {
  silence();
  whileWaiting([this] { connection.endWait(); });
  EXPECT_FALSE(connection.transKcmd("VDAup"));
  EXPECT_EQ(messages.count(), 0U);
  EXPECT_EQ(pump.timeOuts, 0U);
  EXPECT_TRUE(connection.connected());
  EXPECT_TRUE(serialPort.isOpen());
  expectExchangeWorks();
}

TEST_F(SerialDisconnect, EndingNothingDoesNothing) {
  connection.endWait();
  EXPECT_FALSE(link.rxTimeout);
  EXPECT_FALSE(link.waitEnded);
  expectExchangeWorks();
}

TEST_F(SerialDisconnect, TheExitButtonSendsNothingOverTheSerialLink) {
  int unloads = 0;
  connection.unloadForm = [&] { ++unloads; };
  connection.cmdBttn_Click(1);
  EXPECT_EQ(unloads, 1);
  EXPECT_TRUE(serialPort.commands.empty());
}

TEST_F(SerialDisconnect, TakingLeaveOfAUsbDeviceSendsNothingOverTheSerialLink) {
  connection.release();
  EXPECT_TRUE(serialPort.commands.empty());
  EXPECT_TRUE(serialPort.isOpen());
}

}  // namespace
}  // namespace vireon::link
