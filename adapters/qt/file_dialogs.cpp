#include "adapters/qt/file_dialogs.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFileSystemModel>

namespace vireon::adapters {
namespace {

// What leads to other folders.
constexpr const char* kWays[] = {"lookInLabel",    "lookInCombo",     "backButton", "forwardButton",
                                 "toParentButton", "newFolderButton", "sidebar"};

// A dialog that shows the files of one folder and none else.
class FolderDialog : public QFileDialog {
 public:
  FolderDialog(QWidget* parent, const QString& folder)
      : QFileDialog(parent, QString(), folder), folder_(QDir(folder).canonicalPath()) {}

  void stay() {
    if (folder_.isEmpty()) {
      return;
    }
    setOption(DontUseNativeDialog);
    setFilter(QDir::Files);
    setOption(ReadOnly);
    stays_ = true;
    for (const char* way : kWays) {
      if (auto* widget = findChild<QWidget*>(QLatin1String(way))) {
        widget->hide();
      }
    }
    connect(this, &QFileDialog::directoryEntered, this, [this] { setDirectory(folder_); });
    if (auto* files = findChild<QFileSystemModel*>()) {
      const auto comeBack = [this](const QString& path) {
        if (QDir(path).canonicalPath() != folder_) {
          setDirectory(folder_);
        }
      };
      connect(files, &QFileSystemModel::rootPathChanged, this, comeBack, Qt::QueuedConnection);
    }
  }

 protected:
  void accept() override {
    if (stays_ && !isHere()) {
      selectFile(QString());
      return;
    }
    QFileDialog::accept();
  }

 private:
  bool isHere() const {
    const QStringList files = selectedFiles();
    const QFileInfo file(files.value(0));
    return files.size() == 1 && !file.isDir() && QDir(file.absolutePath()).canonicalPath() == folder_;
  }

  QString folder_;  // empty where there is no such folder to stay in
  bool stays_ = false;
};

}  // namespace

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

std::string QtFileDialogs::ask(const platform::FileQuestion& question, bool save) {
  const QString folder = question.folder.empty() ? lastFolder_ : QString::fromStdString(question.folder);
  FolderDialog dialog(window_, folder);
  dialog.setWindowTitle(save ? QStringLiteral("Save") : QStringLiteral("Open"));
  dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.setNameFilters(nameFilters(question.filter));
  dialog.setDefaultSuffix(QString::fromStdString(question.defaultExtension));
  if (question.staysInFolder) {
    dialog.stay();
  }
  const ModalGate::Hold hold(gate_);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
    return {};
  }
  lastFolder_ = dialog.directory().absolutePath();
  return dialog.selectedFiles().front().toStdString();
}

}  // namespace vireon::adapters
