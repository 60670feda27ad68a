#include "adapters/qt/file_icons.h"

#include <QFileInfo>
#include <QMimeDatabase>
#include <QMimeType>
#include <utility>

namespace vireon::adapters {

namespace {

// Kinds that no system's list knows.
constexpr std::pair<const char*, const char*> kOwnKinds[] = {{"wfm", "waveform"}, {"trd", "trend"}};

}  // namespace

QIcon FileIcons::icon(const QFileInfo& file) const {
  return file.isDir() ? folder_ : file_;
}

QString FileIcons::type(const QFileInfo& file) const {
  for (const auto& [extension, kind] : kOwnKinds) {
    if (!file.isDir() && file.suffix().compare(QLatin1String(extension), Qt::CaseInsensitive) == 0) {
      return QLatin1String(kind);
    }
  }
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
