#include "tests/soak/simulated_link.h"

#include <algorithm>
#include <memory>
#include <string_view>
#include <thread>
#include <utility>

namespace vireon::soak {
namespace {

using platform::HidTransfer;
using std::chrono::milliseconds;

constexpr milliseconds kSlice{2};           // that the instrument is held for
constexpr milliseconds kSystemLimit{5000};  // of a write that a device does not take
constexpr int kLook = 2;                    // milliseconds between two looks at the serial line
constexpr std::string_view kFarewell = "\x02GTL";

bool beginsFarewell(std::span<const std::uint8_t> bytes) {
  return bytes.size() >= kFarewell.size() &&
         std::equal(kFarewell.begin(), kFarewell.end(), bytes.begin(),
                    [](char letter, std::uint8_t byte) { return static_cast<std::uint8_t>(letter) == byte; });
}

class CableHandle : public platform::HidHandle {
 public:
  CableHandle(SimulatedInstrument& far, std::unique_ptr<platform::HidHandle> handle)
      : far_(far), handle_(std::move(handle)) {
    ++far_.openHandles;
  }
  CableHandle(const CableHandle&) = delete;
  CableHandle& operator=(const CableHandle&) = delete;
  ~CableHandle() override { --far_.openHandles; }

  platform::HidCapabilities capabilities() const override { return handle_->capabilities(); }

  HidTransfer write(std::span<const std::uint8_t> report) override {
    far_.farewells += beginsFarewell(report.subspan(1)) ? 1U : 0U;
    const auto limit = std::chrono::steady_clock::now() + kSystemLimit / far_.hurry.load();
    while (stalled()) {
      if (std::chrono::steady_clock::now() > limit) {
        return HidTransfer::kFailed;
      }
      std::this_thread::sleep_for(kSlice);
    }
    const std::lock_guard lock(far_.lock);
    return handle_->write(report);
  }

  HidTransfer read(std::span<std::uint8_t> report, milliseconds timeout) override {
    const auto limit = std::chrono::steady_clock::now() + timeout / far_.hurry.load();
    for (;;) {
      {
        const std::lock_guard lock(far_.lock);
        const HidTransfer result = handle_->read(report, kSlice);
        if (result != HidTransfer::kTimedOut || std::chrono::steady_clock::now() > limit) {
          return result;
        }
      }
      std::this_thread::yield();
    }
  }

  void discardInput() override {
    const std::lock_guard lock(far_.lock);
    handle_->discardInput();
  }

 private:
  bool stalled() {
    const std::lock_guard lock(far_.lock);
    return far_.usb.plugged() && far_.usb.faults().stall;
  }

  SimulatedInstrument& far_;
  std::unique_ptr<platform::HidHandle> handle_;
};

}  // namespace

std::vector<platform::HidNode> UsbCable::list() {
  const std::lock_guard lock(far_.lock);
  return hid_.list();
}

platform::HidOpenResult UsbCable::open(const platform::HidNode& node) {
  const std::lock_guard lock(far_.lock);
  if (far_.usbRefusal != platform::HidOpenError::kNone) {
    return {nullptr, far_.usbRefusal};
  }
  auto result = hid_.open(node);
  if (result.handle != nullptr) {
    result.handle = std::make_unique<CableHandle>(far_, std::move(result.handle));
  }
  return result;
}

SerialCable::SerialCable(SimulatedInstrument& far) : far_(far) {
  looker_.setSingleShot(true);
  QObject::connect(&looker_, &QTimer::timeout, &looker_, [this] { look(); });
}

platform::SerialOpenResult SerialCable::open(int com, const platform::SerialSettings& settings) {
  using platform::SerialOpenError;
  close();
  const std::lock_guard lock(far_.lock);
  if (com != far_.serialNumber || !far_.serial.plugged()) {
    return {SerialOpenError::kNotFound, {}, {}, false};
  }
  if (far_.serialRefusal != SerialOpenError::kNone) {
    return {far_.serialRefusal, "/dev/ttyUSB0", "dialout", false};
  }
  baud_ = settings.baudRate;
  open_ = true;
  far_.serial.read(baud_);
  looker_.start(kLook);
  return {SerialOpenError::kNone, "/dev/ttyUSB0", {}, false};
}

void SerialCable::close() {
  looker_.stop();
  arrived_.clear();
  open_ = false;
}

bool SerialCable::write(std::span<const std::uint8_t> bytes) {
  if (!open_) {
    return false;
  }
  far_.farewells += beginsFarewell(bytes) ? 1U : 0U;
  const std::lock_guard lock(far_.lock);
  far_.serial.write(bytes, baud_);
  return true;
}

std::vector<std::uint8_t> SerialCable::read(std::size_t limit) {
  const auto count = static_cast<std::ptrdiff_t>(std::min(limit, arrived_.size()));
  std::vector<std::uint8_t> bytes(arrived_.begin(), arrived_.begin() + count);
  arrived_.erase(arrived_.begin(), arrived_.begin() + count);
  return bytes;
}

// Looks again before it tells: those who are told may wait for what comes next.
void SerialCable::look() {
  bool plugged = true;
  bool more = false;
  {
    const std::lock_guard lock(far_.lock);
    const auto bytes = far_.serial.read(baud_);
    arrived_.insert(arrived_.end(), bytes.begin(), bytes.end());
    plugged = far_.serial.plugged();
    more = !bytes.empty();
  }
  if (!plugged) {
    close();
    if (onLost) {
      onLost();
    }
    return;
  }
  looker_.start(kLook);
  if (more && onArrival) {
    onArrival();
  }
}

}  // namespace vireon::soak
