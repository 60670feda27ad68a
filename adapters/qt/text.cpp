#include "adapters/qt/text.h"

#include <algorithm>
#include <array>

namespace vireon::adapters {
namespace {

// Characters of the codes 128 to 159; the others equal their code.
constexpr std::array<char16_t, 32> kUpperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

}  // namespace

QString shown(std::string_view text) {
  QString result(static_cast<qsizetype>(text.size()), Qt::Uninitialized);
  std::transform(text.begin(), text.end(), result.begin(), [](char character) {
    const auto code = static_cast<unsigned char>(character);
    return QChar(code >= 128 && code < 160 ? kUpperControls[code - 128U] : char16_t{code});
  });
  return result;
}

std::string typed(const QString& text) {
  std::string result;
  result.reserve(static_cast<std::size_t>(text.size()));
  for (const QChar character : text) {
    const char16_t code = character.unicode();
    const auto* const upper = std::find(kUpperControls.begin(), kUpperControls.end(), code);
    if (upper != kUpperControls.end()) {
      result += static_cast<char>(128 + (upper - kUpperControls.begin()));
    } else {
      result += code < 256 && (code < 128 || code >= 160) ? static_cast<char>(code) : '?';
    }
  }
  return result;
}

}  // namespace vireon::adapters
