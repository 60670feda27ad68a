#pragma once

#include <QPointer>
#include <QString>
#include <QWidget>

#include "adapters/qt/file_icons.h"
#include "adapters/qt/modal_gate.h"
#include "platform/file_dialog.h"

namespace vireon::adapters {

// File dialogs over a parent window, application modal.
class QtFileDialogs : public platform::FileDialogs {
 public:
  // `gate` outlives this object.
  explicit QtFileDialogs(ModalGate& gate);
  QtFileDialogs(const QtFileDialogs&) = delete;
  QtFileDialogs& operator=(const QtFileDialogs&) = delete;
  ~QtFileDialogs() override;

  // Later dialogs stand over this window while it lives; without one they stand alone.
  void setParentWindow(QWidget* window) { window_ = window; }

  std::string openName(const platform::FileQuestion& question) override;
  std::string saveName(const platform::FileQuestion& question) override;

 private:
  class Dialog;

  Dialog& dialogFor(bool stays);
  std::string ask(const platform::FileQuestion& question, bool save);

  ModalGate& gate_;
  FileIcons icons_;
  QPointer<QWidget> window_;
  QString lastFolder_;
  QPointer<Dialog> staying_;  // these live as long as their window, or as this where there is none
  QPointer<Dialog> free_;
  bool open_ = false;
};

// The toolkit's form of a question's filter: each caption with its patterns behind it, unless they are there
// already.
QStringList nameFilters(const std::string& filter);

}  // namespace vireon::adapters
