#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "adapters/hid/monotonic_clock.h"
#include "adapters/hid/node_probe.h"
#include "platform/raw_hid.h"

namespace vireon::tests {

// One entry as the library lists it.
struct FakeEntry {
  std::optional<std::string> path;
  std::uint16_t vendorId = 0;
  std::uint16_t productId = 0;
};

// What happens to a waiting reader, and when.
struct FakeEvent {
  enum class Kind {
    kReport,
    kSignal,     // the wait ends with -1 and EINTR
    kEarlyWake,  // the wait ends with 0 before its time
    kError,      // the wait ends with -1 and EIO
  };
  std::chrono::milliseconds at{0};  // on the fake's own clock
  Kind kind = Kind::kReport;
  std::vector<std::uint8_t> report = {};
};

// The answer to one write: a count, or -1 with an errno value.
struct FakeWrite {
  int result = 0;
  int errnoValue = 0;
};

// Stands in for the library hidapi: the hid_* functions of this executable act on the one that lives. It
// keeps its own time, which moves only while a call waits.
class FakeHidapi {
 public:
  FakeHidapi();
  FakeHidapi(const FakeHidapi&) = delete;
  FakeHidapi& operator=(const FakeHidapi&) = delete;
  ~FakeHidapi();

  static FakeHidapi& current();

  adapters::NodeProbe probe();
  adapters::MonotonicClock clock();

  void arrives(std::vector<std::uint8_t> report, std::chrono::milliseconds at = {});
  void happens(FakeEvent::Kind kind, std::chrono::milliseconds at);

  // Knobs.
  std::vector<FakeEntry> entries;
  platform::HidOpenError probeError = platform::HidOpenError::kNone;
  std::vector<std::uint8_t> reportDescriptor;
  int initResult = 0;
  bool libraryOpens = true;
  std::optional<platform::HidOpenError> probeErrorAfterOpen;  // the node changed while the library opened it
  std::optional<std::chrono::milliseconds> unpluggedAt;
  bool streams = false;      // a report is always there
  bool signalStorm = false;  // every write is interrupted at once
  std::deque<FakeEvent> events;
  std::deque<FakeWrite> writeAnswers;  // where empty, a write is taken whole

  // What was seen.
  int initCalls = 0;
  int exitCalls = 0;
  int openCalls = 0;
  int openDevices = 0;
  int readCalls = 0;
  int writeCalls = 0;
  int probeDescriptor = -1;  // number of the file that the last probe holds
  bool heldDuringOpen = false;
  bool closedAfterExit = false;
  bool waitedForEver = false;
  std::vector<std::string> probedPaths;
  std::vector<std::vector<std::uint8_t>> written;
  std::chrono::milliseconds now{0};
};

}  // namespace vireon::tests
