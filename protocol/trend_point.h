#pragma once

#include <string>
#include <variant>

namespace vireon::protocol {

// A point of the trend plot: nothing yet, "&H" and two digits as the instrument sent them, or a number.
using TrendPoint = std::variant<std::monostate, std::string, double>;

// The point used as a number; nothing is 0. Faults (kConversion) when its text is no "&H" number.
double numberOf(const TrendPoint& point);

}  // namespace vireon::protocol
