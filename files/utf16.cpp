#include "files/utf16.h"

namespace vireon::files {
namespace {

constexpr char32_t kPairs = 0x10000;  // the first character that takes two units
constexpr char32_t kMost = 0x10FFFF;

constexpr bool isHigh(char32_t unit) {
  return unit >= 0xD800 && unit <= 0xDBFF;
}

constexpr bool isLow(char32_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
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
  if ((byte & 0xF8U) == 0xF0U) return {3, byte & 0x07U, kPairs};
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
  if (character < lead.least || character > kMost || isHigh(character) || isLow(character)) {
    return kReplacement;
  }
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
  } else if (character < kPairs) {
    out += {static_cast<char>(0xE0U | (character >> 12U)), tail(6), tail(0)};
  } else {
    out += {static_cast<char>(0xF0U | (character >> 18U)), tail(12), tail(6), tail(0)};
  }
}

Utf16Form utf16Form(std::string_view text) {
  Utf16Form form;
  while (!text.empty()) {
    const char32_t character = takeCharacter(text);
    form.units += character < kPairs ? 1U : 2U;
    form.wide = form.wide || character > 0xFFU;
  }
  return form;
}

void Utf16Decoder::add(std::uint16_t unit) {
  if (high_ != 0) {
    if (isLow(unit)) {
      appendUtf8(out_, kPairs + ((high_ & 0x3FFU) << 10U) + (unit & 0x3FFU));
      high_ = 0;
      return;
    }
    finish();
  }
  if (isHigh(unit)) {
    high_ = unit;
  } else {
    appendUtf8(out_, isLow(unit) ? kReplacement : unit);
  }
}

void Utf16Decoder::finish() {
  if (high_ != 0) appendUtf8(out_, kReplacement);
  high_ = 0;
}

}  // namespace vireon::files
