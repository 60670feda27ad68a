#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <thread>

#include "adapters/hid/hidapi_port.h"
#include "adapters/posix/file_descriptor.h"
#include "tests/usb/gadget.h"
#include "tests/usb/interval_timer.h"
#include "tests/usb/measured.h"
#include "tests/usb/waiting.h"

namespace vireon::adapters {
namespace {

using namespace std::chrono_literals;
using platform::HidTransfer;
using Report = std::array<std::uint8_t, 65>;
using tests::Gadget;

// The host's adapter on a device whose far end the test holds itself.
class RawReport : public testing::Test {
 protected:
  RawReport() {
    gadget.plug();
    device = adapters::FileDescriptor(::open(gadget.deviceNode().c_str(), O_RDWR | O_CLOEXEC));
  }

  static Report counted(std::uint8_t first) {
    Report report{};
    std::uint8_t next = first;
    std::generate(report.begin() + 1, report.end(), [&next] { return next++; });
    return report;
  }

  void send(const Report& report) { ASSERT_EQ(::write(device.number(), &report[1], 64), 64); }

  Report taken() const {
    Report report{};
    EXPECT_EQ(::read(device.number(), &report[1], 64), 64);
    return report;
  }

  std::unique_ptr<platform::HidHandle> opened() {
    const auto nodes = port.list();
    EXPECT_EQ(nodes.size(), 1U);
    return nodes.empty() ? nullptr : port.open(nodes.front()).handle;
  }

  Gadget gadget{{}};
  adapters::FileDescriptor device;
  HidapiPort port;
};

TEST_F(RawReport, ANodeIsListedOnceWithItsIdentifiers) {
  const auto nodes = port.list();
  ASSERT_EQ(nodes.size(), 1U);
  EXPECT_EQ(nodes[0].path, gadget.hostNode());
  EXPECT_EQ(nodes[0].vendorId, 0x10C4);
  EXPECT_EQ(nodes[0].productId, 0xE001);
}

TEST_F(RawReport, LengthsAreThoseOfTheDevicesDescriptor) {
  const auto handle = opened();
  ASSERT_NE(handle, nullptr);
  EXPECT_EQ(handle->capabilities().inputReportLength, 65U);
  EXPECT_EQ(handle->capabilities().outputReportLength, 65U);

  Gadget shorter({}, 1, 32);
  shorter.plug();
  const auto other = port.open({.path = shorter.hostNode().value_or("")}).handle;
  ASSERT_NE(other, nullptr);
  EXPECT_EQ(other->capabilities().inputReportLength, 33U);
  EXPECT_EQ(other->capabilities().outputReportLength, 33U);
}

TEST_F(RawReport, AllBytesPassInBothDirections) {
  const auto handle = opened();
  ASSERT_NE(handle, nullptr);
  for (int first = 0; first < 256; first += 64) {
    const Report out = counted(static_cast<std::uint8_t>(first));
    ASSERT_EQ(handle->write(out), HidTransfer::kDone);
    EXPECT_EQ(taken(), out);
    const Report in = counted(static_cast<std::uint8_t>(255 - first));
    send(in);
    Report got{};
    ASSERT_EQ(handle->read(got, 10s), HidTransfer::kDone);
    EXPECT_EQ(got, in);
  }
}

TEST_F(RawReport, EachHandleSeesEveryReportFromItsOpeningOn) {
  const auto first = opened();
  const auto second = opened();
  send(counted(1));
  Report got{};
  EXPECT_EQ(first->read(got, 10s), HidTransfer::kDone);
  const auto third = opened();
  EXPECT_EQ(second->read(got, 10s), HidTransfer::kDone);
  EXPECT_EQ(got, counted(1));
  EXPECT_EQ(third->read(got, 0s), HidTransfer::kTimedOut);
}

TEST_F(RawReport, WhatArrivedIsDiscardedAndWhatComesLaterIsNot) {
  const auto handle = opened();
  const auto witness = opened();
  Report got{};
  for (std::uint8_t first = 1; first <= 3; ++first) {
    send(counted(first));
    ASSERT_EQ(witness->read(got, 10s), HidTransfer::kDone);
  }
  handle->discardInput();
  send(counted(4));
  ASSERT_EQ(handle->read(got, 10s), HidTransfer::kDone);
  EXPECT_EQ(got, counted(4));
}

TEST_F(RawReport, AWaitIsGivenUpExactlyAtItsEndByTheClock) {
  // Time moves only where the adapter looks at it: each signal ends the library's wait and makes it look.
  const std::array<std::chrono::milliseconds, 3> looks{0ms, 5999ms, 6000ms};
  std::size_t looked = 0;
  HidapiPort onTheTestsClock(probeHidrawNode, [&] {
    const auto now = looks.at(std::min(looked, looks.size() - 1));
    ++looked;
    return std::chrono::steady_clock::time_point(now);
  });
  const auto handle = onTheTestsClock.open(onTheTestsClock.list().at(0)).handle;
  ASSERT_NE(handle, nullptr);
  Report got{};
  const tests::IntervalTimer signals(50ms);
  EXPECT_EQ(handle->read(got, 6000ms), HidTransfer::kTimedOut);
  EXPECT_EQ(looked, looks.size());
}

TEST_F(RawReport, AReadThatWaitsEndsWhenTheDeviceGoes) {
  const auto handle = opened();
  std::thread hand([this] {
    std::this_thread::sleep_for(200ms);
    gadget.unplug();
  });
  Report got{};
  EXPECT_EQ(handle->read(got, 30s), HidTransfer::kFailed);
  hand.join();
}

TEST_F(RawReport, NeitherDirectionWorksOnceTheDeviceIsGone) {
  const auto handle = opened();
  gadget.unplug();
  Report report{};
  EXPECT_EQ(handle->write(report), HidTransfer::kFailed);
  EXPECT_EQ(handle->read(report, 30s), HidTransfer::kFailed);
  EXPECT_TRUE(port.list().empty());
}

TEST_F(RawReport, ADeviceThatTakesNothingFailsAWriteAfterTheSystemsLimit) {
  const auto handle = opened();
  const Report report = counted(1);
  HidTransfer outcome = HidTransfer::kDone;
  auto began = std::chrono::steady_clock::now();
  // The gadget's side takes a few reports by itself before it stops.
  for (int taken = 0; taken < 16 && outcome == HidTransfer::kDone; ++taken) {
    began = std::chrono::steady_clock::now();
    outcome = handle->write(report);
  }
  const auto waited = std::chrono::steady_clock::now() - began;
  EXPECT_EQ(outcome, HidTransfer::kFailed);
  EXPECT_GE(waited, 4s);
  tests::measured("a write that the device does not take fails after", waited);
}

}  // namespace
}  // namespace vireon::adapters
