#pragma once

#include <QWidget>

namespace vireon::adapters {

// One control and the widget that shows it.
class Binding {
 public:
  // `widget` is null for a control without a face.
  explicit Binding(QWidget* widget) : widget_(widget) {}
  Binding(const Binding&) = delete;
  Binding& operator=(const Binding&) = delete;
  virtual ~Binding() = default;

  // Brings the widget to the control's present state; raises no event of the control.
  virtual void show() = 0;

  // Lets the widget take input or not; a binding whose widget is always usable overrides it.
  virtual void enable(bool enabled) { widget_->setEnabled(enabled); }

  QWidget* widget() const { return widget_; }

  bool waiting = false;  // the control changed since the last show()

 private:
  QWidget* widget_;
};

}  // namespace vireon::adapters
