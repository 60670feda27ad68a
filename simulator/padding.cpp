#include "simulator/padding.h"

#include <algorithm>
#include <utility>

namespace vireon::simulator {
namespace {

std::string paddedBefore(std::string text, std::size_t width, char padding) {
  text.insert(0, width - std::min(width, text.size()), padding);
  return text;
}

}  // namespace

std::string zeroPadded(std::string text, std::size_t width) {
  return paddedBefore(std::move(text), width, '0');
}

std::string rightAligned(std::string text, std::size_t width) {
  return paddedBefore(std::move(text), width, ' ');
}

std::string leftAligned(std::string text, std::size_t width) {
  text.resize(width, ' ');
  return text;
}

}  // namespace vireon::simulator
