#include "adapters/qt/text.h"

#include <algorithm>

#include "form/text_encoding.h"

namespace vireon::adapters {

QString shown(std::string_view text) {
  QString result(static_cast<qsizetype>(text.size()), Qt::Uninitialized);
  std::transform(text.begin(), text.end(), result.begin(), [](char byte) {
    return QChar(static_cast<char16_t>(form::characterOf(static_cast<unsigned char>(byte))));
  });
  return result;
}

std::string typed(const QString& text) {
  std::string result;
  result.reserve(static_cast<std::size_t>(text.size()));
  for (const QChar character : text) {
    result += static_cast<char>(form::codeOf(character.unicode()).value_or('?'));
  }
  return result;
}

}  // namespace vireon::adapters
