#pragma once

#include <QLabel>
#include <QMainWindow>
#include <QScrollArea>
#include <functional>

#include "adapters/qt/kept_size.h"
#include "adapters/qt/patient_timer.h"
#include "platform/viewer_window.h"

namespace vireon::adapters {

// The viewer's window. What the user does in it is told at the event loop's next turn.
class QtViewerWindow : public QMainWindow, public platform::ViewerWindow {
  Q_OBJECT

 public:
  // `gate` outlives the window.
  explicit QtViewerWindow(const ModalGate& gate);

  void setPicture(const platform::Bitmap& bitmap) override;
  platform::WindowSize pictureSize() const override;
  platform::WindowSize screenSize() const override;
  void resize(platform::WindowSize outer) override;
  void show() override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void addMenus();
  void addItem(QMenu& menu, const char* name, const QString& caption, const QKeySequence& keys,
               platform::ViewerCommand command);
  void later(const std::function<void(QtViewerWindow&)>& action);
  bool isNormal() const;
  QMargins frame() const;

  const ModalGate& gate_;
  QScrollArea area_;
  QLabel picture_;        // stands in the area, so goes first
  PatientTimer snapper_;  // tells of a new size
  KeptSize kept_;
};

// Makes viewer windows on this desktop.
class QtViewerWindows : public platform::ViewerWindows {
 public:
  // `gate` outlives every window.
  explicit QtViewerWindows(const ModalGate& gate) : gate_(gate) {}

  std::unique_ptr<platform::ViewerWindow> make() override;

  // Gets to know each new window, e.g. for messages to stand over it.
  std::function<void(QWidget&)> onNew;

 private:
  const ModalGate& gate_;
};

}  // namespace vireon::adapters
