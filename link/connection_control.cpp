#include "link/connection_control.h"

#include "link/advice.h"
#include "link/at_end.h"
#include "link/window_state.h"
#include "protocol/scoped_flag.h"
#include "protocol/vocabulary.h"

namespace vireon::link {
namespace {

constexpr const char* kUsbOnly = "Works over USB only";

}  // namespace

ConnectionControl::ConnectionControl(form::MainForm& form, protocol::InstrumentState& state, LinkState& link,
                                     const LinkPorts& ports)
    : form_(form),
      state_(state),
      link_(link),
      messages_(ports.messages),
      beeper_(ports.beeper),
      apiUsb_(ports.hid, link, form.StatusBar1),
      operations_(link),
      serial_(form, state, link, operations_,
              {ports.serialPort, ports.pump, ports.messages, ports.searchView}) {}

void ConnectionControl::onFrame(const std::function<void()>& dspRcv) {
  dspRcv_ = dspRcv;
  serial_.dspRcv = dspRcv;
}

bool ConnectionControl::transKcmd(std::string_view command) {
  if (hasLeft_) {
    return false;
  }
  beeper_.beep();
  if (form_.StatusBar1.panel(1) == kUsbOnly) {
    form_.StatusBar1.setPanel(1, "");
  }
  if (!link_.linkBusy) {
    return trans_usb(command);
  }
  link_.pendingCmd = command;
  link_.cmdPending = true;
  return true;
}

bool ConnectionControl::transUsbOnly(std::string_view command) {
  return !onUsbOrSaysSo() || trans_usb(command);
}

bool ConnectionControl::onUsbOrSaysSo() {
  if (!link_.onUsb()) {
    form_.StatusBar1.setPanel(1, kUsbOnly);
  }
  return link_.onUsb();
}

Outcome ConnectionControl::ask(std::string_view command) {
  state_.enqSeen = false;
  if (!onUsbOrSaysSo() || !trans_usb(command)) {
    return Outcome::kFailed;
  }
  if (link_.usbResult != 1) {
    return Outcome::kIncomplete;
  }
  return state_.enqSeen ? Outcome::kRefused : Outcome::kAnswered;
}

void ConnectionControl::usbFail() {
  // The window falls back even where memory runs out before the message.
  const FallBack fallBackInTheEnd(form_);
  apiUsb_.closeDevice();
  form_.cmdStart.setBackColor(form::kButtonFace);
  form_.StatusBar1.setPanel(2, "Disconnected");
  if (failuresAreTold) {
    messages_.show({"Connection Error", "Device not detected...Please check USB cable & connector.",
                    platform::MessageIcon::kCritical, platform::MessageButtons::kOk});
  }
}

void ConnectionControl::cmdBttn_Click(int index) {
  if (index == 1) {
    // What is under way ends first; the window takes leave of the instrument when it goes.
    if (!operations_.running()) {
      release();
    }
    if (unloadForm) {
      unloadForm();
    }
  } else if (connected()) {
    disconnect();
  } else if (!hasLeft_ && !link_.linkBusy && !link_.portSearch) {
    connect();
  }
}

void ConnectionControl::connect() {
  const Operations::Scope operation(operations_);
  if (form_.StatusBar1.panel(1) == kUsbOnly) {
    form_.StatusBar1.setPanel(1, "");
  }
  if (link_.onUsb()) {
    apiUsb_.closeDevice();
    if (!trans_usb(protocol::kQueryFunction) || !link_.usbOpen) {
      return;
    }
  } else if (!probeSerial()) {
    return;
  }
  showConnected(form_, true);
  form_.StatusBar1.setPanel(2, "Connected");
  if (form_.SSTab1.tab() == 1) {
    trans_usb(protocol::kQueryParameters);
  }
}

// Opens the port and asks once; as long as nothing answers, searches as often as the user wants.
bool ConnectionControl::probeSerial() {
  clearAdvice(form_);
  serial_.com_open();
  if (const auto advice = adviceFor(serial_.Mcom.openResult()); advice && !serial_.Mcom.PortOpen()) {
    showAdvice(form_, *advice);
  }
  {
    const protocol::ScopedFlag probing(serial_.probing);
    trans_usb(protocol::kQueryFunction);
  }
  while (link_.rxTimeout && !link_.waitEnded) {
    const auto answer = messages_.show({"Communication Error",
                                        "Please check the communication cable & connector.\r\n"
                                        "Re-search the ComPort and BaudRate with automatic?.",
                                        platform::MessageIcon::kCritical, platform::MessageButtons::kYesNo});
    if (answer != platform::MessageAnswer::kYes) {
      break;
    }
    serial_.com_search();
  }
  if (!link_.rxTimeout) {
    return true;
  }
  serial_.Mcom.PortOpen(false);
  return false;
}

void ConnectionControl::disconnect() {
  const Operations::Scope operation(operations_);
  showConnected(form_, false);
  switchSampling(form_, false);
  if (link_.onUsb()) {
    trans_usb(protocol::kGoToLocal);
    apiUsb_.closeDevice();
  } else {
    transKcmd(protocol::kGoToLocal);
    serial_.closeWhenDone();
  }
  form_.StatusBar1.setPanel(2, "Disconnected");
}

void ConnectionControl::release() {
  if (link_.usbOpen) {
    trans_usb(protocol::kGoToLocal);
    apiUsb_.closeDevice();
  }
}

void ConnectionControl::leave() {
  const AtEnd forGood([this] { hasLeft_ = true; });
  release();
}

}  // namespace vireon::link
