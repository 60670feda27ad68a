#pragma once

#include <chrono>
#include <thread>

namespace vireon::tests {

// Real parts need real time, and an emulated machine more of it: waits until the condition holds, looking
// every two milliseconds. False after `limit`.
template <class Condition>
bool waitUntil(const Condition& condition, std::chrono::milliseconds limit = std::chrono::seconds(30)) {
  const auto end = std::chrono::steady_clock::now() + limit;
  while (!condition()) {
    if (std::chrono::steady_clock::now() >= end) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  return true;
}

}  // namespace vireon::tests
