#pragma once

#include <chrono>
#include <string>

#include "tests/soak/stage.h"
#include "tests/soak/trouble.h"

namespace vireon::soak {

// The way to one and the same state: nothing wrong any more, no dialog, no viewer, connected once and
// disconnected again without a message, an empty list, an empty folder. What it cannot reach is a finding.
class Rest {
 public:
  static constexpr int kReached = -1;

  Rest(Stage& stage, Trouble& trouble) : stage_(stage), trouble_(trouble) {}

  void begin();
  // One turn. Milliseconds until the next; kReached at the end.
  int turn();

 private:
  enum class Goal { kCalm, kLeft, kConnected, kDisconnected, kTidy };

  int reach();
  bool calm();
  bool linkIsIdle() const;
  void clickConnect(const std::string& why);
  void next(Goal goal);
  void endFileDialogs();
  void tidy();

  Stage& stage_;
  Trouble& trouble_;
  Goal goal_ = Goal::kCalm;
  std::chrono::steady_clock::time_point since_;
  std::uint64_t messagesThen_ = 0;
  int clicks_ = 0;
  int settled_ = 0;
};

}  // namespace vireon::soak
