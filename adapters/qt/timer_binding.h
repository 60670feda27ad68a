#pragma once

#include <QTimer>

#include "adapters/qt/binding.h"
#include "adapters/qt/modal_gate.h"
#include "form/timer.h"

namespace vireon::adapters {

// Ticks a timer control; ticks that fall due while the gate is closed are left out.
class TimerBinding : public Binding {
 public:
  // `timer` and `gate` outlive the binding.
  TimerBinding(const form::Timer& timer, const ModalGate& gate);

  void show() override;

 private:
  const form::Timer& timer_;
  QTimer clockwork_;
};

}  // namespace vireon::adapters
