#pragma once

#include <QPointer>
#include <QWidget>

#include "adapters/qt/modal_gate.h"
#include "platform/beeper.h"
#include "platform/message_box.h"

namespace vireon::adapters {

// Message boxes over a parent window, application modal.
class QtMessageBoxes : public platform::MessageBoxes {
 public:
  // `gate` outlives this object.
  explicit QtMessageBoxes(ModalGate& gate) : gate_(gate) {}

  // Later messages stand over this window while it lives; without one they stand alone.
  void setParentWindow(QWidget* window) { window_ = window; }

  // A question is answered by No where its window goes while it is open.
  platform::MessageAnswer show(const platform::Message& message) override;

 private:
  ModalGate& gate_;
  QPointer<QWidget> window_;
};

// The desktop's bell.
class QtBeeper : public platform::Beeper {
 public:
  void beep() override;
};

}  // namespace vireon::adapters
