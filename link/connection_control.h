#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "form/main_form.h"
#include "link/api_usb.h"
#include "link/link_state.h"
#include "platform/beeper.h"
#include "platform/message_box.h"
#include "protocol/instrument_state.h"

namespace vireon::link {

// What the connection needs from outside this room.
struct LinkPorts {
  platform::RawHid& hid;
  platform::MessageBoxes& messages;
  platform::Beeper& beeper;
};

// The one door through which commands reach the instrument, and the connect and exit buttons.
// Whether the window is connected is shown, and tested, by the back colour of cmdBttn(0).
class ConnectionControl {
 public:
  ConnectionControl(form::MainForm& form, protocol::InstrumentState& state, LinkState& link, LinkPorts ports);

  // Takes a complete frame from rxBuf.
  std::function<void()> dspRcv;

  // Sends a command over the serial link; returns False when its failure path ran.
  std::function<bool(std::string_view command)> trans_rs2;

  // Ends the program after the exit button has taken leave of the instrument.
  std::function<void()> unloadForm;

  // Beeps and sends the command over the active link, or parks it while a serial exchange runs (only the
  // latest is kept). Returns False when the link failed and said so.
  bool transKcmd(std::string_view command);

  // Sends the command over the active link and takes the answer in. Blocks until the answer is complete, at
  // most 6 s for each report. Returns False when the failure path ran: the window is disconnected and the
  // user has been told.
  bool trans_usb(std::string_view command);

  // Sends over USB only: on a serial link nothing is sent and status-bar panel 1 says so.
  bool transUsbOnly(std::string_view command);

  // Closes the device, falls back to the disconnected state and tells the user.
  void usbFail();

  // 0 connects or disconnects, 1 exits.
  void cmdBttn_Click(int index);

  // Takes leave of an open USB device and closes it; returns at once when none is open.
  void release();

  // Marks the connect button and enables or disables the controls that work only while connected; the
  // window starts disconnected.
  void showConnected(bool connected);

  bool connected() const { return form_.cmdBttn[0].backColor() == form::kLightGreen; }

  ApiUsb& apiUsb() { return apiUsb_; }

 private:
  bool openDevice();
  bool writeReport();
  bool sendReports(std::string_view command);
  bool receiveReports();
  bool takeReport();
  void lamps(form::Color transmit, form::Color receive);
  void connect();
  void disconnect();

  form::MainForm& form_;
  protocol::InstrumentState& state_;
  LinkState& link_;
  platform::MessageBoxes& messages_;
  platform::Beeper& beeper_;
  ApiUsb apiUsb_;
};

}  // namespace vireon::link
