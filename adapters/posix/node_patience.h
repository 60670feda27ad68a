#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <thread>

#include "adapters/posix/node_access.h"

namespace vireon::adapters {

// A device just plugged in may refuse us until the system has given its node the right permissions, within a
// second. How long to go on asking it.
class NodePatience {
 public:
  static constexpr double kSettling = 1.0;  // seconds since the node was made or its rights changed
  static constexpr int kMostAttempts = 60;
  static constexpr std::chrono::milliseconds kPause{20};

  // What passes kPause between two attempts, and what tells a node's age in seconds.
  std::function<void()> pause = [] { std::this_thread::sleep_for(kPause); };
  std::function<double(const std::string& node)> age = nodeAge;

  // Attempts once, and again as long as the attempt is refused and the node is fresh. Returns the last
  // outcome.
  template <class Attempt, class Refused>
  auto open(const std::string& node, const Attempt& attempt, const Refused& refused) const {
    auto outcome = attempt();
    for (int attempts = 1; attempts < kMostAttempts && refused(outcome) && age(node) < kSettling;
         ++attempts) {
      pause();
      outcome = attempt();
    }
    return outcome;
  }
};

}  // namespace vireon::adapters
