#pragma once

#include <QWidget>
#include <functional>

#include "adapters/qt/modal_gate.h"

namespace vireon::adapters {

// One control and the widget that shows it.
class Binding {
 public:
  // `widget` is null for a control without one; `gate` outlives the binding.
  Binding(QWidget* widget, const ModalGate& gate) : widget_(widget), gate_(gate) {}
  Binding(const Binding&) = delete;
  Binding& operator=(const Binding&) = delete;
  virtual ~Binding() = default;

  // Brings the widget to the control's present state; raises no event of the control.
  virtual void show() = 0;

  // Lets the widget take input or not; a binding whose widget is always usable overrides it.
  virtual void enable(bool enabled) { widget_->setEnabled(enabled); }

  QWidget* widget() const { return widget_; }

  bool waiting = false;  // the control changed since the last show()

 protected:
  // Does to the control what was done to its widget or action, `face`: at once, or when the windows no longer
  // only paint. Then there is no input of a mouse or a keyboard, but an assistive technology works on, and so
  // does a button that its shortcut has pressed. What a message overtakes is undone, as a mouse's click is.
  void act(QObject& face, const std::function<void()>& action);

 private:
  QWidget* widget_;
  const ModalGate& gate_;
};

}  // namespace vireon::adapters
