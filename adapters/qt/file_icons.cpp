#include "adapters/qt/file_icons.h"

#include <QFileInfo>
#include <QMimeDatabase>
#include <QMimeType>

namespace vireon::adapters {

QIcon FileIcons::icon(const QFileInfo& file) const {
  return file.isDir() ? folder_ : file_;
}

QString FileIcons::type(const QFileInfo& file) const {
  const QMimeDatabase kinds;
  QMimeType kind = kinds.mimeTypeForName(QStringLiteral("application/octet-stream"));
  if (file.isDir()) {
    kind = kinds.mimeTypeForName(QStringLiteral("inode/directory"));
  } else if (const auto known = kinds.mimeTypesForFileName(file.fileName()); !known.isEmpty()) {
    kind = known.front();
  }
  return kind.comment().isEmpty() ? QStringLiteral("?") : kind.comment();
}

}  // namespace vireon::adapters
