#include "adapters/hid/hidapi_handle.h"

#include <algorithm>
#include <cerrno>
#include <limits>
#include <utility>

namespace vireon::adapters {
namespace {

using platform::HidTransfer;
using std::chrono::milliseconds;

constexpr milliseconds kLongestWait{
    std::numeric_limits<int>::max()};  // the library counts in int, -1 = for ever
constexpr milliseconds kWriteLimit{5000};
constexpr int kMostDiscarded = 4096;  // the kernel keeps 63; more arrive only while we drain

int asCount(milliseconds wait) {
  return static_cast<int>(wait.count());
}

}  // namespace

HidapiHandle::HidapiHandle(std::shared_ptr<HidapiLibrary> library, DevicePtr device,
                           const ReportLayout& layout, MonotonicClock clock)
    : library_(std::move(library)),
      device_(std::move(device)),
      layout_(layout),
      clock_(std::move(clock)),
      arrival_(rawInputLength() + 1) {}

platform::HidCapabilities HidapiHandle::capabilities() const {
  return layout_.lengths;
}

HidTransfer HidapiHandle::write(std::span<const std::uint8_t> report) {
  if (report.size() != layout_.lengths.outputReportLength) return HidTransfer::kWrongLength;
  const auto deadline = clock_() + kWriteLimit;
  for (;;) {
    errno = 0;
    const int written = hid_write(device_.get(), report.data(), report.size());
    if (written >= 0) {
      return std::cmp_equal(written, report.size()) ? HidTransfer::kDone : HidTransfer::kFailed;
    }
    // EINTR tells that the signal came before any byte was taken, so the report is not sent twice.
    if (errno != EINTR || clock_() >= deadline) return HidTransfer::kFailed;
  }
}

HidTransfer HidapiHandle::read(std::span<std::uint8_t> report, milliseconds timeout) {
  if (report.size() != layout_.lengths.inputReportLength) return HidTransfer::kWrongLength;
  milliseconds remaining = std::clamp(timeout, milliseconds::zero(), kLongestWait);
  const auto deadline = clock_() + remaining;
  for (;;) {
    // The library leaves errno alone when the device is gone: an older EINTR must not look like a new one.
    errno = 0;
    const int count = hid_read_timeout(device_.get(), arrival_.data(), arrival_.size(), asCount(remaining));
    if (count > 0) return deliver(static_cast<std::size_t>(count), report);
    if (count < 0 && errno != EINTR) return HidTransfer::kFailed;
    remaining = std::chrono::ceil<milliseconds>(deadline - clock_());
    if (remaining <= milliseconds::zero()) return HidTransfer::kTimedOut;
  }
}

void HidapiHandle::discardInput() {
  for (int i = 0; i < kMostDiscarded; ++i) {
    errno = 0;
    const int count = hid_read_timeout(device_.get(), arrival_.data(), arrival_.size(), 0);
    if (count == 0 || (count < 0 && errno != EINTR)) return;
  }
}

std::size_t HidapiHandle::rawInputLength() const {
  return layout_.lengths.inputReportLength - (layout_.inputNumbered ? 0 : 1);
}

HidTransfer HidapiHandle::deliver(std::size_t arrived, std::span<std::uint8_t> report) const {
  if (arrived != rawInputLength()) return HidTransfer::kWrongLength;
  report[0] = 0;
  std::copy_n(arrival_.begin(), arrived, report.last(arrived).begin());
  return HidTransfer::kDone;
}

}  // namespace vireon::adapters
