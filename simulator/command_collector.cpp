#include "simulator/command_collector.h"

#include <utility>

namespace vireon::simulator {
namespace {

constexpr std::uint8_t kPrefixFirst = 254;
constexpr std::uint8_t kPrefixSecond = 253;

}  // namespace

std::optional<std::string> CommandCollector::take(std::uint8_t byte) {
  if (byte == kStart) {
    reset();
    collecting_ = true;
    atPrefix_ = true;
    return std::nullopt;
  }
  if (!collecting_) return std::nullopt;
  if (byte == kEnd) {
    collecting_ = false;
    return std::exchange(text_, {});
  }
  if (atPrefix_ && (byte == kPrefixFirst || byte == kPrefixSecond)) {
    atPrefix_ = byte == kPrefixFirst;
    return std::nullopt;
  }
  atPrefix_ = false;
  if (text_.size() <= kLongest) text_.push_back(static_cast<char>(byte));
  return std::nullopt;
}

void CommandCollector::reset() {
  text_.clear();
  collecting_ = false;
  atPrefix_ = false;
}

}  // namespace vireon::simulator
