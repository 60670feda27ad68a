#pragma once

#include "simulator/usb_endpoint.h"
#include "tests/simulator/bench.h"
#include "tests/simulator/usb_host.h"

namespace vireon::simulator::tests {

// An instrument at the end of a USB cable, and a host.
struct Cable : Bench {
  UsbHost::End exchange(std::string_view command) { return host.exchange(command); }

  std::array<std::uint8_t, 64> report{};
  UsbEndpoint endpoint{instrument, clock};
  UsbHost host{endpoint};
};

}  // namespace vireon::simulator::tests
