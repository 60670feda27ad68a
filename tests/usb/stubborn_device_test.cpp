#include <gtest/gtest.h>

#include <array>
#include <chrono>

#include "tests/usb/measured.h"
#include "tests/usb/simulated_device.h"
#include "tests/usb/usb_program.h"

namespace vireon::tests {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

class StubbornDevice : public testing::Test {
 protected:
  StubbornDevice() { usb.load(); }

  // Fills what the gadget's side takes by itself while nobody reads there.
  void fillUp() {
    const auto own = usb.hid.open(usb.hid.list().at(0)).handle;
    ASSERT_NE(own, nullptr);
    const std::array<std::uint8_t, 65> empty{};
    for (int i = 0; i < 64; ++i) {
      if (own->write(empty) != platform::HidTransfer::kDone) return;
    }
    FAIL() << "the device takes everything";
  }

  SimulatedDevice device;
  UsbProgram usb;
};

TEST_F(StubbornDevice, ThatTakesNoReportIsGivenUpWithOneMessage) {
  usb.goLive();
  device.fault("stall");
  fillUp();
  const auto began = Clock::now();
  usb.tick();
  measured("a command that the device does not take is told of after", Clock::now() - began);
  usb.expectLost();
  device.fault("none");
  usb.expectCleanReconnect();
}

TEST_F(StubbornDevice, ThatTakesACommandButDoesNotCarryItOutIsGivenUpWithOneMessage) {
  usb.goLive();
  device.fault("stall");
  usb.tick();
  usb.expectLost();
  device.fault("none");
  usb.expectCleanReconnect();
}

TEST_F(StubbornDevice, ThatIsSilentIsGivenUpAfterSixSecondsWithOneMessage) {
  usb.goLive();
  device.fault("silence");
  const auto began = Clock::now();
  usb.tick();
  const auto waited = Clock::now() - began;
  EXPECT_GE(waited, 6s);
  measured("a silent device is told of after", waited);
  usb.expectLost();
  device.fault("none");
  usb.expectCleanReconnect();
}

}  // namespace
}  // namespace vireon::tests
