#pragma once

#include <vector>

#include "form/picture_box.h"
#include "simulator/sweep.h"

namespace vireon::tests {

// What picScope must show of samples that were sent, both channels on.
inline std::vector<form::Line> tracesOf(const simulator::Trace& sent) {
  std::vector<form::Line> lines;
  for (std::size_t i = 1; i < sent.a.size(); ++i) {
    const int x = 510 + 30 * static_cast<int>(i);
    if (sent.a[i] != 240) {
      lines.push_back({x - 30, 30 * sent.a[i - 1] - 170, x, 30 * sent.a[i] - 170, form::Color{255}});
    }
    lines.push_back({x - 30, 30 * sent.b[i - 1] - 170, x, 30 * sent.b[i] - 170, form::Color{65280}});
  }
  return lines;
}

}  // namespace vireon::tests
