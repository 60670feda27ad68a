#include "link/connection_control.h"

#include "link/sampling_switch.h"
#include "protocol/vocabulary.h"

namespace vireon::link {

ConnectionControl::ConnectionControl(form::MainForm& form, protocol::InstrumentState& state, LinkState& link,
                                     LinkPorts ports)
    : form_(form),
      state_(state),
      link_(link),
      messages_(ports.messages),
      beeper_(ports.beeper),
      apiUsb_(ports.hid, link, form.StatusBar1) {}

bool ConnectionControl::transKcmd(std::string_view command) {
  beeper_.beep();
  if (!link_.linkBusy) {
    return trans_usb(command);
  }
  link_.pendingCmd = command;
  link_.cmdPending = true;
  return true;
}

bool ConnectionControl::transUsbOnly(std::string_view command) {
  if (link_.onUsb()) {
    return trans_usb(command);
  }
  form_.StatusBar1.setPanel(1, "Works over USB only");
  return true;
}

void ConnectionControl::usbFail() {
  apiUsb_.closeDevice();
  form_.cmdStart.setBackColor(form::kButtonFace);
  form_.StatusBar1.setPanel(2, "Disconnected");
  messages_.show({"Connection Error", "Device not detected...Please check USB cable & connector.",
                  platform::MessageIcon::kCritical, platform::MessageButtons::kOk});
  switchSampling(form_, false);
  showConnected(false);
  lamps(form::kWhite, form::kWhite);
}

void ConnectionControl::cmdBttn_Click(int index) {
  if (index == 1) {
    release();
    if (unloadForm) {
      unloadForm();
    }
  } else if (connected()) {
    disconnect();
  } else {
    connect();
  }
}

void ConnectionControl::connect() {
  apiUsb_.closeDevice();
  if (!trans_usb(protocol::kQueryFunction) || (link_.onUsb() && !link_.usbOpen)) {
    return;
  }
  showConnected(true);
  form_.StatusBar1.setPanel(2, "Connected");
  if (form_.SSTab1.tab() == 1) {
    trans_usb(protocol::kQueryParameters);
  }
}

void ConnectionControl::disconnect() {
  showConnected(false);
  switchSampling(form_, false);
  if (link_.onUsb()) {
    trans_usb(protocol::kGoToLocal);
    apiUsb_.closeDevice();
  } else {
    transKcmd(protocol::kGoToLocal);
  }
  form_.StatusBar1.setPanel(2, "Disconnected");
}

void ConnectionControl::release() {
  if (link_.usbOpen) {
    trans_usb(protocol::kGoToLocal);
    apiUsb_.closeDevice();
  }
}

void ConnectionControl::showConnected(bool connected) {
  form_.cmdBttn[0].setBackColor(connected ? form::kLightGreen : form::kButtonFace);
  form_.cmdBttn[0].setCaption(connected ? "Disconnect" : "Connect");
  form_.SSTab1.setEnabled(connected);
  form_.cmdClock.setEnabled(connected);
  form_.picMscope.setEnabled(connected);
  form_.panDlog.setEnabled(connected);
  form_.panScon.setEnabled(connected);
  form_.cmdStart.setEnabled(connected);
  form_.txtSTime.setEnabled(connected);
}

}  // namespace vireon::link
