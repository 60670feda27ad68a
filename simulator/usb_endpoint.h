#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <span>

#include "simulator/answer_reports.h"
#include "simulator/clock.h"
#include "simulator/command_collector.h"
#include "simulator/fault_switch.h"
#include "simulator/instrument.h"

namespace vireon::simulator {

struct ReadResult {
  enum class Outcome { kReport, kTimedOut, kGone };
  using enum Outcome;

  Outcome outcome = kTimedOut;
  std::size_t length = 0;  // payload bytes delivered; 64 unless the report is shortened, 0 if there is none
};

// The instrument's USB side: command and answer cut into reports of 64 payload bytes. Keeps references to
// the instrument and the clock, which must outlive it. For one thread at a time.
class UsbEndpoint {
 public:
  static constexpr std::size_t kPayload = kReportPayload;
  // Unread reports that the host's system keeps; newer ones are lost.
  static constexpr std::size_t kQueueDepth = 63;

  UsbEndpoint(Instrument& instrument, Clock& clock);

  // Takes one output report. Returns false when the device is gone, and for any other size than 64 bytes.
  bool write(std::span<const std::uint8_t> payload);

  // Hands out the next input report, waiting on the clock for at most `timeout`; at most `payload.size()`
  // bytes are copied. A device that is gone is reported at once.
  ReadResult read(std::span<std::uint8_t> payload, std::chrono::milliseconds timeout);

  // When the next input report is due, on the clock; nothing while there is none.
  std::optional<std::chrono::nanoseconds> nextDue() const;

  // Forgets all reports that were sent but not read.
  void discardInput();

  // Unplugging loses everything in transit; the instrument keeps its settings.
  void plug();
  void unplug();
  bool plugged() const { return plugged_; }

  // Replaces all faults; they act from the next command on. `Faults{}` switches them off.
  void setFaults(const Faults& faults);
  const Faults& faults() const { return faults_.chosen(); }

  // Reports of the exchange in progress, or of the last one, that were written and read so far.
  std::size_t exchangeReports() const { return exchangeReports_; }

 private:
  struct Sent {
    AnswerReport report;
    std::chrono::nanoseconds due{0};
  };

  // Counts a report of the exchange; false when the device goes on it.
  bool passes();
  void beginExchange();
  // False when the device goes on the command that ends in these bytes.
  bool take(std::span<const std::uint8_t> bytes);
  void sendNext();

  Instrument& instrument_;
  Clock& clock_;
  CommandCollector collector_;
  AnswerCutter cutter_;
  FaultSwitch faults_;
  std::deque<AnswerReport> unsent_;
  std::deque<Sent> sent_;
  std::size_t exchangeReports_ = 0;
  bool plugged_ = true;
};

}  // namespace vireon::simulator
