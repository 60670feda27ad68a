#pragma once

#include <chrono>
#include <memory>
#include <vector>

#include "adapters/hid/monotonic_clock.h"
#include "adapters/hid/node_probe.h"
#include "adapters/posix/node_patience.h"
#include "platform/raw_hid.h"

namespace vireon::adapters {

class HidapiLibrary;

// The system's HID nodes through the library hidapi.
class HidapiPort final : public platform::RawHid {
 public:
  explicit HidapiPort(NodeProbe probe = probeHidrawNode,
                      MonotonicClock clock = std::chrono::steady_clock::now, NodePatience patience = {});

  std::vector<platform::HidNode> list() override;

  // Waits up to a second for the permissions of a node that has just appeared.
  // A null handle is "not found" to the user whatever the error; the error serves the advice on permissions.
  platform::HidOpenResult open(const platform::HidNode& node) override;

 private:
  std::shared_ptr<HidapiLibrary> library_;
  NodeProbe probe_;
  MonotonicClock clock_;
  NodePatience patience_;
};

}  // namespace vireon::adapters
