#include "adapters/qt/timer_binding.h"

#include <chrono>

namespace vireon::adapters {
namespace {

constexpr std::chrono::milliseconds kLateRetry{2};  // what waits for no clock comes first

}  // namespace

TimerBinding::TimerBinding(const form::Timer& timer, const ModalGate& gate)
    : Binding(nullptr, gate),
      timer_(timer),
      gate_(gate),
      late_(
          gate, [this] { tick(); }, kLateRetry) {
  clockwork_.setTimerType(Qt::PreciseTimer);
  QObject::connect(&clockwork_, &QTimer::timeout, &clockwork_, [this] { tick(); });
}

void TimerBinding::tick() {
  if (gate_.paintingOnly()) {
    late_.start(kLateRetry);
  } else if (!gate_.closed()) {
    timer_.tick();
  }
}

void TimerBinding::show() {
  if (!timer_.enabled() || timer_.interval() == 0) {
    clockwork_.stop();
    late_.stop();
  } else if (!clockwork_.isActive() || clockwork_.interval() != timer_.interval()) {
    clockwork_.start(timer_.interval());
  }
}

}  // namespace vireon::adapters
