#include <gtest/gtest.h>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <string_view>

#include "tests/usb/measured.h"
#include "tests/usb/simulated_device.h"
#include "tests/usb/usb_program.h"
#include "tests/usb/waiting.h"

namespace vireon::tests {
namespace {

constexpr int kControllers = 4;  // the kernel plays no more HID gadgets at a time

// How often to plug: VIREON_USB_CYCLES, or 1000.
int cycles() {
  const char* const wanted = std::getenv("VIREON_USB_CYCLES");
  int count = 1000;
  if (wanted != nullptr) {
    const std::string_view text(wanted);
    std::from_chars(text.data(), text.data() + text.size(), count);
  }
  return count;
}

// The kernel takes its time to welcome a device, so several take turns: while one is driven the others come
// back.
class PlugCycles : public testing::Test {
 protected:
  PlugCycles() {
    for (int controller = 0; controller < kControllers; ++controller) {
      devices.push_back(std::make_unique<SimulatedDevice>(simulator::Model::kK7310, controller));
    }
  }

  // The device that the program holds open.
  SimulatedDevice& driven() {
    const auto nodes = openHostNodes();
    const auto found = std::ranges::find_if(devices, [&nodes](const auto& device) {
      return !nodes.empty() && device->gadget.hostNode() == nodes.front();
    });
    if (found == devices.end()) throw std::runtime_error("no device is driven");
    return **found;
  }

  std::vector<std::unique_ptr<SimulatedDevice>> devices;
  UsbProgram usb;
};

TEST_F(PlugCycles, EachEndInOneMessageAndACleanReconnect) {
  const int count = cycles();
  const auto began = std::chrono::steady_clock::now();
  for (int cycle = 0; cycle < count; ++cycle) {
    SCOPED_TRACE(cycle);
    ASSERT_TRUE(waitUntil([this] { return !usb.hid.list().empty(); }));
    usb.goLive();
    ASSERT_TRUE(usb.program.connection.connected());
    SimulatedDevice& device = driven();
    const std::size_t before = usb.messages.count();
    device.unplug();
    usb.tick();
    usb.expectLost(before);
    EXPECT_EQ(device.process.control("plug"), "");
    ASSERT_FALSE(HasFailure());
  }
  const std::chrono::nanoseconds whole = std::chrono::steady_clock::now() - began;
  EXPECT_EQ(usb.messages.count(), static_cast<std::size_t>(count));
  measured("plug cycles", count, "in all");
  measured("a plug cycle takes", whole / std::max(count, 1));
}

}  // namespace
}  // namespace vireon::tests
