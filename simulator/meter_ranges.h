#pragma once

#include <span>
#include <string_view>

#include "simulator/settings.h"

namespace vireon::simulator {

// How readings of one range are shown. The three ways to write a unit fill the right end of a field, the
// number stands before it.
struct MeterRange {
  double fullScale = 0.0;  // first value, in units of the function, that is too large
  double factor = 1.0;     // shown number / value
  int decimals = 0;
  std::string_view live;    // in 10 characters, blanks that belong behind it included
  std::string_view list;    // in 8 characters
  std::string_view record;  // in 8 characters, ends in the two bytes of the function code
};

// Ranges of a function, the finest first; never empty.
std::span<const MeterRange> rangesOf(Function function);

}  // namespace vireon::simulator
