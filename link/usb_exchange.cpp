#include "link/connection_control.h"
#include "protocol/vocabulary.h"

namespace vireon::link {
namespace {

constexpr const char* kNoPermission = "No permission to open the instrument's device node";
constexpr const char* kPermissionHelp =
    "The instrument is plugged in, but this account may not read and write its /dev/hidraw node.\n"
    "A udev rule for vendor 10C4, products E001 to E004, with TAG+=\"uaccess\" gives that right.";

}  // namespace

bool ConnectionControl::trans_usb(std::string_view command) {
  if (!link_.onUsb()) {
    return !trans_rs2 || trans_rs2(command);
  }
  if (!link_.usbOpen && !openDevice()) {
    usbFail();
    return false;
  }
  form_.StatusBar1.setPanel(2, "Connected");
  lamps(form::kRed, form::kWhite);
  apiUsb_.prepareRead();
  if (!sendReports(command)) {
    return false;
  }
  lamps(form::kWhite, form::kGreen);
  return receiveReports();
}

// Searches the device; panel 1 tells while one is there that this account may not open.
bool ConnectionControl::openDevice() {
  const bool found = apiUsb_.findDevice();
  const bool refused = !found && apiUsb_.openError() == platform::HidOpenError::kNoPermission;
  if (refused || form_.StatusBar1.panel(1) == kNoPermission) {
    form_.StatusBar1.setPanel(1, refused ? kNoPermission : "");
    form_.StatusBar1.setToolTip(1, refused ? kPermissionHelp : "");
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
      lamps(form::kWhite, form::kWhite);
      return true;
    }
    apiUsb_.outReport[0] = protocol::kEot;
    if (!writeReport()) {
      return false;
    }
  }
  lamps(form::kWhite, form::kWhite);
  if (dspRcv) {
    dspRcv();
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

void ConnectionControl::lamps(form::Color transmit, form::Color receive) {
  form_.Txled[0].setFillColor(transmit);
  form_.Txled[1].setFillColor(receive);
  form_.Txled[0].refresh();
  form_.Txled[1].refresh();
}

}  // namespace vireon::link
