#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <string>

#include "tests/soak/act_log.h"
#include "tests/soak/hang_watch.h"
#include "tests/soak/message_ledger.h"
#include "tests/soak/paint_watch.h"
#include "tests/soak/paper.h"
#include "tests/soak/resources.h"
#include "tests/soak/used_controls.h"
#include "tests/soak/watched_files.h"

namespace vireon::soak {

struct Order {
  std::uint64_t seed = 1;
  double minutes = 3;
  std::filesystem::path folder{};  // of the program; there and empty
  int from = 1;                    // the first session's number
};

// One session of the program after the other, each with its own instrument, link and start, until the time is
// up.
class Soak {
 public:
  Soak(const Order& order, ActLog& log);

  void run();

  ActLog& log;
  PaintWatch paints{log};
  MessageLedger messages{log};
  UsedControls controls;
  WatchedFiles files;
  Paper paper{log};
  // A few objects are made at first use and stay, such as the tool tips' window.
  Growth between{"between sessions", 8, 2};
  Resources first{};  // at the first rest, and the last
  Resources last{};
  std::uint64_t sessions = 0;
  std::uint64_t rests = 0;
  std::uint64_t faults = 0;
  std::uint64_t commands = 0;  // that the instruments got

 private:
  class Session;
  bool timeIsUp() const { return std::chrono::steady_clock::now() >= end_; }

  Order order_;
  std::chrono::steady_clock::time_point end_;
  HangWatch hangs_{log};
};

}  // namespace vireon::soak
