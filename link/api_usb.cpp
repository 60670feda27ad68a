#include "link/api_usb.h"

#include <algorithm>

namespace vireon::link {

bool ApiUsb::findDevice() {
  closeDevice();
  openError_ = platform::HidOpenError::kNotFound;
  triedNode_.clear();
  for (const platform::HidNode& node : hid_.list()) {
    if (node.vendorId != kVendorId || node.productId != static_cast<std::uint16_t>(link_.usbProductId)) {
      continue;
    }
    triedNode_ = node.path;
    platform::HidOpenResult forWriting = hid_.open(node);
    openError_ = forWriting.error;
    if (forWriting.handle == nullptr) {
      continue;
    }
    platform::HidOpenResult forReading = hid_.open(node);
    openError_ = forReading.error;
    if (forReading.handle == nullptr) {
      continue;
    }
    hidHandle_ = std::move(forWriting.handle);
    readHandle_ = std::move(forReading.handle);
    getCaps();
    prepareRead();
    link_.usbOpen = true;
    return true;
  }
  return false;
}

void ApiUsb::getCaps() {
  hidCaps_ = hidHandle_->capabilities();
}

void ApiUsb::prepareRead() {
  if (readHandle_ != nullptr) {
    readHandle_->discardInput();
  }
}

void ApiUsb::writeReport() {
  link_.usbResult = 0;
  if (hidHandle_ == nullptr) {
    return;
  }
  writeBuffer_.assign(hidCaps_.outputReportLength, 0);
  const std::size_t payload = std::min(outReport.size(), writeBuffer_.size() - 1);
  std::copy_n(outReport.begin(), payload, writeBuffer_.begin() + 1);
  if (hidHandle_->write(writeBuffer_) == platform::HidTransfer::kDone) {
    link_.usbResult = 1;
  }
}

void ApiUsb::readReport() {
  link_.usbResult = 0;
  inReport.assign(hidCaps_.inputReportLength, 0);
  auto outcome = platform::HidTransfer::kFailed;
  if (readHandle_ != nullptr) {
    outcome = readHandle_->read(inReport, kReadTimeOut);
    called("ReadFile");
  }
  if (outcome == platform::HidTransfer::kDone) {
    link_.usbResult = 1;
    return;
  }
  if (outcome == platform::HidTransfer::kTimedOut) {
    prepareRead();
    called("CancelIo");
  }
  closeDevice();
  statusBar_.setPanel(2, "Disconnected");
}

void ApiUsb::closeDevice() {
  if (hidHandle_ != nullptr) {
    hidHandle_.reset();
    called("CloseHandle (HIDHandle)");
  }
  if (readHandle_ != nullptr) {
    readHandle_.reset();
    called("CloseHandle (ReadHandle)");
  }
  link_.usbOpen = false;
}

void ApiUsb::called(std::string_view platformCall) const {
  if (onPlatformCall) {
    onPlatformCall(platformCall);
  }
}

}  // namespace vireon::link
