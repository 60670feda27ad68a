#pragma once

#include <string>

#include "tests/soak/soak.h"

namespace vireon::soak {

// Judges the run as a whole, which may add findings, and tells what there was.
std::string reportOf(Soak& soak, const Order& order);

}  // namespace vireon::soak
