#pragma once

#include <QTimer>

#include "adapters/qt/binding.h"
#include "adapters/qt/patient_timer.h"
#include "form/timer.h"

namespace vireon::adapters {

// Ticks a timer control. Ticks that fall due while the gate is closed are left out; while the window only
// paints they wait, all of them as one.
class TimerBinding : public Binding {
 public:
  // `timer` and `gate` outlive the binding.
  TimerBinding(const form::Timer& timer, const ModalGate& gate);

  void show() override;

 private:
  void tick();

  const form::Timer& timer_;
  const ModalGate& gate_;
  QTimer clockwork_;
  PatientTimer late_;
};

}  // namespace vireon::adapters
