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

QString shownUtf8(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string typed(const QString& text) {
  return text.toStdString();
}

}  // namespace vireon::adapters
