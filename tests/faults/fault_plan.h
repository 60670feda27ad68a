#pragma once

#include <algorithm>
#include <cstddef>
#include <stdexcept>
#include <string_view>
#include <vector>

#include "tests/fakes/fault_count.h"

namespace vireon::tests {

// One call of a port that may fail, and in how many ways.
struct PortCall {
  std::string_view port;
  std::string_view call;
  int kinds = 0;
};

// What fails at the calls behind the first that failed.
enum class Reach { kOnce, kPortFromThenOn, kAllFromThenOn };

// What shall fail.
struct Fault {
  std::size_t at = 0;  // the call of all the ports' calls, counted from 1; 0 is none
  int kind = 1;        // of the call's ways to fail, counted from 1
  Reach reach = Reach::kOnce;
};

// Counts the calls of all the ports while it is armed, and lets them fail.
class FaultPlan {
 public:
  // No story makes as many; one that does hangs.
  static constexpr std::size_t kMostCalls = 100000;

  bool armed = false;

  // Counts anew from here.
  void begin(const Fault& fault) {
    fault_ = fault;
    failing_ = {};
    calls_.clear();
  }

  // For each decorated port at each of its calls: the way to fail, from 1 to `kinds`, or 0 to go well.
  int strike(std::string_view port, std::string_view call, int kinds) {
    if (!armed) return 0;
    calls_.push_back({port, call, kinds});
    if (calls_.size() > kMostCalls) throw std::logic_error("the story does not end");
    if (calls_.size() == fault_.at) {
      countFault();
      failing_ = port;
      return std::min(fault_.kind, kinds);
    }
    const bool still = (fault_.reach == Reach::kPortFromThenOn && failing_ == port) ||
                       (fault_.reach == Reach::kAllFromThenOn && struck());
    return still ? std::min(fault_.kind, kinds) : 0;
  }

  // Whether the story came to the call that was to fail.
  bool struck() const { return !failing_.empty(); }
  const std::vector<PortCall>& calls() const { return calls_; }

 private:
  Fault fault_;
  std::vector<PortCall> calls_;
  std::string_view failing_;
};

}  // namespace vireon::tests
