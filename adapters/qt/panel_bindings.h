#pragma once

#include <QProgressBar>
#include <QTabBar>
#include <QTableView>
#include <array>
#include <map>

#include "adapters/qt/binding.h"
#include "adapters/qt/grid_model.h"
#include "adapters/qt/lamp.h"
#include "form/picture_box.h"
#include "form/ranges.h"
#include "form/status_bar.h"
#include "form/tab_control.h"

class QLabel;

namespace vireon::adapters {

// A panel, or a picture when the widget is a PictureView.
class PictureBoxBinding : public Binding {
 public:
  PictureBoxBinding(const form::PictureBox& control, QWidget& widget, const ModalGate& gate);
  void show() override;
};

class ShapeBinding : public Binding {
 public:
  ShapeBinding(const form::Shape& control, Lamp& widget, const ModalGate& gate)
      : Binding(&widget, gate), control_(control), lamp_(widget) {}
  void show() override { lamp_.setColor(control_.fillColor()); }

 private:
  const form::Shape& control_;
  Lamp& lamp_;
};

class ProgressBarBinding : public Binding {
 public:
  ProgressBarBinding(const form::ProgressBar& control, QProgressBar& widget, const ModalGate& gate)
      : Binding(&widget, gate), control_(control), bar_(widget) {}
  void show() override;

 private:
  const form::ProgressBar& control_;
  QProgressBar& bar_;
};

// A strip of tabs; while its control is disabled it still shows the panels, unless it is shielded.
class TabControlBinding : public Binding {
 public:
  TabControlBinding(form::TabControl& control, QTabBar& widget, const ModalGate& gate);
  void show() override;
  void enable(bool /*enabled*/) override { tabs_.setEnabled(!control_.shielded()); }

 private:
  void turnTo(int tab);

  form::TabControl& control_;
  QTabBar& tabs_;
};

// Panel N of the status bar is the child label named like the bar with "_N". A text that has no room is cut
// with an ellipsis and shown whole where the pointer rests.
class StatusBarBinding : public Binding {
 public:
  StatusBarBinding(const form::StatusBar& control, QWidget& widget, const ModalGate& gate);
  void show() override;

 private:
  int roomOf(const QLabel& label) const;

  const form::StatusBar& control_;
  std::array<QLabel*, form::StatusBar::kPanels> labels_{};
};

class GridBinding : public Binding {
 public:
  GridBinding(form::Grid& control, QTableView& widget, const ModalGate& gate);
  void show() override;

 private:
  void scroll();
  bool isInView(int row) const;

  const form::Grid& control_;
  QTableView& table_;
  const int formWidth_;  // pixels at 96 dpi
  GridModel model_;
  std::map<int, int> widths_;  // pixels, as set last
  int topRow_ = 1;
  int newestRow_ = 0;
};

}  // namespace vireon::adapters
