#pragma once

#include <QTimer>
#include <chrono>
#include <functional>

#include "adapters/qt/modal_gate.h"

namespace vireon::adapters {

// Runs the action at the event loop's next turn, or when the windows no longer only paint and no message is
// open any more; not at all where `owner` is gone by then. The action may destroy the owner, none of whose
// events is under way. `gate` outlives the owner.
void runLater(const ModalGate& gate, QObject& owner, const std::function<void()>& action);

// Something to be done at the event loop's next turn, or later, once however often it is asked for; while the
// windows only paint it waits.
class PatientTimer {
 public:
  // `gate` outlives the timer, and the timer its action. While it waits it tries again after `retry`: what
  // has none comes first when the painting ends, before ticks that are behind.
  PatientTimer(const ModalGate& gate, std::function<void()> action, std::chrono::milliseconds retry = {});

  void start(std::chrono::milliseconds delay = {}) { timer_.start(delay); }
  void stop() { timer_.stop(); }

 private:
  void ring();

  const ModalGate& gate_;
  std::function<void()> action_;
  std::chrono::milliseconds retry_;
  QTimer timer_;
};

}  // namespace vireon::adapters
