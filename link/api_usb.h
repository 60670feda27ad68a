#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "form/status_bar.h"
#include "link/link_state.h"
#include "platform/raw_hid.h"

namespace vireon::link {

// Finds the instrument among the HID nodes and moves single reports; one device at a time.
class ApiUsb {
 public:
  static constexpr std::uint16_t kVendorId = 0x10C4;
  static constexpr std::size_t kPayload = 64;  // bytes of a report after its identifier
  static constexpr std::chrono::milliseconds kReadTimeOut{6000};

  ApiUsb(platform::RawHid& hid, LinkState& link, form::StatusBar& statusBar)
      : hid_(hid), link_(link), statusBar_(statusBar) {}

  // Payload of the next output report from element 0 on; the 65th element is never sent in a 65-byte report.
  std::array<std::uint8_t, kPayload + 1> outReport{};

  // The last input report; element 0 is the report identifier.
  std::vector<std::uint8_t> inReport;

  // Hears the name of each platform call that readReport and closeDevice make; for diagnostics alone.
  std::function<void(std::string_view)> onPlatformCall;

  // Searches the node with kVendorId and link.usbProductId and opens it twice, for writing and for reading.
  // Returns, and stores in link.usbOpen, whether that succeeded. Handles of an earlier search are closed.
  bool findDevice();

  // Why the last search opened nothing: kNotFound when no node matched.
  platform::HidOpenError openError() const { return openError_; }

  // The last node that the last search tried to open; empty when none matched.
  const std::string& triedNode() const { return triedNode_; }

  // Drops the reports left over from an earlier exchange.
  void prepareRead();

  // Sends outReport; link.usbResult is 1 on success. The handles stay open on failure.
  void writeReport();

  // Waits up to kReadTimeOut for one report into inReport; link.usbResult is 1 on success, otherwise 0 with
  // both handles closed and "Disconnected" in status-bar panel 2.
  void readReport();

  // Closes both handles; link.usbOpen is False afterwards.
  void closeDevice();

 private:
  void getCaps();
  void called(std::string_view platformCall) const;

  platform::RawHid& hid_;
  LinkState& link_;
  form::StatusBar& statusBar_;
  std::unique_ptr<platform::HidHandle> hidHandle_;   // writes
  std::unique_ptr<platform::HidHandle> readHandle_;  // reads
  platform::HidCapabilities hidCaps_;
  platform::HidOpenError openError_ = platform::HidOpenError::kNone;
  std::string triedNode_;
  std::vector<std::uint8_t> writeBuffer_;
};

}  // namespace vireon::link
