#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <exception>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "app/simulated_hid.h"
#include "simulator/instrument.h"
#include "simulator/usb_endpoint.h"
#include "tests/fakes/fake_ports.h"
#include "tests/faults/faulty_desktop.h"
#include "tests/faults/faulty_files.h"
#include "tests/faults/faulty_links.h"

namespace vireon::tests {

// Where the program of a test keeps its files, and the settings of an instrument on each link.
inline constexpr const char* kSettingsPath = "folder/vireon.ini";
inline constexpr const char* kUsbSettings =
    "[Caption]\r\nCaption=Vireon K7310 Scope and Meter\r\n[System ID]\r\nSystem ID=K7310\r\n[ProductId]\r\n"
    "ProductId=-8191\r\n[Tabs]\r\nTabs=2\r\n[ComPort]\r\nComPort=0\r\n[BaudRate]\r\nBaudRate=\r\n";
inline constexpr const char* kSerialSettings =
    "[Caption]\r\nCaption=Vireon K7310 Scope and Meter\r\n[System ID]\r\nSystem ID=K7310\r\n[ProductId]\r\n"
    "ProductId=-8188\r\n[Tabs]\r\nTabs=2\r\n[ComPort]\r\nComPort=2\r\n[BaudRate]\r\nBaudRate=4800\r\n";

// The whole program on a simulated instrument, each of its ports failing as the plan wants it. The
// instrument is on USB while it is plugged in, and at port 2 with 4800 baud while `atSerialPort`.
class FaultBench : public FakePorts {
 public:
  explicit FaultBench(FaultPlan& plan) : plan_(plan) {
    serialPort.instrument = [this](int com, int baudRate, const std::string& command) {
      return atSerialPort && com == 2 && baudRate == 4800 ? inPieces(onLine(instrument.answer(command)))
                                                          : std::vector<std::string>{};
    };
    desktop.screen.windows = {{5, {0, 0, 12, 9}}};
    desktop.screen.foreground = 5;
    pump.atLimitedWait = [this](std::chrono::milliseconds limit) { desktop.steadyClock.time += limit; };
    start();
  }

  // Another run of the program on the same computer.
  void start() {
    program_.reset();
    program_ = std::make_unique<app::Program>(
        app::ProgramPorts{faultyHid_, faultySerialPort_, faultyPump_, faultyMessages_, searchView, beeper,
                          faultyClock_, faultyFiles_, faultyFileDialogs_, faultyDocuments_, faultyCompound_,
                          app::DesktopPorts{desktop.steadyClock,
                                            faultyScreen_,
                                            faultyPrinter_,
                                            {desktop.viewers, faultyViewerDialogs_, faultyFiles_,
                                             faultyViewerMessages_, desktop.clipboard, faultyPng_}}},
        "folder");
    pump.timeOut = &program_->form.tmrCom;
    loaded = false;
    mayClose = false;
    program_->connection.unloadForm = [this] { mayClose = program_->requestClose(); };
  }

  app::Program& program() { return *program_; }
  form::MainForm& form() { return program_->form; }

  // One action of the user or of a timer, during which ports fail. It tells the user one thing at most, and
  // asks one.
  template <class Action>
  void step(const Action& action) {
    const std::size_t before = told();
    const std::size_t askedBefore = asked();
    plan_.armed = true;
    try {
      const AllocationResume resume;
      action();
    } catch (const std::exception& thrown) {
      plan_.armed = false;
      ADD_FAILURE() << "thrown out of a handler: " << thrown.what();
    }
    plan_.armed = false;
    EXPECT_LE(told() - before, 1U) << lastTold();
    expectInOrder();
    EXPECT_LE(asked() - askedBefore, mostQuestions) << lastTold();
  }

  void load() {
    step([&] { loaded = program().Form_Load(); });
  }

  // Clicks as a user can.
  void click(const form::Button& button) {
    step([&] { button.click(); });
  }
  void check(form::CheckBox& box, int value) {
    if (box.takesInput()) step([&] { box.setValue(value); });
  }
  void choose(form::OptionButton& option) {
    if (option.takesInput()) step([&] { option.setValue(true); });
  }
  void choose(form::ComboBox& box, int index) {
    if (box.takesInput()) step([&] { box.setListIndex(index); });
  }
  void slide(form::Slider& slider, int value) {
    if (slider.takesInput()) step([&] { slider.setValue(value); });
  }
  void switchTo(int tab) {
    if (form().SSTab1.takesInput()) step([&] { form().SSTab1.setTab(tab); });
  }
  void tick() {
    clock.advance(std::chrono::milliseconds(500));
    step([&] { form().tmrInt.tick(); });
  }
  void close() {
    step([&] { mayClose = program().requestClose(); });
  }
  void inViewer(platform::ViewerCommand command) {
    if (desktop.viewers.latest != nullptr) step([&] { desktop.viewers.choose(command); });
  }

  // Loaded with settings for USB, connected and sampling, with nothing failing.
  void goLive() {
    files.files[kSettingsPath] = kUsbSettings;
    load();
    click(form().cmdBttn[0]);
    click(form().cmdStart);
    tick();
    ASSERT_TRUE(program().connection.connected());
    ASSERT_EQ(told(), 0U);
  }

  // Messages that say something, and those that ask.
  std::size_t told() const { return messages.count() + desktop.messages.count() - asked(); }
  std::size_t asked() const {
    return static_cast<std::size_t>(
        std::count_if(messages.shown.begin(), messages.shown.end(), [](const platform::Message& message) {
          return message.buttons == platform::MessageButtons::kYesNo;
        }));
  }
  std::string lastTold() const { return messages.lastText() + " | " + desktop.messages.lastText(); }

  std::size_t mostQuestions = 1;  // of one step
  bool loaded = false;
  bool mayClose = false;
  bool atSerialPort = false;

  simulator::ManualClock clock;
  simulator::Instrument instrument{simulator::Model::kK7310, clock};
  simulator::UsbEndpoint endpoint{instrument, clock};

 private:
  // What a window says of its link is so, and no handler has left anything under way.
  void expectInOrder() {
    const bool open = program().link.onUsb() ? program().link.usbOpen : serialPort.isOpen();
    EXPECT_TRUE(open || mayClose || !program().connection.connected());
    EXPECT_FALSE(program().state.uiBusy);
    EXPECT_FALSE(program().link.linkBusy);
    EXPECT_FALSE(program().connection.operations().running());
  }

  // As a serial driver hands them over.
  static std::vector<std::string> inPieces(const std::string& answer) {
    constexpr std::size_t kPiece = 6;
    std::vector<std::string> pieces;
    for (std::size_t start = 0; start < answer.size(); start += kPiece) {
      pieces.push_back(answer.substr(start, kPiece));
    }
    return pieces;
  }

  FaultPlan& plan_;
  app::SimulatedHid hid_{endpoint, simulator::Model::kK7310};
  FaultyHid faultyHid_{hid_, endpoint, plan_};
  FaultySerialPort faultySerialPort_{serialPort, plan_};
  FaultyPump faultyPump_{pump, faultySerialPort_};
  FaultyMessageBoxes faultyMessages_{messages, plan_};
  FaultyMessageBoxes faultyViewerMessages_{desktop.messages, plan_};
  FaultyWallClock faultyClock_{wallClock, plan_};
  FaultyFileStore faultyFiles_{files, plan_};
  FaultyFileDialogs faultyFileDialogs_{fileDialogs, plan_};
  FaultyFileDialogs faultyViewerDialogs_{desktop.dialogs, plan_};
  FaultyDocumentOpener faultyDocuments_{documents, plan_};
  FaultyCompoundFiles faultyCompound_{compoundFiles, plan_};
  FaultyScreenGrab faultyScreen_{desktop.screen, plan_};
  FaultyPrinter faultyPrinter_{desktop.printer, plan_};
  FaultyPngEncoder faultyPng_{desktop.png, plan_};
  std::unique_ptr<app::Program> program_;
};

}  // namespace vireon::tests
