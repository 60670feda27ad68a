#include "simulator/serial_endpoint.h"

#include <algorithm>
#include <utility>

#include "simulator/answer_bytes.h"

namespace vireon::simulator {
namespace {

constexpr std::chrono::nanoseconds kTenBitsAtOneBaud{10'000'000'000};

}  // namespace

SerialEndpoint::SerialEndpoint(Instrument& instrument, Clock& clock, int baud)
    : instrument_(instrument), clock_(clock), baud_(baud) {}

std::chrono::nanoseconds SerialEndpoint::bytesTime(std::size_t count) const {
  return kTenBitsAtOneBaud * static_cast<std::int64_t>(count) / baud_;
}

void SerialEndpoint::write(std::span<const std::uint8_t> bytes, int hostBaud) {
  if (!plugged_) return;
  takeArrivals();
  if (hostBaud != baud_) {
    arrivals_.clear();
    collector_.reset();
    return;
  }
  const auto start = std::max(clock_.now(), inboundFree_);
  const std::size_t count = std::min(bytes.size(), kLongestBacklog - arrivals_.size());
  for (std::size_t i = 0; i < count; ++i) arrivals_.push_back({bytes[i], start + bytesTime(i + 1)});
  inboundFree_ = start + bytesTime(count);
}

std::vector<std::uint8_t> SerialEndpoint::read(int hostBaud) {
  takeArrivals();
  std::vector<std::uint8_t> bytes;
  while (!pieces_.empty() && dueOf(pieces_.front()) <= clock_.now()) {
    if (pieces_.front().alone && !bytes.empty()) break;
    const Piece piece = std::move(pieces_.front());
    pieces_.pop_front();
    if (piece.hangUp) {
      unplug();
      break;
    }
    if (hostBaud == baud_) bytes.insert(bytes.end(), piece.bytes.begin(), piece.bytes.end());
    if (!piece.alone) continue;
    lastAlone_ = clock_.now();
    if (!bytes.empty()) break;
  }
  return bytes;
}

// Pieces that stand alone keep their distance even when the one before was fetched late.
std::chrono::nanoseconds SerialEndpoint::dueOf(const Piece& piece) const {
  return piece.alone ? std::max(piece.due, lastAlone_ + piece.gap) : piece.due;
}

std::optional<std::chrono::nanoseconds> SerialEndpoint::nextDue() const {
  std::optional<std::chrono::nanoseconds> next;
  if (!arrivals_.empty()) next = arrivals_.front().due;
  if (!pieces_.empty()) next = std::min(dueOf(pieces_.front()), next.value_or(dueOf(pieces_.front())));
  return next;
}

void SerialEndpoint::plug() {
  if (plugged_) return;
  plugged_ = true;
  commands_ = 0;
}

void SerialEndpoint::unplug() {
  plugged_ = false;
  arrivals_.clear();
  pieces_.clear();
  collector_.reset();
  inboundFree_ = outboundFree_ = clock_.now();
}

void SerialEndpoint::setFaults(const Faults& faults) {
  faults_.choose(faults);
  commands_ = 0;
}

void SerialEndpoint::takeArrivals() {
  while (!arrivals_.empty() && arrivals_.front().due <= clock_.now()) {
    const Arrival arrival = arrivals_.front();
    arrivals_.pop_front();
    if (const auto command = collector_.take(arrival.byte)) take(*command, arrival.due);
  }
}

void SerialEndpoint::beginExchange(const std::string& command) {
  faults_.begin();
  faults_.decide(command);
  ++commands_;
  // A hang-up that waits for its command is not over before that.
  if (faults_.acting().hangUpAtCommand.value_or(commands_) > commands_) faults_.keep();
}

void SerialEndpoint::take(const std::string& command, std::chrono::nanoseconds at) {
  beginExchange(command);
  const Faults& faults = faults_.acting();
  auto bytes = answerBytes(answerText(instrument_, command, faults), faults);
  if (faults.hangUpAtCommand == commands_) {
    unplug();
  } else if (pieces_.size() < kLongestBacklog) {
    send(std::move(bytes), at);
  }
}

void SerialEndpoint::send(std::vector<std::uint8_t> bytes, std::chrono::nanoseconds at) {
  const Faults& faults = faults_.acting();
  if (faults.twice) {
    const std::vector<std::uint8_t> again = bytes;
    bytes.insert(bytes.end(), again.begin(), again.end());
  }
  const bool hangsUp = faults.hangUpAtByte.value_or(0) > 0 && *faults.hangUpAtByte <= bytes.size();
  if (hangsUp) bytes.resize(*faults.hangUpAtByte - 1);

  const auto start = std::max(at, outboundFree_) + faults.lateBy;
  const auto gap = faults.split ? std::max(*faults.split, bytesTime(1)) : std::chrono::nanoseconds{0};
  const auto passed = [&](std::size_t count) {
    return start + (faults.split ? gap * static_cast<std::int64_t>(count) : bytesTime(count));
  };
  if (faults.twice && !faults.split) {
    pieces_.push_back({bytes, passed(bytes.size()), true});
  } else {
    for (std::size_t i = 0; i < bytes.size(); ++i) {
      pieces_.push_back({{bytes[i]}, passed(i + 1), faults.split.has_value(), gap});
    }
  }
  outboundFree_ = passed(bytes.size());
  if (hangsUp) pieces_.push_back({.due = passed(bytes.size() + 1), .hangUp = true});
}

}  // namespace vireon::simulator
