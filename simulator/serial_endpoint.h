#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "simulator/clock.h"
#include "simulator/command_collector.h"
#include "simulator/fault_switch.h"
#include "simulator/instrument.h"

namespace vireon::simulator {

// The instrument's serial side: 8N1, ten bits a byte, paced by the clock as a line of its baud rate paces
// it. Keeps references to the instrument and the clock, which must outlive it. For one thread at a time.
class SerialEndpoint {
 public:
  // Bytes under way in either direction; what comes on top is lost.
  static constexpr std::size_t kLongestBacklog = 4096;

  // `baud` above 0.
  SerialEndpoint(Instrument& instrument, Clock& clock, int baud);

  int baud() const { return baud_; }

  // Takes bytes that the host puts on the line now, at its own rate. At any other rate than the
  // instrument's they are noise, and so they are while it is unplugged.
  void write(std::span<const std::uint8_t> bytes, int hostBaud);

  // The bytes that have arrived at the host and were not handed out, as one piece; empty when there are
  // none. Call it until it is empty. A host at another rate loses them.
  std::vector<std::uint8_t> read(int hostBaud);

  // When the next byte, in either direction, will have passed; nothing on a quiet line.
  std::optional<std::chrono::nanoseconds> nextDue() const;

  // Pulling the adapter out loses everything under way; the instrument keeps its settings.
  void plug();
  void unplug();
  bool plugged() const { return plugged_; }

  // Replaces all faults; they act from the next command on. `Faults{}` switches them off.
  void setFaults(const Faults& faults);
  const Faults& faults() const { return faults_.chosen(); }

 private:
  struct Arrival {
    std::uint8_t byte = 0;
    std::chrono::nanoseconds due{0};
  };
  struct Piece {
    std::vector<std::uint8_t> bytes{};
    std::chrono::nanoseconds due{0};
    bool alone = false;               // never in one piece with another
    std::chrono::nanoseconds gap{0};  // least time since the last piece that stood alone
    bool hangUp = false;              // the adapter goes in its place
  };

  std::chrono::nanoseconds bytesTime(std::size_t count) const;
  void takeArrivals();
  void take(const std::string& command, std::chrono::nanoseconds at);
  void beginExchange(const std::string& command);
  void send(std::vector<std::uint8_t> bytes, std::chrono::nanoseconds at);
  std::chrono::nanoseconds dueOf(const Piece& piece) const;

  Instrument& instrument_;
  Clock& clock_;
  int baud_;
  CommandCollector collector_;
  FaultSwitch faults_;
  std::deque<Arrival> arrivals_;
  std::deque<Piece> pieces_;
  std::chrono::nanoseconds inboundFree_{0};
  std::chrono::nanoseconds outboundFree_{0};
  std::chrono::nanoseconds lastAlone_{0};
  std::size_t commands_ = 0;
  bool plugged_ = true;
};

}  // namespace vireon::simulator
