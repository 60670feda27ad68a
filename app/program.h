#pragma once

#include "form/main_form.h"
#include "link/connection_control.h"
#include "meter/logger_controls.h"
#include "meter/meter_controls.h"
#include "meter/sampling.h"
#include "platform/beeper.h"
#include "platform/message_box.h"
#include "platform/raw_hid.h"
#include "platform/wall_clock.h"
#include "protocol/reply_dispatcher.h"
#include "scope/scope_controls.h"
#include "scope/waveform_display.h"

namespace vireon::app {

// What the program needs from the computer; each outlives the program.
struct ProgramPorts {
  platform::RawHid& hid;
  platform::MessageBoxes& messages;
  platform::Beeper& beeper;
  const platform::WallClock& clock;
};

// All parts of the program tied together, still without a toolkit.
class Program {
 public:
  explicit Program(const ProgramPorts& ports);

  // Looks for an instrument on USB, asks it for its identity when there is one, and prepares the window,
  // which starts disconnected.
  void load();

  // Takes leave of an open instrument; the last thing before the window goes.
  void unload() { connection.release(); }

  form::MainForm form;
  protocol::InstrumentState state;
  link::LinkState link;
  protocol::ReplyInterpreter interpreter;
  protocol::ReplyDispatcher dispatcher;
  link::ConnectionControl connection;
  scope::WaveformDisplay waveform;
  scope::ScopeControls scopeControls;
  meter::MeterControls meterControls;
  meter::Sampling sampling;
  meter::LoggerControls loggerControls;

 private:
  void tie();
  bool findInstrument();
  void identify();
  void connectOrDisconnect();
  void showModel();
  void prepareWindow();
};

}  // namespace vireon::app
