#include "simulator/serve/gadget_device.h"

#include <fcntl.h>
#include <poll.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <span>
#include <stdexcept>
#include <utility>

#include "simulator/usage_error.h"

namespace vireon::simulator {
namespace {

bool mustWait(ssize_t result) {
  return result < 0 && (errno == EAGAIN || errno == EINTR);
}

}  // namespace

adapters::FileDescriptor openGadgetNode(const std::string& path) {
  return adapters::FileDescriptor(::open(path.c_str(), O_RDWR | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
}

GadgetDevice::GadgetDevice(UsbEndpoint& endpoint, Clock& clock, std::string path, OpenNode openNode,
                           std::optional<UdcFile> udc)
    : endpoint_(endpoint),
      clock_(clock),
      path_(std::move(path)),
      openNode_(std::move(openNode)),
      udc_(std::move(udc)),
      node_(openNode_()) {
  if (!node_.isOpen()) throw std::runtime_error("cannot open " + path_ + ": " + std::strerror(errno));
}

void GadgetDevice::setFaults(const Faults& faults) {
  if (faults.unplugAtReport && !udc_) throw UsageError("the fault \"unplug\" needs --udc-file");
  endpoint_.setFaults(faults);
}

void GadgetDevice::unplug() {
  if (!udc_) throw UsageError("unplugging needs --udc-file");
  if (!endpoint_.plugged()) return;
  endpoint_.unplug();
  detach();
}

void GadgetDevice::plug() {
  if (endpoint_.plugged()) return;
  udc_->attach();
  endpoint_.plug();
  retryAt_ = clock_.now();
}

// The node is closed first: it goes away with the binding.
void GadgetDevice::detach() {
  node_.close();
  if (udc_) udc_->detach();
}

void GadgetDevice::lose() {
  node_.close();
  endpoint_.unplug();
  endpoint_.plug();
  retryAt_ = clock_.now() + kRetryAfter;
}

void GadgetDevice::takeReports() {
  std::array<std::uint8_t, UsbEndpoint::kPayload> report{};
  while (node_.isOpen() && endpoint_.plugged() && !endpoint_.faults().stall) {
    const ssize_t count = ::read(node_.number(), report.data(), report.size());
    if (mustWait(count)) return;
    if (count <= 0) {
      lose();
    } else {
      endpoint_.write(std::span(report).first(static_cast<std::size_t>(count)));
    }
  }
}

bool GadgetDevice::fetchable() const {
  pollfd state{node_.number(), POLLOUT, 0};
  return ::poll(&state, 1, 0) > 0;
}

void GadgetDevice::giveReports() {
  std::array<std::uint8_t, UsbEndpoint::kPayload> report{};
  while (node_.isOpen() && endpoint_.plugged() && endpoint_.nextDue() <= clock_.now()) {
    if (!endpoint_.nextDue()) return;
    if (!fetchable()) {
      if (*endpoint_.nextDue() + kFetchTime <= clock_.now()) lose();
      return;
    }
    const auto next = endpoint_.read(report, std::chrono::milliseconds{0});
    if (next.outcome != ReadResult::kReport) return;
    if (::write(node_.number(), report.data(), next.length) < 0 && errno != EINTR) lose();
  }
}

void GadgetDevice::serve() {
  if (!endpoint_.plugged()) return;
  if (!node_.isOpen() && retryAt_ <= clock_.now()) {
    node_ = openNode_();
    if (!node_.isOpen()) retryAt_ = clock_.now() + kRetryAfter;
  }
  takeReports();
  giveReports();
  if (!endpoint_.plugged()) detach();
}

Wake GadgetDevice::wake() const {
  if (!endpoint_.plugged()) return {};
  if (!node_.isOpen()) return {.at = retryAt_};
  const auto due = endpoint_.nextDue();
  const bool isDue = due && *due <= clock_.now();
  const int events = (endpoint_.faults().stall ? 0 : POLLIN) | (isDue ? POLLOUT : 0);
  return {.descriptor = events == 0 ? -1 : node_.number(),
          .events = static_cast<short>(events),
          .at = isDue ? *due + kFetchTime : due};
}

}  // namespace vireon::simulator
