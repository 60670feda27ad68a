#pragma once

#include <QFileIconProvider>

namespace vireon::adapters {

// What file dialogs show of a file, told from its name alone. The toolkit's own way opens every file of a
// folder, on the window's thread too, where a file of a slow or silent disk makes the window wait.
class FileIcons : public QFileIconProvider {
 public:
  using QFileIconProvider::icon;
  QIcon icon(const QFileInfo& file) const override;
  // In the words of the system's list of kinds, but for the program's own two. Never empty: the toolkit's
  // list leaves such a file out.
  QString type(const QFileInfo& file) const override;

 private:
  QIcon file_ = icon(File);
  QIcon folder_ = icon(Folder);
};

}  // namespace vireon::adapters
