#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace vireon::simulator {

// Picks commands out of a byte stream: text between a start mark (2) and an end mark (3).
class CommandCollector {
 public:
  static constexpr std::uint8_t kStart = 2;
  static constexpr std::uint8_t kEnd = 3;
  static constexpr std::size_t kLongest = 600;

  // Takes one byte; returns the command when this byte ends one. A start mark begins anew, bytes outside
  // a command are ignored, and so are 254 and 253 right after the start mark. Of a command longer than
  // kLongest the first kLongest + 1 bytes are returned.
  std::optional<std::string> take(std::uint8_t byte);

  // True between a start and an end mark.
  bool collecting() const { return collecting_; }

  // Forgets a command in part.
  void reset();

 private:
  std::string text_;
  bool collecting_ = false;
  bool atPrefix_ = false;
};

}  // namespace vireon::simulator
