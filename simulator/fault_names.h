#pragma once

#include <string>
#include <string_view>

#include "simulator/faults.h"

namespace vireon::simulator {

// The link that an instrument is served on, as far as faults differ.
enum class Link { kSerial, kUsb };

// Adds faults written as "NAME[=VALUE],..." to `faults`; "none" switches off all that came before. Throws
// UsageError for a name that is unknown or of the other link, and for a value that is missing or wrong.
void addFaults(Faults& faults, std::string_view list, Link link);

// One line for each name, with its value and its meaning.
std::string faultHelp();

}  // namespace vireon::simulator
