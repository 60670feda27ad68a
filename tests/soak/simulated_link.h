#pragma once

#include <QTimer>
#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <vector>

#include "app/simulated_hid.h"
#include "platform/raw_hid.h"
#include "platform/serial_port.h"
#include "simulator/clock.h"
#include "simulator/instrument.h"
#include "simulator/serial_endpoint.h"
#include "simulator/usb_endpoint.h"

namespace vireon::soak {

// A simulated instrument at the end of a USB cable and of a serial one. The USB side is used from the
// program's thread for it, so everything here is taken with the lock.
struct SimulatedInstrument {
  SimulatedInstrument(simulator::Model kind, int com, int baud)
      : model(kind),
        serialNumber(com),
        instrument(kind, clock),
        usb(instrument, clock),
        serial(instrument, clock, baud) {
    instrument.setLogCapacity(64);
  }

  std::mutex lock;
  simulator::Model model;
  int serialNumber;  // of the port that it is at
  simulator::SteadyClock clock;
  simulator::Instrument instrument;
  simulator::UsbEndpoint usb;
  simulator::SerialEndpoint serial;
  // Reads and writes of the USB side are given up that many times earlier than the program asks for.
  std::atomic<int> hurry{10};
  std::atomic<int> openHandles{0};
  std::atomic<std::uint64_t> farewells{0};  // "GTL" that the program tried to send
  platform::HidOpenError usbRefusal = platform::HidOpenError::kNone;
  platform::SerialOpenError serialRefusal = platform::SerialOpenError::kNone;
};

// The instrument as the only HID node.
class UsbCable : public platform::RawHid {
 public:
  explicit UsbCable(SimulatedInstrument& far) : far_(far), hid_(far.usb, far.model) {}

  std::vector<platform::HidNode> list() override;
  platform::HidOpenResult open(const platform::HidNode& node) override;

 private:
  SimulatedInstrument& far_;
  app::SimulatedHid hid_;
};

// The instrument at one of the serial ports.
class SerialCable : public platform::SerialPort {
 public:
  explicit SerialCable(SimulatedInstrument& far);

  platform::SerialOpenResult open(int com, const platform::SerialSettings& settings) override;
  void close() override;
  bool isOpen() const override { return open_; }
  bool write(std::span<const std::uint8_t> bytes) override;
  std::size_t available() const override { return arrived_.size(); }
  std::vector<std::uint8_t> read(std::size_t limit) override;

 private:
  void look();

  SimulatedInstrument& far_;
  QTimer looker_;
  std::vector<std::uint8_t> arrived_;
  int baud_ = 0;
  bool open_ = false;
};

}  // namespace vireon::soak
