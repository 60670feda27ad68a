#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

#include "adapters/hid/hidapi_port.h"
#include "app/program.h"
#include "simulator/model.h"
#include "tests/fakes/fake_beeper.h"
#include "tests/fakes/fake_compound_files.h"
#include "tests/fakes/fake_desktop.h"
#include "tests/fakes/fake_document_opener.h"
#include "tests/fakes/fake_file_dialogs.h"
#include "tests/fakes/fake_file_store.h"
#include "tests/fakes/fake_message_boxes.h"
#include "tests/fakes/fake_serial.h"
#include "tests/fakes/fake_wall_clock.h"
#include "tests/usb/gadget.h"

namespace vireon::tests {

// The whole program without a toolkit on the system's own HID nodes.
class UsbProgram {
 public:
  // Lines of a picture with both channels on.
  static constexpr std::size_t kFrameLines = 248;

  UsbProgram() { serial.pump.timeOut = &program.form.tmrCom; }

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
    EXPECT_FALSE(program.connection.connected());
    EXPECT_EQ(form().StatusBar1.panel(2), "Disconnected");
    for (const form::Control* control : std::initializer_list<const form::Control*>{
             &form().SSTab1, &form().cmdClock, &form().picMscope, &form().panDlog, &form().panScon,
             &form().cmdStart, &form().txtSTime}) {
      EXPECT_FALSE(control->enabled()) << control->name();
    }
    EXPECT_FALSE(form().tmrInt.enabled());
    EXPECT_EQ(form().Txled[0].fillColor(), form::kWhite);
    EXPECT_EQ(form().Txled[1].fillColor(), form::kWhite);
    EXPECT_FALSE(program.link.usbOpen);
    EXPECT_FALSE(program.state.uiBusy);
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
  FakeMessageBoxes messages;
  FakeBeeper beeper;
  FakeWallClock wallClock{platform::CalendarTime{2007, 12, 21, 14, 5, 9}};
  FakeSerial serial;
  FakeFileStore files;
  FakeFileDialogs fileDialogs;
  FakeDocumentOpener documents;
  FakeCompoundFiles compoundFiles;
  FakeDesktop desktop;
  app::Program program{{hid, serial.port, serial.pump, messages, serial.view, beeper, wallClock, files,
                        fileDialogs, documents, compoundFiles, desktop.ports(files)},
                       "folder"};
};

}  // namespace vireon::tests
