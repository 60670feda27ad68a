#pragma once

#include <QTimer>
#include <chrono>
#include <functional>

#include "adapters/qt/modal_gate.h"

namespace vireon::adapters {

// Runs the action at the event loop's next turn, or when the windows no longer only paint; not at all where
// `owner` is gone by then. The action may destroy the owner, none of whose events is under way. `gate`
// outlives the owner.
void runLater(const ModalGate& gate, QObject& owner, const std::function<void()>& action);

// Something to be done at the event loop's next turn, or later, once however often it is asked for; while the
// windows only paint it waits.
class PatientTimer {
 public:
  // `gate` outlives the timer, and the timer its action.
  PatientTimer(const ModalGate& gate, std::function<void()> action);

  void start(std::chrono::milliseconds delay = {}) { timer_.start(delay); }
  void stop() { timer_.stop(); }

 private:
  void ring();

  const ModalGate& gate_;
  std::function<void()> action_;
  QTimer timer_;
};

}  // namespace vireon::adapters
