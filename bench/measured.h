#pragma once

#include <cstdio>
#include <string_view>

namespace vireon::bench {

// Prints a figure as the page's maker reads it: "measured: <name> <value> <unit>", the name in one word.
inline void measured(std::string_view name, double value, std::string_view unit) {
  std::printf("measured: %.*s %.6g %.*s\n", static_cast<int>(name.size()), name.data(), value,
              static_cast<int>(unit.size()), unit.data());
  std::fflush(stdout);
}

}  // namespace vireon::bench
