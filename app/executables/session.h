#pragma once

#include <memory>
#include <string>

#include "adapters/qt/desktop.h"
#include "adapters/qt/desktop_identity.h"
#include "adapters/qt/document_opener.h"
#include "adapters/qt/file_dialogs.h"
#include "adapters/qt/main_window.h"
#include "adapters/qt/message_boxes.h"
#include "adapters/qt/message_pump.h"
#include "adapters/qt/search_window.h"
#include "adapters/qt/wall_clock.h"
#include "adapters/spreadsheet/gsf_compound_files.h"
#include "app/program.h"

namespace vireon::app {

// The ways to an instrument, and the store of the program's files.
struct SessionPorts {
  platform::RawHid& hid;
  platform::SerialPort& serialPort;
  platform::FileStore& files;
  platform::Printer* printer = nullptr;  // null for the system's
};

// The program with its window on this desktop. Needs a running QApplication; the ports and the gate outlive
// the session.
class Session {
 public:
  // `folder` is the program's own.
  Session(const SessionPorts& ports, const std::string& folder, adapters::ModalGate& gate);

  // Starts the program and shows the window; closing the window ends the event loop. False when the program
  // is to end at once.
  bool show();

  Program& program() { return program_; }
  adapters::MainWindow& window() { return *window_; }

 private:
  DesktopPorts desktopPorts(const SessionPorts& ports);

  adapters::ModalGate& gate_;
  adapters::WindowIcon icon_;
  adapters::QtMessageBoxes messages_{gate_};
  adapters::QtFileDialogs fileDialogs_{gate_};
  adapters::QtDocumentOpener documents_;
  adapters::GsfCompoundFiles compoundFiles_;
  adapters::QtMessagePump pump_;
  adapters::SearchWindow searchWindow_;
  adapters::QtBeeper beeper_;
  adapters::QtWallClock clock_;
  adapters::Desktop desktop_{gate_};
  Program program_;
  std::unique_ptr<adapters::MainWindow> window_;
};

}  // namespace vireon::app
