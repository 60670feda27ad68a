#include "adapters/qt/file_dialogs.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QTreeView>
#include <memory>

namespace vireon::adapters {
namespace {

// What leads to other folders, and the two buttons that would be left of their row.
constexpr const char* kWays[] = {"lookInLabel",   "lookInCombo",    "backButton",
                                 "forwardButton", "toParentButton", "newFolderButton",
                                 "sidebar",       "listModeButton", "detailModeButton"};

// The names take the room that sizes, kinds and dates leave.
void fitColumns(QTreeView& list) {
  list.header()->setStretchLastSection(false);
  list.header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  list.header()->setSectionResizeMode(0, QHeaderView::Stretch);
}

}  // namespace

// One for many questions, one after the other: to build one takes a while, and to end one waits for the disk.
class QtFileDialogs::Dialog : public QFileDialog {
 public:
  // One that `stays` shows the files of one folder and none else.
  Dialog(QWidget* parent, FileIcons& icons, bool stays) : QFileDialog(parent), stays_(stays) {
    // The desktop's own asks about the name as typed, before an extension is put behind it.
    setOption(DontUseNativeDialog);
    setIconProvider(&icons);
    setFileMode(AnyFile);
    if (auto* const list = findChild<QTreeView*>(QStringLiteral("treeView"))) {
      fitColumns(*list);
    }
    if (!stays) {
      return;
    }
    setFilter(QDir::Files);
    setOption(ReadOnly);
    for (const char* way : kWays) {
      if (auto* widget = findChild<QWidget*>(QLatin1String(way))) {
        widget->hide();
      }
    }
    const auto comeBack = [this](const QString& path) {
      if (isVisible() && QDir(path).canonicalPath() != folder_) {
        setDirectory(folder_);
      }
    };
    connect(this, &QFileDialog::directoryEntered, this, comeBack);
    if (auto* files = findChild<QFileSystemModel*>()) {
      connect(files, &QFileSystemModel::rootPathChanged, this, comeBack, Qt::QueuedConnection);
    }
  }

  // As new, in this folder.
  void begin(const QString& folder) {
    folder_ = QDir(folder).canonicalPath();
    if (auto* const files = findChild<QFileSystemModel*>()) {
      files->setOption(QFileSystemModel::DontWatchForChanges, false);
      const QSignalBlocker unheard(files);
      files->setRootPath(folder);
      files->setRootPath(QString());  // a folder that was left is read anew
    }
    setDirectory(folder);
    if (auto* const name = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))) {
      name->clear();
    }
  }

  // Follows the changes of no folder until the next question.
  void rest() {
    if (auto* const files = findChild<QFileSystemModel*>()) {
      files->setOption(QFileSystemModel::DontWatchForChanges);
    }
  }

 protected:
  void accept() override {
    if (!stays_ || isHere()) {
      QFileDialog::accept();
    }
  }

 private:
  bool isHere() const {
    const QStringList files = selectedFiles();
    const QFileInfo file(files.value(0));
    return files.size() == 1 && !file.isDir() && QDir(file.absolutePath()).canonicalPath() == folder_;
  }

  bool stays_;
  QString folder_;
};

QStringList nameFilters(const std::string& filter) {
  const QStringList parts = QString::fromStdString(filter).split(QLatin1Char('|'));
  QStringList filters;
  for (qsizetype part = 0; part + 1 < parts.size(); part += 2) {
    const QString patterns =
        QStringLiteral("(%1)").arg(QString(parts[part + 1]).replace(QLatin1Char(';'), QLatin1Char(' ')));
    const QString caption = QString(parts[part]).replace(QLatin1Char(';'), QLatin1Char(' '));
    filters << (caption.endsWith(patterns) ? caption : caption + QLatin1Char(' ') + patterns);
  }
  return filters;
}

std::string QtFileDialogs::openName(const platform::FileQuestion& question) {
  return ask(question, false);
}

std::string QtFileDialogs::saveName(const platform::FileQuestion& question) {
  return ask(question, true);
}

QtFileDialogs::Dialog& QtFileDialogs::dialogFor(bool stays) {
  QPointer<Dialog>& kept = stays ? staying_ : free_;
  if (Dialog* const dialog = kept) {
    if (dialog->parentWidget() != window_) {
      dialog->setParent(window_, dialog->windowFlags());
    }
    return *dialog;
  }
  if (!icons_) {
    icons_.emplace();
  }
  auto dialog = std::make_unique<Dialog>(window_, *icons_, stays);
  owned_.add(dialog.get());
  kept = dialog.get();
  return *dialog.release();
}

std::string QtFileDialogs::ask(const platform::FileQuestion& question, bool save) {
  if (open_) {
    return {};
  }
  const QString wanted = QString::fromStdString(question.folder);
  const bool thereIs = !wanted.isEmpty() && QDir(wanted).exists();
  Dialog& dialog = dialogFor(question.staysInFolder && thereIs);
  if (lastFolder_.isEmpty() || !QDir(lastFolder_).exists()) {
    lastFolder_ = dialog.directory().absolutePath();  // the toolkit remembers one from run to run
  }
  dialog.setWindowTitle(save ? QStringLiteral("Save") : QStringLiteral("Open"));
  dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setNameFilters(nameFilters(question.filter));
  dialog.setDefaultSuffix(QString::fromStdString(question.defaultExtension));
  dialog.begin(thereIs ? wanted : lastFolder_);
  const ModalGate::Hold hold(gate_);
  const QScopedValueRollback<bool> open(open_, true);
  const QPointer<Dialog> lives = &dialog;
  const bool accepted = dialog.exec() == QDialog::Accepted;
  if (lives == nullptr) {
    return {};
  }
  dialog.rest();
  const QStringList chosen = dialog.selectedFiles();
  if (!accepted || chosen.isEmpty()) {
    return {};
  }
  lastFolder_ = dialog.directory().absolutePath();
  return chosen.front().toStdString();
}

}  // namespace vireon::adapters
