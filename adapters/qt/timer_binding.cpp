#include "adapters/qt/timer_binding.h"

namespace vireon::adapters {

TimerBinding::TimerBinding(const form::Timer& timer, const ModalGate& gate)
    : Binding(nullptr), timer_(timer) {
  clockwork_.setTimerType(Qt::PreciseTimer);
  QObject::connect(&clockwork_, &QTimer::timeout, &clockwork_, [&timer, &gate] {
    if (!gate.closed()) {
      timer.tick();
    }
  });
}

void TimerBinding::show() {
  if (!timer_.enabled() || timer_.interval() == 0) {
    clockwork_.stop();
  } else if (!clockwork_.isActive() || clockwork_.interval() != timer_.interval()) {
    clockwork_.start(timer_.interval());
  }
}

}  // namespace vireon::adapters
