#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "form/main_form.h"
#include "link/api_usb.h"
#include "link/link_state.h"
#include "link/operations.h"
#include "link/serial_link.h"
#include "platform/beeper.h"
#include "platform/message_box.h"
#include "protocol/instrument_state.h"

namespace vireon::link {

// What the connection needs from outside this room.
struct LinkPorts {
  platform::RawHid& hid;
  platform::MessageBoxes& messages;
  platform::Beeper& beeper;
  platform::SerialPort& serialPort;
  platform::MessagePump& pump;
  platform::SearchView& searchView;
};

// What became of a command.
enum class Outcome {
  kAnswered,
  kRefused,     // by the instrument
  kIncomplete,  // the answer was longer than any; none of it was taken in
  kFailed,      // the link failed and the user has been told
};

// The failure that led to a settings query.
struct ErrorRecord {
  int number = 0;
  std::string description;
};

// The one door through which commands reach the instrument, and the connect and exit buttons.
// Whether the window is connected is shown, and tested, by the back colour of cmdBttn(0).
class ConnectionControl {
 public:
  ConnectionControl(form::MainForm& form, protocol::InstrumentState& state, LinkState& link,
                    const LinkPorts& ports);

  // Takes a complete frame from rxBuf, of either link.
  void onFrame(const std::function<void()>& dspRcv);

  // Ends the program after the exit button has taken leave of the instrument.
  std::function<void()> unloadForm;

  // Beeps and sends the command over the active link, or parks it while a serial exchange runs (only the
  // latest is kept). Returns False when the link failed and said so.
  bool transKcmd(std::string_view command);

  // Sends the command over the active link and takes the answer in. Blocks until the answer is complete, at
  // most 6 s for each report. Returns False when the failure path ran: the window is disconnected and the
  // user has been told. While a serial exchange runs it parks the command and returns True at once.
  bool trans_usb(std::string_view command);

  // Sends over USB only: on a serial link nothing is sent and status-bar panel 1 says so.
  bool transUsbOnly(std::string_view command);

  // Whether the active link is USB; where it is not, status-bar panel 1 says that this needs it.
  bool onUsbOrSaysSo();

  // Sends over USB, without a beep, and tells what became of it; forgets earlier refusals (enqSeen). On a
  // serial link kFailed, and status-bar panel 1 says why.
  Outcome ask(std::string_view command);

  // Closes the device, falls back to the disconnected state and tells the user, unless failuresAreTold is
  // False.
  void usbFail();

  // Whether usbFail shows its message; at start-up others tell of the failure.
  bool failuresAreTold = true;

  // 0 connects or disconnects, 1 exits. Connecting is ignored while a serial exchange or search runs.
  void cmdBttn_Click(int index);

  // Queries all settings of the scope after the instrument has acknowledged; without an acknowledge, or after
  // a time-out, shows `failure` instead.
  void initCmd(const ErrorRecord& failure = {});

  // Whether an exchange, a connection or a search is under way; a request to close the window waits for its
  // end. A wait on the serial link is ended by endWait() at once, without a message.
  const Operations& operations() const { return operations_; }
  Operations& operations() { return operations_; }
  void endWait() { serial_.endWait(); }

  // Takes leave of an open USB device and closes it; returns at once when none is open.
  void release();
  // The same for good: the window goes, and what comes after it sends nothing and opens nothing.
  void leave();

  bool connected() const { return form_.cmdBttn[0].backColor() == form::kLightGreen; }

  ApiUsb& apiUsb() { return apiUsb_; }
  SerialLink& serial() { return serial_; }

 private:
  bool openDevice();
  bool writeReport();
  bool sendReports(std::string_view command);
  bool receiveReports();
  bool takeReport();
  void connect();
  bool probeSerial();
  void disconnect();

  form::MainForm& form_;
  protocol::InstrumentState& state_;
  LinkState& link_;
  platform::MessageBoxes& messages_;
  platform::Beeper& beeper_;
  ApiUsb apiUsb_;
  Operations operations_;
  SerialLink serial_;
  std::function<void()> dspRcv_;
  bool hasLeft_ = false;
};

}  // namespace vireon::link
