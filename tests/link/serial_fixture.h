#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "tests/link/connection_fixture.h"

namespace vireon::tests {

// A disconnected main window on the serial link, port 1 at 9600 baud.
class SerialFixture : public ConnectionFixture {
 protected:
  SerialFixture() {
    link.comPort = "1";
    link.baudRate = "9600";
    link.comWait = 800;
  }

  // Whatever was planned for a wait or a pump has come about.
  void TearDown() override {
    EXPECT_TRUE(pump.happenings.empty());
    EXPECT_TRUE(pump.atPump.empty());
  }

  void openPort() {
    connection.serial().com_open();
    ASSERT_TRUE(serialPort.isOpen());
  }

  // Connects the window and forgets what that sent.
  void connectSerial() {
    connection.cmdBttn_Click(0);
    ASSERT_TRUE(connection.connected());
    forget();
  }

  void forget() {
    serialPort.commands.clear();
    serialPort.written.clear();
    frames.clear();
    pump.waits = pump.pumps = pump.timeOuts = 0;
  }

  void send(std::string command) { connection.serial().trans_rs2(command); }

  // Every command is answered by these chunks; none is silence.
  void answer(std::vector<std::string> chunks) {
    serialPort.instrument = [chunks = std::move(chunks)](int, int, const std::string&) { return chunks; };
  }
  void silence() { answer({}); }

  // An instrument of this model that answers at one port and rate alone.
  void instrumentAt(int port, int rate, const std::string& model = "K7310") {
    connection.onFrame([this] {
      const auto text = state.rxBuf.begin() + 1;
      frames.emplace_back(text, text + state.rxLen);
      if (frames.back().starts_with("sim:")) {
        state.modelId = frames.back().substr(4);
      }
    });
    serialPort.instrument = [=](int com, int baudRate, const std::string& command) {
      const bool here = com == port && baudRate == rate;
      const std::string reply = command == "SIM??" ? "sim:" + model : "\6";
      return here ? std::vector<std::string>{onLine(reply)} : std::vector<std::string>{};
    };
  }

  // The next wait of an exchange brings this about.
  void whileWaiting(std::function<void()> happening) { pump.happenings.push_back(std::move(happening)); }

  // The port takes a command and its answer again.
  void expectExchangeWorks() {
    forget();
    answer({onLine("dfn:00")});
    send("DFN??");
    EXPECT_EQ(serialPort.commands, std::vector<std::string>{"DFN??"});
    EXPECT_EQ(frames, std::vector<std::string>{"dfn:00"});
    EXPECT_TRUE(link.rxDone);
    EXPECT_FALSE(link.rxTimeout);
    EXPECT_FALSE(link.linkBusy);
  }

  void expectReconnects() {
    const std::size_t said = messages.count();
    answer({onLine("\6")});
    connection.cmdBttn_Click(0);
    EXPECT_TRUE(connection.connected());
    EXPECT_EQ(messages.count(), said);
    expectExchangeWorks();
  }

  void expectDisconnectedAndClosed() {
    expectDisconnected();
    EXPECT_FALSE(serialPort.isOpen());
    EXPECT_FALSE(form.tmrCom.enabled());
    EXPECT_FALSE(link.linkBusy);
    EXPECT_FALSE(link.cmdPending);
  }

  void expectOneTimeOutMessage() {
    ASSERT_EQ(messages.count(), 1U);
    EXPECT_EQ(messages.lastTitle(), "Communication Error");
    EXPECT_EQ(messages.lastText(), "Device Unavailable or Communication Error");
    EXPECT_EQ(messages.shown.back().icon, platform::MessageIcon::kCritical);
    EXPECT_EQ(messages.shown.back().buttons, platform::MessageButtons::kOk);
  }
};

}  // namespace vireon::tests
