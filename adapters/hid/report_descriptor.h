#pragma once

#include <cstdint>
#include <span>

#include "platform/raw_hid.h"

namespace vireon::adapters {

struct ReportLayout {
  platform::HidCapabilities lengths;
  bool inputNumbered = false;  // input reports arrive with their identifier as first byte
};

// Reads the report lengths out of a HID report descriptor. Takes any bytes: the defaults stand for a
// direction that is not described, and for both where the descriptor is cut, contradicts itself, is longer
// than 4096 bytes or describes a report longer than 4096 bytes.
ReportLayout reportLayout(std::span<const std::uint8_t> descriptor);

}  // namespace vireon::adapters
