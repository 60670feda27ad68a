#pragma once

#include <functional>
#include <optional>
#include <string>

#include "app/desktop_ports.h"
#include "app/settings_file.h"
#include "capture/screen_print.h"
#include "capture/viewer.h"
#include "files/file_commands.h"
#include "files/list_print.h"
#include "files/out_of_memory.h"
#include "files/print_out.h"
#include "form/main_form.h"
#include "link/advice.h"
#include "link/connection_control.h"
#include "link/long_work.h"
#include "meter/logger_controls.h"
#include "meter/meter_controls.h"
#include "meter/recall.h"
#include "meter/record_listing.h"
#include "meter/sampling.h"
#include "platform/beeper.h"
#include "platform/compound_file.h"
#include "platform/document_opener.h"
#include "platform/file_dialog.h"
#include "platform/file_store.h"
#include "platform/message_box.h"
#include "platform/message_pump.h"
#include "platform/raw_hid.h"
#include "platform/search_view.h"
#include "platform/serial_port.h"
#include "platform/wall_clock.h"
#include "protocol/reply_dispatcher.h"
#include "scope/scope_controls.h"
#include "scope/waveform_display.h"

namespace vireon::app {

// What the program needs from the computer; each outlives the program.
struct ProgramPorts {
  platform::RawHid& hid;
  platform::SerialPort& serialPort;
  platform::MessagePump& pump;
  platform::MessageBoxes& messages;
  platform::SearchView& searchView;
  platform::Beeper& beeper;
  const platform::WallClock& clock;
  platform::FileStore& files;
  platform::FileDialogs& fileDialogs;
  platform::DocumentOpener& documents;
  platform::CompoundFiles& compoundFiles;
  DesktopPorts desktop;
};

// All parts of the program tied together, still without a toolkit, and the life of its window.
class Program {
 public:
  // `folder` is the program's own, where "vireon.ini" and the saved files lie.
  Program(const ProgramPorts& ports, const std::string& folder);
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;
  ~Program();

  // Reads the settings and prepares the window, which starts disconnected. Where there are none yet, finds
  // the instrument first and writes them; this pumps messages, for 8 s at most on the serial ports. False
  // when the program is to end: nothing usable was found and the user knows, or the user ended the search.
  bool Form_Load();

  // Offers to keep port and rate as they are now, on a serial link.
  void Form_QueryUnload();

  // Takes leave of an open instrument; the last thing before the window goes.
  void Form_Unload();

  // The window is asked to close. True when it may, then the two above have run. False while something is
  // under way on the link: that is ended where it can be, and closeLater is called after it.
  bool requestClose();

  // Asks the window to close at its next turn.
  std::function<void()> closeLater;

  form::MainForm form;
  protocol::InstrumentState state;
  link::LinkState link;
  protocol::ReplyInterpreter interpreter;
  protocol::ReplyDispatcher dispatcher;
  link::ConnectionControl connection;
  link::LongWork longWork;
  scope::WaveformDisplay waveform;
  scope::ScopeControls scopeControls;
  meter::MeterControls meterControls;
  meter::Sampling sampling;
  meter::RecordListing recordListing;
  meter::Recall recall;
  meter::LoggerControls loggerControls;
  files::FileCommands fileCommands;
  files::PrintOut printOut;
  files::ListPrint listPrint;
  capture::Viewer frmCapture;
  capture::ScreenPrint screenPrint;

 private:
  // An instrument of the family, in the texts of the settings file.
  struct Found {
    std::string caption;
    std::string modelId;
    std::string productId;
    std::string tabs;
  };

  void tie();
  void drawFrame();
  bool firstRun();
  bool findOnUsb();
  bool identify();
  bool deviceNotFound(const char* text);
  bool load();
  void writeSettings();
  void readSettings();
  void prepareWindow();

  platform::MessagePump& pump_;
  platform::MessageBoxes& messages_;
  platform::SearchView& searchView_;
  SettingsFile settings_;
  std::string settingsPath_;
  files::OutOfMemory outOfMemory_;
  std::optional<Found> unwritten_;  // what the first run found, until it stands in the settings file
  std::optional<link::Advice> usbAdvice_;
  bool loaded_ = false;
  bool cancelled_ = false;
  bool closeWanted_ = false;
};

}  // namespace vireon::app
