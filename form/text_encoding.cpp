#include "form/text_encoding.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace vireon::form {
namespace {

// Characters of the codes 128 to 159; the others equal their code.
constexpr std::array<char32_t, 32> kUpperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr char32_t kNoCharacter = 0xFFFFFFFF;

unsigned char byteAt(std::string_view text, std::size_t index) {
  return static_cast<unsigned char>(text[index]);
}

bool isContinuation(unsigned char byte) {
  return (byte & 0xC0U) == 0x80U;
}

struct Decoded {
  char32_t character = kNoCharacter;
  std::size_t length = 1;  // bytes
};

// The character that begins `text`; one byte and none where that is no UTF-8.
Decoded firstCharacter(std::string_view text) {
  struct Form {
    unsigned char mask;
    unsigned char lead;
    std::size_t length;
    char32_t least;
  };
  constexpr std::array<Form, 4> kForms = {
      {{0x80, 0x00, 1, 0}, {0xE0, 0xC0, 2, 0x80}, {0xF0, 0xE0, 3, 0x800}, {0xF8, 0xF0, 4, 0x10000}}};
  const unsigned char lead = byteAt(text, 0);
  for (const Form& form : kForms) {
    if ((lead & form.mask) != form.lead) {
      continue;
    }
    if (text.size() < form.length) {
      return {};
    }
    char32_t character = lead & static_cast<unsigned char>(~form.mask);
    for (std::size_t index = 1; index < form.length; ++index) {
      if (!isContinuation(byteAt(text, index))) {
        return {};
      }
      character = character << 6U | (byteAt(text, index) & 0x3FU);
    }
    const bool surrogate = character >= 0xD800 && character < 0xE000;
    if (character < form.least || character > 0x10FFFF || surrogate) {
      return {};
    }
    return {character, form.length};
  }
  return {};
}

}  // namespace

char32_t characterOf(unsigned char code) {
  return code >= 128 && code < 160 ? kUpperControls[code - 128U] : char32_t{code};
}

std::optional<unsigned char> codeOf(char32_t character) {
  const auto* const upper = std::find(kUpperControls.begin(), kUpperControls.end(), character);
  if (upper != kUpperControls.end()) {
    return static_cast<unsigned char>(128 + (upper - kUpperControls.begin()));
  }
  if (character < 128 || (character >= 160 && character < 256)) {
    return static_cast<unsigned char>(character);
  }
  return std::nullopt;
}

std::string utf8From1252(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (const char byte : text) {
    const char32_t character = characterOf(static_cast<unsigned char>(byte));
    if (character < 0x80) {
      result += byte;
    } else if (character < 0x800) {
      result += static_cast<char>(0xC0U | character >> 6U);
      result += static_cast<char>(0x80U | (character & 0x3FU));
    } else {
      result += static_cast<char>(0xE0U | character >> 12U);
      result += static_cast<char>(0x80U | (character >> 6U & 0x3FU));
      result += static_cast<char>(0x80U | (character & 0x3FU));
    }
  }
  return result;
}

Text1252 text1252FromUtf8(std::string_view utf8) {
  Text1252 result{{}, true};
  result.text.reserve(utf8.size());
  while (!utf8.empty()) {
    const Decoded decoded = firstCharacter(utf8);
    const auto code = codeOf(decoded.character);
    result.text += code ? static_cast<char>(*code) : '?';
    result.complete = result.complete && code.has_value();
    utf8.remove_prefix(decoded.length);
  }
  return result;
}

}  // namespace vireon::form
