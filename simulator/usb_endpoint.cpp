#include "simulator/usb_endpoint.h"

#include <algorithm>
#include <utility>

#include "simulator/answer_bytes.h"

namespace vireon::simulator {
namespace {

constexpr std::uint8_t kEndOfTransmission = 4;

}  // namespace

UsbEndpoint::UsbEndpoint(Instrument& instrument, Clock& clock) : instrument_(instrument), clock_(clock) {}

bool UsbEndpoint::write(std::span<const std::uint8_t> payload) {
  if (!plugged_ || payload.size() != kPayload) return false;
  const bool begins = payload.front() == CommandCollector::kStart;
  if (begins) beginExchange();
  if (!passes()) return false;
  if (payload.front() == kEndOfTransmission) {
    collector_.reset();
    sendNext();
  } else if (begins || collector_.collecting()) {
    return take(payload);
  }
  return true;
}

ReadResult UsbEndpoint::read(std::span<std::uint8_t> payload, std::chrono::milliseconds timeout) {
  if (!plugged_) return {ReadResult::kGone};
  const auto now = clock_.now();
  if (sent_.empty() || sent_.front().due > now + timeout) {
    clock_.wait(timeout);
    return {ReadResult::kTimedOut};
  }
  clock_.wait(sent_.front().due - now);
  if (!passes()) return {ReadResult::kGone};
  const AnswerReport report = sent_.front().report;
  sent_.pop_front();
  const std::size_t length = std::min(report.length, payload.size());
  std::copy_n(report.bytes.begin(), length, payload.begin());
  return {ReadResult::kReport, length};
}

std::optional<std::chrono::nanoseconds> UsbEndpoint::nextDue() const {
  if (sent_.empty()) return std::nullopt;
  return sent_.front().due;
}

void UsbEndpoint::discardInput() {
  sent_.clear();
}

void UsbEndpoint::plug() {
  plugged_ = true;
}

void UsbEndpoint::unplug() {
  plugged_ = false;
  sent_.clear();
  unsent_.clear();
  collector_.reset();
}

void UsbEndpoint::setFaults(const Faults& faults) {
  faults_.choose(faults);
}

bool UsbEndpoint::passes() {
  ++exchangeReports_;
  if (faults_.acting().unplugAtReport != exchangeReports_) return true;
  unplug();
  return false;
}

void UsbEndpoint::beginExchange() {
  faults_.begin();
  exchangeReports_ = 0;
  unsent_.clear();
  collector_.reset();
}

bool UsbEndpoint::take(std::span<const std::uint8_t> bytes) {
  for (const std::uint8_t byte : bytes) {
    const auto command = collector_.take(byte);
    if (!command) continue;
    faults_.decide(*command);
    const Faults& faults = faults_.acting();
    if (faults.unplugAtReport && *faults.unplugAtReport <= exchangeReports_) {
      unplug();
      return false;
    }
    unsent_ = cutter_.cut(answerText(instrument_, *command, faults), faults);
    sendNext();
    return true;
  }
  return true;
}

void UsbEndpoint::sendNext() {
  if (unsent_.empty()) return;
  const AnswerReport report = unsent_.front();
  unsent_.pop_front();
  for (std::size_t copy = 0; copy < report.copies && sent_.size() < kQueueDepth; ++copy) {
    sent_.push_back({report, clock_.now() + faults_.acting().lateBy});
  }
}

}  // namespace vireon::simulator
