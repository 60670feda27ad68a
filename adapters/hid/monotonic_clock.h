#pragma once

#include <chrono>
#include <functional>

namespace vireon::adapters {

// Tells the time that waits are measured by; it never goes back.
using MonotonicClock = std::function<std::chrono::steady_clock::time_point()>;

}  // namespace vireon::adapters
