#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace vireon::platform {

// One HID node that the system lists now. A node is listed once, however many usages it has.
struct HidNode {
  std::string path;             // opens the node, e.g. "/dev/hidraw3"
  std::uint16_t vendorId = 0;   // USB idVendor
  std::uint16_t productId = 0;  // USB idProduct
};

// Lengths in bytes of the longest reports, the report identifier at byte 0 included.
struct HidCapabilities {
  std::size_t inputReportLength = 65;
  std::size_t outputReportLength = 65;
};

enum class HidTransfer {
  kDone,
  kTimedOut,     // nothing arrived within the time-out; the handle stays usable
  kWrongLength,  // a report of another length than announced arrived and was dropped
  kFailed,       // the device is gone or refuses; the handle is useless from now on
};

enum class HidOpenError {
  kNone,
  kNotFound,      // the node vanished since it was listed, or is no HID node
  kNoPermission,  // the node is there but this account may not read and write it
  kFailed,        // any other reason, e.g. out of file descriptors
};

// An open node. Destruction closes it. Used by one thread at a time.
class HidHandle {
 public:
  HidHandle() = default;
  HidHandle(const HidHandle&) = delete;
  HidHandle& operator=(const HidHandle&) = delete;
  virtual ~HidHandle() = default;

  // From the device's report descriptor where the system offers it, 65 and 65 otherwise.
  virtual HidCapabilities capabilities() const = 0;

  // Sends one output report; `report[0]` is the report identifier and the span is
  // capabilities().outputReportLength bytes (a span of another size gives kWrongLength and sends nothing).
  // Blocks until the device took it; a device that takes no data gives kFailed after the system's own limit
  // (about 5 s). Never kTimedOut.
  virtual HidTransfer write(std::span<const std::uint8_t> report) = 0;

  // Waits for one input report, at most `timeout`. On kDone `report`, capabilities().inputReportLength
  // bytes (another size gives kWrongLength at once), holds the report identifier at element 0, which is 0
  // where reports are not numbered, and the payload from element 1; otherwise its content is unspecified.
  // A signal to the process does not end the wait.
  virtual HidTransfer read(std::span<std::uint8_t> report, std::chrono::milliseconds timeout) = 0;

  // Drops every report that arrived and was not read. Returns at once.
  virtual void discardInput() = 0;
};

struct HidOpenResult {
  std::unique_ptr<HidHandle> handle;  // null unless error is kNone
  HidOpenError error = HidOpenError::kNone;
};

// The system's HID nodes.
class RawHid {
 public:
  RawHid() = default;
  RawHid(const RawHid&) = delete;
  RawHid& operator=(const RawHid&) = delete;
  virtual ~RawHid() = default;

  // All HID nodes present, in the system's order; empty when there are none or they cannot be listed.
  virtual std::vector<HidNode> list() = 0;

  // Opens a node for reading and writing. It may be opened more than once; each handle sees every
  // input report that arrives while it is open.
  virtual HidOpenResult open(const HidNode& node) = 0;
};

}  // namespace vireon::platform
