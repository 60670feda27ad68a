#include "files/utf16.h"

#include "form/utf8.h"

namespace vireon::files {
namespace {

constexpr char32_t kPairs = 0x10000;  // the first character that takes two units

constexpr bool isHigh(char32_t unit) {
  return unit >= 0xD800 && unit <= 0xDBFF;
}

constexpr bool isLow(char32_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

}  // namespace

Utf16Form utf16Form(std::string_view text) {
  Utf16Form result;
  while (!text.empty()) {
    const char32_t character = form::takeCharacter(text);
    result.units += character < kPairs ? 1U : 2U;
    result.wide = result.wide || character > 0xFFU;
  }
  return result;
}

void Utf16Decoder::add(std::uint16_t unit) {
  if (high_ != 0) {
    if (isLow(unit)) {
      form::appendUtf8(out_, kPairs + ((high_ & 0x3FFU) << 10U) + (unit & 0x3FFU));
      high_ = 0;
      return;
    }
    finish();
  }
  if (isHigh(unit)) {
    high_ = unit;
  } else {
    form::appendUtf8(out_, isLow(unit) ? form::kReplacement : unit);
  }
}

void Utf16Decoder::finish() {
  if (high_ != 0) form::appendUtf8(out_, form::kReplacement);
  high_ = 0;
}

}  // namespace vireon::files
