#pragma once

#include <QTimer>
#include <QWidget>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "adapters/qt/control_binder.h"
#include "adapters/qt/kept_size.h"
#include "adapters/qt/patient_timer.h"
#include "form/main_form.h"

namespace vireon::adapters {

// The main window: shows a MainForm and scales its panel with the screen's resolution and its own size.
class MainWindow : public QWidget {
  Q_OBJECT

 public:
  static constexpr int kOuterWidth = 10960;  // twips, with the frame
  static constexpr int kOuterHeight = 5790;

  // `form` and `gate` outlive the window.
  MainWindow(form::MainForm& form, const ModalGate& gate);
  Q_DISABLE_COPY_MOVE(MainWindow)
  ~MainWindow() override;

  // Asked when the window is to close; it closes where this returns True, and then never asks again. While a
  // message is open requests are left out; while the window only paints they wait.
  std::function<bool()> mayClose;

  // Asks the window to close at the event loop's next turn.
  void closeLater() { closer_.start(); }

  // The user drops a file on the window, UTF-8. Left out while a message is open or the window only paints,
  // and where mayOpen returns False.
  std::function<bool()> mayOpen;
  std::function<void(const std::string& path)> openDropped;

  ControlBinder& binder() { return *binder_; }

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  struct Placed {
    QWidget* widget = nullptr;
    QRect geometry;        // in its form file, at 96 dpi
    double fontScale = 0;  // of the panel's font; 0 for a widget that inherits it
    bool bold = false;
  };

  void setUpForms();
  void dress();
  void takeFiles();
  bool takesFiles() const;
  void remember();
  void Form_Resize();
  bool isNormal() const;
  void scalePanel();
  void closeAsWanted();

  form::MainForm& form_;
  std::vector<Placed> placed_;
  std::unique_ptr<ControlBinder> binder_;
  QTimer snapper_;          // snaps at the window's next turn
  PatientTimer closer_;     // closes when no message is open
  PatientTimer dropTaker_;  // takes dropped_
  std::string dropped_;
  const ModalGate& gate_;
  KeptSize kept_;
  bool closing_ = false;
};

}  // namespace vireon::adapters
