#pragma once

#include <cstddef>
#include <string>

#include "simulator/inputs.h"
#include "simulator/settings.h"

namespace vireon::simulator {

// One reading, in V, ohms, Hz, 1/min, s, % or degrees as its function measures.
struct Reading {
  Function function = Function::kDcv;
  int range = 0;
  double value = 0.0;
  bool overload = false;
};

// Number of ranges of a function, 1 to 5.
int rangeCount(Function function);

// Place of a function's range code in MeterSettings::range.
std::size_t rangeSlot(Function function);

// Reading at a time in seconds; the same within one reading period. Automatic range picks the finest
// range that holds the value.
Reading measure(const MeterInput& input, const MeterSettings& settings, double seconds);

// A value shown as readings of `function` are, in the finest range that holds it.
Reading readingOf(Function function, double value);

// 10 characters: 6 of reading, 4 of unit, for example "-1.234 V  ".
std::string liveText(const Reading& reading);

// 8 characters with a readable unit at the end, for example "-1.234 V".
std::string listText(const Reading& reading);

// 8 characters whose last two are the function code of a memory record.
std::string recordText(const Reading& reading);

// Name of a function, 15 characters, blanks behind.
std::string functionText(Function function);

}  // namespace vireon::simulator
