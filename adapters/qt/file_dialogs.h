#pragma once

#include <QObjectCleanupHandler>
#include <QPointer>
#include <QString>
#include <QWidget>
#include <optional>

#include "adapters/qt/file_icons.h"
#include "adapters/qt/modal_gate.h"
#include "platform/file_dialog.h"

namespace vireon::adapters {

// File dialogs over a parent window, application modal.
class QtFileDialogs : public platform::FileDialogs {
 public:
  // `gate` outlives this object.
  explicit QtFileDialogs(ModalGate& gate) : gate_(gate) {}

  // Later dialogs stand over this window while it lives; without one they stand alone.
  void setParentWindow(QWidget* window) { window_ = window; }

  std::string openName(const platform::FileQuestion& question) override;
  std::string saveName(const platform::FileQuestion& question) override;

 private:
  class Dialog;

  Dialog& dialogFor(bool stays);
  std::string ask(const platform::FileQuestion& question, bool save);

  ModalGate& gate_;
  std::optional<FileIcons> icons_;  // from the first dialog on
  QPointer<QWidget> window_;
  QString lastFolder_;
  QPointer<Dialog> staying_;
  QPointer<Dialog> free_;
  QObjectCleanupHandler owned_;  // both, but where their window ended them
  bool open_ = false;
};

// The toolkit's form of a question's filter: each caption with its patterns behind it, unless they are there
// already.
QStringList nameFilters(const std::string& filter);

}  // namespace vireon::adapters
