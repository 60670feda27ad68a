#include "link/connection_control.h"

#include <gtest/gtest.h>

#include "tests/link/connection_fixture.h"

namespace vireon::link {
namespace {

using Texts = std::vector<std::string>;

class ConnectButton : public tests::ConnectionFixture {
 protected:
  void showMeterTab() {
    form.SSTab1.setTab(1);
    hid.forget();
  }
};

TEST_F(ConnectButton, ConnectingSendsOneQueryAndEnablesTheWindow) {
  connection.cmdBttn_Click(0);

  EXPECT_EQ(hid.commands, Texts{"DFN??"});
  EXPECT_EQ(form.cmdBttn[0].backColor(), form::Color{8454016});
  EXPECT_TRUE(connection.connected());
  EXPECT_EQ(form.StatusBar1.panel(2), "Connected");
  for (const form::Control* control : connectedControls()) {
    EXPECT_TRUE(control->enabled()) << control->name();
  }
  expectIdle();
  EXPECT_EQ(messages.count(), 0U);
  EXPECT_EQ(beeper.beeps, 0);
}

TEST_F(ConnectButton, ConnectingOnTheMeterTabAsksForTheParametersToo) {
  showMeterTab();
  connection.cmdBttn_Click(0);
  EXPECT_EQ(hid.commands, (Texts{"DFN??", "DPS??"}));
  EXPECT_TRUE(connection.connected());
}

TEST_F(ConnectButton, TheParametersAreAskedOfTheTabThatTheAnswerShows) {
  connection.onFrame([this] { form.SSTab1.setTab(1); });
  connection.cmdBttn_Click(0);
  EXPECT_EQ(hid.commands, (Texts{"DFN??", "DPS??"}));
}

TEST_F(ConnectButton, TheParametersAreAskedOfAConnectedWindow) {
  showMeterTab();
  Texts seen;
  hid.instrument = [&](const std::string& command) {
    seen.push_back(command + (connection.connected() ? " connected" : ""));
    return tests::framed("\6");
  };
  connection.cmdBttn_Click(0);
  EXPECT_EQ(seen, (Texts{"DFN??", "DPS?? connected"}));
}

TEST_F(ConnectButton, ConnectingOpensTheDeviceAnew) {
  ASSERT_TRUE(connection.apiUsb().findDevice());
  connection.cmdBttn_Click(0);
  EXPECT_EQ(hid.opens, 4U);
  EXPECT_EQ(hid.openHandles(), 2U);
}

TEST_F(ConnectButton, ConnectingWithoutTheDeviceIsOneMessageAndNoConnection) {
  hid.nodes.clear();
  connection.cmdBttn_Click(0);
  expectOneFailureMessage();
  expectDisconnected();
  EXPECT_TRUE(hid.commands.empty());
}

TEST_F(ConnectButton, AFailedFirstQueryOnTheMeterTabIsTheLast) {
  showMeterTab();
  hid.readFaults[1] = platform::HidTransfer::kTimedOut;
  connection.cmdBttn_Click(0);
  EXPECT_EQ(hid.commands, Texts{"DFN??"});
  expectOneFailureMessage();
  expectDisconnected();
}

TEST_F(ConnectButton, AFailedSecondQueryOnTheMeterTabDisconnectsAgain) {
  showMeterTab();
  hid.readFaults[2] = platform::HidTransfer::kTimedOut;
  connection.cmdBttn_Click(0);
  EXPECT_EQ(hid.commands, (Texts{"DFN??", "DPS??"}));
  expectOneFailureMessage();
  expectDisconnected();
}

TEST_F(ConnectButton, AnAnswerTooLongConnectsAllTheSame) {
  hid.answerAll("\2" + std::string(700, 'x'));
  connection.cmdBttn_Click(0);
  EXPECT_TRUE(connection.connected());
  EXPECT_EQ(messages.count(), 0U);
}

TEST_F(ConnectButton, ARefusalConnectsAllTheSame) {
  hid.answerAll(tests::framed("\5"));
  connection.cmdBttn_Click(0);
  EXPECT_TRUE(connection.connected());
}

TEST_F(ConnectButton, ItBearsTheNameOfWhatItDoesNext) {
  EXPECT_EQ(form.cmdBttn[0].caption(), "Connect");
  connection.cmdBttn_Click(0);
  EXPECT_EQ(form.cmdBttn[0].caption(), "Disconnect");
  connection.cmdBttn_Click(0);
  EXPECT_EQ(form.cmdBttn[0].caption(), "Connect");
  EXPECT_EQ(form.cmdBttn[1].caption(), "Exit");
}

TEST_F(ConnectButton, OnlyTheExactLightGreenMeansConnected) {
  for (const form::Color color : {form::kLightRed, form::kButtonFace, form::kGreen, form::Color{8454017}}) {
    hid.forget();
    form.cmdBttn[0].setBackColor(color);
    EXPECT_FALSE(connection.connected());
    connection.cmdBttn_Click(0);
    EXPECT_EQ(hid.commands, Texts{"DFN??"});
  }
}

TEST_F(ConnectButton, DisconnectingTakesLeaveAndCloses) {
  connect();
  sample();
  connection.cmdBttn_Click(0);
  EXPECT_EQ(hid.commands, Texts{"GTL"});
  expectDisconnected();
  EXPECT_EQ(messages.count(), 0U);
  EXPECT_EQ(beeper.beeps, 0);
}

TEST_F(ConnectButton, TheWindowIsDisconnectedBeforeTheLeaveTaking) {
  connect();
  sample();
  hid.instrument = [this](const std::string&) {
    EXPECT_FALSE(connection.connected());
    EXPECT_FALSE(form.SSTab1.enabled());
    expectIdle();
    return tests::framed("\6");
  };
  connection.cmdBttn_Click(0);
  EXPECT_EQ(hid.commands, Texts{"GTL"});
}

TEST_F(ConnectButton, DisconnectingFromADeviceThatIsGoneIsOneMessage) {
  connect();
  hid.unplug();
  connection.cmdBttn_Click(0);
  expectOneFailureMessage();
  expectDisconnected();
}

TEST_F(ConnectButton, ConnectingAndDisconnectingCanBeRepeated) {
  for (int turn = 0; turn < 5; ++turn) {
    connection.cmdBttn_Click(0);
    EXPECT_TRUE(connection.connected());
    connection.cmdBttn_Click(0);
    expectDisconnected();
  }
  EXPECT_EQ(hid.commands.size(), 10U);
  EXPECT_EQ(messages.count(), 0U);
}

class ExitButton : public tests::ConnectionFixture {
 protected:
  ExitButton() {
    connection.unloadForm = [this] { ++unloads; };
  }
  int unloads = 0;
};

TEST_F(ExitButton, WithAnOpenDeviceLeaveIsTakenBeforeTheWindowGoes) {
  connect();
  connection.unloadForm = [this] {
    ++unloads;
    EXPECT_EQ(hid.commands, Texts{"GTL"});
    EXPECT_EQ(hid.openHandles(), 0U);
    EXPECT_FALSE(link.usbOpen);
  };
  connection.cmdBttn_Click(1);
  EXPECT_EQ(unloads, 1);
}

TEST_F(ExitButton, WithADeviceOpenButNotConnectedLeaveIsTakenToo) {
  ASSERT_TRUE(connection.apiUsb().findDevice());
  connection.cmdBttn_Click(1);
  EXPECT_EQ(hid.commands, Texts{"GTL"});
  EXPECT_EQ(hid.openHandles(), 0U);
}

TEST_F(ExitButton, WithoutAnOpenDeviceNothingIsSent) {
  connection.cmdBttn_Click(1);
  EXPECT_EQ(hid.opens, 0U);
  EXPECT_EQ(unloads, 1);
}

TEST_F(ExitButton, ADeviceThatIsGoneIsOneMessageAndTheWindowGoesAllTheSame) {
  connect();
  hid.unplug();
  connection.cmdBttn_Click(1);
  expectOneFailureMessage();
  EXPECT_EQ(unloads, 1);
}

TEST_F(ExitButton, UnloadingAfterTheExitButtonTakesLeaveNoSecondTime) {
  connect();
  connection.unloadForm = [this] { connection.release(); };
  connection.cmdBttn_Click(1);
  EXPECT_EQ(hid.commands, Texts{"GTL"});
}

TEST_F(ExitButton, NobodyNeedsToUnloadTheWindow) {
  connection.unloadForm = nullptr;
  connection.cmdBttn_Click(1);
  EXPECT_EQ(messages.count(), 0U);
}

}  // namespace
}  // namespace vireon::link
