#include "adapters/hid/hidapi_port.h"

#include <algorithm>
#include <utility>

#include "adapters/hid/hidapi_handle.h"
#include "adapters/hid/hidapi_library.h"
#include "adapters/hid/report_descriptor.h"

namespace vireon::adapters {

using platform::HidNode;
using platform::HidOpenError;
using platform::HidOpenResult;

HidapiPort::HidapiPort(NodeProbe probe, MonotonicClock clock, NodePatience patience)
    : library_(std::make_shared<HidapiLibrary>()),
      probe_(std::move(probe)),
      clock_(std::move(clock)),
      patience_(std::move(patience)) {}

std::vector<HidNode> HidapiPort::list() {
  std::vector<HidNode> nodes;
  if (!library_->ready()) return nodes;
  // The library gives one entry for each usage of a node, and no path where the node is just going away.
  const EnumerationPtr first(hid_enumerate(0, 0));
  for (const hid_device_info* entry = first.get(); entry != nullptr; entry = entry->next) {
    if (entry->path == nullptr || std::ranges::find(nodes, entry->path, &HidNode::path) != nodes.end()) {
      continue;
    }
    nodes.push_back({.path = entry->path, .vendorId = entry->vendor_id, .productId = entry->product_id});
  }
  return nodes;
}

HidOpenResult HidapiPort::open(const HidNode& node) {
  if (!library_->ready()) return {.handle = nullptr, .error = HidOpenError::kFailed};
  // Version 0.13.1 writes to freed memory when a node opens but does not answer as a HID node, so nothing
  // reaches the library unchecked. The check stays open meanwhile: the first open of a USB node takes the
  // kernel 50 ms, in which the device may be pulled out; one on top of it takes microseconds.
  const NodeCheck check = patience_.open(
      node.path, [&] { return probe_(node.path); },
      [](const NodeCheck& outcome) { return outcome.error == HidOpenError::kNoPermission; });
  if (check.error != HidOpenError::kNone) return {.handle = nullptr, .error = check.error};
  DevicePtr device(hid_open_path(node.path.c_str()));
  if (!device) {
    const HidOpenError reason = probe_(node.path).error;
    return {.handle = nullptr, .error = reason == HidOpenError::kNone ? HidOpenError::kFailed : reason};
  }
  return {.handle = std::make_unique<HidapiHandle>(library_, std::move(device),
                                                   reportLayout(check.reportDescriptor), clock_),
          .error = HidOpenError::kNone};
}

}  // namespace vireon::adapters
