#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "adapters/hid/hidapi_port.h"
#include "simulator/model.h"
#include "tests/app/shown_disconnected.h"
#include "tests/fakes/fake_ports.h"
#include "tests/usb/gadget.h"

namespace vireon::tests {

// The whole program without a toolkit on the system's own HID nodes.
class UsbProgram : public FakePorts {
 public:
  // Lines of a picture with both channels on.
  static constexpr std::size_t kFrameLines = 248;

  UsbProgram() { pump.timeOut = &program.form.tmrCom; }

  form::MainForm& form() { return program.form; }

  // The first start, which finds the instrument.
  void load() { EXPECT_TRUE(program.Form_Load()); }

  // A later start, which reads the settings of a model and sends nothing.
  void loadWithSettings(simulator::Model model = simulator::Model::kK7310) {
    const auto product = static_cast<std::int16_t>(simulator::usbProductId(model));
    files.files["folder/vireon.ini"] = "[System ID]\nSystem ID=" + std::string(simulator::identity(model)) +
                                       "\n[ProductId]\nProductId=" + std::to_string(product) +
                                       "\n[Tabs]\nTabs=2\n[ComPort]\nComPort=0\n";
    load();
  }

  void connect() {
    form().cmdBttn[0].click();
    EXPECT_TRUE(program.connection.connected());
  }

  void start() { form().cmdStart.click(); }
  void tick() { form().tmrInt.tick(); }

  // Connected and sampling, with a first frame on the picture.
  void goLive() {
    connect();
    start();
    tick();
    EXPECT_EQ(form().picScope.lines().size(), kFrameLines);
  }

  // One message since `before` were shown, and nothing of the device held.
  void expectLost(std::size_t before = 0) {
    EXPECT_EQ(messages.count(), before + 1);
    EXPECT_EQ(messages.lastTitle(), "Connection Error");
    EXPECT_EQ(messages.lastText(), "Device not detected...Please check USB cable & connector.");
    expectDisconnected();
  }

  void expectDisconnected() {
    expectShownDisconnected(program);
    EXPECT_EQ(openHostNodes(), std::vector<std::string>{});
  }

  // A frame comes, and no message with it.
  void expectCleanReconnect() {
    const std::size_t before = messages.count();
    goLive();
    EXPECT_EQ(messages.count(), before);
    EXPECT_EQ(openHostNodes().size(), 2U);
  }

  adapters::HidapiPort hid;
  app::Program program{with(hid), "folder"};
};

}  // namespace vireon::tests
