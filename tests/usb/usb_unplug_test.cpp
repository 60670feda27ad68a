#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <thread>

#include "tests/usb/measured.h"
#include "tests/usb/simulated_device.h"
#include "tests/usb/usb_program.h"

namespace vireon::tests {
namespace {

// A waveform exchange: the command, five reports of the answer, four requests between them.
constexpr int kWaveformReports = 10;

class UsbUnplug : public testing::Test {
 protected:
  // After the device took itself off the bus.
  void plugAgain() {
    ASSERT_TRUE(device.gadget.waitForNoHostNode());
    device.fault("none");
    device.plug();
  }

  void unplugAt(int report) { device.fault("unplug=" + std::to_string(report)); }

  SimulatedDevice device;
  UsbProgram usb;
};

TEST_F(UsbUnplug, AtEveryReportOfALiveFrameIsOneMessageAndLeavesACleanReconnect) {
  usb.load();
  usb.goLive();
  for (int report = 1; report <= kWaveformReports; ++report) {
    SCOPED_TRACE(report);
    const std::size_t before = usb.messages.count();
    unplugAt(report);
    usb.tick();
    usb.expectLost(before);
    plugAgain();
    usb.expectCleanReconnect();
  }
  unplugAt(kWaveformReports + 1);
  usb.tick();
  EXPECT_TRUE(usb.program.connection.connected());
}

TEST_F(UsbUnplug, AtEveryReportOfTheConnectingIsOneMessageAndLeavesACleanReconnect) {
  for (int report = 1; report <= 2; ++report) {
    SCOPED_TRACE(report);
    const std::size_t before = usb.messages.count();
    unplugAt(report);
    usb.form().cmdBttn[0].click();
    usb.expectLost(before);
    plugAgain();
    usb.expectCleanReconnect();
    usb.form().cmdBttn[0].click();
  }
}

TEST_F(UsbUnplug, BeforeTheConnectingIsOneMessageAndLeavesACleanReconnect) {
  usb.load();
  device.unplug();
  usb.form().cmdBttn[0].click();
  usb.expectLost();
  plugAgain();
  usb.expectCleanReconnect();
}

TEST_F(UsbUnplug, WhileNothingIsAskedIsToldByTheNextButton) {
  usb.load();
  usb.connect();
  device.unplug();
  EXPECT_EQ(usb.messages.count(), 0U);
  usb.form().cmdVu[0].click();
  usb.expectLost();
  plugAgain();
  usb.expectCleanReconnect();
}

TEST_F(UsbUnplug, AndPluggedInAgainWhileNothingIsAskedIsToldByTheNextButton) {
  usb.load();
  usb.connect();
  device.unplug();
  device.plug();
  usb.form().cmdVu[0].click();
  usb.expectLost();
  usb.expectCleanReconnect();
}

TEST_F(UsbUnplug, AtTheDisconnectingIsOneMessage) {
  usb.load();
  usb.goLive();
  device.unplug();
  usb.form().cmdBttn[0].click();
  usb.expectLost();
}

TEST_F(UsbUnplug, AtAnyMomentOfSamplingIsNoticedWhileTheCableIsStillInTheHand) {
  using Clock = std::chrono::steady_clock;
  constexpr int kTimes = 10;
  std::vector<Clock::duration> notices;
  usb.load();
  for (int time = 0; time < kTimes; ++time) {
    usb.goLive();
    const std::size_t before = usb.messages.count();
    Clock::time_point toldAt;
    usb.messages.whileOpen = [&](const platform::Message&) { toldAt = Clock::now(); };
    std::atomic<Clock::time_point> pulledAt{Clock::time_point{}};
    std::jthread hand([&] {
      std::this_thread::sleep_for(std::chrono::milliseconds(100 + 17 * time));
      pulledAt = Clock::now();
      device.process.control("unplug");
    });
    while (usb.program.connection.connected()) usb.tick();
    hand.join();
    usb.expectLost(before);
    notices.push_back(toldAt - pulledAt.load());
    plugAgain();
  }
  std::ranges::sort(notices);
  measured("an unplugged device is told of while sampling, median after", notices[kTimes / 2]);
  measured("an unplugged device is told of while sampling, at worst after", notices.back());
}

}  // namespace
}  // namespace vireon::tests
