#pragma once

#include <chrono>
#include <cstdio>
#include <string_view>

namespace vireon::tests {

// Prints a figure for the documents; no test depends on one.
inline void measured(std::string_view what, double value, std::string_view unit) {
  std::printf("measured: %.*s %.1f %.*s\n", static_cast<int>(what.size()), what.data(), value,
              static_cast<int>(unit.size()), unit.data());
  std::fflush(stdout);
}

inline void measured(std::string_view what, std::chrono::nanoseconds time) {
  measured(what, std::chrono::duration<double, std::milli>(time).count(), "ms");
}

}  // namespace vireon::tests
