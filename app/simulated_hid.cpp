#include "app/simulated_hid.h"

namespace vireon::app {
namespace {

using platform::HidTransfer;
using simulator::ReadResult;
using simulator::UsbEndpoint;

class SimulatedHandle : public platform::HidHandle {
 public:
  explicit SimulatedHandle(UsbEndpoint& endpoint) : endpoint_(endpoint) {}

  platform::HidCapabilities capabilities() const override { return {}; }

  HidTransfer write(std::span<const std::uint8_t> report) override {
    if (report.size() != UsbEndpoint::kPayload + 1) {
      return HidTransfer::kWrongLength;
    }
    gone_ = gone_ || !endpoint_.write(report.subspan(1));
    return gone_ ? HidTransfer::kFailed : HidTransfer::kDone;
  }

  HidTransfer read(std::span<std::uint8_t> report, std::chrono::milliseconds timeout) override {
    if (report.size() != UsbEndpoint::kPayload + 1) {
      return HidTransfer::kWrongLength;
    }
    if (gone_) {
      return HidTransfer::kFailed;
    }
    report[0] = 0;
    const ReadResult result = endpoint_.read(report.subspan(1), timeout);
    switch (result.outcome) {
      case ReadResult::kReport:
        return result.length == UsbEndpoint::kPayload ? HidTransfer::kDone : HidTransfer::kWrongLength;
      case ReadResult::kTimedOut:
        return HidTransfer::kTimedOut;
      case ReadResult::kGone:
        break;
    }
    gone_ = true;
    return HidTransfer::kFailed;
  }

  void discardInput() override { endpoint_.discardInput(); }

 private:
  UsbEndpoint& endpoint_;
  bool gone_ = false;
};

}  // namespace

SimulatedHid::SimulatedHid(UsbEndpoint& endpoint, simulator::Model model)
    : endpoint_(endpoint),
      node_{"simulated instrument", simulator::kUsbVendorId, simulator::usbProductId(model)} {}

std::vector<platform::HidNode> SimulatedHid::list() {
  return endpoint_.plugged() ? std::vector{node_} : std::vector<platform::HidNode>{};
}

platform::HidOpenResult SimulatedHid::open(const platform::HidNode& node) {
  if (!endpoint_.plugged() || node.path != node_.path) {
    return {nullptr, platform::HidOpenError::kNotFound};
  }
  return {std::make_unique<SimulatedHandle>(endpoint_), platform::HidOpenError::kNone};
}

}  // namespace vireon::app
