#pragma once

#include <gtest/gtest.h>

#include <exception>
#include <functional>
#include <memory>
#include <utility>

#include "platform/message_pump.h"
#include "platform/raw_hid.h"
#include "simulator/usb_endpoint.h"
#include "tests/fakes/fake_message_pump.h"
#include "tests/fakes/fake_serial_port.h"
#include "tests/faults/allocation_pause.h"
#include "tests/faults/fault_plan.h"

namespace vireon::tests {

// The instrument's HID node; its last way to fail is that the device is unplugged.
class FaultyHid final : public platform::RawHid {
 public:
  FaultyHid(platform::RawHid& hid, simulator::UsbEndpoint& endpoint, FaultPlan& plan)
      : hid_(hid), endpoint_(endpoint), plan_(plan) {}

  std::vector<platform::HidNode> list() override {
    const AllocationPause pause;
    return plan_.strike(kPort, "list", 1) == 0 ? hid_.list() : std::vector<platform::HidNode>{};
  }

  platform::HidOpenResult open(const platform::HidNode& node) override {
    const AllocationPause pause;
    using enum platform::HidOpenError;
    switch (plan_.strike(kPort, "open", 3)) {
      case 1:
        return {nullptr, kNotFound};
      case 2:
        return {nullptr, kNoPermission};
      case 3:
        return {nullptr, kFailed};
      default:
        break;
    }
    platform::HidOpenResult result = hid_.open(node);
    if (result.handle) result.handle = std::make_unique<Handle>(std::move(result.handle), *this);
    return result;
  }

 private:
  static constexpr std::string_view kPort = "raw HID";

  class Handle final : public platform::HidHandle {
   public:
    Handle(std::unique_ptr<platform::HidHandle> handle, FaultyHid& hid)
        : handle_(std::move(handle)), hid_(hid) {}

    platform::HidCapabilities capabilities() const override { return handle_->capabilities(); }

    platform::HidTransfer write(std::span<const std::uint8_t> report) override {
      const AllocationPause pause;
      switch (hid_.plan_.strike(kPort, "write", 3)) {
        case 1:
          return platform::HidTransfer::kFailed;
        case 2:
          return platform::HidTransfer::kWrongLength;
        case 3:
          hid_.endpoint_.unplug();
          break;
        default:
          break;
      }
      return handle_->write(report);
    }

    platform::HidTransfer read(std::span<std::uint8_t> report, std::chrono::milliseconds timeout) override {
      const AllocationPause pause;
      switch (hid_.plan_.strike(kPort, "read", 4)) {
        case 1:
          return platform::HidTransfer::kFailed;
        case 2:
          return platform::HidTransfer::kWrongLength;
        case 3:
          return platform::HidTransfer::kTimedOut;
        case 4:
          hid_.endpoint_.unplug();
          break;
        default:
          break;
      }
      return handle_->read(report, timeout);
    }

    void discardInput() override {
      const AllocationPause pause;
      handle_->discardInput();
    }

   private:
    std::unique_ptr<platform::HidHandle> handle_;
    FaultyHid& hid_;
  };

  platform::RawHid& hid_;
  simulator::UsbEndpoint& endpoint_;
  FaultPlan& plan_;
};

// The serial ports with their pump, in whose waits the adapter goes or the answer stays away.
class FaultySerialPort final : public platform::SerialPort {
 public:
  FaultySerialPort(FakeSerialPort& port, FaultPlan& plan) : port_(port), plan_(plan) {
    port_.onArrival = [this] { raise(onArrival); };
    port_.onLost = [this] { raise(onLost); };
  }

  platform::SerialOpenResult open(int com, const platform::SerialSettings& settings) override {
    const AllocationPause pause;
    using enum platform::SerialOpenError;
    switch (plan_.strike(kPort, "open", 4)) {
      case 1:
        return refused(kNotFound);
      case 2:
        return refused(kNoPermission);
      case 3:
        return refused(kInUse);
      case 4:
        return refused(kFailed);
      default:
        return port_.open(com, settings);
    }
  }

  void close() override {
    const AllocationPause pause;
    port_.close();
  }
  bool isOpen() const override { return port_.isOpen(); }

  bool write(std::span<const std::uint8_t> bytes) override {
    const AllocationPause pause;
    switch (plan_.strike(kPort, "write", 2)) {
      case 1:
        return false;
      case 2:
        return true;  // and the bytes are lost
      default:
        return port_.write(bytes);
    }
  }

  std::size_t available() const override {
    const AllocationPause pause;
    return plan_.strike(kPort, "available", 1) == 0 ? port_.available() : 0;
  }

  // The failure is a short one.
  std::vector<std::uint8_t> read(std::size_t limit) override {
    const AllocationPause pause;
    return port_.read(plan_.strike(kPort, "read", 1) == 0 ? limit : 1);
  }

  // What a wait brings: 1 that the adapter is gone, 2 that the answer's time has passed.
  int duringWait() { return isOpen() ? plan_.strike(kPort, "wait", 2) : 0; }
  void pullOut() { port_.pullOut(); }

 private:
  static constexpr std::string_view kPort = "serial port";

  // As an event loop calls it: nothing may be thrown into that.
  static void raise(const std::function<void()>& event) {
    const AllocationResume resume;
    try {
      if (event) event();
    } catch (const std::exception& thrown) {
      ADD_FAILURE() << "thrown out of an event of the serial port: " << thrown.what();
    }
  }

  platform::SerialOpenResult refused(platform::SerialOpenError error) {
    close();
    return {error, "/dev/ttyUSB0", "dialout", false};
  }

  FakeSerialPort& port_;
  FaultPlan& plan_;
};

class FaultyPump final : public platform::MessagePump {
 public:
  FaultyPump(FakeMessagePump& pump, FaultySerialPort& port) : pump_(pump), port_(port) {}

  void pump() override {
    const AllocationPause pause;
    pump_.pump();
  }

  void wait() override {
    const AllocationPause pause;
    switch (port_.duringWait()) {
      case 1:
        return port_.pullOut();
      case 2: {
        const AllocationResume resume;
        return pump_.timeOut->tick();
      }
      default:
        return pump_.wait();
    }
  }

  void waitAtMost(std::chrono::milliseconds limit) override { pump_.waitAtMost(limit); }

 private:
  FakeMessagePump& pump_;
  FaultySerialPort& port_;
};

}  // namespace vireon::tests
