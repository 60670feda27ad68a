#pragma once

#include "platform/raw_hid.h"
#include "simulator/model.h"
#include "simulator/usb_endpoint.h"

namespace vireon::app {

// The simulated instrument as the only HID node of the system, listed while it is plugged in. An open handle
// fails for good once it has met an unplugged device.
class SimulatedHid : public platform::RawHid {
 public:
  // `endpoint` outlives this object and the handles.
  SimulatedHid(simulator::UsbEndpoint& endpoint, simulator::Model model);

  std::vector<platform::HidNode> list() override;
  platform::HidOpenResult open(const platform::HidNode& node) override;

 private:
  simulator::UsbEndpoint& endpoint_;
  platform::HidNode node_;
};

}  // namespace vireon::app
