#include <gtest/gtest.h>

#include "tests/link/serial_fixture.h"

namespace vireon::link {
namespace {

using platform::MessageAnswer;
using tests::onLine;
using Texts = std::vector<std::string>;

class SerialConnect : public tests::SerialFixture {
 protected:
  void click() { connection.cmdBttn_Click(0); }

  // Only re-search prompts were shown, so many.
  void expectPrompts(std::size_t count) {
    EXPECT_EQ(messages.count(), count);
    for (const platform::Message& message : messages.shown) {
      EXPECT_EQ(message.title, "Communication Error");
      EXPECT_EQ(message.text,
                "Please check the communication cable & connector.\r\n"
                "Re-search the ComPort and BaudRate with automatic?.");
      EXPECT_EQ(message.icon, platform::MessageIcon::kCritical);
      EXPECT_EQ(message.buttons, platform::MessageButtons::kYesNo);
    }
  }

  void expectStillDisconnected() {
    EXPECT_FALSE(connection.connected());
    EXPECT_FALSE(serialPort.isOpen());
    EXPECT_FALSE(link.linkBusy);
    EXPECT_FALSE(link.portSearch);
    EXPECT_FALSE(connection.operations().running());
    EXPECT_EQ(searchView.depth, 0);
    for (const form::Control* control : connectedControls()) {
      EXPECT_FALSE(control->enabled()) << control->name();
    }
    expectIdle();
  }
};

TEST_F(SerialConnect, AnAnswerToOneQueryConnects) {
  link.comWait = 1600;
  click();
  EXPECT_EQ(serialPort.attempts, Texts{"COM1:9600"});
  EXPECT_EQ(serialPort.commands, Texts{"DFN??"});
  EXPECT_TRUE(connection.connected());
  EXPECT_EQ(form.StatusBar1.panel(2), "Connected");
  EXPECT_EQ(form.cmdBttn[0].caption(), "Disconnect");
  for (const form::Control* control : connectedControls()) {
    EXPECT_TRUE(control->enabled()) << control->name();
  }
  EXPECT_EQ(link.comWait, 1600);
  EXPECT_EQ(messages.count(), 0U);
  EXPECT_EQ(beeper.beeps, 0);
  EXPECT_EQ(hid.opens, 0U);
}

TEST_F(SerialConnect, ARefusalConnectsToo) {
  answer({onLine("\5")});
  click();
  EXPECT_TRUE(connection.connected());
}

TEST_F(SerialConnect, OnTheMeterTabTheParametersAreAskedToo) {
  form.SSTab1.setTab(1);
  click();
  EXPECT_EQ(serialPort.commands, (Texts{"DFN??", "DPS??"}));
  EXPECT_TRUE(connection.connected());
}

TEST_F(SerialConnect, ParametersThatAreNotAnsweredAreATimeOutOfNormalWork) {
  form.SSTab1.setTab(1);
  serialPort.instrument = [](int, int, const std::string& command) {
    return command == "DFN??" ? Texts{onLine("\6")} : Texts{};
  };
  click();
  expectOneTimeOutMessage();
  expectDisconnectedAndClosed();
}

TEST_F(SerialConnect, NoAnswerIsThePromptAloneAndNoEndsIt) {
  silence();
  form.StatusBar1.setPanel(2, "COM1:9600");
  click();
  expectPrompts(1);
  expectStillDisconnected();
  EXPECT_EQ(serialPort.commands, Texts{"DFN??"});
  EXPECT_EQ(pump.lastTimeOut, 800);
  EXPECT_EQ(form.StatusBar1.panel(2), "COM1:9600");
  expectReconnects();
}

TEST_F(SerialConnect, APortThatDoesNotOpenIsThePromptAlone) {
  serialPort.refusals[1] = {platform::SerialOpenError::kInUse, "/dev/ttyUSB0", {}, false};
  click();
  expectPrompts(1);
  expectStillDisconnected();
  EXPECT_TRUE(serialPort.written.empty());
  EXPECT_EQ(form.StatusBar1.panel(1), "/dev/ttyUSB0 is in use by another program");
  serialPort.refusals.clear();
  expectReconnects();
  EXPECT_EQ(form.StatusBar1.panel(1), "");
}

TEST_F(SerialConnect, ARateThatTheSettingsLackIsThePromptAlone) {
  link.baudRate.clear();
  link.comWait = 0;
  click();
  expectPrompts(1);
  expectStillDisconnected();
}

TEST_F(SerialConnect, AnAdapterPulledOutDuringTheProbeIsThePromptAlone) {
  silence();
  whileWaiting([this] { serialPort.pullOut(); });
  click();
  expectPrompts(1);
  expectStillDisconnected();
  expectReconnects();
}

TEST_F(SerialConnect, ThePromptComesAgainAfterEachFailedSearch) {
  silence();
  messages.answers = {MessageAnswer::kYes, MessageAnswer::kYes, MessageAnswer::kNo};
  click();
  expectPrompts(3);
  expectStillDisconnected();
  EXPECT_EQ(serialPort.attempts.size(), 1U + 16U + 16U);
  EXPECT_EQ(searchView.tried.size(), 32U);
}

TEST_F(SerialConnect, ASearchThatFindsItConnects) {
  struct Row {
    int port;
    int rate;
    int comWait;
  };
  for (const Row& row : {Row{2, 9600, 800}, Row{3, 4800, 1600}, Row{2, 2400, 2400}, Row{4, 1200, 3200}}) {
    link.comPort = "1";
    link.baudRate = "9600";
    messages.shown.clear();
    messages.answers = {MessageAnswer::kYes};
    instrumentAt(row.port, row.rate);
    forget();
    click();
    expectPrompts(1);
    EXPECT_TRUE(connection.connected());
    EXPECT_EQ(link.comPort, std::to_string(row.port));
    EXPECT_EQ(link.baudRate, std::to_string(row.rate));
    EXPECT_EQ(link.comWait, row.comWait);
    EXPECT_EQ(form.StatusBar1.panel(2), "Connected");
    EXPECT_EQ(form.StatusBar1.panel(1), "");
    EXPECT_EQ(serialPort.commands.back(), "SIM??");
    EXPECT_TRUE(serialPort.isOpen());
    click();
  }
}

TEST_F(SerialConnect, ASecondSearchMayFindIt) {
  silence();
  messages.answers = {MessageAnswer::kYes, MessageAnswer::kYes};
  messages.whileOpen = [this](const platform::Message&) {
    if (messages.count() == 2) {
      instrumentAt(1, 4800);
    }
  };
  click();
  expectPrompts(2);
  EXPECT_TRUE(connection.connected());
}

TEST_F(SerialConnect, ADeviceOfAnotherMakeIsNotConnected) {
  serialPort.instrument = [](int, int, const std::string& command) {
    return command == "SIM??" ? Texts{onLine("sim:X1000")} : Texts{};
  };
  messages.answers = {MessageAnswer::kYes};
  click();
  expectPrompts(2);
  expectStillDisconnected();
}

TEST_F(SerialConnect, AnEndedSearchEndsTheConnectingWithoutAnotherPrompt) {
  silence();
  messages.answers = {MessageAnswer::kYes, MessageAnswer::kYes};
  searchView.whileTrying = [this] {
    if (searchView.tried.size() == 3) {
      connection.endWait();
    }
  };
  click();
  expectPrompts(1);
  expectStillDisconnected();
  EXPECT_EQ(searchView.tried.size(), 3U);
  searchView.whileTrying = nullptr;
  expectReconnects();
}

TEST_F(SerialConnect, AnEndedProbeEndsTheConnectingWithoutAPrompt) {
  silence();
  whileWaiting([this] { connection.endWait(); });
  click();
  EXPECT_EQ(messages.count(), 0U);
  expectStillDisconnected();
  expectReconnects();
}

TEST_F(SerialConnect, ItIsIgnoredWhileAnExchangeOrASearchRuns) {
  for (bool* flag : {&link.linkBusy, &link.portSearch}) {
    *flag = true;
    click();
    EXPECT_TRUE(serialPort.attempts.empty());
    EXPECT_FALSE(connection.connected());
    *flag = false;
  }
}

TEST_F(SerialConnect, ASecondClickDuringTheProbeIsIgnored) {
  whileWaiting([this] { click(); });
  click();
  EXPECT_EQ(serialPort.attempts.size(), 1U);
  EXPECT_EQ(serialPort.commands, Texts{"DFN??"});
  EXPECT_TRUE(connection.connected());
}

TEST_F(SerialConnect, AClickDuringTheSearchIsIgnored) {
  silence();
  messages.answers = {MessageAnswer::kYes};
  searchView.whileTrying = [this] { click(); };
  click();
  expectPrompts(2);
  EXPECT_EQ(serialPort.attempts.size(), 17U);
}

}  // namespace
}  // namespace vireon::link
