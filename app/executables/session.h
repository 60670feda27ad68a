#pragma once

#include <memory>

#include "adapters/qt/main_window.h"
#include "adapters/qt/message_boxes.h"
#include "adapters/qt/wall_clock.h"
#include "app/program.h"

namespace vireon::app {

// The program with its window on this desktop, driving the instrument behind a raw-HID port. Needs a
// running QApplication; `hid` outlives the session.
class Session {
 public:
  explicit Session(platform::RawHid& hid);

  // Prepares the program and shows the window. Closing the window ends the event loop.
  void show();

  Program& program() { return program_; }
  adapters::MainWindow& window() { return *window_; }

 private:
  adapters::ModalGate gate_;
  adapters::QtMessageBoxes messages_{gate_};
  adapters::QtBeeper beeper_;
  adapters::QtWallClock clock_;
  Program program_;
  std::unique_ptr<adapters::MainWindow> window_;
};

}  // namespace vireon::app
