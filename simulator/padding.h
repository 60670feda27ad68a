#pragma once

#include <cstddef>
#include <string>

namespace vireon::simulator {

// Text brought to a width in characters: behind zeros or blanks, where a longer one stays whole, or before
// blanks, where a longer one is cut.
std::string zeroPadded(std::string text, std::size_t width);
std::string rightAligned(std::string text, std::size_t width);
std::string leftAligned(std::string text, std::size_t width);

}  // namespace vireon::simulator
