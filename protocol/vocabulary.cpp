#include "protocol/vocabulary.h"

#include <array>
#include <charconv>

namespace vireon::protocol {

std::string hexArgument(int value) {
  std::array<char, 8> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value, 16).ptr;
  std::string text(digits.data(), end);
  for (char& digit : text) {
    if (digit >= 'a') {
      digit = static_cast<char>(digit - 'a' + 'A');
    }
  }
  return text.size() == 1 ? "0" + text : text;
}

std::string selectScopeFunction(int listIndex) {
  return "DFN0" + std::to_string(listIndex) + ";" + std::string(kQueryScope);
}

std::string channelMnemonic(std::string_view stem, int channel) {
  return std::string(stem) + (channel == 0 ? 'A' : 'B');
}

}  // namespace vireon::protocol
