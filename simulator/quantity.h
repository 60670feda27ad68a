#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace vireon::simulator {

// Value of a decimal number without sign or exponent, 1 to `longest` characters; nothing for other text.
std::optional<double> parseDecimal(std::string_view text, std::size_t longest);

// Value of "[+|-]number[unit]" in the unit without its prefix m, u, n, k or M: "-1.234mV" is -0.001234.
// Nothing for other text.
std::optional<double> parseQuantity(std::string_view text);

// Text without the blanks at both ends.
std::string_view trimmed(std::string_view text);

}  // namespace vireon::simulator
