#include <new>

#include "link/advice.h"
#include "link/connection_control.h"
#include "link/window_state.h"
#include "protocol/vocabulary.h"

namespace vireon::link {

bool ConnectionControl::trans_usb(std::string_view command) {
  if (hasLeft_) {
    return false;
  }
  if (!link_.onUsb()) {
    std::string text(command);
    serial_.trans_rs2(text);
    return !link_.rxTimeout;
  }
  const Operations::Scope operation(operations_);
  if (!link_.usbOpen && !openDevice()) {
    usbFail();
    return false;
  }
  form_.StatusBar1.setPanel(2, "Connected");
  try {
    showLamps(form_, form::kRed, form::kWhite);
    apiUsb_.prepareRead();
    if (!sendReports(command)) {
      return false;
    }
    showLamps(form_, form::kWhite, form::kGreen);
    return receiveReports();
  } catch (const std::bad_alloc&) {
    showLamps(form_, form::kWhite, form::kWhite);
    throw;
  }
}

// Searches the device; panel 1 tells while one is there that this account may not open.
bool ConnectionControl::openDevice() {
  const bool found = apiUsb_.findDevice();
  clearAdvice(form_);
  if (const auto advice = adviceFor(apiUsb_.openError(), apiUsb_.triedNode()); advice && !found) {
    showAdvice(form_, *advice);
  }
  return found;
}

// Writes outReport; False when that failed and the failure path ran.
bool ConnectionControl::writeReport() {
  apiUsb_.writeReport();
  if (link_.usbResult == 1) {
    return true;
  }
  apiUsb_.prepareRead();
  usbFail();
  return false;
}

bool ConnectionControl::sendReports(std::string_view command) {
  auto& out = apiUsb_.outReport;
  std::size_t txPos = 0;
  std::size_t j = 0;
  out[j++] = protocol::kStx;
  if (link_.usbPrefix) {
    out[j++] = 254;
    out[j++] = 253;
    link_.usbPrefix = false;
  }
  for (bool pktEnd = false; !pktEnd; j = 0) {
    while (j < ApiUsb::kPayload && !pktEnd) {
      pktEnd = txPos == command.size();
      out[j++] = pktEnd ? protocol::kEtx : static_cast<std::uint8_t>(command[txPos++]);
    }
    if (!writeReport()) {
      return false;
    }
  }
  return true;
}

bool ConnectionControl::receiveReports() {
  state_.rxLen = 0;
  for (;;) {
    apiUsb_.readReport();
    if (link_.usbResult != 1) {
      usbFail();
      return false;
    }
    try {
      if (takeReport()) {
        break;
      }
    } catch (const form::Fault&) {
      link_.usbResult = 0;
      showLamps(form_, form::kWhite, form::kWhite);
      return true;
    }
    apiUsb_.outReport[0] = protocol::kEot;
    if (!writeReport()) {
      return false;
    }
  }
  showLamps(form_, form::kWhite, form::kWhite);
  if (dspRcv_) {
    dspRcv_();
  }
  return true;
}

// Appends the report to rxBuf; True when it held the ETX, rxLen then counts the text alone.
// Faults (kBounds) when rxBuf or the report is too short.
bool ConnectionControl::takeReport() {
  for (std::size_t k = 1; k <= ApiUsb::kPayload; ++k) {
    if (k >= apiUsb_.inReport.size() || state_.rxLen >= protocol::InstrumentState::kBufferSize) {
      throw form::Fault(form::FaultKind::kBounds);
    }
    const std::uint8_t byte = apiUsb_.inReport[k];
    state_.rxBuf[static_cast<std::size_t>(state_.rxLen++)] = byte;
    if (byte == protocol::kEtx) {
      state_.rxLen = state_.rxLen < 2 ? 0 : state_.rxLen - 2;
      return true;
    }
  }
  return false;
}

}  // namespace vireon::link
