#include "form/text_encoding.h"

#include <algorithm>
#include <array>

#include "form/utf8.h"

namespace vireon::form {
namespace {

// Characters of the codes 128 to 159; the others equal their code.
constexpr std::array<char32_t, 32> kUpperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

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
    appendUtf8(result, characterOf(static_cast<unsigned char>(byte)));
  }
  return result;
}

Text1252 text1252FromUtf8(std::string_view utf8) {
  Text1252 result{{}, true};
  result.text.reserve(utf8.size());
  while (!utf8.empty()) {
    const auto code = codeOf(takeCharacter(utf8));
    result.text += code ? static_cast<char>(*code) : '?';
    result.complete = result.complete && code.has_value();
  }
  return result;
}

}  // namespace vireon::form
