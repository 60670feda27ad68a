#include "adapters/qt/document_opener.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

namespace vireon::adapters {

bool QtDocumentOpener::open(const std::string& path) {
  const QFileInfo file(QString::fromStdString(path));
  return QDesktopServices::openUrl(QUrl::fromLocalFile(file.absoluteFilePath()));
}

}  // namespace vireon::adapters
