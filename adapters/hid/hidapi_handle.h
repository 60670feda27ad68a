#pragma once

#include <chrono>
#include <memory>
#include <vector>

#include "adapters/hid/hidapi_library.h"
#include "adapters/hid/monotonic_clock.h"
#include "adapters/hid/report_descriptor.h"
#include "platform/raw_hid.h"

namespace vireon::adapters {

// One device that the library opened.
class HidapiHandle final : public platform::HidHandle {
 public:
  HidapiHandle(std::shared_ptr<HidapiLibrary> library, DevicePtr device, const ReportLayout& layout,
               MonotonicClock clock);

  platform::HidCapabilities capabilities() const override;
  platform::HidTransfer write(std::span<const std::uint8_t> report) override;
  platform::HidTransfer read(std::span<std::uint8_t> report, std::chrono::milliseconds timeout) override;
  void discardInput() override;

 private:
  std::size_t rawInputLength() const;
  platform::HidTransfer deliver(std::size_t arrived, std::span<std::uint8_t> report) const;

  std::shared_ptr<HidapiLibrary> library_;
  DevicePtr device_;
  ReportLayout layout_;
  MonotonicClock clock_;
  std::vector<std::uint8_t> arrival_;  // one byte more than a report has, so that a longer one shows
};

}  // namespace vireon::adapters
