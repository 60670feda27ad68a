#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "adapters/posix/file_descriptor.h"
#include "platform/raw_hid.h"

namespace vireon::adapters {

// What a look at a device node found. The last two members are set only where error is kNone.
struct NodeCheck {
  platform::HidOpenError error = platform::HidOpenError::kNone;
  std::vector<std::uint8_t> reportDescriptor;  // empty where the system does not offer it
  FileDescriptor heldOpen;                     // the node, open for as long as this value lives
};

using NodeProbe = std::function<NodeCheck(const std::string& path)>;

// Tells whether the path is a HID node that this account may read and write, now.
NodeCheck probeHidrawNode(const std::string& path);

// The reason that an errno value of a failed open or look-up stands for.
platform::HidOpenError openErrorOf(int errnoValue);

}  // namespace vireon::adapters
