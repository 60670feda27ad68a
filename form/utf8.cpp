#include "form/utf8.h"

#include <cstddef>

namespace vireon::form {
namespace {

constexpr char32_t kMost = 0x10FFFF;

constexpr bool isHalfOfPair(char32_t character) {
  return character >= 0xD800 && character <= 0xDFFF;
}

// What a first byte says: how many bytes follow, its bits, and the least character of that length.
struct Lead {
  std::size_t following;
  char32_t bits;
  char32_t least;
};

Lead leadOf(unsigned char byte) {
  if ((byte & 0xE0U) == 0xC0U) return {1, byte & 0x1FU, 0x80};
  if ((byte & 0xF0U) == 0xE0U) return {2, byte & 0x0FU, 0x800};
  if ((byte & 0xF8U) == 0xF0U) return {3, byte & 0x07U, 0x10000};
  return {0, kReplacement, 0};
}

}  // namespace

char32_t takeCharacter(std::string_view& rest) {
  const auto first = static_cast<unsigned char>(rest.front());
  rest.remove_prefix(1);
  if (first < 0x80U) return first;
  const Lead lead = leadOf(first);
  if (lead.following == 0 || rest.size() < lead.following) return kReplacement;
  char32_t character = lead.bits;
  for (std::size_t index = 0; index < lead.following; ++index) {
    const auto byte = static_cast<unsigned char>(rest[index]);
    if ((byte & 0xC0U) != 0x80U) return kReplacement;
    character = (character << 6U) | (byte & 0x3FU);
  }
  if (character < lead.least || character > kMost || isHalfOfPair(character)) return kReplacement;
  rest.remove_prefix(lead.following);
  return character;
}

void appendUtf8(std::string& out, char32_t character) {
  const auto tail = [character](unsigned shift) {
    return static_cast<char>(0x80U | ((character >> shift) & 0x3FU));
  };
  if (character < 0x80U) {
    out += static_cast<char>(character);
  } else if (character < 0x800U) {
    out += {static_cast<char>(0xC0U | (character >> 6U)), tail(0)};
  } else if (character < 0x10000U) {
    out += {static_cast<char>(0xE0U | (character >> 12U)), tail(6), tail(0)};
  } else {
    out += {static_cast<char>(0xF0U | (character >> 18U)), tail(12), tail(6), tail(0)};
  }
}

}  // namespace vireon::form
