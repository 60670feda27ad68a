#pragma once

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "tests/fakes/fake_ports.h"
#include "tests/fakes/fake_raw_hid.h"

namespace vireon::tests {

// The whole program before its start: no instrument on either link and no settings file.
class StartBench : public testing::Test, protected FakePorts {
 protected:
  StartBench() {
    hid.nodes.clear();
    pump.timeOut = &program.form.tmrCom;
    hid.instrument = [this](const std::string& command) { return onLine(reply(command)); };
    silenceSerial();
  }

  // Whatever was planned for a wait or a pump has come about.
  void TearDown() override {
    EXPECT_TRUE(pump.happenings.empty());
    EXPECT_TRUE(pump.atPump.empty());
  }

  // An instrument on USB that calls itself so.
  void plugUsb(std::uint16_t productId = 0xE001, const std::string& model = "K7310") {
    model_ = model;
    hid.nodes = {{"/dev/hidraw0", 0x10C4, productId}};
  }

  // An instrument that answers on that port at that rate alone.
  void plugSerial(int port, int rate, const std::string& model = "K7310") {
    model_ = model;
    serialPort.instrument = [this, port, rate](int com, int baudRate, const std::string& command) {
      return com == port && baudRate == rate ? std::vector<std::string>{onLine(reply(command))}
                                             : std::vector<std::string>{};
    };
  }

  void silenceSerial() {
    serialPort.instrument = [](int, int, const std::string&) { return std::vector<std::string>{}; };
  }

  // Settings of a serial link.
  void writeSerialSettings(const std::string& port = "1", const std::string& rate = "9600") {
    file() =
        "[Tabs]\r\nTabs=2\r\n[ComPort]\r\nComPort=" + port + "\r\n[BaudRate]\r\nBaudRate=" + rate + "\r\n";
  }

  std::string& file() { return files.files["folder/vireon.ini"]; }
  bool fileThere() const { return files.files.contains("folder/vireon.ini"); }
  form::MainForm& form() { return program.form; }
  std::string panel(int number) { return program.form.StatusBar1.panel(number); }

  // Nothing was sent or opened on either link.
  void expectLinksUntouched() {
    EXPECT_EQ(hid.opens, 0U);
    EXPECT_TRUE(serialPort.attempts.empty());
  }

  void expectNotFound(const std::string& text) {
    ASSERT_EQ(messages.count(), 1U);
    EXPECT_EQ(messages.lastTitle(), "Device Not Found");
    EXPECT_EQ(messages.lastText(), text);
    EXPECT_EQ(messages.shown.back().icon, platform::MessageIcon::kCritical);
    EXPECT_EQ(messages.shown.back().buttons, platform::MessageButtons::kOk);
    expectNothingLeft();
  }

  // The start failed and left neither a file nor an open device.
  void expectNothingLeft() {
    EXPECT_FALSE(fileThere());
    EXPECT_EQ(hid.openHandles(), 0U);
    EXPECT_EQ(searchView.depth, 0);
    EXPECT_FALSE(program.connection.operations().running());
  }

  static constexpr const char* kCheckCommunicationCable =
      "Device not detected...Please check Communication cable & connector.";
  static constexpr const char* kCheckUsbCable = "Device not detected...Please check USB cable & connector.";

  FakeRawHid hid;
  app::Program program{with(hid), "folder"};

 private:
  std::string reply(const std::string& command) const {
    if (command == "SIM??") {
      return "sim:" + model_;
    }
    return command == "SID??;SIM??" ? "sid:Vireon " + model_ + ",sim:" + model_ : "\6";
  }

  std::string model_ = "K7310";
};

}  // namespace vireon::tests
