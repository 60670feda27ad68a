#pragma once

#include <functional>
#include <optional>
#include <string>

#include "form/main_form.h"
#include "link/advice.h"
#include "link/comm_control.h"
#include "link/link_state.h"
#include "link/operations.h"
#include "platform/message_box.h"
#include "platform/message_pump.h"
#include "platform/search_view.h"
#include "platform/serial_port.h"
#include "protocol/instrument_state.h"

namespace vireon::link {

// What the serial link needs from outside this room.
struct SerialPorts {
  platform::SerialPort& port;
  platform::MessagePump& pump;
  platform::MessageBoxes& messages;
  platform::SearchView& view;
};

// The serial half of the link: one command at a time, and the search for the instrument's port and rate.
// Every wait pumps messages, so handlers run inside it; what they send is parked until it ends.
class SerialLink {
 public:
  SerialLink(form::MainForm& form, protocol::InstrumentState& state, LinkState& link, Operations& operations,
             const SerialPorts& ports);
  SerialLink(const SerialLink&) = delete;
  SerialLink& operator=(const SerialLink&) = delete;
  ~SerialLink() = default;

  CommControl Mcom;

  // Takes a complete frame from rxBuf; rxLen counts its text.
  std::function<void()> dspRcv;

  // Opens the port comPort at baudRate anew; link.rxTimeout is set where that fails, and nothing is said.
  void com_open();

  // Sends a command and waits at most link.comWait milliseconds for its answer; link.rxDone, rxEnq or
  // rxTimeout tells the outcome. A command that was parked meanwhile is sent next and replaces `command`.
  // After a time-out the user is told and the window falls back to disconnected, unless a search or a probe
  // runs or the user ended the wait. A port that is not open sends nothing and counts as timed out.
  void trans_rs2(std::string& command);

  // Tries each port at each rate until an instrument of the family answers: at most 16 times 500 ms.
  // link.rxTimeout is set when none did; comPort and baudRate then hold the last pair tried, or the former
  // pair where the user ended the search. link.comWait is that of the pair held.
  void com_search();

  void Mcom_OnComm();
  void tmrCom_Timer();

  // Ends a running wait or search without a message.
  void endWait();

  // Closes the port, after the running exchange and its parked command if there is one.
  void closeWhenDone();

  // While this is set a time-out is the caller's to tell.
  bool probing = false;

 private:
  bool exchange(const std::string& command);
  void send(const std::string& command);
  bool collect();
  void takeFrame();
  bool tryPair(int port, int attempt);
  void takeArrived();
  void lost();
  void fail();

  form::MainForm& form_;
  protocol::InstrumentState& state_;
  LinkState& link_;
  Operations& operations_;
  platform::MessagePump& pump_;
  platform::MessageBoxes& messages_;
  platform::SearchView& view_;
  std::optional<Advice> refusal_;  // the first port of the running search that refused
  bool collecting_ = false;
  bool arrivedMeanwhile_ = false;
  bool closing_ = false;
  bool memoryRanOut_ = false;  // while an answer was taken in
};

}  // namespace vireon::link
